// The module reads that do more than pass one answer through: they split a
// packed word, ask several codes under one hold of the lock, refresh a
// cached field, or turn a camera that can't say into an answer.
#include <cstring>
#include <initializer_list>
#include <utility>

#include "core/status_map.h"
#include "platform/text.h"
#include "state/cached_reads.h"
#include "state/module_reads.h"
#include "state/requests.h"

namespace vmc {
namespace {

// Devices whose heads can be exchanged while open: the colour type of a head
// may change under the cache.
constexpr uint32_t kExchangeableHeadsBit = 0x1000;
// Devices whose partition limits depend on the head: asked anew at each read.
constexpr uint32_t kHeadPartitionBits = 0x1400;
// Devices with a mechanical shutter error code of their own; the others
// report the state of the shutter.
constexpr uint32_t kFirstShutterErrorDevice = 28, kLastShutterErrorDevice = 32;

// The frame of a hand-written read: the checks of BeginModuleRead, the flag,
// the out-arguments (5), the lock where `locked`, then the work.
template <class Work>
uint32_t ParticularRead(uint32_t deviceNo, uint32_t childNo, ChildRule target, bool locked, const FlagRule& flag,
                        std::initializer_list<const void*> outs, uint32_t* error, Work&& work) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginModuleRead(deviceNo, childNo, target, locked, err)) return 0;
        if (!FlagSet(flag, deviceNo, childNo, err)) return 0;
        if (!AllGiven(outs, err)) return 0;
        bool taken = false;
        ScopedLock lock = ScopedLock::DeviceIf(locked, deviceNo, err, &taken);
        if (!taken) return 0;
        return work(err);
    });
}

constexpr bool kLocked = true, kUnlocked = false;

inline uint32_t High16(uint32_t word) { return word >> 16; }
inline uint32_t Low16(uint32_t word) { return word & 0xFFFFu; }

// One value of a device code into `value`; false when the module refused.
bool AskDevice(uint32_t deviceNo, uint32_t code, uint32_t sub, uint32_t* value1, uint32_t* value2, uint32_t* error) {
    return GetCaps(deviceNo, 0, code, sub, value1, value2, error) != 0;
}

// A word packing two 16-bit values, first in the high half.
bool AskPacked(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t* high, uint32_t* low, uint32_t* error) {
    uint32_t word = 0;
    if (!GetCaps(deviceNo, child, code, 0, &word, nullptr, error)) return false;
    *high = High16(word);
    *low = Low16(word);
    return true;
}

// Sub-codes 0 to 3 of a restriction code, two words each, into the outputs in order.
uint32_t ReadRestriction(uint32_t deviceNo, uint32_t childNo, uint32_t code, uint32_t* const (&outs)[8],
                         uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kLocked, kNoFlag,
                          {outs[0], outs[1], outs[2], outs[3], outs[4], outs[5], outs[6], outs[7]}, error,
                          [&](uint32_t* err) -> uint32_t {
                              for (uint32_t sub = 0; sub < 4; ++sub)
                                  if (!GetCaps(deviceNo, childNo, code, sub, outs[2 * sub], outs[2 * sub + 1], err))
                                      return 0;
                              return 1;
                          });
}

// A state word of a card, drive or medium: `a` goes in as the first value,
// the state comes back as the second.
uint32_t AskState(uint32_t deviceNo, uint32_t code, uint32_t slot, uint32_t a, uint32_t* word, uint32_t* error) {
    uint32_t in = a;
    return GetCaps(deviceNo, 0, code, slot, &in, word, error);
}

uint32_t ReadSplitState(uint32_t deviceNo, uint32_t code, uint32_t slot, uint32_t a, uint32_t* high, uint32_t* low,
                        uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {high, low}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t word = 0;
                              if (!AskState(deviceNo, code, slot, a, &word, err)) return 0;
                              *high = High16(word);
                              *low = Low16(word);
                              return 1;
                          });
}

