// The gray palette: a bitmap information header followed by 256 gray
// entries, shared by drawing and BMP files. Its users set width, height
// and bit count before each use.
#pragma once

#include <cstdint>

namespace vmc {

#pragma pack(push, 2)
struct BitmapInfoHeader {
    uint32_t size;
    int32_t width;
    int32_t height;
    uint16_t planes;
    uint16_t bitCount;
    uint32_t compression;
    uint32_t imageSize;
    int32_t xPixelsPerMeter;
    int32_t yPixelsPerMeter;
    uint32_t coloursUsed;
    uint32_t coloursImportant;
};
#pragma pack(pop)

struct PaletteEntry {
    uint8_t blue, green, red, reserved;
};

struct BitmapInfoBlock {
    BitmapInfoHeader header;
    PaletteEntry colours[256];
};

static_assert(sizeof(BitmapInfoHeader) == 40);
static_assert(sizeof(BitmapInfoBlock) == 1064);

// Allocates and fills the palette unless it exists already.
void BuildGrayPalette();
void FreeGrayPalette();

}  // namespace vmc
