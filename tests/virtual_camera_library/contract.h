// The virtual camera's modules driven through the module contract directly,
// as the library drives them, for the calls the library has no export for yet.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include <vmc/codes.h>
#include <vmc/module.h>
#include <vmc/vmc.h>

namespace vcam::test {

class Contract {
public:
    Contract() {
        link_ = dlopen((std::string(VMC_MODULE_DIR) + "/IMOD_VIRTUAL.so").c_str(), RTLD_NOW);
        device_ = dlopen((std::string(VMC_MODULE_DIR) + "/DMOD258.so").c_str(), RTLD_NOW);
        EXPECT_NE(nullptr, link_);
        EXPECT_NE(nullptr, device_);
        interface_.interfaceCode = VMC_INTERFACE_VIRTUAL;
        interface_.handle = link_;
#define CONTRACT_BIND(slot, name) interface_.name = reinterpret_cast<name##Fn>(dlsym(link_, #name));
        VMC_INTERFACE_ENTRIES(CONTRACT_BIND)
#undef CONTRACT_BIND
#define CONTRACT_BIND(slot, name) module_.name = reinterpret_cast<name##Fn>(dlsym(device_, #name));
        VMC_DEVICE_ENTRIES(CONTRACT_BIND)
#undef CONTRACT_BIND
        uint32_t error = 0;
        interface_.INT_Init(&error);
    }
    ~Contract() {
        dlclose(device_);
        dlclose(link_);
    }

    // The cameras on the link: ids and codes.
    uint32_t Detect(uint32_t* ids, uint32_t* codes) {
        uint32_t count = 0, error = 0;
        interface_.INT_DetectDevice(&count, ids, codes, &error);
        return count;
    }

    vmc_device_handle Open(uint32_t deviceId) {
        vmc_device_handle handle = 0;
        uint32_t error = 0;
        EXPECT_EQ(1u, module_.DEV_OpenDevice(VMC_INTERFACE_VIRTUAL, &interface_, deviceId, &handle, &error))
            << "error " << error;
        return handle;
    }

    const DeviceModule& Module() const { return module_; }

private:
    void* link_ = nullptr;
    void* device_ = nullptr;
    InterfaceModule interface_ = {};
    DeviceModule module_ = {};
};

}  // namespace vcam::test