// The words of a variable channel: rate, resolution and position (codes 50
// to 52, which must answer), then those of `extras` (code, output), each 0
// when the camera lacks it.
uint32_t ReadChannel(uint32_t deviceNo, uint32_t channel, bool locked, uint32_t* rate, uint32_t* width,
                     uint32_t* height, uint32_t* xPos, uint32_t* yPos,
                     std::initializer_list<std::pair<uint32_t, uint32_t*>> extras, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, locked, kNoFlag, {rate, width, height, xPos, yPos}, error,
                          [&](uint32_t* err) -> uint32_t {
                              for (const auto& extra : extras)
                                  if (!NotNull(extra.second, err)) return 0;
                              uint32_t size = 0, position = 0;
                              if (!AskDevice(deviceNo, VMC_CODE_VARIABLE_RATE, channel, rate, nullptr, err) ||
                                  !AskDevice(deviceNo, VMC_CODE_VARIABLE_RESOLUTION, channel, &size, nullptr, err) ||
                                  !AskDevice(deviceNo, VMC_CODE_VARIABLE_POSITION, channel, &position, nullptr, err))
                                  return 0;
                              *width = High16(size);
                              *height = Low16(size);
                              *xPos = High16(position);
                              *yPos = Low16(position);
                              for (const auto& [code, out] : extras)
                                  if (!AskDevice(deviceNo, code, channel, out, nullptr, err)) *out = 0;
                              *err = VMC_ERR_OK;
                              return 1;
                          });
}

// A limit of the camera's scratch channel: the given settings written first
// (code, value), then the limit read into one or two words. The writes
// change the scratch set. `second` is null for a limit of one word.
uint32_t ReadScratchLimit(uint32_t deviceNo, std::initializer_list<std::pair<uint32_t, uint32_t>> writes,
                          uint32_t limitCode, uint32_t* first, uint32_t* second, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {first}, error,
                          [&](uint32_t* err) -> uint32_t {
                              for (const auto& [code, value] : writes)
                                  if (!SetCaps(deviceNo, 0, code, 0, value, 0, err)) return 0;
                              return GetCaps(deviceNo, 0, limitCode, 0, first, second, err);
                          });
}

}  // namespace

uint32_t ReadMediaInfo(uint32_t deviceNo, uint32_t slot, MediaInfo* info, uint32_t* error) {
    std::memset(info, 0, sizeof *info);
    const uint32_t result = GetCaps(deviceNo, 0, VMC_CODE_MEDIA_INFO, slot, &info->value[0], &info->value[1], error);
    if (!result && IsNotSupported(error)) std::memset(info, 0, sizeof *info);
    return result;
}

uint32_t ReadLensParam(uint32_t deviceNo, uint32_t childNo, uint32_t parameter, uint32_t item, void* out,
                       uint32_t* error) {
    if (!Begin(error) || !DeviceNoInRange(deviceNo, error)) return 0;
    ScopedLock lock = ScopedLock::Device(deviceNo, error);
    if (!lock) return 0;
    if (!ChildRequired(deviceNo, childNo, error)) {
        lock.KeepHeld();  // intended: a bad head is refused with the lock still taken
        return 0;
    }
    return GetCapsWide(deviceNo, childNo, VMC_CODE_LENS_PARAM, item << 16 | parameter, out, nullptr, error);
}

}  // namespace vmc

using namespace vmc;

// ---- Answers the cache holds, refreshed where it may be stale -------------

