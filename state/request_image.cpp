// Requests with a rule of their own about the picture of a head: colour
// type, resolution and region of interest, colour temperature, colour
// enhancement and bit depth, live and in the memory view.
#include "state/request_frame.h"
#include "state/requests.h"

namespace vmc {
namespace {

using ChildField = uint32_t ChildRecord::*;

// ---- Colour type -----------------------------------------------------------

// Only the low byte of the answer is the type; a refusal is type 0.
uint32_t ColorTypeInto(uint32_t deviceNo, uint32_t childNo, ChildField field, uint32_t* value, uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, childNo, VMC_CODE_COLOR_TYPE, 0, value, nullptr, error);
    *value = result ? *value & 0xFFu : 0;
    StoreField(Child(deviceNo, childNo)->*field, *value);
    return result;
}

// ---- Colour temperature ----------------------------------------------------

struct ColorTempSet {
    uint32_t codes[4];     // mode, then the three values, in the order they are read
    ChildField fields[4];  // where they are kept
};

constexpr ColorTempSet kColorTemp = {
    {VMC_CODE_COLOR_TEMP_MODE, VMC_CODE_COLOR_TEMP_VALUE_1, VMC_CODE_COLOR_TEMP_VALUE_2, VMC_CODE_COLOR_TEMP_VALUE_3},
    {&ChildRecord::colorTempMode, &ChildRecord::colorTempValue1, &ChildRecord::colorTempValue2,
     &ChildRecord::colorTempValue3}};
constexpr ColorTempSet kSoftColorTemp = {
    {VMC_CODE_SOFT_COLOR_TEMP_MODE, VMC_CODE_SOFT_COLOR_TEMP_VALUE_1, VMC_CODE_SOFT_COLOR_TEMP_VALUE_2,
     VMC_CODE_SOFT_COLOR_TEMP_VALUE_3},
    {&ChildRecord::softColorTempMode, &ChildRecord::softColorTempValue1, &ChildRecord::softColorTempValue2,
     &ChildRecord::softColorTempValue3}};
constexpr ColorTempSet kMemColorTemp = {
    {VMC_CODE_COLOR_TEMP_MODE, VMC_CODE_COLOR_TEMP_VALUE_1, VMC_CODE_COLOR_TEMP_VALUE_2, VMC_CODE_COLOR_TEMP_VALUE_3},
    {&ChildRecord::memColorTempMode, &ChildRecord::memColorTempValue1, &ChildRecord::memColorTempValue2,
     &ChildRecord::memColorTempValue3}};

// The four settings are one: all are asked in order, and a refusal of any
// resets the four to the neutral setting (mode 1, values 0) at that point,
// the reads after it filling in what they can. The set counts only when all
// four answered; the error is then that of the first read that failed.
uint32_t ColorTempInto(const ColorTempSet& set, uint32_t deviceNo, uint32_t childNo, uint32_t* mode,
                       uint32_t* value1, uint32_t* value2, uint32_t* value3, uint32_t* error) {
    uint32_t* outs[4] = {mode, value1, value2, value3};
    uint32_t result = 1, firstError = VMC_ERR_OK;
    for (int i = 0; i < 4; ++i) {
        if (GetCaps(deviceNo, childNo, set.codes[i], 0, outs[i], nullptr, error)) continue;
        if (result) {
            result = 0;
            firstError = *error;
        }
        if (IsNotSupported(error)) {
            *mode = 1;
            *value1 = *value2 = *value3 = 0;
        }
    }
    ChildRecord& child = *Child(deviceNo, childNo);
    for (int i = 0; i < 4; ++i) StoreField(child.*set.fields[i], *outs[i]);
    if (!result) *error = firstError;
    return result;
}

// ---- Colour enhancement ----------------------------------------------------

// One plane: the packed halves of the first value and the low half of the
// second, each sign and magnitude. Zeros after any failure.
uint32_t ColorEnhanceInto(int32_t (ChildRecord::*table)[9], uint32_t deviceNo, uint32_t childNo, uint32_t plane,
                          int32_t* values, uint32_t* error) {
    if (plane < 1 || plane > 3) return Fail(error, VMC_ERR_BAD_ARGUMENT);
    uint32_t packed = 0, third = 0;
    const uint32_t code = VMC_CODE_COLOR_ENHANCE_VALUE_1 + (plane - 1);
    const uint32_t result = GetCaps(deviceNo, childNo, code, 0, &packed, &third, error);
    values[0] = result ? FromSignMagnitude16(packed >> 16) : 0;
    values[1] = result ? FromSignMagnitude16(packed & 0xFFFFu) : 0;
    values[2] = result ? FromSignMagnitude16(third & 0xFFFFu) : 0;
    int32_t* row = (Child(deviceNo, childNo)->*table) + (plane - 1) * 3;
    for (int i = 0; i < 3; ++i) row[i] = values[i];
    return result;
}

// ---- Bit depth -------------------------------------------------------------

// The low byte of an answer is the depth; one the head cannot have (none,
// or above its maximum when that is known) is taken as the maximum.
uint32_t CheckedDepth(uint32_t answer, uint32_t maxDepth) {
    const uint32_t depth = answer & 0xFFu;
    return depth == 0 || (maxDepth && depth > maxDepth) ? maxDepth : depth;
}

// Code 113 into `field`; `otherwise` after a failure.
uint32_t DepthInto(uint32_t deviceNo, uint32_t childNo, ChildField field, uint32_t otherwise, uint32_t* value,
                   uint32_t* error) {
    ChildRecord& child = *Child(deviceNo, childNo);
    uint32_t answer = 0;
    const uint32_t result = GetCaps(deviceNo, childNo, VMC_CODE_BIT_DEPTH, 0, &answer, nullptr, error);
    *value = result ? CheckedDepth(answer, child.maxBitDepth) : otherwise;
    StoreField(child.*field, *value);
    return result;
}

// Code 158 gives both depths; without it the first comes from code 113, or
// is `otherwise`, and the second is 0. The result is that of code 158; the
// fallback's read leaves its own word, so a result 0 may carry error 1.
uint32_t DepthPairInto(uint32_t deviceNo, uint32_t childNo, ChildField first, ChildField second, uint32_t otherwise,
                       uint32_t* depth, uint32_t* depth2, uint32_t* error) {
    ChildRecord& child = *Child(deviceNo, childNo);
    uint32_t answer = 0, answer2 = 0;
    const uint32_t result = GetCaps(deviceNo, childNo, VMC_CODE_BIT_DEPTH_2, 0, &answer, &answer2, error);
    if (result) {
        *depth = CheckedDepth(answer, child.maxBitDepth);
        *depth2 = answer2;
    } else {
        answer = 0;
        *depth = GetCaps(deviceNo, childNo, VMC_CODE_BIT_DEPTH, 0, &answer, nullptr, error)
                     ? CheckedDepth(answer, child.maxBitDepth)
                     : otherwise;
        *depth2 = 0;
    }
    StoreField(child.*first, *depth);
    StoreField(child.*second, *depth2);
    return result;
}

}  // namespace

