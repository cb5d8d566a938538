// The virtual camera's transfer speed and the cost of opening its cameras:
//  - DEV_TransferMemImage of a 1024 x 1024 16-bit frame, beside a memcpy of
//    the same bytes (the reference);
//  - a whole VMC_OpenDevice + VMC_CloseDevice of each default camera, with
//    the exchanges it made on the link.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include "tests/virtual_camera_library/contract.h"
#include "tests/virtual_camera_library/virtual_test.h"

namespace {

constexpr size_t kFrameBytes = 1024 * 1024 * 2;

void BM_Memcpy2MiB(benchmark::State& state) {
    std::vector<uint8_t> from(kFrameBytes, 1), to(kFrameBytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), kFrameBytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * kFrameBytes);
}
BENCHMARK(BM_Memcpy2MiB)->UseRealTime();

// Records a few frames on the monochrome camera: armed in start mode,
// triggered, stopped a moment later; then shown in playback.
void Record(const DeviceModule& dev, vmc_device_handle handle) {
    uint32_t error = 0;
    dev.DEV_SetDeviceCaps(handle, 0, VMC_CODE_TRIGGER_MODE, 0, 0, 0, &error);
    dev.DEV_SetDeviceCaps(handle, 0, VMC_CODE_STATUS, 0, 2, 0, &error);
    dev.DEV_SetDeviceCaps(handle, 0, VMC_CODE_STATUS, 0, 8, 0, &error);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    dev.DEV_SetDeviceCaps(handle, 0, VMC_CODE_STATUS, 0, 0, 0, &error);
    dev.DEV_SetDeviceCaps(handle, 0, VMC_CODE_STATUS, 0, 1, 0, &error);
}

void BM_TransferMemImage(benchmark::State& state) {
    vcam::test::Contract contract;
    uint32_t ids[64], codes[64], error = 0;
    contract.Detect(ids, codes);
    const DeviceModule& dev = contract.Module();
    const vmc_device_handle mono = contract.Open(ids[0]);
    Record(dev, mono);
    std::vector<uint8_t> frame(kFrameBytes);
    for (auto _ : state) {
        if (!dev.DEV_TransferMemImage(mono, 1, 1, 16, frame.data(), &error)) {
            state.SkipWithError("the transfer failed");
            break;
        }
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * kFrameBytes);
    dev.DEV_CloseDevice(mono, &error);
}
BENCHMARK(BM_TransferMemImage)->UseRealTime();

void BM_OpenClose(benchmark::State& state) {
    uint32_t error = 0;
    DetectInfo info = vcam::test::DetectVirtual(&error);
    const uint32_t entry = static_cast<uint32_t>(state.range(0));
    uint64_t exchanges = 0;
    for (auto _ : state) {
        const uint64_t before = vcam::test::Exchanges(info.entries[entry].deviceId);
        uint32_t deviceNo = VMC_MAX_DEVICES;
        if (!VMC_OpenDevice(&info.entries[entry], &deviceNo, &error)) {
            state.SkipWithError("the open failed");
            break;
        }
        VMC_CloseDevice(deviceNo, &error);
        exchanges = vcam::test::Exchanges(info.entries[entry].deviceId) - before;
    }
    state.SetLabel(entry == 0 ? "monochrome" : "colour two-head");
    state.counters["link_exchanges"] = double(exchanges);
}
BENCHMARK(BM_OpenClose)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