// On cameras with exchangeable heads the colour type is the present head's:
// asked anew and kept as a signed byte, so that a head reporting 0xFF reads
// as -1 everywhere. The others keep what the open read.
VMC_EXPORT uint32_t VMC_GetColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* colorType, uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kUnlocked, kNoFlag, {colorType}, error,
                          [&](uint32_t* err) -> uint32_t {
                              ChildRecord& child = *Child(deviceNo, childNo);
                              if (!(Record(deviceNo).deviceCode & kExchangeableHeadsBit)) {
                                  *colorType = LoadField(child.colorType) & 0xFFu;
                                  return 1;
                              }
                              uint32_t value = 0;
                              const uint32_t result = RefreshColorType(deviceNo, childNo, &value, err);
                              const auto byte = static_cast<int8_t>(LoadField(child.colorType) & 0xFFu);
                              const auto widened = static_cast<uint32_t>(static_cast<int32_t>(byte));
                              StoreField(child.colorType, widened);
                              *colorType = widened;
                              return result;
                          });
}

VMC_EXPORT uint32_t VMC_GetMaxPartition(uint32_t deviceNo, uint32_t childNo, uint32_t* maxPartition, uint32_t* blocks,
                                        uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kUnlocked, kNoFlag, {maxPartition, blocks}, error,
                          [&](uint32_t* err) -> uint32_t {
                              const ChildRecord& child = *Child(deviceNo, childNo);
                              uint32_t partitions = LoadField(child.maxPartition);
                              uint32_t count = LoadField(child.maxPartitionBlocks);
                              uint32_t result = 1;
                              if (Record(deviceNo).deviceCode & kHeadPartitionBits)
                                  result = RefreshMaxPartition(deviceNo, childNo, &partitions, &count, err);
                              *maxPartition = partitions;
                              *blocks = count;
                              return result;
                          });
}

// While the camera records straight to a RapidPack the frame capacity
// follows the drive, so it is asked anew (from what the module holds).
VMC_EXPORT uint32_t VMC_GetMaxFrames(uint32_t deviceNo, uint32_t childNo, uint32_t* maxFrames, uint32_t* blocks,
                                     uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kUnlocked, kNoFlag, {maxFrames, blocks}, error,
                          [&](uint32_t* err) -> uint32_t {
                              const ChildRecord& child = *Child(deviceNo, childNo);
                              uint32_t frames = LoadField(child.maxFrames);
                              uint32_t count = LoadField(child.maxFrameBlocks);
                              if (LoadField(Record(deviceNo).directRecordRapidPack) &&
                                  !RefreshMaxFramesCache(deviceNo, childNo, &frames, &count, err))
                                  return 0;
                              *maxFrames = frames;
                              *blocks = count;
                              return 1;
                          });
}

VMC_EXPORT uint32_t VMC_GetVSyncExposeDeviation(uint32_t deviceNo, uint32_t* deviation, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {deviation}, error,
                          [&](uint32_t* err) -> uint32_t {
                              const uint32_t result = RefreshVSyncExposeDeviation(deviceNo, err);
                              *deviation = Record(deviceNo).vSyncExposeDeviation;
                              return result;
                          });
}

// The device's flag for child 0, the head's otherwise: a head may keep a
// temperature type of its own.
VMC_EXPORT uint32_t VMC_GetMemTemperatureType(uint32_t deviceNo, uint32_t childNo, uint32_t* type, uint32_t* error) {
    const FlagRule flag = childNo ? FlagRule{nullptr, nullptr, &ChildRecord::hasMemTemperature}
                                  : FlagRule{&DeviceRecord::hasMemTemperature};
    return ParticularRead(deviceNo, childNo, ChildRule::ChildOrDevice, kUnlocked, flag, {type}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t value = 0;
                              const uint32_t result = RefreshMemTemperature(deviceNo, childNo, &value, err);
                              *type = value;
                              return result;
                          });
}

// ---- Status ----------------------------------------------------------------

// The answer is kept whether or not the camera gave one: the metadata layer
// reads the last status the caller saw.
VMC_EXPORT uint32_t VMC_GetStatus(uint32_t deviceNo, uint32_t* status, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {status}, error,
                          [&](uint32_t* err) -> uint32_t {
                              const uint32_t result = GetCaps(deviceNo, 0, VMC_CODE_STATUS, 0, status, nullptr, err);
                              if (!RecordDeviceStatus(deviceNo, *status)) return Fail(err, VMC_ERR_NO_MEMORY);
                              return result;
                          });
}

