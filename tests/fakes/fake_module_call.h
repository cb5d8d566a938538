// Plumbing shared by the device and interface test modules: the module's own
// identity, passing a call to libvmcfake, and writing the answer's outputs.
// Everything here has internal linkage, so each module object keeps its own
// copy and dladdr finds that object's file.
#pragma once

#include <dlfcn.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "fake_dispatch.h"

namespace {

inline void CopyText(char* out, size_t size, const char* text) {
    const size_t n = text ? strnlen(text, size - 1) : 0;
    if (n) std::memcpy(out, text, n);
    out[n] = '\0';
}

// The file base name of this module, e.g. "DMOD026" for .../DMOD026.so.
inline const char* ModuleName() {
    struct Identity {
        char name[sizeof(FakeCall::module)];
    };
    static const Identity identity = [] {
        Identity id{};
        Dl_info info{};
        if (dladdr(reinterpret_cast<void*>(&ModuleName), &info) && info.dli_fname) {
            const char* base = std::strrchr(info.dli_fname, '/');
            base = base ? base + 1 : info.dli_fname;
            const size_t n = std::min(std::strcspn(base, "."), sizeof(id.name) - 1);
            std::memcpy(id.name, base, n);
        }
        return id;
    }();
    return identity.name;
}

inline uint64_t Address(const void* p) { return reinterpret_cast<uintptr_t>(p); }

inline FakeCall& WithText(FakeCall& call, const char* text) {
    CopyText(call.text, sizeof(call.text), text);
    return call;
}

inline fake::Reply Ask(const char* entry, FakeCall call) {
    CopyText(call.module, sizeof(call.module), ModuleName());
    CopyText(call.entry, sizeof(call.entry), entry);
    return fake::Dispatch(call);
}

inline uint32_t Give(const fake::Reply& answer, uint32_t* error) {
    if (error) *error = answer.error;
    return answer.result;
}

template <class T>
inline void Put(T* out, T value, const fake::Reply& answer) {
    if (out && answer.writesOutputs) *out = value;
}

inline void PutList(void* out, uint32_t* countOut, const fake::Reply& answer) {
    if (!answer.writesOutputs) return;
    if (out && !answer.list.empty())
        std::memcpy(out, answer.list.data(), answer.list.size() * sizeof(uint32_t));
    Put(countOut, static_cast<uint32_t>(answer.list.size()), answer);
}

inline void PutText(char* out, const fake::Reply& answer) {
    if (out && answer.writesOutputs) CopyText(out, FAKE_TEXT_MAX + 1, answer.text.c_str());
}

// An address output holds a pointer into the module's memory.
inline void PutAddress(void* out, const fake::Reply& answer) {
    if (out && answer.writesOutputs) std::memcpy(out, &answer.address, sizeof(answer.address));
}

}  // namespace
