// The cost of the call frame on the scriptable test module:
//  - an uncontended device lock and release, beside a bare lock and unlock
//    of a plain recursive pthread mutex, and beside one direct call of the
//    module's link query (the lock makes two);
//  - a whole open and close of a device, with the module calls it makes,
//    with and without loading the module file.
#include <benchmark/benchmark.h>
#include <pthread.h>

#include <dlfcn.h>

#include <cstdlib>
#include <string>

#include <vmc/codes.h>
#include <vmc/module.h>

#include "core/locks.h"
#include "tests/fakes/fake.h"

namespace {

constexpr uint32_t kHandle = 7;

void ScriptCamera() {
    FAKE_Reset();
    const uint32_t camera[] = {26, 1001};
    FAKE_SetList("IMOD_VIRTUAL", "INT_DetectDevice", 0, 0, 0, camera, 1, 1);
    FAKE_SetAnswer("DMOD026", "DEV_OpenDevice", 0, 0, 0, kHandle, 0, 1);
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", FAKE_ANY, 6, 0, 0, 0, 1);
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", FAKE_ANY, 7, 0, 0, 0, 1);
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", 0, 12, 0, 1001, 0, 1);
    FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", 0, 23, 0, 300, 0, 1);
    for (uint32_t code : {2u, 3u, 4u, 33u, 47u})  // what a head must say: rate, resolution, shutter, frames
        FAKE_SetAnswer("DMOD026", "DEV_GetDeviceCaps", FAKE_ANY, code, 0, 1, 0, 1);
    const uint32_t heads[] = {1};
    FAKE_SetList("DMOD026", "DEV_GetList", 0, 19, 0, heads, 1, 1);
}

uint32_t OpenCamera() {
    uint32_t error = 0, deviceNo = VMC_MAX_DEVICES;
    OpenParam param = {26, 1001, VMC_INTERFACE_VIRTUAL};
    if (!VMC_OpenDevice(&param, &deviceNo, &error)) std::abort();
    return deviceNo;
}

struct Library {
    Library() {
        setenv("VMC_MODULE_PATH", VMC_TEST_MODULE_DIR, 1);
        uint32_t error = 0;
        VMC_Init(&error);
        DetectInfo info = {};
        ScriptCamera();
        VMC_DetectDevice(VMC_INTERFACE_VIRTUAL, nullptr, 0, 0, &info, &error);
    }
};

void Setup() { static Library library; }

void BM_PlainRecursiveMutex(benchmark::State& state) {
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_t mutex;
    pthread_mutex_init(&mutex, &attributes);
    for (auto _ : state) {
        pthread_mutex_lock(&mutex);
        pthread_mutex_unlock(&mutex);
    }
    pthread_mutex_destroy(&mutex);
}
BENCHMARK(BM_PlainRecursiveMutex);

void BM_TakeDeviceLock(benchmark::State& state) {
    Setup();
    ScriptCamera();
    const uint32_t deviceNo = OpenCamera();
    uint32_t error = 0, iteration = 0;
    for (auto _ : state) {
        if (!vmc::TakeDeviceLock(deviceNo, &error)) std::abort();
        vmc::ReleaseDeviceLock(deviceNo);
        if (++iteration % 4096 == 0) FAKE_ClearLog();  // the log would grow without end
    }
    VMC_CloseDevice(deviceNo, &error);
}
BENCHMARK(BM_TakeDeviceLock);

void BM_ModuleCall(benchmark::State& state) {
    Setup();
    ScriptCamera();
    const std::string path = std::string(VMC_TEST_MODULE_DIR) + "/DMOD026.so";
    void* module = dlopen(path.c_str(), RTLD_NOW);
    auto getCaps = reinterpret_cast<DEV_GetDeviceCapsFn>(dlsym(module, "DEV_GetDeviceCaps"));
    uint32_t value = 0, error = 0, iteration = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(getCaps(kHandle, 0, VMC_CODE_CONNECT_STATE, 0, &value, nullptr, &error));
        if (++iteration % 4096 == 0) FAKE_ClearLog();
    }
    dlclose(module);
}
BENCHMARK(BM_ModuleCall);

void BM_OpenClose(benchmark::State& state) {
    Setup();
    ScriptCamera();
    uint32_t calls = 0, error = 0;
    for (auto _ : state) {
        FAKE_ClearLog();
        VMC_CloseDevice(OpenCamera(), &error);
        calls = FAKE_CallCount();
    }
    state.counters["module_calls"] = calls;
}
BENCHMARK(BM_OpenClose);

// The same with a second device keeping the module loaded: no file load or unload.
void BM_OpenCloseModuleLoaded(benchmark::State& state) {
    Setup();
    ScriptCamera();
    const uint32_t keeper = OpenCamera();
    uint32_t calls = 0, error = 0;
    for (auto _ : state) {
        FAKE_ClearLog();
        VMC_CloseDevice(OpenCamera(), &error);
        calls = FAKE_CallCount();
    }
    VMC_CloseDevice(keeper, &error);
    state.counters["module_calls"] = calls;
}
BENCHMARK(BM_OpenCloseModuleLoaded);

}  // namespace

BENCHMARK_MAIN();