// ---- Shading ---------------------------------------------------------------

// Type 0 when the camera does not tell; the call itself always succeeds.
VMC_EXPORT uint32_t VMC_GetShadingResponseType(uint32_t deviceNo, uint32_t childNo, uint32_t* type, uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kUnlocked, FlagRule{nullptr, nullptr, &ChildRecord::hasShading},
                          {type}, error, [&](uint32_t* err) -> uint32_t {
                              uint32_t value = 0;
                              const uint32_t result =
                                  GetCaps(deviceNo, 0, VMC_CODE_SHADING_RESPONSE_TYPE, 0, &value, nullptr, err);
                              *type = result == 1 ? value : 0;
                              *err = VMC_ERR_OK;
                              return 1;
                          });
}

// ---- Partitions and transfers ------------------------------------------------

VMC_EXPORT uint32_t VMC_GetPartitionList(uint32_t deviceNo, uint32_t childNo, uint32_t* count, uint32_t* frames,
                                         uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kLocked, kNoFlag, {count}, error,
                          [&](uint32_t* err) -> uint32_t {
                              if (!GetCaps(deviceNo, childNo, VMC_CODE_PARTITION_COUNT, 0, count, nullptr, err))
                                  return 0;
                              for (uint32_t partition = 1; frames && partition <= *count; ++partition) {
                                  uint32_t second = 0;
                                  if (!GetCaps(deviceNo, childNo, VMC_CODE_PARTITION_LIST, partition,
                                               &frames[partition - 1], &second, err))
                                      return 0;
                              }
                              *err = VMC_ERR_OK;
                              return 1;
                          });
}

// Bits 0-7, bit 8 (the raw-mosaic flag) and bits 16-23 of the option word.
VMC_EXPORT uint32_t VMC_GetTransferOption(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second,
                                          uint32_t* third, uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::Child, kLocked, kNoFlag, {first, second, third}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t word = 0;
                              if (!GetCaps(deviceNo, childNo, VMC_CODE_TRANSFER_OPTION, 0, &word, nullptr, err))
                                  return 0;
                              *first = word & 0xFFu;
                              *second = word >> 8 & 1u;
                              *third = word >> 16 & 0xFFu;
                              return 1;
                          });
}

// ---- Variable channels -------------------------------------------------------

VMC_EXPORT uint32_t VMC_GetVariableMaxResolution(uint32_t deviceNo, uint32_t rate, uint32_t* width, uint32_t* height,
                                                 uint32_t* error) {
    if (!height) width = nullptr;  // both words are the caller's: either missing is refused
    return ReadScratchLimit(deviceNo, {{VMC_CODE_VARIABLE_RATE, rate}}, VMC_CODE_VARIABLE_MAX_RESOLUTION, width,
                            height, error);
}

VMC_EXPORT uint32_t VMC_GetVariableMaxWidth(uint32_t deviceNo, uint32_t rate, uint32_t height, uint32_t* width,
                                            uint32_t* error) {
    return ReadScratchLimit(deviceNo, {{VMC_CODE_VARIABLE_RATE, rate}, {VMC_CODE_VARIABLE_RESOLUTION, Low16(height)}},
                            VMC_CODE_VARIABLE_MAX_WIDTH, width, nullptr, error);
}

VMC_EXPORT uint32_t VMC_GetVariableMaxHeight(uint32_t deviceNo, uint32_t rate, uint32_t width, uint32_t* height,
                                             uint32_t* error) {
    return ReadScratchLimit(deviceNo, {{VMC_CODE_VARIABLE_RATE, rate}, {VMC_CODE_VARIABLE_RESOLUTION, width << 16}},
                            VMC_CODE_VARIABLE_MAX_HEIGHT, height, nullptr, error);
}

