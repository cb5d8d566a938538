// The device, channel and global locks, and a scope guard that releases
// them on every path.
#pragma once

#include <cstdint>

#include "core/library_state.h"

namespace vmc {

// The lock nearly every device call takes: refuses a device that is not open
// (2) or whose link is down (113), asks the link state before and after the
// wait, and gives up after 20000 ms (9).
uint32_t TakeDeviceLock(uint32_t deviceNo, uint32_t* error);
// The wait alone, without the link test.
uint32_t TakeDeviceLockPlain(uint32_t deviceNo, uint32_t* error);
uint32_t TakeChannelLock2(uint32_t deviceNo, uint32_t* error);
uint32_t TakeChannelLock3(uint32_t deviceNo, uint32_t* error);
uint32_t TakeChannelLock4(uint32_t deviceNo, uint32_t* error);
uint32_t TakeGlobalLock(uint32_t* error);

void ReleaseDeviceLock(uint32_t deviceNo);
void ReleaseGlobalLock();

// Owns one level of a mutex taken by one of the functions above.
class ScopedLock {
public:
    ScopedLock() = default;
    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;
    ScopedLock(ScopedLock&& other) noexcept : mutex_(other.mutex_) { other.mutex_ = nullptr; }
    ~ScopedLock() { Release(); }

    static ScopedLock Device(uint32_t deviceNo, uint32_t* error) {
        return ScopedLock(TakeDeviceLock(deviceNo, error) ? DeviceMutex(deviceNo) : nullptr);
    }
    static ScopedLock DevicePlain(uint32_t deviceNo, uint32_t* error) {
        return ScopedLock(TakeDeviceLockPlain(deviceNo, error) ? DeviceMutex(deviceNo) : nullptr);
    }
    // A lock taken only when required: otherwise an empty guard, and *ok is
    // true. *ok is false when a required lock was not had.
    // The global lock is required while a device of the global-lock set is open.
    static ScopedLock GlobalIfRequired(uint32_t* error, bool* ok);
    // The device lock, required where the caller's row says so.
    static ScopedLock DeviceIf(bool required, uint32_t deviceNo, uint32_t* error, bool* ok) {
        ScopedLock lock = required ? Device(deviceNo, error) : ScopedLock();
        *ok = !required || static_cast<bool>(lock);
        return lock;
    }

    explicit operator bool() const { return mutex_ != nullptr; }
    void Release();
    // Leaves the mutex held when the guard ends. Callers say why at the call.
    void KeepHeld() { mutex_ = nullptr; }

private:
    explicit ScopedLock(platform::MutexHandle mutex) : mutex_(mutex) {}
    platform::MutexHandle mutex_ = nullptr;
};

}  // namespace vmc
