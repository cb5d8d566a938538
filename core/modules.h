// The tables of loaded device and interface modules: code-to-file maps,
// loading, binding by name, and unloading of device modules.
#pragma once

#include <cstdint>

#include "core/library_state.h"

namespace vmc {

// Loads the file of deviceCode into an empty slot and stores the handle.
// Error 102 for a slot that holds a module, 100 for an unknown code or a
// file that does not load. The caller stores the code, binds and calls DEV_Init.
uint32_t LoadDeviceModule(uint32_t deviceCode, DeviceModule& slot, uint32_t* error);
uint32_t LoadInterfaceModule(uint32_t interfaceCode, InterfaceModule& slot, uint32_t* error);

// Resolves every entry by name into its slot; absent names stay null.
void BindDeviceModule(DeviceModule& slot);
void BindInterfaceModule(InterfaceModule& slot);

// Clears the entries, frees the file and zeroes the slot. Error 1, or 101
// when the system refused to free it, or 103 for a slot without a module.
uint32_t UnloadDeviceModule(DeviceModule& slot, uint32_t* error);

// The slot for deviceCode: the one that has it, else the first free one;
// -1 when neither exists.
int FindDeviceModuleSlot(uint32_t deviceCode);
// The interface slot that holds interfaceCode, or -1.
int FindInterfaceSlot(uint32_t interfaceCode);

}  // namespace vmc
