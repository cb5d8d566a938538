#include "camera/features.h"

#include <algorithm>

namespace vcam {

// The codes each feature opens are named by the code tables
// (camera_*_codes.cpp) against these names.
const std::vector<FeatureInfo>& Features() {
    static const std::vector<FeatureInfo> features = {
        {"irig", true, "IRIG time code input: codes 14 (mode) and 19 (offset)"},
        {"mcdl", false, "MCDL data recording: code 15"},
        {"adc", false, "analogue inputs recorded with the frames: code 283 and list 51"},
        {"autoExposure", false, "auto exposure: code 37"},
        {"partitions", true, "memory partitions: codes 25, 30, 31, 39, 40, 187, 353 and list 50"},
        {"readAhead", true, "read-ahead memory transfers: code 281"},
        {"burstTransfer", true, "burst transfer: code 102"},
        {"subInterface", false, "a sub port with its interface mode: codes 159 and 160"},
        {"headExchange", false, "exchangeable heads: code 104, list 32 and the head type names"},
        {"rawMosaic", true, "colour heads deliver the raw Bayer mosaic when transfer option bit 8 is set"},
        {"frameZero", false, "frames are numbered from 0 (code 38 answers 1); else frame 0 does not exist"},
        {"lowLight", false, "low-light mode: code 82"},
        {"shading", true, "shading correction: code 16 and list 14"},
        {"lut", false, "look-up tables: code 18 and list 10"},
        {"pixelGain", false, "pixel gain correction: code 32 and list 28"},
        {"edgeEnhance", false, "edge enhancement: code 13 and list 17"},
        {"sensorGain", true, "sensor gain: code 9 and list 5"},
        {"colourTemperature", false, "colour temperature: codes 8, 86, 87, 88, 89 and list 9"},
    };
    return features;
}

bool IsFeatureName(const std::string& name) {
    const auto& features = Features();
    return std::any_of(features.begin(), features.end(),
                       [&](const FeatureInfo& feature) { return name == feature.name; });
}

}  // namespace vcam
