// Per-frame side data, consistent with the frames: the IRIG time advances
// by one frame period a frame, and every record is a function of the
// recording's timing and the absolute frame number alone.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vcam {

// Record layouts, all little-endian, one record a frame:
//   Irig (20): u32 days at 0 (day of the year, 1 = January 1st; not wrapped
//     at the year's end), u8 hours at 4, u8 minutes at 5, u8 seconds at 6,
//     u32 subSeconds at 8 (microseconds), u8 signalFlag at 12 (1 = locked),
//     the rest zero.
//   Mcdl (332): ten bus channels. u8 flags[10] at 0 (1 = the channel carried
//     a word this frame; all do); then four arrays of ten 8-byte values:
//     A at 12, u64 word received, absolute frame << 8 | channel;
//     B at 92, u64 IRIG time of the frame, microseconds since the start of the year;
//     C at 172, i64 the channel's signal, a triangle wave of amplitude 1000 * (channel + 1);
//     D at 252, reserved, zero.
//   IrigMcdl (352): Irig at 0, Mcdl at 20.
//   McdlBytes (80): the ten words of A as they came off the bus.
//   AdcBytes (8): four u16 12-bit samples: 0 a ramp, 1 a triangle, 2 mid-scale
//     (2048), 3 a square wave.
//   AutoExposureFps (4): u32, the shutter the auto exposure chose, 1/s,
//     rounded from AutoExposureNsec.
//   AutoExposureNsec (4): u32, the same shutter in ns: it breathes between
//     7/8 of the set shutter and the set shutter.
//   Temperature (8): four i16 in 0.1 degC: sensor, board, FPGA, ambient; the
//     first three warm slowly as the recording runs.
//   Acceleration (8): three i16 axes x, y, z in mg, then u16 status (bit 0:
//     sensor good; bit 1: an axis clipped at +-16 g). The camera rests with
//     1 g on z and takes a crash pulse 100 ms into every second of recording.
//   ExposureTime (8): u32 ns from the start of the frame period to the start
//     of the exposure (the exposure ends with the period), u32 ns of exposure.
enum class SideKind {
    Irig,              // 20-byte IRIG record a frame
    Mcdl,              // 332-byte MCDL record a frame
    IrigMcdl,          // 352 bytes a frame: IRIG then MCDL
    McdlBytes,         // raw MCDL bytes a frame
    AdcBytes,          // ADC samples a frame
    AutoExposureFps,   // auto-exposure shutter, 1/s, a frame
    AutoExposureNsec,  // auto-exposure shutter, ns, a frame
    Temperature,       // temperatures a frame
    Acceleration,      // acceleration a frame
    ExposureTime,      // exposure time of the current setting
};

struct RecordingTiming {
    uint32_t camera = 0;
    uint32_t head = 1;
    uint32_t recordRate = 1000;     // frames per second
    uint32_t shutterNsec = 1000000; // exposure of a frame
    uint64_t startMicros = 0;       // IRIG time of absolute frame 0, microseconds since the start of the year
};

// Bytes of one frame's record of a kind.
size_t SideRecordBytes(SideKind kind);
// Writes count records, for absolute frames first .. first + count - 1.
// Frame n is taken at startMicros + n * 1e6 / recordRate (rounded down;
// times before the start of the year read as its start).
void WriteSideData(SideKind kind, const RecordingTiming& timing, int64_t first, uint32_t count, void* out);
// The live IRIG time of a camera time, as the two words the camera answers:
// sub-seconds, and seconds | minutes << 6 | hours << 12 | days << 17 | signal << 26,
// fields as in the IRIG record (days keep their low 9 bits; the signal is locked).
void LiveIrig(uint64_t micros, uint32_t* subSeconds, uint32_t* packed);

}  // namespace vcam
