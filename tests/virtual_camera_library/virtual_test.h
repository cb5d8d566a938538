// Helpers of the virtual camera tests: profiles written to temporary files,
// and the library opened on the virtual link.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <vmc/codes.h>
#include <vmc/vmc.h>

namespace vcam::test {

// Makes the link read this profile: call before the first detection in the process.
inline std::string UseProfile(const std::string& json) {
    char path[] = "/tmp/vcam-profile-XXXXXX";
    const int fd = mkstemp(path);
    EXPECT_GE(fd, 0);
    std::ofstream(path) << json;
    close(fd);
    setenv("VMC_VIRTUAL_CAMERAS", path, 1);
    return path;
}

inline DetectInfo DetectVirtual(uint32_t* error) {
    DetectInfo info = {};
    VMC_Init(error);
    VMC_DetectDevice(VMC_INTERFACE_VIRTUAL, nullptr, 0, 0, &info, error);
    return info;
}

inline uint32_t OpenEntry(DetectInfo& info, uint32_t index, uint32_t* error) {
    uint32_t deviceNo = VMC_MAX_DEVICES;
    EXPECT_EQ(1u, VMC_OpenDevice(&info.entries[index], &deviceNo, error)) << "error " << *error;
    return deviceNo;
}

// The exchanges the virtual link carried for one camera so far.
inline uint64_t Exchanges(uint32_t deviceId) {
    const std::string path = std::string(VMC_MODULE_DIR) + "/IMOD_VIRTUAL.so";
    void* link = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (!link) return 0;
    auto count = reinterpret_cast<uint64_t (*)(uint32_t)>(dlsym(link, "VLINK_ExchangeCount"));
    const uint64_t exchanges = count ? count(deviceId) : 0;
    dlclose(link);
    return exchanges;
}

}  // namespace vcam::test