// ---- Workers ---------------------------------------------------------------

uint32_t RefreshColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    return ColorTypeInto(deviceNo, childNo, &ChildRecord::colorType, value, error);
}

uint32_t RefreshMemColorType(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    return ColorTypeInto(deviceNo, childNo, &ChildRecord::memColorType, value, error);
}

uint32_t RefreshResolution(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height, uint32_t* error) {
    const uint32_t result = AskHalves(deviceNo, childNo, VMC_CODE_RESOLUTION, width, height, error);
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.width, *width);
    StoreField(child.roiWidth, *width);
    StoreField(child.height, *height);
    StoreField(child.roiHeight, *height);
    return result;
}

uint32_t RefreshResolutionCache(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                                uint32_t* error) {
    const uint32_t result = AskHalves(deviceNo, childNo, VMC_CODE_RESOLUTION_CACHE, width, height, error);
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.width, *width);
    StoreField(child.height, *height);
    return result;
}

// A head without a region of interest records its whole picture.
uint32_t RefreshResolutionROI(uint32_t deviceNo, uint32_t childNo, uint32_t* width, uint32_t* height,
                              uint32_t* error) {
    const uint32_t result = AskHalves(deviceNo, childNo, VMC_CODE_RESOLUTION_ROI, width, height, error);
    ChildRecord& child = *Child(deviceNo, childNo);
    if (!result) {
        *width = child.width;
        *height = child.height;
    }
    StoreField(child.roiWidth, *width);
    StoreField(child.roiHeight, *height);
    return result;
}

uint32_t RefreshColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                              uint32_t* value2, uint32_t* value3, uint32_t* error) {
    return ColorTempInto(kColorTemp, deviceNo, childNo, mode, value1, value2, value3, error);
}

uint32_t RefreshSoftColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                  uint32_t* value2, uint32_t* value3, uint32_t* error) {
    return ColorTempInto(kSoftColorTemp, deviceNo, childNo, mode, value1, value2, value3, error);
}

uint32_t RefreshMemColorTempMode(uint32_t deviceNo, uint32_t childNo, uint32_t* mode, uint32_t* value1,
                                 uint32_t* value2, uint32_t* value3, uint32_t* error) {
    return ColorTempInto(kMemColorTemp, deviceNo, childNo, mode, value1, value2, value3, error);
}

