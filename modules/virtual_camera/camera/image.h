// Synthesised frames. Nothing is stored: a frame is rendered when it is
// read, from (camera, head, absolute frame number) alone, so a 16 GiB
// memory costs nothing and every read of a frame gives the same pixels.
//
// Content: a gradient with a bright disc that moves with the frame number.
// Colour heads: converted colour is a bilinear demosaic of the raw mosaic.
// Stamp: the first 16 bytes of the first row, whatever the pixel layout:
//   bytes 0-3   "VCAM"
//   bytes 4-7   frame number as the camera's caller numbers it (i32, little-endian)
//   bytes 8-11  absolute frame number, low 32 bits (u32)
//   bytes 12-13 camera index (u16), bytes 14-15 head number (u16)
#pragma once

#include <cstddef>
#include <cstdint>

#include "camera/profile.h"

namespace vcam {

struct FrameFormat {
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t bitDepth = 12;    // significant bits of a sample as recorded
    ColourLayout colour = ColourLayout::Mono;
    bool rawMosaic = false;    // colour heads: deliver the mosaic unconverted
    uint32_t depth = 16;       // requested: 8 gives one byte a sample, above 8 two bytes
};

struct FrameId {
    uint32_t camera = 0;
    uint32_t head = 1;
    int64_t absolute = 0;      // frame count since the camera started recording; decides the content
    int32_t number = 0;        // the frame number the caller asked for; only stamped
};

// Bytes per pixel: 1 or 2 for mono and raw mosaic, 3 or 6 for converted colour (BGR order).
uint32_t BytesPerPixel(const FrameFormat& format);
size_t FrameBytes(const FrameFormat& format);

// Writes one whole frame, rows top first and unpadded. Thread-safe.
void RenderFrame(const FrameFormat& format, const FrameId& id, void* out);

// Reads the stamp of a rendered frame; false when there is none.
bool ReadStamp(const void* image, FrameId* id);

}  // namespace vcam
