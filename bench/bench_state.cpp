// The cost of the cached model on the virtual cameras:
//  - a cached read (VMC_GetRecordRate) beside a plain load of the same field
//    (the reference): the price of the call frame;
//  - a request (VMC_ReqRecordRate), one exchange with the camera;
//  - a whole status poll (VMC_DeviceStatusUpdate) of each default camera,
//    with the exchanges it made on the link.
#include <benchmark/benchmark.h>

#include "tests/virtual_camera_library/virtual_test.h"

namespace {

// Detects once and opens one default camera for the benchmark's lifetime.
class OpenVirtual {
public:
    explicit OpenVirtual(uint32_t entry) {
        uint32_t error = 0;
        info_ = vcam::test::DetectVirtual(&error);
        if (info_.count > entry && VMC_OpenDevice(&info_.entries[entry], &deviceNo_, &error)) id_ = info_.entries[entry].deviceId;
        else deviceNo_ = VMC_MAX_DEVICES;
    }
    ~OpenVirtual() {
        uint32_t error = 0;
        if (ok()) VMC_CloseDevice(deviceNo_, &error);
    }
    bool ok() const { return deviceNo_ < VMC_MAX_DEVICES; }
    uint32_t deviceNo() const { return deviceNo_; }
    uint64_t exchanges() const { return vcam::test::Exchanges(id_); }

private:
    DetectInfo info_ = {};
    uint32_t deviceNo_ = VMC_MAX_DEVICES;
    uint32_t id_ = 0;
};

void BM_PlainFieldRead(benchmark::State& state) {
    static ChildRecord child;
    child.recordRate = 1000;
    const ChildRecord* volatile record = &child;
    for (auto _ : state) {
        uint32_t rate = record->recordRate;
        benchmark::DoNotOptimize(rate);
    }
}
BENCHMARK(BM_PlainFieldRead);

void BM_GetRecordRate(benchmark::State& state) {
    OpenVirtual camera(0);
    if (!camera.ok()) return state.SkipWithError("the open failed");
    uint32_t rate = 0, error = 0;
    for (auto _ : state) {
        VMC_GetRecordRate(camera.deviceNo(), 1, &rate, &error);
        benchmark::DoNotOptimize(rate);
    }
}
BENCHMARK(BM_GetRecordRate);

void BM_ReqRecordRate(benchmark::State& state) {
    OpenVirtual camera(0);
    if (!camera.ok()) return state.SkipWithError("the open failed");
    uint32_t rate = 0, error = 0;
    for (auto _ : state) {
        if (!VMC_ReqRecordRate(camera.deviceNo(), 1, &rate, &error)) return state.SkipWithError("the request failed");
        benchmark::DoNotOptimize(rate);
    }
}
BENCHMARK(BM_ReqRecordRate)->Unit(benchmark::kMicrosecond);

void BM_DeviceStatusUpdate(benchmark::State& state) {
    OpenVirtual camera(static_cast<uint32_t>(state.range(0)));
    if (!camera.ok()) return state.SkipWithError("the open failed");
    uint32_t error = 0;
    uint64_t exchanges = 0;
    for (auto _ : state) {
        const uint64_t before = camera.exchanges();
        if (!VMC_DeviceStatusUpdate(camera.deviceNo(), &error)) return state.SkipWithError("the poll failed");
        exchanges = camera.exchanges() - before;
    }
    state.SetLabel(state.range(0) == 0 ? "monochrome" : "colour two-head");
    state.counters["link_exchanges"] = double(exchanges);
}
BENCHMARK(BM_DeviceStatusUpdate)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
