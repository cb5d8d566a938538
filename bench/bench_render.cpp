// Rendering a frame of the virtual camera, against a memcpy of a 2 MiB frame
// (a 1024 x 1024 16-bit mono frame). A mono frame is a copy of a cached
// background plus a small disc, so it should run close to the memcpy;
// converted colour also demosaics the pixels around the disc.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "camera/image.h"

namespace {

constexpr size_t kReferenceBytes = size_t(1024) * 1024 * 2;

void BM_Memcpy(benchmark::State& state) {
    std::vector<uint8_t> from(kReferenceBytes, 0x5A), to(kReferenceBytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), kReferenceBytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(kReferenceBytes));
}
BENCHMARK(BM_Memcpy);

void Render(benchmark::State& state, uint32_t width, uint32_t height, vcam::ColourLayout colour, bool raw,
            uint32_t depth) {
    vcam::FrameFormat format;
    format.width = width;
    format.height = height;
    format.bitDepth = 12;
    format.colour = colour;
    format.rawMosaic = raw;
    format.depth = depth;
    std::vector<uint8_t> out(vcam::FrameBytes(format));
    vcam::FrameId id;
    vcam::RenderFrame(format, id, out.data());  // the background is built once, outside the timing
    for (auto _ : state) {
        ++id.absolute;
        ++id.number;
        vcam::RenderFrame(format, id, out.data());
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(out.size()));
}

void BM_RenderMono16(benchmark::State& state) { Render(state, 1024, 1024, vcam::ColourLayout::Mono, false, 16); }
BENCHMARK(BM_RenderMono16);

void BM_RenderMono8(benchmark::State& state) { Render(state, 1024, 1024, vcam::ColourLayout::Mono, false, 8); }
BENCHMARK(BM_RenderMono8);

void BM_RenderBayerRaw16(benchmark::State& state) {
    Render(state, 1280, 800, vcam::ColourLayout::BayerGRBG, true, 16);
}
BENCHMARK(BM_RenderBayerRaw16);

void BM_RenderColour8(benchmark::State& state) { Render(state, 1280, 800, vcam::ColourLayout::BayerGRBG, false, 8); }
BENCHMARK(BM_RenderColour8);

}  // namespace

BENCHMARK_MAIN();
