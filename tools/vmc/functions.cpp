#include "functions.h"

#include <cctype>

#include <vmc/vmc.h>

#include "errors.h"

namespace vmctool {
namespace {

struct Function {
    uint32_t index;
    const char* name;  // VMC_FUNCTION_...
    const char* label;
};

constexpr Function kFunctions[] = {
#define FUNCTION(index, label) {index, #index, label},
#include "functions.def"
#undef FUNCTION
};

// VMC_FUNCTION_BIT_DEPTH_2 -> "bitDepth2": the public name, as JSON keys are written.
std::string Key(const char* name) {
    constexpr char kPrefix[] = "VMC_FUNCTION_";
    std::string key;
    bool upper = false;
    for (const char* c = name + sizeof kPrefix - 1; *c; ++c) {
        if (*c == '_') {
            upper = true;
            continue;
        }
        const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(*c)));
        key += upper ? static_cast<char>(std::toupper(static_cast<unsigned char>(lower))) : lower;
        upper = false;
    }
    return key;
}

}  // namespace

std::vector<FunctionAnswer> AskFunctions(uint32_t deviceNo, uint32_t childNo) {
    std::vector<FunctionAnswer> answers;
    for (const Function& function : kFunctions) {
        uint8_t result = 0;
        uint32_t error = 0;
        if (VMC_IsFunction(deviceNo, childNo, function.index, &result, &error)) {
            // A few indices carry a value the camera reported; any non-zero value means it has the function.
            answers.push_back({function.index, Key(function.name), function.label, result != 0});
            continue;
        }
        if (error == VMC_ERR_BAD_ARGUMENT) continue;  // the index means nothing for a device, or for a head
        const std::string whose = childNo ? "head " + std::to_string(childNo) : "the camera";
        throw Failure("asking whether " + whose + " has " + function.label + " (function " +
                      std::to_string(function.index) + ") failed: " + ExplainError(error));
    }
    return answers;
}

}  // namespace vmctool
