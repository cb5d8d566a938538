#include "camera/camera_sensor.h"

#include <algorithm>
#include <cmath>

namespace vcam {
namespace {

// A budget of 0 means the profile sets no limit.
bool Fits(const CameraProfile& camera, uint64_t width, uint64_t height, uint64_t rate) {
    return camera.pixelRate == 0 || width * height * rate <= camera.pixelRate;
}

uint32_t Step(uint32_t step) { return step ? step : 1; }

uint32_t RoundDownTo(uint32_t value, uint32_t step) { return value / Step(step) * Step(step); }

// The tallest height a width can have at a rate, on the height step; 0 when none.
uint32_t TallestHeight(const CameraProfile& camera, const HeadProfile& head, uint32_t width, uint32_t rate) {
    uint64_t height = head.sensorHeight;
    if (camera.pixelRate != 0 && rate != 0) height = std::min<uint64_t>(height, camera.pixelRate / rate / width);
    const uint32_t tallest = RoundDownTo(static_cast<uint32_t>(height), camera.heightStep);
    return tallest >= camera.minHeight && tallest > 0 ? tallest : 0;
}

// The list offers about sixteen heights a width, so that it stays short on
// tall sensors: the tallest that fits, then the multiples of a coarser step.
uint32_t ListHeightStep(const CameraProfile& camera, const HeadProfile& head) {
    const uint32_t step = Step(camera.heightStep);
    const uint32_t coarse = (head.sensorHeight / 16 + step - 1) / step * step;
    return std::max(step, coarse);
}

// Standard shutter speeds above the rate, 1-2-5 in each decade.
std::vector<uint32_t> NiceSpeeds(uint32_t limit) {
    std::vector<uint32_t> speeds;
    for (uint64_t decade = 1; decade <= limit; decade *= 10)
        for (uint64_t factor : {1, 2, 5})
            if (decade * factor <= limit) speeds.push_back(static_cast<uint32_t>(decade * factor));
    return speeds;
}

}  // namespace

std::vector<uint32_t> RateChoices(const CameraProfile& camera, const HeadProfile& head) {
    std::vector<uint32_t> rates;
    for (uint32_t rate : camera.recordRates)
        if (rate != 0 && TallestHeight(camera, head, std::max(camera.minWidth, Step(camera.widthStep)), rate))
            rates.push_back(rate);
    return rates;
}

std::vector<uint32_t> ResolutionChoices(const CameraProfile& camera, const HeadProfile& head, uint32_t rate) {
    std::vector<uint32_t> list;
    const uint32_t widthStep = Step(camera.widthStep);
    const uint32_t listStep = ListHeightStep(camera, head);
    for (uint32_t width = RoundDownTo(head.sensorWidth, widthStep); width >= camera.minWidth && width > 0;
         width -= widthStep) {
        const uint32_t tallest = TallestHeight(camera, head, width, rate);
        if (tallest == 0) continue;
        list.push_back(Pack(width, tallest));
        for (int64_t height = RoundDownTo(tallest - 1, listStep); height >= camera.minHeight && height > 0;
             height -= listStep)
            list.push_back(Pack(width, static_cast<uint32_t>(height)));
        const uint32_t smallest = std::max(camera.minHeight, Step(camera.heightStep));
        if (Low(list.back()) != smallest && smallest < tallest) list.push_back(Pack(width, smallest));
        if (width < widthStep) break;
    }
    return list;
}

uint32_t FitResolution(const CameraProfile& camera, const HeadProfile& head, uint32_t rate, uint32_t width,
                       uint32_t height) {
    const std::vector<uint32_t> list = ResolutionChoices(camera, head, rate);
    for (uint32_t packed : list)
        if (High(packed) <= width && Low(packed) <= height) return packed;
    return list.empty() ? 0 : list.back();
}

uint32_t FullResolutionRate(const CameraProfile& camera, const HeadProfile& head) {
    uint32_t best = 0;
    for (uint32_t rate : RateChoices(camera, head))
        if (Fits(camera, head.sensorWidth, head.sensorHeight, rate)) best = std::max(best, rate);
    return best;
}

std::vector<uint32_t> ShutterChoices(const CameraProfile& camera, uint32_t rate) {
    const uint32_t fastest = std::max(camera.fastestShutter, rate);
    std::vector<uint32_t> list = {rate};
    for (uint32_t speed : NiceSpeeds(fastest))
        if (speed > rate) list.push_back(speed);
    if (list.back() != fastest) list.push_back(fastest);
    return list;
}

uint64_t ShutterNsec(uint32_t fps) { return fps ? (1000000000ull + fps / 2) / fps : 0; }

uint64_t ShortestExposureNsec(const CameraProfile& camera) { return ShutterNsec(std::max(camera.fastestShutter, 1u)); }

uint64_t FramePeriodNsec(uint32_t rate) { return ShutterNsec(rate); }

void FitShutter(const CameraProfile& camera, Settings* settings) {
    const uint64_t period = FramePeriodNsec(settings->rate);
    if (settings->shutterNsec != 0 && settings->shutterNsec <= period && settings->shutterFps >= settings->rate)
        return;
    const std::vector<uint32_t> list = ShutterChoices(camera, settings->rate);
    auto next = std::lower_bound(list.begin(), list.end(), settings->shutterFps);
    settings->shutterFps = next == list.end() ? list.back() : *next;
    settings->shutterNsec = ShutterNsec(settings->shutterFps);
}

void CentreSegment(const HeadProfile& head, Settings* settings) {
    settings->segmentX = (head.sensorWidth - settings->width) / 2;
    settings->segmentY = (head.sensorHeight - settings->height) / 2;
}

std::vector<uint32_t> BitDepthChoices(const HeadProfile& head) {
    std::vector<uint32_t> depths;
    for (uint32_t depth = 8; depth <= std::max(head.bitDepth, 8u); depth += 2) depths.push_back(depth);
    return depths;
}

// A small memory is still cut into kMinMemoryBlocks, so that it can be partitioned.
uint32_t MemoryBlocks(const HeadProfile& head) {
    const uint64_t blocks = head.memoryBytes / kMemoryBlockBytes;
    if (blocks >= kMinMemoryBlocks) return static_cast<uint32_t>(std::min<uint64_t>(blocks, 0xFFFFFFFFu));
    return static_cast<uint32_t>(std::clamp<uint64_t>(head.memoryBytes, 1, kMinMemoryBlocks));
}

uint64_t FrameBytes(const Settings& settings) {
    return (static_cast<uint64_t>(settings.width) * settings.height * settings.bitDepth + 7) / 8;
}

uint32_t FramesInBlocks(const HeadProfile& head, uint32_t blocks, const Settings& settings) {
    const uint64_t frameBytes = FrameBytes(settings);
    if (frameBytes == 0) return 0;
    // Bytes by share of the blocks, so that a memory smaller than a block still holds frames.
    const long double bytes = static_cast<long double>(head.memoryBytes) * blocks / MemoryBlocks(head);
    return static_cast<uint32_t>(std::min<long double>(bytes / frameBytes, 0xFFFFFFFFu));
}

uint32_t BlocksForFrames(const HeadProfile& head, uint32_t frames, const Settings& settings) {
    const long double bytes = static_cast<long double>(frames) * FrameBytes(settings);
    const long double blockBytes = static_cast<long double>(head.memoryBytes) / MemoryBlocks(head);
    return static_cast<uint32_t>(std::ceil(bytes / blockBytes));
}

std::vector<Partition> LayOutPartitions(const HeadProfile& head, uint32_t count,
                                        const std::map<uint32_t, uint32_t>& askedBlocks) {
    const uint32_t total = MemoryBlocks(head);
    std::vector<Partition> partitions(count);
    uint64_t asked = 0;
    bool complete = true;
    for (uint32_t i = 1; i <= count; ++i) {
        auto found = askedBlocks.find(i);
        if (found == askedBlocks.end() || found->second == 0) complete = false;
        else asked += found->second;
    }
    for (uint32_t i = 0; i < count; ++i)
        partitions[i].blocks = complete && asked <= total ? askedBlocks.at(i + 1) : total / count;
    return partitions;
}

Settings InitialSettings(const CameraProfile& camera, const HeadProfile& head) {
    Settings settings;
    const std::vector<uint32_t> rates = RateChoices(camera, head);
    settings.rate = rates.empty() ? 0 : rates.front();
    for (uint32_t rate : rates)
        if (Fits(camera, head.sensorWidth, head.sensorHeight, rate)) settings.rate = rate;
    const uint32_t packed = FitResolution(camera, head, settings.rate, head.sensorWidth, head.sensorHeight);
    settings.width = High(packed);
    settings.height = Low(packed);
    settings.roiWidth = settings.width;
    settings.roiHeight = settings.height;
    CentreSegment(head, &settings);
    settings.bitDepth = head.bitDepth;
    settings.shutterFps = settings.rate;
    settings.shutterNsec = ShutterNsec(settings.rate);
    FitShutter(camera, &settings);
    return settings;
}

}  // namespace vcam
