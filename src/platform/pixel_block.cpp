// Large blocks apart from small ones, which the allocator hands out faster.

#include "platform/pixel_block.h"

#include <atomic>
#include <cstring>
#include <new>
#include <utility>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace lacquer {

namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;
constexpr std::align_val_t kLargeAlignment{kLargePage};

void FreeLarge(std::byte *block) { ::operator delete[](block, kLargeAlignment); }

PixelBlock AllocateLarge(std::size_t size) {
    auto *block = static_cast<std::byte *>(::operator new[](size, kLargeAlignment, std::nothrow));
#ifdef __linux__
    // Where the system has no such pages, or no wish to give them, nothing changes.
    if (block) madvise(block, size / kLargePage * kLargePage, MADV_HUGEPAGE);
#endif
    return {block, {size}};
}

/// The large block that was freed last; its size stands at its beginning.
class SpareBlock {
public:
    ~SpareBlock() { FreeLarge(block_.exchange(nullptr)); }

    /// The spare if it has `size` bytes or little more, else null.
    PixelBlock Take(std::size_t size) {
        std::byte *block = block_.exchange(nullptr, std::memory_order_acquire);
        if (!block) return {};
        std::size_t spareSize = 0;
        std::memcpy(&spareSize, block, sizeof spareSize);
        if (spareSize >= size && spareSize - size <= size / 8) return {block, {spareSize}};
        Keep(block, spareSize);
        return {};
    }

    void Keep(std::byte *block, std::size_t size) {
        if (size <= kLargestSpare) {
            std::memcpy(block, &size, sizeof size);
            block = block_.exchange(block, std::memory_order_acq_rel);
        }
        FreeLarge(block);
    }

private:
#ifdef __SANITIZE_ADDRESS__
    static constexpr std::size_t kLargestSpare = 0;  // so that a use after the free is found
#else
    static constexpr std::size_t kLargestSpare = std::size_t{64} << 20;
#endif
    std::atomic<std::byte *> block_{nullptr};
};

SpareBlock spare;

}  // namespace

PixelBlock AllocatePixels(std::size_t size) {
    if (size < kLargePage) return {new (std::nothrow) std::byte[size], {}};
    PixelBlock block = spare.Take(size);
    return block ? std::move(block) : AllocateLarge(size);
}

void PixelBlockDeleter::operator()(std::byte *block) const {
    if (largeSize > 0) {
        spare.Keep(block, largeSize);
    } else {
        delete[] block;
    }
}

}  // namespace lacquer
