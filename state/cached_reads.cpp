// The Get family that answers from the cached records. Every row of
// cached_reads.def becomes an export that feeds one of the routines below:
// which record, which availability flag, which fields.
#include <type_traits>

#include "state/cached_reads.h"

namespace vmc {
namespace {

constexpr int kMaxFields = 4;

struct DeviceRead {
    FlagRule flag;
    int count;
    uint32_t DeviceRecord::*fields[kMaxFields];
};

struct ChildRead {
    FlagRule flag;
    int count;
    uint32_t ChildRecord::*fields[kMaxFields];
};

// One field kept in both records: the head's, or the device's for child 0.
template <class T>
struct ChildOrDeviceRead {
    T DeviceRecord::*device;
    T ChildRecord::*child;
};

struct IndexedRead {
    FlagRule flag;
    const uint32_t* (*array)(const DeviceRecord&);
    uint32_t extent;
    uint32_t first;
    uint32_t DeviceRecord::*count;  // null: the whole array counts
};

// Nothing is written unless every output can take its value.
bool OutputsGiven(uint32_t* const* outputs, int count, uint32_t* error) {
    for (int i = 0; i < count; ++i)
        if (!NotNull(outputs[i], error)) return false;
    return true;
}

uint32_t ReadDevice(const DeviceRead& row, uint32_t deviceNo, uint32_t* const* outputs, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        if (!FlagSet(row.flag, deviceNo, 0, err) || !OutputsGiven(outputs, row.count, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        for (int i = 0; i < row.count; ++i) *outputs[i] = LoadField(record.*row.fields[i]);
        return 1;
    });
}

uint32_t ReadChild(const ChildRead& row, uint32_t deviceNo, uint32_t childNo, uint32_t* const* outputs,
                   uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        const ChildRecord* child = BeginChildRead(deviceNo, childNo, err);
        if (!child || !FlagSet(row.flag, deviceNo, childNo, err) || !OutputsGiven(outputs, row.count, err))
            return 0;
        for (int i = 0; i < row.count; ++i) *outputs[i] = LoadField(child->*row.fields[i]);
        return 1;
    });
}

template <class T>
uint32_t ReadChildOrDevice(const ChildOrDeviceRead<T>& row, uint32_t deviceNo, uint32_t childNo, T* output,
                           uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err) || !ChildOrDevice(deviceNo, childNo, err) || !NotNull(output, err)) return 0;
        *output = childNo == 0 ? LoadField(Record(deviceNo).*row.device)
                               : LoadField(Child(deviceNo, childNo)->*row.child);
        return 1;
    });
}

uint32_t ReadIndexed(const IndexedRead& row, uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error) {
    return RunExport(error, [&](uint32_t* err) -> uint32_t {
        if (!BeginRead(deviceNo, err)) return 0;
        const DeviceRecord& record = Record(deviceNo);
        if (!FlagSet(row.flag, deviceNo, 0, err)) return 0;
        const uint32_t counted = row.count ? LoadField(record.*row.count) : row.extent;
        const uint32_t limit = counted < row.extent ? counted : row.extent;  // never past the array
        if (index < row.first || index - row.first >= limit) return Fail(err, VMC_ERR_BAD_ARGUMENT);
        if (!NotNull(value, err)) return 0;
        *value = LoadField(row.array(record)[index - row.first]);
        return 1;
    });
}

}  // namespace

}  // namespace vmc

using namespace vmc;

// Expanding the table. The out-arguments are named after their fields, so
// that the list of fields is also the list of outputs.
#define NO_FLAG kNoFlag
#define DEVICE_FLAG(name) (FlagRule{&DeviceRecord::name, nullptr, nullptr})
#define CHILD_FLAG(name) (FlagRule{nullptr, nullptr, &ChildRecord::name})

