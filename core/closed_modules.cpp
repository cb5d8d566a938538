#include "core/closed_modules.h"

#include "core/library_state.h"
#include "platform/module_loader.h"

namespace vmc {
namespace {

const char* const kFiles[] = {
#define CLOSED_MODULE(id, file) file,
#define CLOSED_ENTRY(id, name)
#include "core/closed_modules.def"
#undef CLOSED_MODULE
#undef CLOSED_ENTRY
};

struct EntryRow {
    ClosedModuleId module;
    const char* name;
};

const EntryRow kEntries[] = {
#define CLOSED_MODULE(id, file)
#define CLOSED_ENTRY(id, name) {ClosedModuleId::id, #name},
#include "core/closed_modules.def"
#undef CLOSED_MODULE
#undef CLOSED_ENTRY
};

static_assert(sizeof kEntries / sizeof kEntries[0] == kClosedEntryCount);

}  // namespace

void BindClosedModule(ClosedModuleId id) {
    auto index = static_cast<uint32_t>(id);
    void*& handle = state.closedModuleHandle[index];
    if (!handle) handle = platform::LoadModule(kFiles[index]);
    if (!handle) return;
    for (uint32_t i = 0; i < kClosedEntryCount; ++i)
        if (kEntries[i].module == id) state.closedEntries[i] = platform::ModuleSymbol(handle, kEntries[i].name);
}

void UnbindClosedModule(ClosedModuleId id) {
    auto index = static_cast<uint32_t>(id);
    for (uint32_t i = 0; i < kClosedEntryCount; ++i)
        if (kEntries[i].module == id) state.closedEntries[i] = nullptr;
    if (state.closedModuleHandle[index]) platform::FreeModule(state.closedModuleHandle[index]);
    state.closedModuleHandle[index] = nullptr;
}

void* ClosedModuleEntry(ClosedEntry entry) { return state.closedEntries[static_cast<uint32_t>(entry)]; }

}  // namespace vmc
