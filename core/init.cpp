// VMC_Init, the library's life at process attach and detach, and the
// processor-dependent instruction-set choice.
#include <cstdlib>
#include <cstring>

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/gray_palette.h"
#include "core/locks.h"
#include "core/module_calls.h"
#include "platform/cpu.h"
#include "platform/page_memory.h"

namespace vmc {
namespace {

constexpr uint32_t kSseBit = 0x2000000;  // leaf 1, fourth register, bit 25

void TestProcessor() {
    platform::QueryProcessor(0, state.cpuidResult);
    state.instructionFeatureA = 0;  // never set: no processor qualifies for it
    state.instructionFeatureSSE = 0;
    if (state.cpuidResult[0] >= 1) {
        platform::QueryProcessor(1, state.cpuidResult);
        state.instructionFeatureSSE = state.cpuidResult[3] & kSseBit;
    }
}

template <class T>
void Zero(T& object) {
    std::memset(&object, 0, sizeof object);
}

uint32_t SelectInstructionSet(uint32_t mode) {
    const bool featureA = (mode & VMC_INSTRUCTION_FEATURE_A) && state.instructionFeatureA;
    const bool sse = (mode & VMC_INSTRUCTION_SSE) && state.instructionFeatureSSE;
    if (featureA || sse) return sse ? 2 : 1;
    if ((mode & 0xC0000000u) == VMC_INSTRUCTION_AUTO) {
        if (state.instructionFeatureSSE) return 2;
        if (state.instructionFeatureA) return 1;
    }
    return VMC_INSTRUCTION_NONE;
}

void Teardown() {
    uint32_t error = VMC_ERR_OK;
    if (state.openDeviceCount > 0)
        for (uint32_t deviceNo = 0; deviceNo < kDeviceCount; ++deviceNo) VMC_CloseDevice(deviceNo, &error);
    // Interface modules stay loaded until the process ends; the walk only notes empty slots.
    for (const InterfaceModule& slot : state.interfaceModules)
        if (!slot.handle) error = VMC_ERR_NOT_OPEN;
    FreeGrayPalette();
    UnbindClosedModule(ClosedModuleId::POLARIZATION);
    UnbindClosedModule(ClosedModuleId::CODEC);
    state.initialised = 0;
}

__attribute__((constructor)) void ProcessAttach() {
    setenv("OMP_WAIT_POLICY", "PASSIVE", 1);
    if (!state.globalMutex) state.globalMutex = platform::CreateMutex();
}

__attribute__((destructor)) void ProcessDetach() {
    if (state.initialised) Teardown();
    platform::CloseMutex(state.globalMutex);
    state.globalMutex = nullptr;
}

}  // namespace

}  // namespace vmc

using namespace vmc;

VMC_EXPORT uint32_t VMC_Init(uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (state.initialised) return Fail(err, VMC_ERR_ALREADY_INITIALISED);
        // Handles are forgotten, not closed: the test above and teardown make that safe.
        Zero(state.interfaceModules);
        Zero(state.detectResults);
        Zero(state.deviceModules);
        Zero(state.transferActive);
        Zero(state.channelMutex);
        Zero(state.deviceTable);
        BuildGrayPalette();
        if (state.sparePageBuffer) {
            platform::FreePages(state.sparePageBuffer);
            state.sparePageBuffer = nullptr;
            state.sparePageSize = 0;
        }
        TestProcessor();
        for (uint32_t id = 0; id < kClosedModuleCount; ++id) BindClosedModule(static_cast<ClosedModuleId>(id));
        state.initialised = 1;
        *err = VMC_ERR_OK;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_GetNumberOfDevice(uint32_t* count, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err) || !NotNull(count, err)) return 0;
        *count = state.openDeviceCount;
        return 1;
    });
}

VMC_EXPORT uint32_t VMC_SetInstructionSet(uint32_t deviceNo, uint32_t mode, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        const uint32_t selected = SelectInstructionSet(mode);
        if (!SetCaps(deviceNo, 0, VMC_CODE_INSTRUCTION_SET, 0, selected, 0, err)) return 0;
        StoreField(Record(deviceNo).instructionSet, selected);
        *err = VMC_ERR_OK;
        return 1;
    });
}

// The camera's own records of errors: at its start-up, and the last one.
VMC_EXPORT uint32_t VMC_GetInitialError(uint32_t deviceNo, uint32_t index, uint32_t* value1, uint32_t* value2,
                                        uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        return GetCaps(deviceNo, 0, VMC_CODE_INITIAL_ERROR, index, value1, value2, err);
    });
}

VMC_EXPORT uint32_t VMC_GetLastError(uint32_t deviceNo, uint32_t* value1, uint32_t* value2, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!Begin(err)) return 0;
        ScopedLock lock = ScopedLock::Device(deviceNo, err);
        if (!lock) return 0;
        uint32_t first = 0, second = 0;
        if (!GetCaps(deviceNo, 0, VMC_CODE_LAST_ERROR, 0, &first, &second, err)) return 0;
        if (value1) *value1 = first;
        if (value2) *value2 = second;
        return 1;
    });
}
