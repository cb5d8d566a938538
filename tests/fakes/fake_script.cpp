// libvmcfake: the script, hooks, handed-over lock slots and call log shared
// by every test module loaded in the process.
#include <algorithm>
#include <deque>
#include <iterator>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include <vmc/codes.h>

#include "fake.h"
#include "fake_dispatch.h"

namespace {

constexpr uint32_t kSuccess = 1;
// DEV_SetData codes that hand over lock slots (module.h).
constexpr uint32_t kDataDeviceMutex = VMC_DATA_DEVICE_MUTEX;  // sub 0..3: device lock, channels 2..4
constexpr uint32_t kDataGlobalMutex = VMC_DATA_GLOBAL_MUTEX;  // sub 0: library-wide lock
constexpr uint32_t kDeviceLockSlots = 4;

struct Rule {
    std::string module, entry;  // empty: any
    uint32_t child, code, sub;
    fake::Reply answer;
};

struct Hook {
    std::string entry;
    uint32_t code;
    FakeHook function;
    void* context;
};

struct LockSlot {
    std::string module;
    uint32_t handle, which;
    vmc_lock_slot slot;
};

struct Script {
    std::mutex mutex;
    std::vector<Rule> rules;  // newest last
    std::deque<Rule> queue;   // oldest first
    std::vector<Hook> hooks;  // newest last
    std::vector<LockSlot> slots;
    std::vector<FakeCall> log;
    uint64_t firstSerial = 0;  // serial of log[0]; calls keep their serial across clears
    // FAKE_FailCall: the serial of the call that fails, and its code.
    bool faultArmed = false;
    uint64_t faultSerial = 0;
    uint32_t faultError = 0;
};

// Never destroyed: a module may still be called while the process exits.
Script& TheScript() {
    static Script* script = new Script;
    return *script;
}

std::string Text(const char* s) { return s ? s : ""; }

bool NameMatches(const std::string& pattern, const char* name) { return pattern.empty() || pattern == name; }

bool NumberMatches(uint32_t pattern, uint32_t n) { return pattern == FAKE_ANY || pattern == n; }

bool Matches(const Rule& rule, const FakeCall& call) {
    return NameMatches(rule.module, call.module) && NameMatches(rule.entry, call.entry) &&
           NumberMatches(rule.child, call.child) && NumberMatches(rule.code, call.code) &&
           NumberMatches(rule.sub, call.sub);
}

bool OneOf(std::string_view entry, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), entry) != names.end();
}

fake::Reply Scripted(uint32_t value1, uint32_t value2, uint32_t error) {
    fake::Reply answer;
    answer.result = error == kSuccess ? 1 : 0;
    answer.error = error;
    answer.value1 = value1;
    answer.value2 = value2;
    answer.writesOutputs = true;
    return answer;
}

fake::Reply DefaultAnswer(std::string_view entry) {
    fake::Reply answer;  // not supported, nothing written
    if (OneOf(entry, {"DEV_Init", "DEV_Exit", "DEV_CloseDevice", "INT_Init", "INT_Exit"})) {
        answer.result = 1;
        answer.error = kSuccess;
    }
    answer.writesOutputs = entry == "INT_DetectDevice";  // a count of 0
    return answer;
}

void AddRule(bool queued, const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
             fake::Reply answer) {
    Rule rule{Text(module), Text(entry), child, code, sub, std::move(answer)};
    Script& script = TheScript();
    const std::lock_guard lock(script.mutex);
    if (queued)
        script.queue.push_back(std::move(rule));
    else
        script.rules.push_back(std::move(rule));
}

fake::Reply ListAnswer(const char* entry, const uint32_t* values, uint32_t count, uint32_t error) {
    fake::Reply answer = Scripted(0, 0, error);
    // A detection list counts cameras, each a pair (deviceCode, deviceId).
    const size_t words = Text(entry) == "INT_DetectDevice" ? 2 * size_t{count} : count;
    if (values) answer.list.assign(values, values + words);
    return answer;
}

// Remembers a lock slot the library hands to a module at open.
void StoreLockSlot(Script& script, const FakeCall& call) {
    if (std::string_view(call.entry) != "DEV_SetData") return;
    uint32_t which;
    if (call.code == kDataDeviceMutex && call.sub < kDeviceLockSlots)
        which = call.sub;
    else if (call.code == kDataGlobalMutex && call.sub == 0)
        which = FAKE_GLOBAL_LOCK;
    else
        return;
    const auto slot = reinterpret_cast<vmc_lock_slot>(static_cast<uintptr_t>(call.pointer));
    for (LockSlot& known : script.slots) {
        if (known.module == call.module && known.handle == call.handle && known.which == which) {
            known.slot = slot;
            return;
        }
    }
    script.slots.push_back({call.module, call.handle, which, slot});
}

// The answer of a module that failed before it had anything to report.
fake::Reply InjectedFault(uint32_t error) {
    fake::Reply answer;
    answer.error = error;
    return answer;
}

fake::Reply ChooseAnswer(Script& script, const FakeCall& call, uint64_t serial) {
    if (script.faultArmed && script.faultSerial == serial) {
        script.faultArmed = false;
        return InjectedFault(script.faultError);
    }
    const auto queued = std::find_if(script.queue.begin(), script.queue.end(),
                                     [&](const Rule& rule) { return Matches(rule, call); });
    if (queued != script.queue.end()) {
        fake::Reply answer = std::move(queued->answer);
        script.queue.erase(queued);
        return answer;
    }
    const auto rule = std::find_if(script.rules.rbegin(), script.rules.rend(),
                                   [&](const Rule& r) { return Matches(r, call); });
    if (rule != script.rules.rend()) return rule->answer;
    return DefaultAnswer(call.entry);
}

}  // namespace

