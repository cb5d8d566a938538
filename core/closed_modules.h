// The optional closed modules: polarization analysis, image codec and the
// three storage readers. VMC_Init binds each that is present; the families
// that use them find a null entry when it is not.
#pragma once

#include <cstdint>

namespace vmc {

enum class ClosedModuleId : uint32_t {
#define CLOSED_MODULE(id, file) id,
#define CLOSED_ENTRY(id, name)
#include "core/closed_modules.def"
#undef CLOSED_MODULE
#undef CLOSED_ENTRY
    Count
};

enum class ClosedEntry : uint32_t {
#define CLOSED_MODULE(id, file)
#define CLOSED_ENTRY(id, name) name,
#include "core/closed_modules.def"
#undef CLOSED_MODULE
#undef CLOSED_ENTRY
    Count
};

inline constexpr uint32_t kClosedModuleCount = static_cast<uint32_t>(ClosedModuleId::Count);
inline constexpr uint32_t kClosedEntryCount = static_cast<uint32_t>(ClosedEntry::Count);

// Loads the module and looks up its entries; a missing module or entry stays null.
void BindClosedModule(ClosedModuleId id);
// Clears the entries and frees the module.
void UnbindClosedModule(ClosedModuleId id);
// The entry, or null when its module or the entry itself is absent.
void* ClosedModuleEntry(ClosedEntry entry);

}  // namespace vmc
