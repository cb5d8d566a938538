// Per-frame side data: record blocks, the IRIG clock and its live form, and
// the agreement of the records of one frame with each other and with the
// recording's timing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <vector>

#include "camera/side_data.h"

namespace vcam {
namespace {

constexpr SideKind kKinds[] = {SideKind::Irig,        SideKind::Mcdl,            SideKind::IrigMcdl,
                               SideKind::McdlBytes,   SideKind::AdcBytes,        SideKind::AutoExposureFps,
                               SideKind::AutoExposureNsec, SideKind::Temperature, SideKind::Acceleration,
                               SideKind::ExposureTime};

constexpr uint64_t kSecond = 1000000;
constexpr uint64_t kDay = 86400 * kSecond;

RecordingTiming Timing(uint32_t rate, uint64_t startMicros = 0, uint32_t shutterNsec = 100000) {
    RecordingTiming t;
    t.camera = 1;
    t.head = 2;
    t.recordRate = rate;
    t.shutterNsec = shutterNsec;
    t.startMicros = startMicros;
    return t;
}

std::vector<uint8_t> Records(SideKind kind, const RecordingTiming& timing, int64_t first, uint32_t count = 1) {
    std::vector<uint8_t> out(SideRecordBytes(kind) * count);
    WriteSideData(kind, timing, first, count, out.data());
    return out;
}

uint64_t Le(const uint8_t* p, int bytes) {
    uint64_t v = 0;
    for (int i = bytes - 1; i >= 0; --i) v = v << 8 | p[i];
    return v;
}
int16_t I16(const std::vector<uint8_t>& r, size_t at) { return int16_t(uint16_t(Le(&r[at], 2))); }
uint32_t U32(const std::vector<uint8_t>& r, size_t at) { return uint32_t(Le(&r[at], 4)); }

struct Irig {
    uint32_t days, hours, minutes, seconds, subSeconds, signal;
    bool operator==(const Irig&) const = default;
};
std::ostream& operator<<(std::ostream& os, const Irig& t) {
    return os << "day " << t.days << " " << t.hours << ":" << t.minutes << ":" << t.seconds << "." << t.subSeconds
              << " signal " << t.signal;
}

Irig IrigOf(const uint8_t* r) { return {uint32_t(Le(r, 4)), r[4], r[5], r[6], uint32_t(Le(r + 8, 4)), r[12]}; }
Irig IrigAt(const RecordingTiming& timing, int64_t frame) {
    return IrigOf(Records(SideKind::Irig, timing, frame).data());
}
uint64_t MicrosOf(const Irig& t) {
    return (t.days - 1) * kDay + ((t.hours * 60 + t.minutes) * 60 + t.seconds) * kSecond + t.subSeconds;
}

TEST(SideRecords, FixedLayoutsHaveTheirSizes) {
    EXPECT_EQ(SideRecordBytes(SideKind::Irig), 20u);
    EXPECT_EQ(SideRecordBytes(SideKind::Mcdl), 332u);
    EXPECT_EQ(SideRecordBytes(SideKind::IrigMcdl), 352u);
    for (SideKind kind : kKinds) EXPECT_GT(SideRecordBytes(kind), 0u) << int(kind);
}

TEST(SideRecords, ABlockIsEachFramesRecordInTurnAndNoMore) {
    const RecordingTiming timing = Timing(2500, 3 * kDay + 12345, 250000);
    for (SideKind kind : kKinds) {
        const size_t bytes = SideRecordBytes(kind);
        std::vector<uint8_t> block(bytes * 7 + 8, 0xA5);
        WriteSideData(kind, timing, -3, 7, block.data());
        for (int64_t i = 0; i < 7; ++i) {
            const std::vector<uint8_t> one = Records(kind, timing, -3 + i);
            EXPECT_TRUE(std::equal(one.begin(), one.end(), block.begin() + i * bytes)) << int(kind) << " frame " << i;
        }
        for (size_t i = bytes * 7; i < block.size(); ++i) EXPECT_EQ(block[i], 0xA5) << int(kind);
        EXPECT_EQ(Records(kind, timing, 1000), Records(kind, timing, 1000));
    }
}

TEST(IrigRecord, AdvancesOneFramePeriodAndRollsOverMidnight) {
    const RecordingTiming timing = Timing(1000, 86399 * kSecond + 998000);  // day 1, 23:59:59.998
    EXPECT_EQ(IrigAt(timing, 0), (Irig{1, 23, 59, 59, 998000, 1}));
    EXPECT_EQ(IrigAt(timing, 1), (Irig{1, 23, 59, 59, 999000, 1}));
    EXPECT_EQ(IrigAt(timing, 2), (Irig{2, 0, 0, 0, 0, 1}));
    EXPECT_EQ(IrigAt(timing, 3), (Irig{2, 0, 0, 0, 1000, 1}));
    EXPECT_EQ(IrigAt(timing, -1), (Irig{1, 23, 59, 59, 997000, 1}));

    const RecordingTiming hour = Timing(2000, 365 * kDay + (10 * 3600 + 59 * 60 + 59) * kSecond + 999500);
    EXPECT_EQ(IrigAt(hour, 1), (Irig{366, 11, 0, 0, 0, 1}));  // no wrap at the year's end
    EXPECT_EQ(IrigAt(Timing(1000), 0), (Irig{1, 0, 0, 0, 0, 1}));
    EXPECT_EQ(IrigAt(Timing(1000), -5), (Irig{1, 0, 0, 0, 0, 1}));  // before the year began

    // A period that isn't a whole microsecond: rounded down frame by frame, exact over a second.
    const RecordingTiming odd = Timing(3, 5 * kSecond);
    EXPECT_EQ(IrigAt(odd, 1).subSeconds, 333333u);
    EXPECT_EQ(IrigAt(odd, 2).subSeconds, 666666u);
    EXPECT_EQ(IrigAt(odd, 3), (Irig{1, 0, 0, 6, 0, 1}));
    const RecordingTiming fast = Timing(7000, 17 * kDay + 5);
    for (int64_t frame = 0; frame < 7000; frame += 97)
        EXPECT_EQ(MicrosOf(IrigAt(fast, frame)), 17 * kDay + 5 + uint64_t(frame) * kSecond / 7000);

    const std::vector<uint8_t> r = Records(SideKind::Irig, timing, 0);
    for (size_t at : {7, 13, 14, 15, 16, 17, 18, 19}) EXPECT_EQ(r[at], 0) << at;
}

TEST(IrigRecord, IrigMcdlIsTheIrigThenTheMcdlRecord) {
    const RecordingTiming timing = Timing(500, 40 * kDay + 7);
    const std::vector<uint8_t> both = Records(SideKind::IrigMcdl, timing, 11, 3);
    for (int64_t i = 0; i < 3; ++i) {
        std::vector<uint8_t> joined = Records(SideKind::Irig, timing, 11 + i);
        const std::vector<uint8_t> mcdl = Records(SideKind::Mcdl, timing, 11 + i);
        joined.insert(joined.end(), mcdl.begin(), mcdl.end());
        EXPECT_TRUE(std::equal(joined.begin(), joined.end(), both.begin() + i * 352)) << i;
    }
}

TEST(McdlRecord, CarriesTheFramesWordsAndIrigTime) {
    const RecordingTiming timing = Timing(1000, 2 * kDay + 3 * kSecond);
    for (int64_t frame : {0, 1, 1234}) {
        const std::vector<uint8_t> r = Records(SideKind::Mcdl, timing, frame);
        const std::vector<uint8_t> raw = Records(SideKind::McdlBytes, timing, frame);
        const uint64_t micros = MicrosOf(IrigAt(timing, frame));
        for (int c = 0; c < 10; ++c) {
            EXPECT_EQ(r[c], 1);
            EXPECT_EQ(Le(&r[12 + 8 * c], 8), Le(&raw[8 * c], 8));
            EXPECT_EQ(Le(&r[12 + 8 * c], 8) >> 8, uint64_t(frame));
            EXPECT_EQ(Le(&r[92 + 8 * c], 8), micros);
            EXPECT_LE(std::llabs(int64_t(Le(&r[172 + 8 * c], 8))), 1000 * (c + 1));
        }
    }
    EXPECT_NE(Records(SideKind::McdlBytes, timing, 5), Records(SideKind::McdlBytes, timing, 6));
}

TEST(LiveIrig, PacksTheFieldsOfTheIrigRecord) {
    const uint64_t times[] = {0, 86399 * kSecond + 999999, 200 * kDay + (13 * 3600 + 7 * 60 + 42) * kSecond + 5,
                              510 * kDay + (23 * 3600 + 59 * 60 + 59) * kSecond};
    for (uint64_t micros : times) {
        uint32_t sub = 0, packed = 0;
        LiveIrig(micros, &sub, &packed);
        const Irig unpacked{(packed >> 17) & 0x1FF, (packed >> 12) & 0x1F, (packed >> 6) & 0x3F, packed & 0x3F, sub,
                            (packed >> 26) & 1};
        EXPECT_EQ(unpacked, IrigAt(Timing(1000, micros), 0)) << micros;
        EXPECT_EQ(packed >> 27, 0u);
    }
    uint32_t sub = 1, packed = 0;
    LiveIrig(510 * kDay, &sub, &packed);  // day 511 fills the day bits
    EXPECT_EQ(packed, 0x1FFu << 17 | 1u << 26);
    EXPECT_EQ(sub, 0u);
    LiveIrig(kDay, nullptr, nullptr);
}

TEST(ExposureRecords, FollowTheShutter) {
    const RecordingTiming timing = Timing(4000, 0, 200000);  // 250 us periods, 200 us exposures
    const std::vector<uint8_t> e = Records(SideKind::ExposureTime, timing, 9);
    EXPECT_EQ(U32(e, 0), 50000u);
    EXPECT_EQ(U32(e, 4), 200000u);
    EXPECT_EQ(U32(Records(SideKind::ExposureTime, Timing(4000, 0, 900000), 0), 0), 0u);  // longer than a period

    uint32_t shortest = UINT32_MAX, longest = 0;
    for (int64_t frame = -50; frame < 2000; frame += 7) {
        const uint32_t nsec = U32(Records(SideKind::AutoExposureNsec, timing, frame), 0);
        const uint32_t fps = U32(Records(SideKind::AutoExposureFps, timing, frame), 0);
        EXPECT_GE(nsec, 200000u * 7 / 8);
        EXPECT_LE(nsec, 200000u);
        EXPECT_NEAR(double(fps), 1e9 / nsec, 0.5) << frame;
        shortest = std::min(shortest, nsec), longest = std::max(longest, nsec);
    }
    EXPECT_LT(shortest, longest);
}

TEST(TemperatureRecord, WarmsSlowlyAndDiffersByHead) {
    const RecordingTiming timing = Timing(1000);
    std::vector<uint8_t> last = Records(SideKind::Temperature, timing, 0);
    for (int64_t frame = 1; frame < 3000; ++frame) {
        const std::vector<uint8_t> now = Records(SideKind::Temperature, timing, frame);
        for (size_t at = 0; at < 8; at += 2) ASSERT_LE(std::abs(I16(now, at) - I16(last, at)), 1) << frame;
        last = now;
    }
    const std::vector<uint8_t> cold = Records(SideKind::Temperature, timing, 0);
    const std::vector<uint8_t> warm = Records(SideKind::Temperature, timing, 600000);  // ten minutes on
    for (size_t at = 0; at < 6; at += 2) {
        EXPECT_GT(I16(warm, at), I16(cold, at) + 10);
        EXPECT_GT(I16(cold, at), 200);
        EXPECT_LT(I16(warm, at), 900);
    }
    RecordingTiming otherHead = timing;
    otherHead.head = 1;
    EXPECT_NE(Records(SideKind::Temperature, otherHead, 0), cold);
}

TEST(AccelerationRecord, RestsAtOneGThenRingsDownAfterThePulse) {
    const RecordingTiming timing = Timing(10000);  // the pulse comes at frame 1000
    int peak = 0;
    bool clipped = false;
    std::vector<uint8_t> last = Records(SideKind::Acceleration, timing, 0);
    for (int64_t frame = 0; frame < 10000; ++frame) {
        const std::vector<uint8_t> a = Records(SideKind::Acceleration, timing, frame);
        const int x = I16(a, 0), y = I16(a, 2), z = I16(a, 4);
        const uint16_t status = uint16_t(Le(&a[6], 2));
        EXPECT_EQ(status & 1, 1);
        const bool atLimit = std::abs(x) == 16000 || std::abs(y) == 16000 || std::abs(z) == 16000;
        EXPECT_EQ((status & 2) != 0, atLimit) << frame;
        clipped |= atLimit;
        if (frame <= 1000 || frame >= 6000) {
            EXPECT_LE(std::abs(x) + std::abs(y) + std::abs(z - 1000), 20) << frame;
        }
        for (size_t at = 0; at < 6; at += 2) EXPECT_LT(std::abs(I16(a, at) - I16(last, at)), 1000) << frame;
        peak = std::max(peak, std::abs(x));
        last = a;
    }
    EXPECT_GT(peak, 10000);
    EXPECT_TRUE(clipped);
}

TEST(AdcRecord, TwelveBitSamplesThatMove) {
    const RecordingTiming timing = Timing(1000);
    bool moved = false;
    for (int64_t frame = -20; frame < 1500; frame += 3) {
        const std::vector<uint8_t> r = Records(SideKind::AdcBytes, timing, frame);
        for (size_t at = 0; at < 8; at += 2) EXPECT_LT(Le(&r[at], 2), 4096u) << frame;
        moved |= r != Records(SideKind::AdcBytes, timing, frame + 1);
    }
    EXPECT_TRUE(moved);
}

}  // namespace
}  // namespace vcam
