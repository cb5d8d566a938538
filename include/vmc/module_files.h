/*
 * module_files.h - which module file serves a device or an interface code.
 *
 * Part of the module contract: a device module is installed as the file its
 * device code names here, an interface module as the file of its interface
 * code, each NAME.so in a module folder. The rows are in
 * device_module_files.def and interface_module_files.def, one per code, for
 * any program that wants them as a table of its own (define
 * DEVICE_MODULE_FILE or INTERFACE_MODULE_FILE, then include the file).
 */
#ifndef VMC_MODULE_FILES_H
#define VMC_MODULE_FILES_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct VmcModuleFile {
    uint32_t code;
    const char* file; /* base name, without ".so" */
} VmcModuleFile;

static const VmcModuleFile vmcDeviceModuleFiles[] = {
#define DEVICE_MODULE_FILE(code, file) {code, file},
#include <vmc/device_module_files.def>
#undef DEVICE_MODULE_FILE
};

static const VmcModuleFile vmcInterfaceModuleFiles[] = {
#define INTERFACE_MODULE_FILE(code, file) {code, file},
#include <vmc/interface_module_files.def>
#undef INTERFACE_MODULE_FILE
};

/* The file of a code in one of the tables above, or null when it has none. */
static inline const char* vmc_module_file_of(const VmcModuleFile* table, size_t rows, uint32_t code) {
    for (size_t i = 0; i < rows; ++i)
        if (table[i].code == code) return table[i].file;
    return NULL;
}

static inline const char* vmc_device_module_file(uint32_t deviceCode) {
    return vmc_module_file_of(vmcDeviceModuleFiles, sizeof vmcDeviceModuleFiles / sizeof vmcDeviceModuleFiles[0],
                              deviceCode);
}

static inline const char* vmc_interface_module_file(uint32_t interfaceCode) {
    return vmc_module_file_of(vmcInterfaceModuleFiles,
                              sizeof vmcInterfaceModuleFiles / sizeof vmcInterfaceModuleFiles[0], interfaceCode);
}

#ifdef __cplusplus
}
#endif

#endif /* VMC_MODULE_FILES_H */