VMC_EXPORT uint32_t VMC_GetVariableMaxRate(uint32_t deviceNo, uint32_t width, uint32_t height, uint32_t* rate,
                                           uint32_t* error) {
    return ReadScratchLimit(deviceNo, {{VMC_CODE_VARIABLE_RESOLUTION, width << 16 | Low16(height)}},
                            VMC_CODE_VARIABLE_MAX_RATE, rate, nullptr, error);
}

VMC_EXPORT uint32_t VMC_GetVariableChannelInfo(uint32_t deviceNo, uint32_t channel, uint32_t* rate, uint32_t* width,
                                               uint32_t* height, uint32_t* xPos, uint32_t* yPos, uint32_t* error) {
    return ReadChannel(deviceNo, channel, kLocked, rate, width, height, xPos, yPos, {}, error);
}

VMC_EXPORT uint32_t VMC_GetVariableChannelInfo2(uint32_t deviceNo, uint32_t channel, uint32_t* rate, uint32_t* width,
                                                uint32_t* height, uint32_t* xPos, uint32_t* yPos, uint32_t* fifth,
                                                uint32_t* error) {
    return ReadChannel(deviceNo, channel, kLocked, rate, width, height, xPos, yPos,
                       {{VMC_CODE_ETHERNET_INFO_2, fifth}}, error);
}

VMC_EXPORT uint32_t VMC_GetVariableChannelInfo3(uint32_t deviceNo, uint32_t channel, uint32_t* rate, uint32_t* width,
                                                uint32_t* height, uint32_t* xPos, uint32_t* yPos, uint32_t* fifth,
                                                uint32_t* sixth, uint32_t* error) {
    return ReadChannel(deviceNo, channel, kUnlocked, rate, width, height, xPos, yPos,
                       {{VMC_CODE_ETHERNET_INFO_2, fifth}, {VMC_CODE_VARIABLE_CHANNEL_INFO_3, sixth}}, error);
}

// Whether the camera would take a channel of this size: the size goes in as
// the first word.
VMC_EXPORT uint32_t VMC_GetEnableVariableChannelSetting(uint32_t deviceNo, uint32_t channel, uint32_t width,
                                                        uint32_t height, uint32_t* value, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {value}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t size = width << 16 | Low16(height);
                              return GetCaps(deviceNo, 0, VMC_CODE_ENABLE_VARIABLE_CHANNEL_SETTING, channel, &size,
                                             value, err);
                          });
}

// The restrictions come in the camera's order: sub 1 holds the first two
// words, sub 0 the next two, sub 2 the two after, sub 3 the last alone.
VMC_EXPORT uint32_t VMC_GetVariableRestriction(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* third,
                                               uint32_t* fourth, uint32_t* fifth, uint32_t* sixth, uint32_t* seventh,
                                               uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag,
                          {first, second, third, fourth, fifth, sixth, seventh}, error, [&](uint32_t* err) -> uint32_t {
                              const uint32_t code = VMC_CODE_VARIABLE_RESTRICTION;
                              return AskDevice(deviceNo, code, 0, third, fourth, err) &&
                                     AskDevice(deviceNo, code, 1, first, second, err) &&
                                     AskDevice(deviceNo, code, 2, fifth, sixth, err) &&
                                     AskDevice(deviceNo, code, 3, seventh, nullptr, err);
                          });
}

// ---- Auto exposure and image trigger ------------------------------------------

