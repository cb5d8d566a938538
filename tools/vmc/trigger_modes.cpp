#include "trigger_modes.h"

namespace vmctool {
namespace {

struct Mode {
    uint32_t value;
    const char* name;
};

// Named after where the recorded frames lie around the trigger.
constexpr Mode kModes[] = {
    {0x0000000, "start"},           {0x1000000, "centre"},         {0x2000000, "end"},
    {0x3000000, "random"},          {0x4000000, "manual"},         {0x5000000, "random reset"},
    {0x6000000, "random centre"},   {0x7000000, "random manual"},  {0x8000000, "two-stage 1"},
    {0x8000001, "two-stage 2"},     {0x8000002, "two-stage 3"},    {0x8000003, "two-stage 4"},
    {0x9000000, "plain range"},     {0x10000000, "record on command"}, {0x11000000, "random endless"},
};

}  // namespace

std::string TriggerModeName(uint32_t mode) {
    for (const Mode& entry : kModes)
        if (entry.value == mode) return entry.name;
    return "unknown";
}

}  // namespace vmctool
