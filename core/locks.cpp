#include "core/locks.h"

#include <vmc/codes.h>

#include "core/frame.h"
#include "core/module_calls.h"

namespace vmc {
namespace {

static_assert(VMC_LOCK_TIMEOUT_MS == platform::kLockTimeoutMs, "one lock wait, library and platform alike");

using platform::MutexHandle;
using platform::WaitResult;

// The wait shared by every lock: error 2 for a lock that does not exist,
// 9 when it is not had in time; a lock abandoned by a dead owner counts as taken.
uint32_t Wait(MutexHandle mutex, uint32_t* error) {
    if (!mutex) return Fail(error, VMC_ERR_NOT_INITIALISED);
    if (platform::WaitMutex(mutex, VMC_LOCK_TIMEOUT_MS) != WaitResult::Taken)
        return Fail(error, VMC_ERR_LOCK_TIMEOUT);
    *error = VMC_ERR_OK;
    return 1;
}

// Asks the module whether the link is up. A module without the query
// (error 21) is taken as connected; any other failure is the caller's.
uint32_t QueryConnected(uint32_t deviceNo, uint32_t* connected, uint32_t* error) {
    *connected = 0;
    if (GetCaps(deviceNo, 0, VMC_CODE_CONNECT_STATE, 0, connected, nullptr, error)) return 1;
    if (!IsNotSupported(error)) return 0;
    *connected = 1;
    return 1;
}

uint32_t TakeChannel(uint32_t channel, uint32_t deviceNo, uint32_t* error) {
    return Wait(state.channelMutex[channel][deviceNo], error);
}

}  // namespace

uint32_t TakeDeviceLock(uint32_t deviceNo, uint32_t* error) {
    MutexHandle mutex = DeviceMutex(deviceNo);
    if (!mutex) return Fail(error, VMC_ERR_NOT_INITIALISED);

    uint32_t connected = 0;
    if (!QueryConnected(deviceNo, &connected, error)) return 0;
    if (!connected) return Fail(error, VMC_ERR_DISCONNECTED);

    if (!Wait(mutex, error)) return 0;

    // The link may have dropped while this thread waited.
    if (!QueryConnected(deviceNo, &connected, error)) {
        // Intended: a failed second link query returns with the lock still held.
        return 0;
    }
    if (!connected) {
        platform::ReleaseMutex(mutex);
        return Fail(error, VMC_ERR_DISCONNECTED);
    }
    *error = VMC_ERR_OK;
    return 1;
}

uint32_t TakeDeviceLockPlain(uint32_t deviceNo, uint32_t* error) { return TakeChannel(0, deviceNo, error); }
uint32_t TakeChannelLock2(uint32_t deviceNo, uint32_t* error) { return TakeChannel(1, deviceNo, error); }
uint32_t TakeChannelLock3(uint32_t deviceNo, uint32_t* error) { return TakeChannel(2, deviceNo, error); }
uint32_t TakeChannelLock4(uint32_t deviceNo, uint32_t* error) { return TakeChannel(3, deviceNo, error); }
uint32_t TakeGlobalLock(uint32_t* error) { return Wait(state.globalMutex, error); }

void ReleaseDeviceLock(uint32_t deviceNo) {
    if (MutexHandle mutex = DeviceMutex(deviceNo)) platform::ReleaseMutex(mutex);
}

void ReleaseGlobalLock() {
    if (state.globalMutex) platform::ReleaseMutex(state.globalMutex);
}

ScopedLock ScopedLock::GlobalIfRequired(uint32_t* error, bool* ok) {
    *ok = true;
    if (!state.globalLockRequired.load(std::memory_order_relaxed)) return ScopedLock();
    if (!TakeGlobalLock(error)) {
        *ok = false;
        return ScopedLock();
    }
    return ScopedLock(state.globalMutex);
}

void ScopedLock::Release() {
    if (mutex_) platform::ReleaseMutex(mutex_);
    mutex_ = nullptr;
}

}  // namespace vmc
