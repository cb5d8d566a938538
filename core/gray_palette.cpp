#include "core/gray_palette.h"

#include "core/library_state.h"
#include "platform/page_memory.h"

namespace vmc {

void BuildGrayPalette() {
    if (state.grayPalette) return;  // outlives a second VMC_Init
    auto* block = static_cast<BitmapInfoBlock*>(platform::AllocatePages(sizeof(BitmapInfoBlock)));
    if (!block) return;
    block->header.size = sizeof(BitmapInfoHeader);
    block->header.planes = 1;
    block->header.xPixelsPerMeter = 2048;
    block->header.yPixelsPerMeter = 2048;
    for (int i = 0; i < 256; ++i) {
        auto level = static_cast<uint8_t>(i);
        block->colours[i] = {level, level, level, 0};
    }
    state.grayPalette = block;
}

void FreeGrayPalette() {
    platform::FreePages(state.grayPalette);
    state.grayPalette = nullptr;
}

}  // namespace vmc
