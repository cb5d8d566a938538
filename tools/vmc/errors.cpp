#include "errors.h"

#include <vmc/vmc.h>

namespace vmctool {
namespace {

struct ErrorText {
    uint32_t code;
    const char* name;
    const char* advice;
};

constexpr ErrorText kErrors[] = {
#define VMC_ERROR(code, advice) {code, #code, advice},
#include "errors.def"
#undef VMC_ERROR
};

const ErrorText* Find(uint32_t error) {
    for (const ErrorText& entry : kErrors)
        if (entry.code == error) return &entry;
    return nullptr;
}

}  // namespace

std::string ErrorName(uint32_t error) {
    const ErrorText* entry = Find(error);
    return entry ? entry->name : "";
}

std::string ExplainError(uint32_t error, const std::string& module) {
    const std::string number = "error " + std::to_string(error);
    const ErrorText* entry = Find(error);
    if (!entry) return number + ": not a library error; the camera module passed it through, see its documentation";
    std::string advice = entry->advice;
    const std::string placeholder = "{module}";
    if (const size_t at = advice.find(placeholder); at != std::string::npos) advice.replace(at, placeholder.size(), module);
    return number + " (" + entry->name + "): " + advice;
}

}  // namespace vmctool
