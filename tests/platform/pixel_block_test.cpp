// Memory for pixels, of small blocks and of large ones, of which a freed one is kept for the next.

#include "platform/pixel_block.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <new>
#include <thread>
#include <vector>

namespace {

std::atomic<bool> memoryIsShort{false};
std::atomic<int> largeBlocks{0};
std::atomic<std::size_t> lastLargeSize{0};

bool IsRefused() { return memoryIsShort && largeBlocks > 0; }

}  // namespace

// Pixels are arrays, those of large blocks aligned: while memory is short, there is none beside a large block.
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return IsRefused() ? nullptr : ::operator new[](size);
}
void *operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t &) noexcept {
    void *block = IsRefused() ? nullptr : ::operator new(size, alignment, std::nothrow);
    if (block) ++largeBlocks, lastLargeSize = size;
    return block;
}
void operator delete[](void *block, std::align_val_t alignment) noexcept {
    if (block) --largeBlocks;
    ::operator delete(block, alignment);
}
void operator delete[](void *block, std::size_t, std::align_val_t alignment) noexcept {
    operator delete[](block, alignment);
}

namespace lacquer {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

/// Takes blocks that are smaller, larger and much larger than those freed before, and holds two at a time.
void TakeAndFill(uint8_t mark) {
    constexpr std::size_t kSizes[] = {
        1, 4096, 3 * kMegabyte, 3 * kMegabyte, 3 * kMegabyte - 100000, 4 * kMegabyte, 70 * kMegabyte, 2 * kMegabyte};
    PixelBlock held;
    for (int round = 0; round < 3; ++round) {
        for (const std::size_t size : kSizes) {
            PixelBlock block = AllocatePixels(size);
            ASSERT_TRUE(block);
            // Both ends: nobody else may have them while this thread does.
            for (const std::size_t at : {std::size_t{0}, size - 1}) block[at] = std::byte{mark};
            std::this_thread::yield();
            for (const std::size_t at : {std::size_t{0}, size - 1}) ASSERT_EQ(block[at], std::byte{mark}) << size;
            held = std::move(block);
        }
    }
}

TEST(PixelBlock, HasOneOwnerAndItsWholeSize) {
    std::vector<std::thread> threads;
    for (uint8_t mark = 1; mark <= 3; ++mark) threads.emplace_back(TakeAndFill, mark);
    for (std::thread &thread : threads) thread.join();
}

#ifndef _WIN32
/// Of the address sanitizer; null in a program without it.
extern "C" int __asan_address_is_poisoned(const volatile void *address) __attribute__((weak));

TEST(PixelBlock, HidesNothingFromTheAddressSanitizer) {
    if (!__asan_address_is_poisoned) GTEST_SKIP();
    for (const std::size_t size : {std::size_t{8}, 4096 + std::size_t{24}, 3 * kMegabyte}) {
        PixelBlock block = AllocatePixels(size);
        const std::byte *pixels = block.get();
        EXPECT_FALSE(__asan_address_is_poisoned(pixels + size - 1));
        EXPECT_TRUE(__asan_address_is_poisoned(pixels + size)) << size;
        EXPECT_TRUE(__asan_address_is_poisoned(pixels - 1)) << size;
        block.reset();
        EXPECT_TRUE(__asan_address_is_poisoned(pixels)) << size;
    }
}
#endif

/// The block that is kept for the next one is no reason to fail, and no block for a larger one.
TEST(PixelBlock, TheKeptBlockIsGivenBackWhereItDoesNotServe) {
    for (const std::size_t size : {std::size_t{1000}, 3 * kMegabyte}) {
        AllocatePixels(8 * kMegabyte).reset();
        memoryIsShort = true;
        EXPECT_TRUE(AllocatePixels(size)) << size;
        memoryIsShort = false;
    }
    AllocatePixels(3 * kMegabyte - 100000).reset();
    const PixelBlock larger = AllocatePixels(3 * kMegabyte);
    EXPECT_EQ(lastLargeSize, 3 * kMegabyte);
    EXPECT_FALSE(AllocatePixels(std::size_t{1} << 62));
}

}  // namespace
}  // namespace lacquer