// As VMC_SetAutoExposureInfo writes them: a head whose probe 401 is set
// holds target value and range in one code.
VMC_EXPORT uint32_t VMC_GetAutoExposureInfo(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                            uint32_t* xPos, uint32_t* yPos, uint32_t* value, uint32_t* range,
                                            uint32_t* limit, uint32_t* error) {
    return ParticularRead(
        deviceNo, childNo, ChildRule::Child, kLocked, kNoFlag, {width, height, xPos, yPos, value, range, limit}, error,
        [&](uint32_t* err) -> uint32_t {
            if (!AskPacked(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_INFO_SIZE, width, height, err) ||
                !AskPacked(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_INFO_POSITION, xPos, yPos, err))
                return 0;
            if (Child(deviceNo, childNo)->code401Value) {
                if (!GetCaps(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_INFO_VALUE, 0, value, range, err)) return 0;
            } else if (!GetCaps(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_INFO_VALUE, 0, value, nullptr, err) ||
                       !GetCaps(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_INFO_RANGE, 0, range, nullptr, err)) {
                return 0;
            }
            return GetCaps(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_INFO_LIMIT, 0, limit, nullptr, err);
        });
}

// The parameters are the device's; the two windows come split as
// VMC_SetImageTriggerInfo takes them.
VMC_EXPORT uint32_t VMC_GetImageTriggerInfo(uint32_t deviceNo, uint32_t* firstHigh, uint32_t* firstLow,
                                            uint32_t* secondHigh, uint32_t* secondLow, uint32_t* third,
                                            uint32_t* fourth, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag,
                          {firstHigh, firstLow, secondHigh, secondLow, third, fourth}, error,
                          [&](uint32_t* err) -> uint32_t {
                              return AskPacked(deviceNo, 0, VMC_CODE_IMAGE_TRIGGER_INFO_1, firstHigh, firstLow, err) &&
                                     AskPacked(deviceNo, 0, VMC_CODE_IMAGE_TRIGGER_INFO_2, secondHigh, secondLow, err) &&
                                     AskDevice(deviceNo, VMC_CODE_IMAGE_TRIGGER_INFO_3, 0, third, nullptr, err) &&
                                     AskDevice(deviceNo, VMC_CODE_IMAGE_TRIGGER_INFO_4, 0, fourth, nullptr, err);
                          });
}

VMC_EXPORT uint32_t VMC_GetAutoExposureRestriction(uint32_t deviceNo, uint32_t childNo, uint32_t* first,
                                                   uint32_t* second, uint32_t* third, uint32_t* fourth,
                                                   uint32_t* fifth, uint32_t* sixth, uint32_t* seventh,
                                                   uint32_t* eighth, uint32_t* error) {
    return ReadRestriction(deviceNo, childNo, VMC_CODE_AUTO_EXPOSURE_RESTRICTION,
                           {first, second, third, fourth, fifth, sixth, seventh, eighth}, error);
}

VMC_EXPORT uint32_t VMC_GetImageTriggerRestriction(uint32_t deviceNo, uint32_t childNo, uint32_t* first,
                                                   uint32_t* second, uint32_t* third, uint32_t* fourth,
                                                   uint32_t* fifth, uint32_t* sixth, uint32_t* seventh,
                                                   uint32_t* eighth, uint32_t* error) {
    return ReadRestriction(deviceNo, childNo, VMC_CODE_IMAGE_TRIGGER_RESTRICTION,
                           {first, second, third, fourth, fifth, sixth, seventh, eighth}, error);
}

// ---- Words that pack several values ------------------------------------------

VMC_EXPORT uint32_t VMC_GetStepShutter(uint32_t deviceNo, uint32_t childNo, uint32_t* first, uint32_t* second,
                                       uint32_t* third, uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::ChildOrDevice, kLocked, kNoFlag, {first, second, third}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t* const outs[] = {first, second, third};
                              for (uint32_t sub = 0; sub < 3; ++sub)
                                  if (!GetCaps(deviceNo, childNo, VMC_CODE_STEP_SHUTTER, sub, outs[sub], nullptr, err))
                                      return 0;
                              return 1;
                          });
}