// A head that can't give its colour-temperature base reads 16 and 4095.
uint32_t RefreshColorTempBase(uint32_t deviceNo, uint32_t childNo, uint32_t* base1, uint32_t* base2,
                              uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, childNo, VMC_CODE_COLOR_TEMP_BASE, 0, base1, base2, error);
    if (!result) {
        *base1 = 16;
        *base2 = 4095;
    }
    ChildRecord& child = *Child(deviceNo, childNo);
    StoreField(child.colorTempBase1, *base1);
    StoreField(child.colorTempBase2, *base2);
    return result;
}

uint32_t RefreshColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                  uint32_t* error) {
    return ColorEnhanceInto(&ChildRecord::colorEnhanceValue, deviceNo, childNo, plane, values, error);
}

uint32_t RefreshMemColorEnhanceValue(uint32_t deviceNo, uint32_t childNo, uint32_t plane, int32_t* values,
                                     uint32_t* error) {
    return ColorEnhanceInto(&ChildRecord::memColorEnhanceValue, deviceNo, childNo, plane, values, error);
}

// A head that can't say its maximum depth is taken as an 8-bit one.
uint32_t RefreshMaxBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t result = GetCaps(deviceNo, childNo, VMC_CODE_MAX_BIT_DEPTH, 0, value, nullptr, error);
    if (!result) *value = 8;
    StoreField(Child(deviceNo, childNo)->maxBitDepth, *value);
    return result;
}

uint32_t RefreshBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t maxDepth = Child(deviceNo, childNo)->maxBitDepth;
    return DepthInto(deviceNo, childNo, &ChildRecord::bitDepth, maxDepth, value, error);
}

uint32_t RefreshBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* depth, uint32_t* depth2, uint32_t* error) {
    return DepthPairInto(deviceNo, childNo, &ChildRecord::bitDepth, &ChildRecord::bitDepth2,
                         Child(deviceNo, childNo)->maxBitDepth, depth, depth2, error);
}

// The memory view falls back on the live depth: the recording was made with it.
uint32_t RefreshMemBitDepth(uint32_t deviceNo, uint32_t childNo, uint32_t* value, uint32_t* error) {
    const uint32_t liveDepth = Child(deviceNo, childNo)->bitDepth;
    return DepthInto(deviceNo, childNo, &ChildRecord::memBitDepth, liveDepth, value, error);
}

uint32_t RefreshMemBitDepth2(uint32_t deviceNo, uint32_t childNo, uint32_t* depth, uint32_t* depth2,
                             uint32_t* error) {
    return DepthPairInto(deviceNo, childNo, &ChildRecord::memBitDepth, &ChildRecord::memBitDepth2,
                         Child(deviceNo, childNo)->bitDepth, depth, depth2, error);
}

}  // namespace vmc

using namespace vmc;

// ---- Exports ---------------------------------------------------------------

REQUEST_EXPORT_CHILD_1(VMC_ReqColorType, RefreshColorType)
REQUEST_EXPORT_CHILD_1(VMC_ReqMemColorType, RefreshMemColorType)
REQUEST_EXPORT_CHILD_2(VMC_ReqResolution, RefreshResolution)
REQUEST_EXPORT_CHILD_2(VMC_ReqResolutionCache, RefreshResolutionCache)
REQUEST_EXPORT_CHILD_2(VMC_ReqResolutionROI, RefreshResolutionROI)
REQUEST_EXPORT_CHILD_4(VMC_ReqColorTempMode, RefreshColorTempMode)
REQUEST_EXPORT_CHILD_4(VMC_ReqSoftColorTempMode, RefreshSoftColorTempMode)
REQUEST_EXPORT_CHILD_4(VMC_ReqMemColorTempMode, RefreshMemColorTempMode)
REQUEST_EXPORT_CHILD_2(VMC_ReqColorTempBase, RefreshColorTempBase)
REQUEST_EXPORT_CHILD_INDEXED(VMC_ReqColorEnhanceValue, RefreshColorEnhanceValue, int32_t)
REQUEST_EXPORT_CHILD_INDEXED(VMC_ReqMemColorEnhanceValue, RefreshMemColorEnhanceValue, int32_t)
REQUEST_EXPORT_CHILD_1(VMC_ReqMaxBitDepth, RefreshMaxBitDepth)
REQUEST_EXPORT_CHILD_1(VMC_ReqBitDepth, RefreshBitDepth)
REQUEST_EXPORT_CHILD_2(VMC_ReqBitDepth2, RefreshBitDepth2)
REQUEST_EXPORT_CHILD_1(VMC_ReqMemBitDepth, RefreshMemBitDepth)
REQUEST_EXPORT_CHILD_2(VMC_ReqMemBitDepth2, RefreshMemBitDepth2)
