// The rules by which the state load judges one answer of the camera, and
// the probe that most of its steps are made of.
//
// The load discovers what a camera can do by asking and reading error 21
// (not supported) as "absent". Any other failure means the module is not
// well, so most steps end the open on it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <vmc/codes.h>

#include "core/fields.h"
#include "core/frame.h"
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

// How a probe turns an answer into fields and flag.
enum class Answer : uint8_t {
    Values,  // the fields take the values, the flag is set; on error 21 fields and flag are 0
    Bare,    // as Values, but the module is asked with no value pointers at all
    IsOne,   // no field: the flag is set when the camera answers exactly 1
    Kept,    // the field takes the value only when the camera answers; the zeroed record is the default
};

// The filler of a probe that has a request worker: the worker asks and
// stores, and the probe keeps only the flag. Called with the load's child
// (0 for the device) and two value words.
using Filler = uint32_t (*)(uint32_t deviceNo, uint32_t childNo, uint32_t* value1, uint32_t* value2,
                            uint32_t* error);
#define DEVICE_FILLER(worker)                                                                  \
    +[](uint32_t fillDevice, uint32_t, uint32_t* fillValue, uint32_t*, uint32_t* fillError) {   \
        return worker(fillDevice, fillValue, fillError);                                       \
    }
#define DEVICE_PAIR_FILLER(worker)                                                                           \
    +[](uint32_t fillDevice, uint32_t, uint32_t* fillValue1, uint32_t* fillValue2, uint32_t* fillError) {   \
        return worker(fillDevice, fillValue1, fillValue2, fillError);                                        \
    }
#define CHILD_FILLER(worker)                                                                                 \
    +[](uint32_t fillDevice, uint32_t fillChild, uint32_t* fillValue, uint32_t*, uint32_t* fillError) {     \
        return worker(fillDevice, fillChild, fillValue, fillError);                                          \
    }
#define CHILD_PAIR_FILLER(worker)                                                                            \
    +[](uint32_t fillDevice, uint32_t fillChild, uint32_t* fillValue1, uint32_t* fillValue2,                \
        uint32_t* fillError) { return worker(fillDevice, fillChild, fillValue1, fillValue2, fillError); }

// One query of the load as a row: a code (and sub-code) with the fields and
// flag its answer fills, or a request worker that fills the field itself.
// Fields or flag may be absent.
template <class Record>
struct Probe {
    uint32_t code = 0;
    uint32_t Record::*first = nullptr;
    uint32_t Record::*second = nullptr;
    uint8_t Record::*flag = nullptr;
    Answer answer = Answer::Values;
    uint32_t sub = 0;
    Rule rule = Rule::Tolerant;
    Filler filler = nullptr;
};

template <class Record>
bool RunProbe(uint32_t deviceNo, uint32_t child, Record& record, const Probe<Record>& probe, uint32_t* error) {
    uint32_t value1 = 0, value2 = 0;
    bool answered = false;
    if (probe.filler) {
        answered = probe.filler(deviceNo, child, &value1, &value2, error) != 0;
        if (!Survives(probe.rule, answered, *error)) return false;
        if (probe.flag) StoreField(record.*probe.flag, answered);
        return true;
    }
    const bool bare = probe.answer == Answer::Bare;
    if (!Ask(deviceNo, child, probe.code, probe.sub, bare ? nullptr : &value1,
             bare || !probe.second ? nullptr : &value2, probe.rule, error, &answered))
        return false;
    switch (probe.answer) {
    case Answer::IsOne:
        StoreField(record.*probe.flag, answered && value1 == 1);
        return true;
    case Answer::Kept:
        if (answered) StoreField(record.*probe.first, value1);
        return true;
    case Answer::Values:
    case Answer::Bare:
        break;
    }
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

// What both halves of the load work with: the record being filled, whose
// child number the module is asked with (0 for the device), and the error
// word. The device and child loads add what their own steps need.
template <class Record>
struct LoadOf {
    uint32_t deviceNo;
    uint32_t childNo;
    uint32_t* error;
    Record& record;
};

template <class Record>
bool Ask(LoadOf<Record>& load, uint32_t code, uint32_t sub, uint32_t* value1, uint32_t* value2, Rule rule,
         bool* answered = nullptr) {
    return Ask(load.deviceNo, load.childNo, code, sub, value1, value2, rule, load.error, answered);
}

template <class Record, std::size_t N>
bool Probes(LoadOf<Record>& load, const Probe<Record> (&probes)[N]) {
    return RunProbes(load.deviceNo, load.childNo, load.record, probes, load.error);
}

template <class Record>
bool Probe1(LoadOf<Record>& load, const Probe<Record>& probe) {
    return RunProbe(load.deviceNo, load.childNo, load.record, probe, load.error);
}

// Runs a request worker or an exported read under the tolerant rule: with
// the device number, and the child number in a child's load. The flag, when
// given, keeps whether it answered.
template <class Record, class Read, class... Outs>
bool Tolerant(LoadOf<Record>& load, Read read, uint8_t* flag, Outs... outs) {
    bool answered = false;
    if constexpr (std::is_same_v<Record, ChildRecord>)
        answered = read(load.deviceNo, load.childNo, outs..., load.error) != 0;
    else
        answered = read(load.deviceNo, outs..., load.error) != 0;
    if (!answered && !IsNotSupported(load.error)) return false;
    if (flag) StoreField(*flag, answered);
    return true;
}

}  // namespace vmc
