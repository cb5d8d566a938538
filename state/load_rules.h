// The rules by which the state load judges one answer of the camera, and
// the probe that most of its steps are made of.
//
// The load discovers what a camera can do by asking and reading error 21
// (not supported) as "absent". Any other failure means the module is not
// well, so most steps end the open on it.
#pragma once

#include <cstdint>

#include <vmc/codes.h>

#include "core/module_calls.h"

namespace vmc {

enum class Rule : uint8_t {
    Tolerant,  // error 21 means absent and the load goes on; any other error ends it
    Fatal,     // any failure ends the load
    Ignored,   // the result does not matter
    Delay,     // as Tolerant, but error 5 (a type the camera has no slot for) is absent too
};

// Whether the load may go on after a query that answered `answered` and left `error`.
inline bool Survives(Rule rule, bool answered, uint32_t error) {
    if (answered) return true;
    switch (rule) {
    case Rule::Fatal: return false;
    case Rule::Ignored: return true;
    case Rule::Tolerant: return error == VMC_ERR_NOT_SUPPORTED;
    case Rule::Delay: return error == VMC_ERR_NOT_SUPPORTED || error == VMC_ERR_BAD_ARGUMENT;
    }
    return false;
}

// One query of the load. `answered`, when given, receives whether the module answered.
inline bool Ask(uint32_t deviceNo, uint32_t child, uint32_t code, uint32_t sub, uint32_t* value1, uint32_t* value2,
                Rule rule, uint32_t* error, bool* answered = nullptr) {
    const bool ok = GetCaps(deviceNo, child, code, sub, value1, value2, error) != 0;
    if (answered) *answered = ok;
    return Survives(rule, ok, *error);
}

// A tolerant probe of one code: on an answer its fields take the values and
// its flag is set; on error 21 fields and flag are 0. Fields or flag may be
// absent; `bare` asks with no value pointers at all.
template <class Record>
struct Probe {
    uint32_t code;
    uint32_t Record::*first;
    uint32_t Record::*second;
    uint8_t Record::*flag;
    bool bare;
};

template <class Record>
bool RunProbe(uint32_t deviceNo, uint32_t child, Record& record, const Probe<Record>& probe, uint32_t* error) {
    uint32_t value1 = 0, value2 = 0;
    bool answered = false;
    if (!Ask(deviceNo, child, probe.code, 0, probe.bare ? nullptr : &value1,
             probe.bare || !probe.second ? nullptr : &value2, Rule::Tolerant, error, &answered))
        return false;
    if (probe.first) StoreField(record.*probe.first, answered ? value1 : 0);
    if (probe.second) StoreField(record.*probe.second, answered ? value2 : 0);
    if (probe.flag) StoreField(record.*probe.flag, answered);
    return true;
}

template <class Record, std::size_t N>
bool RunProbes(uint32_t deviceNo, uint32_t child, Record& record, const Probe<Record> (&probes)[N], uint32_t* error) {
    for (const Probe<Record>& probe : probes)
        if (!RunProbe(deviceNo, child, record, probe, error)) return false;
    return true;
}

}  // namespace vmc