// The live time code: sub-seconds, and a word of seconds (bits 0-5), minutes
// (6-11), hours (12-16), days (17-25) and the signal flag (26). A camera that
// can't say leaves the record as it was; the call succeeds all the same.
VMC_EXPORT uint32_t VMC_GetLiveIRIGData(uint32_t deviceNo, IrigRecord* record, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, FlagRule{&DeviceRecord::hasLiveIRIG}, {record},
                          error, [&](uint32_t* err) -> uint32_t {
                              uint32_t subSeconds = 0, word = 0;
                              if (GetCaps(deviceNo, 0, VMC_CODE_LIVE_IRIG, 0, &subSeconds, &word, err)) {
                                  record->subSeconds = subSeconds;
                                  record->seconds = static_cast<uint8_t>(word & 0x3Fu);
                                  record->minutes = static_cast<uint8_t>(word >> 6 & 0x3Fu);
                                  record->hours = static_cast<uint8_t>(word >> 12 & 0x1Fu);
                                  record->days = word >> 17 & 0x1FFu;
                                  record->signalFlag = static_cast<uint8_t>(word >> 26 & 1u);
                              }
                              *err = VMC_ERR_OK;
                              return 1;
                          });
}

// first, then the second word split as VMC_SetCamCoderModel packs it.
VMC_EXPORT uint32_t VMC_GetCamCoderModel(uint32_t deviceNo, uint32_t* first, uint32_t* second, uint32_t* third,
                                         uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {first, second, third}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t word = 0;
                              if (!AskDevice(deviceNo, VMC_CODE_CAM_CODER_MODEL, 0, first, &word, err)) return 0;
                              *second = High16(word);
                              *third = Low16(word);
                              return 1;
                          });
}

// a and b from the low and high halves of the first word, as
// VMC_SetLiveResetMode packs them, and c the second.
VMC_EXPORT uint32_t VMC_GetLiveResetMode(uint32_t deviceNo, uint32_t* a, uint32_t* b, uint32_t* c, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {a, b, c}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t word = 0;
                              if (!AskDevice(deviceNo, VMC_CODE_LIVE_RESET_MODE, 0, &word, c, err)) return 0;
                              *a = Low16(word);
                              *b = High16(word);
                              return 1;
                          });
}

VMC_EXPORT uint32_t VMC_GetSdCardState(uint32_t deviceNo, uint32_t slot, uint32_t a, uint32_t* high, uint32_t* low,
                                       uint32_t* error) {
    return ReadSplitState(deviceNo, VMC_CODE_SD_CARD_STATE, slot, a, high, low, error);
}

VMC_EXPORT uint32_t VMC_GetSdCardInfo(uint32_t deviceNo, uint32_t slot, uint32_t* high, uint32_t* low,
                                      uint32_t* extra, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {high, low, extra}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t word = 0;
                              if (!AskDevice(deviceNo, VMC_CODE_SD_CARD_INFO, slot, &word, extra, err)) return 0;
                              *high = High16(word);
                              *low = Low16(word);
                              return 1;
                          });
}

// The same state as VMC_GetSdCardState, the word whole.
VMC_EXPORT uint32_t VMC_GetRapidPackState(uint32_t deviceNo, uint32_t slot, uint32_t a, uint32_t* word,
                                          uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {word}, error,
                          [&](uint32_t* err) { return AskState(deviceNo, VMC_CODE_SD_CARD_STATE, slot, a, word, err); });
}

VMC_EXPORT uint32_t VMC_GetMediaState(uint32_t deviceNo, uint32_t slot, uint32_t a, uint32_t* high, uint32_t* low,
                                      uint32_t* error) {
    return ReadSplitState(deviceNo, VMC_CODE_MEDIA_STATE, slot, a, high, low, error);
}

// ---- Temperatures and warnings -------------------------------------------------