#define CACHED_COUNT(...) CACHED_COUNT_(__VA_ARGS__, 4, 3, 2, 1, 0)
#define CACHED_COUNT_(a, b, c, d, n, ...) n
#define CACHED_CAT(a, b) CACHED_CAT_(a, b)
#define CACHED_CAT_(a, b) a##b
// m(field) for each field, with nothing between: m brings its own separator.
#define CACHED_EACH(m, ...) CACHED_CAT(CACHED_EACH_, CACHED_COUNT(__VA_ARGS__))(m, __VA_ARGS__)
#define CACHED_EACH_1(m, a) m(a)
#define CACHED_EACH_2(m, a, b) m(a) m(b)
#define CACHED_EACH_3(m, a, b, c) m(a) m(b) m(c)
#define CACHED_EACH_4(m, a, b, c, d) m(a) m(b) m(c) m(d)

#define DEVICE_OUTPUT(field) , decltype(DeviceRecord::field)* field
#define CHILD_OUTPUT(field) , decltype(ChildRecord::field)* field
#define DEVICE_FIELD(field) &DeviceRecord::field,
#define CHILD_FIELD(field) &ChildRecord::field,

#define CACHED_READ(exportName, scope, gate, ...) CACHED_READ_##scope(exportName, gate, __VA_ARGS__)

#define CACHED_READ_DEVICE(exportName, gate, ...)                                                                     \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo CACHED_EACH(DEVICE_OUTPUT, __VA_ARGS__), uint32_t* error) {      \
        static constexpr DeviceRead kRow = {gate, CACHED_COUNT(__VA_ARGS__),                                          \
                                            {CACHED_EACH(DEVICE_FIELD, __VA_ARGS__)}};                                \
        static_assert(!kRow.flag.child, "a device read tests a device flag");                                         \
        uint32_t* const outputs[] = {__VA_ARGS__};                                                                    \
        return ReadDevice(kRow, deviceNo, outputs, error);                                                            \
    }

#define CACHED_READ_CHILD(exportName, gate, ...)                                                                      \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo CACHED_EACH(CHILD_OUTPUT, __VA_ARGS__),        \
                                   uint32_t* error) {                                                                 \
        static constexpr ChildRead kRow = {gate, CACHED_COUNT(__VA_ARGS__), {CACHED_EACH(CHILD_FIELD, __VA_ARGS__)}}; \
        uint32_t* const outputs[] = {__VA_ARGS__};                                                                    \
        return ReadChild(kRow, deviceNo, childNo, outputs, error);                                                    \
    }

#define CACHED_READ_CHILD_OR_DEVICE(exportName, gate, field)                                                          \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t childNo CHILD_OUTPUT(field), uint32_t* error) {        \
        using T = decltype(ChildRecord::field);                                                                       \
        static_assert(std::is_same_v<T, decltype(DeviceRecord::field)>, "both records keep the same type");           \
        static_assert(!(gate).device && !(gate).child, "child 0 has no flag to test");                                \
        static constexpr ChildOrDeviceRead<T> kRow = {&DeviceRecord::field, &ChildRecord::field};                     \
        return ReadChildOrDevice(kRow, deviceNo, childNo, field, error);                                              \
    }

#define WHOLE_ARRAY nullptr
#define COUNTED_BY(field) &DeviceRecord::field
#define INDEXED_READ(exportName, index, gate, array, first, limit)                                                    \
    VMC_EXPORT uint32_t exportName(uint32_t deviceNo, uint32_t index, uint32_t* value, uint32_t* error) {             \
        static_assert(!(gate).child, "an indexed read tests a device flag");                                          \
        static constexpr IndexedRead kRow = {                                                                         \
            gate, [](const DeviceRecord& record) -> const uint32_t* { return record.array; },                \
            std::extent_v<decltype(DeviceRecord::array)>, first, limit};                                              \
        return ReadIndexed(kRow, deviceNo, index, value, error);                                                      \
    }

#define BY_HAND(exportName)

#include "state/cached_reads.def"

