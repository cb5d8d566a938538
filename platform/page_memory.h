// Page memory: zeroed, page-aligned blocks for images and shared records.
#pragma once

#include <cstddef>

namespace vmc::platform {

// Zeroed and aligned to the page size; null when bytes is 0 or memory is short.
void* AllocatePages(std::size_t bytes);
// Null is accepted.
void FreePages(void* block);

}  // namespace vmc::platform
