// The recording memory of a head: how many frames fit, and its partitions.
// Every head has its own memory; sizes are kept in blocks of the memory so
// that they survive a change of resolution or bit depth.
#include "camera/camera_codes.h"
#include "camera/camera_sensor.h"
#include "vmc/codes.h"
#include "vmc/vmc.h"

namespace vcam {
namespace {

const Gate kPartitions = {"partitions", nullptr};

const HeadProfile& Head(const Access& access) { return *access.head->profile; }

// Frames of the current partition at the live settings, and its blocks.
uint32_t GetMaxFrames(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    const HeadState& head = *access.head;
    return Answer(value1, value2, MaxFrames(head), head.partitions[head.currentPartition - 1].blocks);
}

uint32_t GetMaxPartition(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.camera.profile.maxPartitions, MemoryBlocks(Head(access)));
}

uint32_t GetPartitionCount(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.head->partitionCount);
}

// A new layout empties the memory.
uint32_t SetPartitionCount(Access& access, uint32_t, uint32_t count, uint32_t) {
    HeadState& head = *access.head;
    if (count == 0 || count > access.camera.profile.maxPartitions || count > MemoryBlocks(Head(access)))
        return VMC_ERR_BAD_ARGUMENT;
    head.partitions = LayOutPartitions(Head(access), count, head.pendingBlocks);
    head.pendingBlocks.clear();
    head.partitionCount = count;
    head.currentPartition = 1;
    head.memoryModePartition = 1;
    return VMC_ERR_OK;
}

// Sub = partition: its frames at the live settings, and its blocks.
uint32_t GetPartitionSize(const Access& access, uint32_t sub, uint32_t* value1, uint32_t* value2) {
    const HeadState& head = *access.head;
    if (sub == 0 || sub > head.partitionCount) return VMC_ERR_BAD_ARGUMENT;
    const uint32_t blocks = head.partitions[sub - 1].blocks;
    return Answer(value1, value2, FramesInBlocks(Head(access), blocks, head.live), blocks);
}

// Sizes are asked ahead of the count that applies them.
uint32_t SetPartitionSize(Access& access, uint32_t sub, uint32_t frames, uint32_t) {
    HeadState& head = *access.head;
    if (sub == 0 || sub > access.camera.profile.maxPartitions || frames == 0) return VMC_ERR_BAD_ARGUMENT;
    head.pendingBlocks[sub] = BlocksForFrames(Head(access), frames, head.live);
    return VMC_ERR_OK;
}

uint32_t GetCurrentPartition(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.head->currentPartition);
}

uint32_t SetCurrentPartition(Access& access, uint32_t, uint32_t partition, uint32_t) {
    HeadState& head = *access.head;
    if (partition == 0 || partition > head.partitionCount) return VMC_ERR_BAD_ARGUMENT;
    head.currentPartition = partition;
    if (access.camera.partitionIncMode != 2) head.memoryModePartition = partition;
    return VMC_ERR_OK;
}

uint32_t GetMemoryModePartition(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.head->memoryModePartition);
}

uint32_t SetMemoryModePartition(Access& access, uint32_t, uint32_t partition, uint32_t) {
    HeadState& head = *access.head;
    if (partition == 0 || partition > head.partitionCount) return VMC_ERR_BAD_ARGUMENT;
    head.memoryModePartition = partition;
    return VMC_ERR_OK;
}

// 0 keeps the partition; 1 moves on after each recording; 2 as 1, with the
// partition shown on the memory side chosen apart.
constexpr uint32_t kIncrementModes = 3;

uint32_t GetIncrementMode(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.camera.partitionIncMode);
}

uint32_t SetIncrementMode(Access& access, uint32_t, uint32_t mode, uint32_t) {
    if (mode >= kIncrementModes) return VMC_ERR_BAD_ARGUMENT;
    access.camera.partitionIncMode = mode;
    return VMC_ERR_OK;
}

uint32_t GetPartitionLock(const Access& access, uint32_t, uint32_t* value1, uint32_t* value2) {
    return Answer(value1, value2, access.camera.partitionLock[0], access.camera.partitionLock[1]);
}

uint32_t SetPartitionLock(Access& access, uint32_t, uint32_t value1, uint32_t value2) {
    access.camera.partitionLock[0] = value1;
    access.camera.partitionLock[1] = value2;
    return VMC_ERR_OK;
}

const CodeEntry kCodes[] = {
    {VMC_CODE_MAX_FRAMES, Scope::Head, {}, GetMaxFrames, nullptr, false},
    {VMC_CODE_MAX_FRAMES_CACHE, Scope::Head, {}, GetMaxFrames, nullptr, false},
    {VMC_CODE_MAX_PARTITION, Scope::Head, kPartitions, GetMaxPartition, nullptr, false},
    {VMC_CODE_PARTITION_COUNT, Scope::Head, kPartitions, GetPartitionCount, SetPartitionCount, true},
    {VMC_CODE_PARTITION_LIST, Scope::Head, kPartitions, GetPartitionSize, SetPartitionSize, true},
    {VMC_CODE_CURRENT_PARTITION, Scope::Head, kPartitions, GetCurrentPartition, SetCurrentPartition, true},
    {VMC_CODE_MEMORY_MODE_PARTITION, Scope::Head, kPartitions, GetMemoryModePartition, SetMemoryModePartition, false},
    {VMC_CODE_PARTITION_INC_MODE, Scope::Device, kPartitions, GetIncrementMode, SetIncrementMode, true},
    {VMC_CODE_PARTITION_LOCK, Scope::Device, kPartitions, GetPartitionLock, SetPartitionLock, false},
};

uint32_t ListIncrementModes(const Access&, uint32_t, std::vector<uint32_t>* list) {
    list->clear();
    for (uint32_t mode = 0; mode < kIncrementModes; ++mode) list->push_back(mode);
    return VMC_ERR_OK;
}

const ListEntry kLists[] = {
    {VMC_LIST_PARTITION_INC_MODE, Scope::Device, kPartitions, ListIncrementModes},
};

}  // namespace

std::span<const CodeEntry> PartitionCodes() { return kCodes; }
std::span<const ListEntry> PartitionLists() { return kLists; }

uint32_t MaxFrames(const HeadState& head) {
    return FramesInBlocks(*head.profile, head.partitions[head.currentPartition - 1].blocks, head.live);
}

}  // namespace vcam
