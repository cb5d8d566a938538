#include "core/modules.h"

#include <cstddef>
#include <cstring>

#include <vmc/module_files.h>

#include "core/frame.h"
#include "core/module_calls.h"
#include "platform/module_loader.h"

namespace vmc {
namespace {

struct EntryName {
    const char* name;
    size_t offset;
};

// The entry tables are filled by name through their byte offsets, so the
// slot order lives in one place: the entry lists of module.h.
#define ENTRY_NAME(table, slot, name) {#name, offsetof(table, name)},
#define DEVICE_ENTRY_NAME(slot, name) ENTRY_NAME(DeviceModule, slot, name)
#define INTERFACE_ENTRY_NAME(slot, name) ENTRY_NAME(InterfaceModule, slot, name)
constexpr EntryName kDeviceEntries[] = {VMC_DEVICE_ENTRIES(DEVICE_ENTRY_NAME)};
constexpr EntryName kInterfaceEntries[] = {VMC_INTERFACE_ENTRIES(INTERFACE_ENTRY_NAME)};
#undef DEVICE_ENTRY_NAME
#undef INTERFACE_ENTRY_NAME
#undef ENTRY_NAME

template <class Table, size_t N>
void Bind(Table& slot, const EntryName (&entries)[N]) {
    for (const EntryName& entry : entries) {
        void* symbol = platform::ModuleSymbol(slot.handle, entry.name);
        std::memcpy(reinterpret_cast<char*>(&slot) + entry.offset, &symbol, sizeof symbol);
    }
}

// Shared by both tables: 100 is written first and stays on every failure.
template <class Table>
uint32_t Load(const char* file, Table& slot, uint32_t* error) {
    *error = VMC_ERR_MODULE_LOAD;
    if (slot.handle) return Fail(error, VMC_ERR_MODULE_LOADED);
    if (!file) return 0;
    void* handle = platform::LoadModule(file);
    if (!handle) return 0;
    slot.handle = handle;
    *error = VMC_ERR_OK;
    return 1;
}

}  // namespace

uint32_t LoadDeviceModule(uint32_t deviceCode, DeviceModule& slot, uint32_t* error) {
    return Load(vmc_device_module_file(deviceCode), slot, error);
}

uint32_t LoadInterfaceModule(uint32_t interfaceCode, InterfaceModule& slot, uint32_t* error) {
    return Load(vmc_interface_module_file(interfaceCode), slot, error);
}

void BindDeviceModule(DeviceModule& slot) { Bind(slot, kDeviceEntries); }
void BindInterfaceModule(InterfaceModule& slot) { Bind(slot, kInterfaceEntries); }

uint32_t UnloadDeviceModule(DeviceModule& slot, uint32_t* error) {
    void* handle = slot.handle;
    std::memset(reinterpret_cast<char*>(&slot) + VMC_MODULE_ENTRY_OFFSET(0), 0,
                sizeof(void*) * VMC_DEVICE_ENTRY_COUNT);
    if (!handle)
        *error = VMC_ERR_NOT_OPEN;
    else
        *error = platform::FreeModule(handle) ? VMC_ERR_OK : VMC_ERR_MODULE_FREE;
    std::memset(&slot, 0, sizeof slot);
    return *error == VMC_ERR_OK;
}

int FindDeviceModuleSlot(uint32_t deviceCode) {
    int firstFree = -1;
    for (uint32_t i = 0; i < kDeviceCount; ++i) {
        const DeviceModule& slot = state.deviceModules[i];
        if (slot.deviceCode == deviceCode) return static_cast<int>(i);
        if (!slot.handle && firstFree < 0) firstFree = static_cast<int>(i);
    }
    return firstFree;
}

int FindInterfaceSlot(uint32_t interfaceCode) {
    for (uint32_t i = 0; i < kInterfaceSlots; ++i)
        if (state.interfaceModules[i].interfaceCode == interfaceCode) return static_cast<int>(i);
    return -1;
}

InterfaceModule* InterfaceOf(uint32_t deviceNo) {
    if (Record(deviceNo).interfaceCode == 0) return nullptr;  // a free record has no interface
    int slot = FindInterfaceSlot(Record(deviceNo).interfaceCode);
    return slot < 0 ? nullptr : &state.interfaceModules[slot];
}

}  // namespace vmc
