// Per-frame side data. Every value is computed from the recording timing and
// the absolute frame number, so a record reads the same however often it is
// fetched, and the records of one frame agree with each other.
#include "camera/side_data.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

namespace vcam {
namespace {

constexpr uint64_t kMicrosPerSecond = 1000000;
constexpr uint64_t kMicrosPerDay = 86400 * kMicrosPerSecond;

constexpr size_t kIrigBytes = 20;
constexpr size_t kMcdlBytes = 332;
constexpr uint32_t kMcdlChannels = 10;
constexpr size_t kMcdlWordsAt = 12;     // array A; B, C and D follow, 80 bytes apart
constexpr size_t kMcdlArrayBytes = kMcdlChannels * 8;

void Put16(uint8_t* p, uint16_t v) {
    p[0] = uint8_t(v);
    p[1] = uint8_t(v >> 8);
}
void Put32(uint8_t* p, uint32_t v) {
    for (int i = 0; i < 4; ++i) p[i] = uint8_t(v >> (8 * i));
}
void Put64(uint8_t* p, uint64_t v) {
    for (int i = 0; i < 8; ++i) p[i] = uint8_t(v >> (8 * i));
}

int64_t FloorDiv(int64_t a, int64_t b) {
    const int64_t q = a / b;
    return (a % b != 0 && (a < 0) != (b < 0)) ? q - 1 : q;
}
int64_t FloorMod(int64_t a, int64_t b) { return a - FloorDiv(a, b) * b; }

// 0 up to period / 2 and back, period frames long.
int64_t Triangle(int64_t n, int64_t period) {
    const int64_t m = FloorMod(n, period);
    return m < period / 2 ? m : period - m;
}

uint32_t Rate(const RecordingTiming& timing) { return std::max<uint32_t>(timing.recordRate, 1); }

// Seconds since absolute frame 0.
double Seconds(const RecordingTiming& timing, int64_t frame) { return double(frame) / Rate(timing); }

uint64_t FrameMicros(const RecordingTiming& timing, int64_t frame) {
    const int64_t offset = FloorDiv(frame * int64_t(kMicrosPerSecond), Rate(timing));
    if (offset < 0 && uint64_t(-offset) > timing.startMicros) return 0;
    return timing.startMicros + offset;
}

struct IrigTime {
    uint32_t days, hours, minutes, seconds, subSeconds;
};

IrigTime SplitMicros(uint64_t micros) {
    const uint64_t ofDay = micros % kMicrosPerDay;
    const uint64_t second = ofDay / kMicrosPerSecond;
    return {uint32_t(micros / kMicrosPerDay + 1), uint32_t(second / 3600), uint32_t(second / 60 % 60),
            uint32_t(second % 60), uint32_t(ofDay % kMicrosPerSecond)};
}

void WriteIrig(const RecordingTiming& timing, int64_t frame, uint8_t* out) {
    const IrigTime t = SplitMicros(FrameMicros(timing, frame));
    std::memset(out, 0, kIrigBytes);
    Put32(out, t.days);
    out[4] = uint8_t(t.hours);
    out[5] = uint8_t(t.minutes);
    out[6] = uint8_t(t.seconds);
    Put32(out + 8, t.subSeconds);
    out[12] = 1;  // the virtual time source is always locked
}

uint64_t McdlWord(int64_t frame, uint32_t channel) { return uint64_t(frame) << 8 | channel; }

void WriteMcdl(const RecordingTiming& timing, int64_t frame, uint8_t* out) {
    std::memset(out, 0, kMcdlBytes);
    std::memset(out, 1, kMcdlChannels);
    const uint64_t micros = FrameMicros(timing, frame);
    for (uint32_t c = 0; c < kMcdlChannels; ++c) {
        const int64_t period = 64 + 16 * c;
        const int64_t amplitude = 1000 * (c + 1);
        const int64_t signal = Triangle(frame, period) * 4 * amplitude / period - amplitude;
        Put64(out + kMcdlWordsAt + 8 * c, McdlWord(frame, c));
        Put64(out + kMcdlWordsAt + kMcdlArrayBytes + 8 * c, micros);
        Put64(out + kMcdlWordsAt + 2 * kMcdlArrayBytes + 8 * c, uint64_t(signal));
    }
}

void WriteMcdlBytes(int64_t frame, uint8_t* out) {
    for (uint32_t c = 0; c < kMcdlChannels; ++c) Put64(out + 8 * c, McdlWord(frame, c));
}

void WriteAdc(int64_t frame, uint8_t* out) {
    Put16(out, uint16_t(FloorMod(frame * 16, 4096)));
    Put16(out + 2, uint16_t(std::min<int64_t>(Triangle(frame, 512) * 16, 4095)));
    Put16(out + 4, 2048);
    Put16(out + 6, FloorMod(frame, 256) < 128 ? 1000 : 3000);
}

uint32_t AutoExposureNsec(const RecordingTiming& timing, int64_t frame) {
    const uint64_t dip = uint64_t(timing.shutterNsec) * uint64_t(Triangle(frame, 1024)) / 4096;
    return uint32_t(timing.shutterNsec - dip);
}

uint32_t AutoExposureFps(const RecordingTiming& timing, int64_t frame) {
    const uint32_t nsec = AutoExposureNsec(timing, frame);
    return nsec == 0 ? 0 : uint32_t((1000000000ull + nsec / 2) / nsec);
}

// Warms from `cold` towards cold + rise; `minutes` to get halfway.
int16_t Warming(double seconds, int cold, int rise, double minutes) {
    const double t = std::max(seconds, 0.0);
    return int16_t(cold + std::lround(rise * t / (t + 60 * minutes)));
}

void WriteTemperature(const RecordingTiming& timing, int64_t frame, uint8_t* out) {
    const double t = Seconds(timing, frame);
    const int unit = int(timing.camera % 8) * 3 + int(timing.head % 4) * 2;  // cameras differ a little
    Put16(out, uint16_t(Warming(t, 385 + unit, 40, 2)));
    Put16(out + 2, uint16_t(Warming(t, 402 + unit, 25, 5)));
    Put16(out + 4, uint16_t(Warming(t, 455 + unit, 30, 3)));
    Put16(out + 6, 231);  // ambient: the room stays at 23.1 degC
}

// A decaying ring of amplitude `mg` and `hz`, `tau` seconds of decay.
double Ring(double t, double mg, double hz, double tau) {
    return mg * std::sin(2 * std::numbers::pi * hz * t) * std::exp(-t / tau);
}

void WriteAcceleration(const RecordingTiming& timing, int64_t frame, uint8_t* out) {
    const double t = Seconds(timing, frame);
    const double sincePulse = t - std::floor(t) - 0.1;
    double axes[3] = {0, 0, 1000};
    if (sincePulse >= 0) {
        axes[0] += Ring(sincePulse, 20000, 40, 0.04);
        axes[1] += Ring(sincePulse, -7000, 55, 0.05);
        axes[2] += Ring(sincePulse, 4000, 30, 0.04);
    }
    uint16_t status = 1;
    for (int i = 0; i < 3; ++i) {
        const long mg = std::lround(axes[i]);
        const long clipped = std::clamp(mg, -16000L, 16000L);
        if (clipped != mg) status |= 2;
        Put16(out + 2 * i, uint16_t(int16_t(clipped)));
    }
    Put16(out + 6, status);
}

void WriteExposureTime(const RecordingTiming& timing, uint8_t* out) {
    const uint32_t period = uint32_t(1000000000ull / Rate(timing));
    Put32(out, period > timing.shutterNsec ? period - timing.shutterNsec : 0);
    Put32(out + 4, timing.shutterNsec);
}

void WriteRecord(SideKind kind, const RecordingTiming& timing, int64_t frame, uint8_t* out) {
    switch (kind) {
    case SideKind::Irig: WriteIrig(timing, frame, out); break;
    case SideKind::Mcdl: WriteMcdl(timing, frame, out); break;
    case SideKind::IrigMcdl:
        WriteIrig(timing, frame, out);
        WriteMcdl(timing, frame, out + kIrigBytes);
        break;
    case SideKind::McdlBytes: WriteMcdlBytes(frame, out); break;
    case SideKind::AdcBytes: WriteAdc(frame, out); break;
    case SideKind::AutoExposureFps: Put32(out, AutoExposureFps(timing, frame)); break;
    case SideKind::AutoExposureNsec: Put32(out, AutoExposureNsec(timing, frame)); break;
    case SideKind::Temperature: WriteTemperature(timing, frame, out); break;
    case SideKind::Acceleration: WriteAcceleration(timing, frame, out); break;
    case SideKind::ExposureTime: WriteExposureTime(timing, out); break;
    }
}

}  // namespace

size_t SideRecordBytes(SideKind kind) {
    switch (kind) {
    case SideKind::Irig: return kIrigBytes;
    case SideKind::Mcdl: return kMcdlBytes;
    case SideKind::IrigMcdl: return kIrigBytes + kMcdlBytes;
    case SideKind::McdlBytes: return kMcdlArrayBytes;
    case SideKind::AdcBytes: return 8;
    case SideKind::AutoExposureFps: return 4;
    case SideKind::AutoExposureNsec: return 4;
    case SideKind::Temperature: return 8;
    case SideKind::Acceleration: return 8;
    case SideKind::ExposureTime: return 8;
    }
    return 0;
}

void WriteSideData(SideKind kind, const RecordingTiming& timing, int64_t first, uint32_t count, void* out) {
    const size_t bytes = SideRecordBytes(kind);
    auto* record = static_cast<uint8_t*>(out);
    for (uint32_t i = 0; i < count; ++i, record += bytes) WriteRecord(kind, timing, first + i, record);
}

void LiveIrig(uint64_t micros, uint32_t* subSeconds, uint32_t* packed) {
    const IrigTime t = SplitMicros(micros);
    if (subSeconds) *subSeconds = t.subSeconds;
    if (packed) *packed = t.seconds | t.minutes << 6 | t.hours << 12 | (t.days & 0x1FF) << 17 | 1u << 26;
}

}  // namespace vcam
