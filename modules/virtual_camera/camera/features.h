// The optional features of a virtual camera, by the names a profile uses.
// A camera without a feature answers error 21 to every code of it, as a
// real camera of the family lacking it would.
#pragma once

#include <string>
#include <vector>

namespace vcam {

struct FeatureInfo {
    const char* name;         // as written in a profile, e.g. "irig"
    bool presentByDefault;    // when the profile does not name it
    const char* description;  // one line, for the profile documentation
};

// Every feature a profile may name, in documentation order.
const std::vector<FeatureInfo>& Features();
bool IsFeatureName(const std::string& name);

}  // namespace vcam
