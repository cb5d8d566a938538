// The library's error codes in words: "error 100 (VMC_ERR_MODULE_LOAD): ...".
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vmctool {

// The name of a library error code, or "" for a code a camera module passed through.
std::string ErrorName(uint32_t error);

// "error N (NAME): advice", the advice naming `module` where it is about one.
std::string ExplainError(uint32_t error, const std::string& module = "module");

// What ends a command: a one-line message for standard error and the exit code.
struct Failure : std::runtime_error {
    Failure(const std::string& message, int code = 1) : std::runtime_error(message), exitCode(code) {}
    int exitCode;
};

}  // namespace vmctool
