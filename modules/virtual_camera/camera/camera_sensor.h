// The rules a sensor imposes on the recording settings: which rates and
// resolutions it can read out (a pixel-rate budget), which exposures fit a
// frame period, and how many frames fit a memory.
#pragma once

#include <cstdint>
#include <vector>

#include "camera/camera_state.h"

namespace vcam {

inline uint32_t Pack(uint32_t high, uint32_t low) { return (high << 16) | (low & 0xFFFFu); }
inline uint32_t High(uint32_t packed) { return packed >> 16; }
inline uint32_t Low(uint32_t packed) { return packed & 0xFFFFu; }

// Rates of the profile at which at least the smallest resolution can be read out.
std::vector<uint32_t> RateChoices(const CameraProfile& camera, const HeadProfile& head);
// Resolutions offered at a rate, packed, widest first and then tallest first.
std::vector<uint32_t> ResolutionChoices(const CameraProfile& camera, const HeadProfile& head, uint32_t rate);
// The largest offered resolution no wider and no taller than the present one.
uint32_t FitResolution(const CameraProfile& camera, const HeadProfile& head, uint32_t rate, uint32_t width,
                       uint32_t height);
// The highest rate at which the whole sensor is read out; 0 when none.
uint32_t FullResolutionRate(const CameraProfile& camera, const HeadProfile& head);

// Shutter speeds (1/s) offered at a rate: the rate itself up to the fastest shutter.
std::vector<uint32_t> ShutterChoices(const CameraProfile& camera, uint32_t rate);
uint64_t ShutterNsec(uint32_t fps);
uint64_t ShortestExposureNsec(const CameraProfile& camera);
uint64_t FramePeriodNsec(uint32_t rate);
// Keeps an exposure that still fits the rate, else picks the nearest offered one.
void FitShutter(const CameraProfile& camera, Settings* settings);
// Centres the recorded window on the sensor.
void CentreSegment(const HeadProfile& head, Settings* settings);

// Bit depths a head records with: 8 and up in steps of 2, to the sensor's depth.
std::vector<uint32_t> BitDepthChoices(const HeadProfile& head);

// Memory: blocks of the head, bytes of a partition, frames that fit.
inline constexpr uint64_t kMemoryBlockBytes = 16ull << 20;
inline constexpr uint64_t kMinMemoryBlocks = 256;
uint32_t MemoryBlocks(const HeadProfile& head);
uint64_t FrameBytes(const Settings& settings);
uint32_t FramesInBlocks(const HeadProfile& head, uint32_t blocks, const Settings& settings);
uint32_t BlocksForFrames(const HeadProfile& head, uint32_t frames, const Settings& settings);
// Lays out `count` equal partitions, or the sizes asked for when they fit.
std::vector<Partition> LayOutPartitions(const HeadProfile& head, uint32_t count,
                                        const std::map<uint32_t, uint32_t>& askedBlocks);

// The settings a head starts with: the fastest rate offered at full resolution (or the slowest rate).
Settings InitialSettings(const CameraProfile& camera, const HeadProfile& head);

}  // namespace vcam
