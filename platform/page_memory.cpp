#include "platform/page_memory.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#define VMC_PAGES_FROM_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VMC_PAGES_FROM_HEAP 1
#endif
#endif

namespace vmc::platform {
namespace {

std::size_t PageSize() {
    const long size = sysconf(_SC_PAGESIZE);
    return size > 0 ? static_cast<std::size_t>(size) : 4096;
}

// bytes rounded up to whole pages; 0 when that does not fit a size_t.
std::size_t RoundToPages(std::size_t bytes, std::size_t page) {
    if (bytes > SIZE_MAX - (page - 1)) return 0;
    return (bytes + page - 1) / page * page;
}

}  // namespace

#ifdef VMC_PAGES_FROM_HEAP

// Sanitizer builds take pages from the heap so that the leak checker sees
// blocks that are never freed.
void* AllocatePages(std::size_t bytes) {
    const std::size_t page = PageSize();
    const std::size_t size = RoundToPages(bytes, page);
    if (bytes == 0 || size == 0) return nullptr;
    void* block = std::aligned_alloc(page, size);
    if (block) std::memset(block, 0, size);
    return block;
}

void FreePages(void* block) { std::free(block); }

#else

// Anonymous mappings come zeroed and are committed only as they are touched,
// which suits image buffers larger than the part a run uses. The mapping's
// length sits in one extra page in front of the block, for FreePages.
void* AllocatePages(std::size_t bytes) {
    const std::size_t page = PageSize();
    const std::size_t size = RoundToPages(bytes, page);
    if (bytes == 0 || size == 0 || size > SIZE_MAX - page) return nullptr;
    const std::size_t length = size + page;
    void* base = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) return nullptr;
    *static_cast<std::size_t*>(base) = length;
    return static_cast<char*>(base) + page;
}

void FreePages(void* block) {
    if (!block) return;
    void* base = static_cast<char*>(block) - PageSize();
    munmap(base, *static_cast<std::size_t*>(base));
}

#endif

}  // namespace vmc::platform
