#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "platform/cpu.h"
#include "platform/page_memory.h"

using namespace vmc::platform;

#if defined(__SANITIZE_ADDRESS__)
// Sanitizer builds take pages from the heap; an impossible size should then
// come back as null, as it does in other builds, instead of stopping the run.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() { return "allocator_may_return_null=1"; }
#endif

namespace {

std::size_t PageSize() { return static_cast<std::size_t>(sysconf(_SC_PAGESIZE)); }

bool AllZero(const unsigned char* bytes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        if (bytes[i] != 0) return false;
    return true;
}

}  // namespace

TEST(PageMemory, BlocksArePageAlignedZeroedAndWholePages) {
    const std::size_t page = PageSize();
    for (std::size_t bytes : {std::size_t{1}, page - 1, page, page + 1, 3 * page + 17}) {
        SCOPED_TRACE(bytes);
        auto* block = static_cast<unsigned char*>(AllocatePages(bytes));
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % page, 0u);
        // The whole rounded-up size is there and zero.
        const std::size_t rounded = (bytes + page - 1) / page * page;
        EXPECT_TRUE(AllZero(block, rounded));
        std::memset(block, 0xA5, rounded);
        FreePages(block);
    }
}

TEST(PageMemory, ReusedMemoryComesBackZeroed) {
    for (int round = 0; round < 4; ++round) {
        auto* block = static_cast<unsigned char*>(AllocatePages(2 * PageSize()));
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(AllZero(block, 2 * PageSize())) << "round " << round;
        std::memset(block, 0xFF, 2 * PageSize());
        FreePages(block);
    }
}

TEST(PageMemory, ImpossibleSizesGiveNull) {
    EXPECT_EQ(AllocatePages(0), nullptr);
    EXPECT_EQ(AllocatePages(SIZE_MAX), nullptr);
    EXPECT_EQ(AllocatePages(SIZE_MAX - PageSize()), nullptr);
    FreePages(nullptr);
}

#if defined(__x86_64__) || defined(__i386__)

TEST(Cpu, LeafZeroNamesTheVendor) {
    uint32_t r[4];
    QueryProcessor(0, r);
    EXPECT_GE(r[0], 1u) << "highest leaf";
    // The vendor text is in ebx, edx, ecx.
    char vendor[13] = {};
    std::memcpy(vendor, &r[1], 4);
    std::memcpy(vendor + 4, &r[3], 4);
    std::memcpy(vendor + 8, &r[2], 4);
    for (char c : std::string(vendor, 12)) EXPECT_TRUE(c >= 0x20 && c < 0x7F) << vendor;
}

TEST(Cpu, LeavesAboveTheHighestAreZero) {
    uint32_t top[4];
    QueryProcessor(0, top);
    uint32_t r[4] = {1, 2, 3, 4};
    QueryProcessor(top[0] + 1, r);
    EXPECT_EQ(r[0] | r[1] | r[2] | r[3], 0u);

    QueryProcessor(0x80000000u, top);
    if (top[0] >= 0x80000000u) {  // the extended range exists
        QueryProcessor(top[0] + 1, r);
        EXPECT_EQ(r[0] | r[1] | r[2] | r[3], 0u);
    }
}

#else

TEST(Cpu, OtherProcessorsAnswerZeros) {
    uint32_t r[4] = {1, 2, 3, 4};
    QueryProcessor(0, r);
    EXPECT_EQ(r[0] | r[1] | r[2] | r[3], 0u);
}

#endif
