// Large blocks apart from small ones, which the allocator hands out faster.

#include "platform/pixel_block.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <new>

#include "platform/sanitizers.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace lacquer {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;
constexpr std::align_val_t kLargeAlignment{kLargePage};

constexpr std::size_t kLine = 64;
// The allocator's own alignment is a quarter of a line. A sanitizer is to see each byte outside, and each use after the
// free.
constexpr std::size_t kLineSlack = kHasAddressSanitizer ? 0 : kLine - 16;
constexpr std::size_t kLargestSpare = kHasAddressSanitizer ? 0 : std::size_t{64} << 20;

PixelBlock AllocateSmall(std::size_t size) {
    auto *bytes = new (std::nothrow) std::byte[size + kLineSlack];
    if (!bytes) return {};
    const std::size_t offset = std::min<std::size_t>(-reinterpret_cast<std::uintptr_t>(bytes) % kLine, kLineSlack);
    return {bytes + offset, {.offset = offset}};
}

void FreeLarge(std::byte *block) { ::operator delete[](block, kLargeAlignment); }

PixelBlock AllocateLarge(std::size_t size) {
    auto *block = static_cast<std::byte *>(::operator new[](size, kLargeAlignment, std::nothrow));
#ifdef __linux__
    // Where the system has no such pages, or no wish to give them, nothing changes.
    if (block) madvise(block, size / kLargePage * kLargePage, MADV_HUGEPAGE);
#endif
    return {block, {.largeSize = size}};
}

/// The large block that was freed last; its size stands at its beginning. It has no destructor: calls may come after
/// the library's end.
class SpareBlock {
public:
    /// The spare if it has `size` bytes or little more, else null.
    PixelBlock Take(std::size_t size) {
        std::byte *block = block_.exchange(nullptr, std::memory_order_acquire);
        if (!block) return {};
        std::size_t spareSize = 0;
        std::memcpy(&spareSize, block, sizeof spareSize);
        if (spareSize >= size && spareSize - size <= size / 8) return {block, {.largeSize = spareSize}};
        Keep(block, spareSize);
        return {};
    }

    /// Result: whether there was one to free.
    bool Free() {
        std::byte *block = block_.exchange(nullptr, std::memory_order_acquire);
        FreeLarge(block);
        return block != nullptr;
    }

    void Keep(std::byte *block, std::size_t size) {
        if (size <= kLargestSpare) {
            std::memcpy(block, &size, sizeof size);
            block = block_.exchange(block);
        }
        FreeLarge(block);
        if (hasEnded_) FreeLarge(block_.exchange(nullptr));
    }

    /// Frees the spare, and from now on each block that would become it.
    void End() {
        hasEnded_ = true;
        FreeLarge(block_.exchange(nullptr));
    }

private:
    std::atomic<std::byte *> block_{nullptr};
    std::atomic<bool> hasEnded_{false};
};

constinit SpareBlock spare;

struct SpareEnd {
    ~SpareEnd() { spare.End(); }
};
SpareEnd spareEnd;

}  // namespace

PixelBlock AllocatePixels(std::size_t size) {
    const bool isLarge = size >= kLargePage;
    const auto allocate = isLarge ? AllocateLarge : AllocateSmall;
    PixelBlock block = isLarge ? spare.Take(size) : PixelBlock();
    if (!block) block = allocate(size);
    if (!block && FreeSparePixels()) block = allocate(size);
    return block;
}

bool FreeSparePixels() { return spare.Free(); }

void PixelBlockDeleter::operator()(std::byte *pixels) const {
    if (largeSize > 0) {
        spare.Keep(pixels, largeSize);
    } else {
        delete[](pixels - offset);
    }
}

}  // namespace lacquer