namespace fake {

Reply Dispatch(FakeCall& call) noexcept {
    Script& script = TheScript();
    call.result = call.error = 0;
    uint64_t serial;
    FakeHook hook = nullptr;
    void* context = nullptr;
    {
        const std::lock_guard lock(script.mutex);
        serial = script.firstSerial + script.log.size();
        script.log.push_back(call);
        StoreLockSlot(script, call);
        const auto found = std::find_if(script.hooks.rbegin(), script.hooks.rend(), [&](const Hook& h) {
            return NameMatches(h.entry, call.entry) && NumberMatches(h.code, call.code);
        });
        if (found != script.hooks.rend()) {
            hook = found->function;
            context = found->context;
        }
    }
    if (hook) hook(&call, context);  // outside the lock: it may block or script

    const std::lock_guard lock(script.mutex);
    Reply answer = ChooseAnswer(script, call, serial);
    const std::string_view entry = call.entry;
    if (entry == "DEV_ReadRegister" && answer.error == kSuccess) answer.result = answer.value1;
    if (answer.writesOutputs && OneOf(entry, {"DEV_OpenDevice", "DEV_OpenDevice2", "INT_Open", "INT_Open2"}))
        call.handle = answer.value1;
    call.result = answer.result;
    call.error = answer.error;
    if (serial >= script.firstSerial && serial - script.firstSerial < script.log.size()) {
        FakeCall& logged = script.log[serial - script.firstSerial];
        logged.handle = call.handle;
        logged.result = call.result;
        logged.error = call.error;
    }
    return answer;
}

}  // namespace fake

extern "C" {

FAKE_API void FAKE_Reset(void) noexcept {
    Script& script = TheScript();
    const std::lock_guard lock(script.mutex);
    script.rules.clear();
    script.queue.clear();
    script.hooks.clear();
    script.slots.clear();
    script.firstSerial += script.log.size();
    script.log.clear();
    script.faultArmed = false;
}

FAKE_API void FAKE_SetAnswer(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                             uint32_t value1, uint32_t value2, uint32_t error) noexcept {
    AddRule(false, module, entry, child, code, sub, Scripted(value1, value2, error));
}

FAKE_API void FAKE_QueueAnswer(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                               uint32_t value1, uint32_t value2, uint32_t error) noexcept {
    AddRule(true, module, entry, child, code, sub, Scripted(value1, value2, error));
}

FAKE_API void FAKE_SetList(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                           const uint32_t* values, uint32_t count, uint32_t error) noexcept {
    AddRule(false, module, entry, child, code, sub, ListAnswer(entry, values, count, error));
}

FAKE_API void FAKE_QueueList(const char* module, const char* entry, uint32_t child, uint32_t code, uint32_t sub,
                             const uint32_t* values, uint32_t count, uint32_t error) noexcept {
    AddRule(true, module, entry, child, code, sub, ListAnswer(entry, values, count, error));
}

FAKE_API void FAKE_SetText(const char* module, const char* entry, uint32_t child, uint32_t code, const char* text,
                           uint32_t error) noexcept {
    fake::Reply answer = Scripted(0, 0, error);
    answer.text = Text(text).substr(0, FAKE_TEXT_MAX);
    AddRule(false, module, entry, child, code, FAKE_ANY, std::move(answer));
}

FAKE_API void FAKE_SetAddress(const char* module, const char* entry, uint32_t child, const void* address,
                              uint32_t index, uint32_t error) noexcept {
    fake::Reply answer = Scripted(index, 0, error);
    answer.address = address;
    AddRule(false, module, entry, child, FAKE_ANY, FAKE_ANY, std::move(answer));
}

FAKE_API void FAKE_SetHook(const char* entry, uint32_t code, FakeHook hook, void* context) noexcept {
    Script& script = TheScript();
    const std::string name = Text(entry);
    const std::lock_guard lock(script.mutex);
    std::erase_if(script.hooks, [&](const Hook& h) { return h.entry == name && h.code == code; });
    if (hook) script.hooks.push_back({name, code, hook, context});
}

FAKE_API void FAKE_FailCall(uint32_t n, uint32_t error) noexcept {
    Script& script = TheScript();
    const std::lock_guard lock(script.mutex);
    script.faultArmed = true;
    script.faultSerial = script.firstSerial + script.log.size() + n;
    script.faultError = error;
}

FAKE_API uint32_t FAKE_CallCount(void) noexcept {
    Script& script = TheScript();
    const std::lock_guard lock(script.mutex);
    return static_cast<uint32_t>(script.log.size());
}

FAKE_API int FAKE_GetCall(uint32_t index, FakeCall* out) noexcept {
    Script& script = TheScript();
    const std::lock_guard lock(script.mutex);
    if (!out || index >= script.log.size()) return 0;
    *out = script.log[index];
    return 1;
}

FAKE_API void FAKE_ClearLog(void) noexcept {
    Script& script = TheScript();
    const std::lock_guard lock(script.mutex);
    script.firstSerial += script.log.size();
    script.log.clear();
}

FAKE_API vmc_lock_slot FAKE_LockSlot(const char* module, uint32_t handle, uint32_t which) noexcept {
    Script& script = TheScript();
    const std::string name = Text(module);
    const std::lock_guard lock(script.mutex);
    const auto found = std::find_if(script.slots.rbegin(), script.slots.rend(), [&](const LockSlot& s) {
        return NameMatches(name, s.module.c_str()) && s.handle == handle && s.which == which;
    });
    return found != script.slots.rend() ? found->slot : nullptr;
}

}  // extern "C"