// The flag is tested under the lock: the head's, or the device's for child 0.
VMC_EXPORT uint32_t VMC_GetTemperature(uint32_t deviceNo, uint32_t childNo, uint32_t type, uint32_t* temperature,
                                       uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::ChildOrDevice, kLocked, kNoFlag, {temperature}, error,
                          [&](uint32_t* err) -> uint32_t {
                              const uint8_t has = childNo ? Child(deviceNo, childNo)->hasTemperature
                                                          : Record(deviceNo).hasTemperature;
                              if (!Available(has, err)) return 0;
                              return GetCaps(deviceNo, childNo, VMC_CODE_TEMPERATURE, type, temperature, nullptr, err);
                          });
}

// One byte: 1 while the camera warns. No flag is tested, since this is the
// read by which the open learns whether the camera can warn at all.
VMC_EXPORT uint32_t VMC_GetWarningTemperature(uint32_t deviceNo, uint32_t childNo, uint8_t* warning, uint32_t* error) {
    return ParticularRead(deviceNo, childNo, ChildRule::ChildOrDevice, kLocked, kNoFlag, {warning}, error,
                          [&](uint32_t* err) -> uint32_t {
                              uint32_t value = 0;
                              const uint32_t result =
                                  GetCaps(deviceNo, childNo, VMC_CODE_WARNING_TEMPERATURE, 0, &value, nullptr, err);
                              *warning = result && value ? 1 : 0;
                              return result;
                          });
}

// ---- Wi-Fi ----------------------------------------------------------------------

// The module writes the text of network `index` into a buffer of the size of a name.
VMC_EXPORT uint32_t VMC_GetWiFiScanInfoA(uint32_t deviceNo, uint32_t index, char* info, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {info}, error,
                          [&](uint32_t* err) -> uint32_t {
                              alignas(uint32_t) char text[VMC_NAME_SIZE] = {};
                              if (!GetCaps(deviceNo, 0, VMC_CODE_WIFI_SCAN_INFO, index,
                                           reinterpret_cast<uint32_t*>(text), nullptr, err))
                                  return 0;
                              text[VMC_NAME_SIZE - 1] = '\0';
                              std::memcpy(info, text, VMC_NAME_SIZE);
                              return 1;
                          });
}

VMC_EXPORT uint32_t VMC_GetWiFiScanInfoW(uint32_t deviceNo, uint32_t index, wchar_t* info, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !NotNull(info, err)) return 0;
        char text[VMC_NAME_SIZE] = {};
        if (!VMC_GetWiFiScanInfoA(deviceNo, index, text, err)) return 0;
        if (!platform::NarrowToWide(text, info, VMC_NAME_SIZE)) return Fail(err, VMC_ERR_CHAR_CONVERSION);
        return 1;
    });
}

// ---- Media ------------------------------------------------------------------------

VMC_EXPORT uint32_t VMC_GetMediaInfo(uint32_t deviceNo, uint32_t slot, MediaInfo* info, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {info}, error,
                          [&](uint32_t* err) { return ReadMediaInfo(deviceNo, slot, info, err); });
}

// ---- Lens ---------------------------------------------------------------------------

VMC_EXPORT uint32_t VMC_GetLensParam(uint32_t deviceNo, uint32_t childNo, uint32_t parameter, uint32_t item, void* out,
                                     uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) { return ReadLensParam(deviceNo, childNo, parameter, item, out, err); });
}

// ---- Mechanical shutter ------------------------------------------------------------

VMC_EXPORT uint32_t VMC_GetMechanicalShutterError(uint32_t deviceNo, uint32_t* value, uint32_t* error) {
    return ParticularRead(deviceNo, 0, ChildRule::Device, kLocked, kNoFlag, {value}, error,
                          [&](uint32_t* err) -> uint32_t {
                              const uint32_t code = Record(deviceNo).deviceCode;
                              if (code >= kFirstShutterErrorDevice && code <= kLastShutterErrorDevice)
                                  return GetCaps(deviceNo, 0, VMC_CODE_MECHANICAL_SHUTTER_ERROR, 0, value, nullptr,
                                                 err);
                              return RefreshMechanicalShutter(deviceNo, value, err);
                          });
}
