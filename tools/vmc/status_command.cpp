// vmc status: bring the library's model of a camera up to date and say
// what changed.
//
// A poll reads the records, has the library ask the camera again for every
// setting its keypad or panel may have changed (VMC_DeviceStatusUpdate),
// reads the records again and compares them on the field tables of vmc
// info. With --watch it polls every interval until interrupted or until
// --count polls are done. A failed poll is reported and watching goes on:
// the records then hold a mix of old and new values, and the next poll is
// the recovery. The exit code is that of the last poll.
#include <signal.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "camera_records.h"
#include "commands.h"
#include "errors.h"
#include "record_fields.h"

namespace vmctool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kWakeUpEvery = std::chrono::milliseconds(100);  // how soon a wait notices an interruption

// Set by SIGINT and SIGTERM; a handler may do nothing else.
volatile std::sig_atomic_t stopRequested = 0;

void RequestStop(int) { stopRequested = 1; }

// While alive, SIGINT and SIGTERM end the command after the poll under way,
// so that the camera is closed as on every other path.
class StopOnSignal {
public:
    StopOnSignal() {
        struct sigaction action = {};
        action.sa_handler = RequestStop;
        sigemptyset(&action.sa_mask);
        sigaction(SIGINT, &action, &oldInterrupt_);
        sigaction(SIGTERM, &action, &oldTerminate_);
    }
    ~StopOnSignal() {
        sigaction(SIGINT, &oldInterrupt_, nullptr);
        sigaction(SIGTERM, &oldTerminate_, nullptr);
    }
    StopOnSignal(const StopOnSignal&) = delete;
    StopOnSignal& operator=(const StopOnSignal&) = delete;

private:
    struct sigaction oldInterrupt_ = {};
    struct sigaction oldTerminate_ = {};
};

// False when interrupted first.
bool WaitUntil(Clock::time_point deadline) {
    while (!stopRequested) {
        const Clock::time_point now = Clock::now();
        if (now >= deadline) return true;
        const auto slice = std::chrono::duration_cast<std::chrono::nanoseconds>(std::min<Clock::duration>(deadline - now, kWakeUpEvery));
        const timespec pause = {static_cast<time_t>(slice.count() / 1000000000), static_cast<long>(slice.count() % 1000000000)};
        nanosleep(&pause, nullptr);  // a signal cuts it short
    }
    return false;
}

struct Change {
    uint32_t head;  // 0: the device
    const FieldRow* row;
    const void* before;
    const void* after;
};

void Compare(std::span<const FieldRow> fields, uint32_t head, const void* before, const void* after,
             std::vector<Change>* changes) {
    for (const FieldRow& row : fields)
        if (Differs(row.first, before, after) || (row.second.key && Differs(row.second, before, after)))
            changes->push_back({head, &row, before, after});
}

// Heads never come or go while a camera is open, so the two reads list the same heads.
std::vector<Change> Compare(const CameraRecords& before, const CameraRecords& after) {
    std::vector<Change> changes;
    Compare(DeviceFields(), 0, &before.device, &after.device, &changes);
    for (size_t i = 0; i < before.heads.size() && i < after.heads.size(); ++i)
        Compare(ChildFields(), before.heads[i].number, &before.heads[i].record, &after.heads[i].record, &changes);
    return changes;
}

struct Moment {
    std::string clock;  // 14:03:07.250, local time, for people
    std::string iso;    // 2026-11-23T13:03:07.250Z, for scripts
};

Moment Now() {
    const auto now = std::chrono::system_clock::now();
    const time_t seconds = std::chrono::system_clock::to_time_t(now);
    const int millis = static_cast<int>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000);
    tm local = {}, utc = {};
    localtime_r(&seconds, &local);
    gmtime_r(&seconds, &utc);
    char clock[48], iso[64];
    std::snprintf(clock, sizeof clock, "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min, local.tm_sec, millis);
    std::snprintf(iso, sizeof iso, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", utc.tm_year + 1900, utc.tm_mon + 1,
                  utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec, millis);
    return {clock, iso};
}

struct Poll {
    uint32_t number;
    Moment time;
    bool ok;
    uint32_t error;
    std::vector<Change> changes;
};

void AddChangeJson(nlohmann::ordered_json* changes, const Change& change, const Member& member) {
    if (!member.key || !Differs(member, change.before, change.after)) return;
    changes->push_back({{"head", change.head ? nlohmann::ordered_json(change.head) : nlohmann::ordered_json()},
                        {"field", member.key},
                        {"old", Json(*change.row, member, change.before)},
                        {"new", Json(*change.row, member, change.after)}});
}

void PrintJson(const Poll& poll, bool watch) {
    nlohmann::ordered_json changes = nlohmann::ordered_json::array();
    for (const Change& change : poll.changes) {
        AddChangeJson(&changes, change, change.row->first);
        AddChangeJson(&changes, change, change.row->second);
    }
    nlohmann::ordered_json result = {{"poll", poll.number}, {"time", poll.time.iso}, {"ok", poll.ok}, {"changes", changes}};
    if (!poll.ok)
    {
        const std::string name = ErrorName(poll.error);  // none for a code the camera module passed through
        result["error"] = {{"code", poll.error},
                           {"name", name.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(name)},
                           {"text", ExplainError(poll.error)}};
    }
    // Watching gives one line a poll, for a reader that takes them as they come.
    const std::string text = watch ? result.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace)
                                   : result.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    std::printf("%s\n", text.c_str());
}

void PrintText(const Poll& poll, bool watch) {
    const std::string stamp = watch ? poll.time.clock + "  " : "";
    for (const Change& change : poll.changes) {
        const std::string head = change.head ? "head " + std::to_string(change.head) + " " : "";
        std::printf("%s%s%s: %s -> %s\n", stamp.c_str(), head.c_str(), change.row->label,
                    Text(*change.row, change.before).c_str(), Text(*change.row, change.after).c_str());
    }
    if (poll.ok && poll.changes.empty()) std::printf("%sno change\n", stamp.c_str());
}

}  // namespace

int RunStatus(const LinkOptions& link, uint32_t index, const StatusOptions& options) {
    const Detection detection = Detect(link);
    const OpenCamera camera(detection, index);
    const StopOnSignal stopOnSignal;

    const auto interval = std::chrono::milliseconds(options.intervalMs);
    CameraRecords before = ReadRecords(camera.deviceNo(), index);
    bool lastOk = true;
    for (uint32_t number = 1;; ++number) {
        const Clock::time_point started = Clock::now();
        Poll poll = {number, Now(), false, 0, {}};
        poll.ok = VMC_DeviceStatusUpdate(camera.deviceNo(), &poll.error) != 0;
        CameraRecords after = ReadRecords(camera.deviceNo(), index);
        poll.changes = Compare(before, after);

        if (options.json)
            PrintJson(poll, options.watch);
        else
            PrintText(poll, options.watch);
        std::fflush(stdout);
        if (!poll.ok) {
            const std::string stamp = options.watch ? poll.time.clock + " " : "";
            std::fprintf(stderr, "vmc: %spolling camera %u failed: %s\n", stamp.c_str(), index,
                         ExplainError(poll.error).c_str());
        }
        lastOk = poll.ok;

        before = std::move(after);
        if (!options.watch || (options.count && number >= options.count)) break;
        if (!WaitUntil(started + interval)) break;
    }
    return lastOk ? 0 : 1;
}

}  // namespace vmctool
