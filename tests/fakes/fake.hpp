// C++ shorthands over fake.h for tests. Rules set here match any module,
// child and sub unless told otherwise.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fake.h"

namespace fake {

// Entry answers success with these values for code (any child, sub, module).
inline void Answer(const char* entry, uint32_t code, uint32_t value1 = 0, uint32_t value2 = 0) {
    FAKE_SetAnswer(nullptr, entry, FAKE_ANY, code, FAKE_ANY, value1, value2, 1);
}

// Entry fails with error for code (any child, sub, module).
inline void Fail(const char* entry, uint32_t code, uint32_t error) {
    FAKE_SetAnswer(nullptr, entry, FAKE_ANY, code, FAKE_ANY, 0, 0, error);
}

// Entry answers the list for code (any child, sub, module).
inline void List(const char* entry, uint32_t code, const std::vector<uint32_t>& values) {
    FAKE_SetList(nullptr, entry, FAKE_ANY, code, FAKE_ANY, values.data(), static_cast<uint32_t>(values.size()), 1);
}

// Every call logged so far, oldest first.
inline std::vector<FakeCall> Log() {
    std::vector<FakeCall> calls;
    FakeCall call;
    for (uint32_t i = 0; FAKE_GetCall(i, &call); ++i) calls.push_back(call);
    return calls;
}

// The logged calls of entry with code (FAKE_ANY: any code).
inline std::vector<FakeCall> Calls(std::string_view entry, uint32_t code = FAKE_ANY) {
    std::vector<FakeCall> matching;
    for (const FakeCall& call : Log())
        if (call.entry == entry && (code == FAKE_ANY || call.code == code)) matching.push_back(call);
    return matching;
}

inline size_t Count(std::string_view entry, uint32_t code = FAKE_ANY) { return Calls(entry, code).size(); }

// Entry names in call order, for checking a sequence at a glance.
inline std::vector<std::string> Entries() {
    std::vector<std::string> names;
    for (const FakeCall& call : Log()) names.emplace_back(call.entry);
    return names;
}

}  // namespace fake
