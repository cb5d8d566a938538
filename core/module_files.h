// Which module file serves a device or interface code. Header-only, so that
// the vmc tool and the virtual camera's profile check use the library's own
// tables rather than copies.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vmc {

struct ModuleFile {
    uint32_t code;
    const char* file;  // base name, without ".so"
};

inline constexpr ModuleFile kDeviceModuleFiles[] = {
#define DEVICE_MODULE_FILE(code, file) {code, file},
#include "core/device_module_files.def"
#undef DEVICE_MODULE_FILE
};

inline constexpr ModuleFile kInterfaceModuleFiles[] = {
#define INTERFACE_MODULE_FILE(code, file) {code, file},
#include "core/interface_module_files.def"
#undef INTERFACE_MODULE_FILE
};

// The file of a code in one of the tables, or null when the code has none.
template <size_t N>
constexpr const char* ModuleFileOf(const ModuleFile (&table)[N], uint32_t code) {
    for (const ModuleFile& row : table)
        if (row.code == code) return row.file;
    return nullptr;
}

}  // namespace vmc
