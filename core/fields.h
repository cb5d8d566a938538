// Whole-field loads and stores of the cached records.
//
// The cached reads answer from the records without a lock, while a request,
// the status poll or the state load on another thread rewrites them. Every
// field a reader may load is therefore stored and loaded as one relaxed
// atomic access of its own width: a reader sees the old value or the new
// one, never a mix, and the two sides are not a data race. A read of several
// fields may straddle a refresh; a pair written under the device lock is
// whole only to a reader that holds the lock too.
//
// Writers never assign a record field directly: they call StoreField, so
// that no worker can forget it. Records are zeroed with a plain memset only
// where no other thread may look (close, whose caller quiesces the device).
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <vmc/vmc.h>

namespace vmc {

template <class T>
concept RecordWord = std::is_integral_v<T> && sizeof(T) <= 8;

template <RecordWord T>
inline T LoadField(const T& field) {
    return __atomic_load_n(&field, __ATOMIC_RELAXED);
}
inline uint8_t LoadFlag(const uint8_t& flag) { return LoadField(flag); }

template <RecordWord T>
inline void StoreField(T& field, std::type_identity_t<T> value) {
    __atomic_store_n(&field, value, __ATOMIC_RELAXED);
}

// Copies a run of a record out to a caller's buffer, or a caller's image in
// to a record, each aligned word of the record loaded or stored whole (8
// bytes where the run allows, else 4, else 1): a copy made while a refresh
// runs sees each field old or new, as a cached read does.
template <class Word>
inline void CopyWord(unsigned char* to, const unsigned char* from, bool intoRecord) {
    Word word;
    if (intoRecord) {
        __builtin_memcpy(&word, from, sizeof word);
        StoreField(*reinterpret_cast<Word*>(to), word);
    } else {
        word = LoadField(*reinterpret_cast<const Word*>(from));
        __builtin_memcpy(to, &word, sizeof word);
    }
}

inline void CopyFields(void* to, const void* from, std::size_t size, bool intoRecord) {
    auto* out = static_cast<unsigned char*>(to);
    const auto* in = static_cast<const unsigned char*>(from);
    const unsigned char* record = intoRecord ? out : in;
    for (std::size_t i = 0; i < size;) {
        const auto at = reinterpret_cast<std::uintptr_t>(record + i);
        const std::size_t width = at % 8 == 0 && size - i >= 8 ? 8 : at % 4 == 0 && size - i >= 4 ? 4 : 1;
        if (width == 8) CopyWord<uint64_t>(out + i, in + i, intoRecord);
        else if (width == 4) CopyWord<uint32_t>(out + i, in + i, intoRecord);
        else CopyWord<uint8_t>(out + i, in + i, intoRecord);
        i += width;
    }
}
inline void CopyFieldsOut(void* to, const void* record, std::size_t size) { CopyFields(to, record, size, false); }
inline void CopyFieldsIn(void* record, const void* from, std::size_t size) { CopyFields(record, from, size, true); }

// The 64-bit fields sit on 8-byte boundaries in both records (the device
// table is aligned for it), so they too are one access.
static_assert(offsetof(DeviceRecord, serialNumber) % 8 == 0 && sizeof(DeviceRecord) % 8 == 0 &&
              offsetof(ChildRecord, serialNumber) % 8 == 0);

}  // namespace vmc
