// Memory for pixels.
#pragma once

#include <cstddef>
#include <memory>

namespace lacquer {

/// Frees what AllocatePixels allocated.
struct PixelBlockDeleter {
    std::size_t largeSize = 0;  ///< bytes of a large block, 0 for others
    std::size_t offset = 0;     ///< of the pixels in what the allocator gave
    void operator()(std::byte *pixels) const;
};

using PixelBlock = std::unique_ptr<std::byte[], PixelBlockDeleter>;

/// `size` bytes, not initialised; null without memory. They begin with a cache line. A block of 2 MiB and more begins
/// with a large page and asks the system for such pages: there are fewer of them to make and to look up. The last one
/// freed, up to 64 MiB, is kept for the next of about its size: to make the pages of a large bitmap takes as long as to
/// draw it. Memory that is short gets the kept block back.
PixelBlock AllocatePixels(std::size_t size);

/// Gives the kept block back, for an allocation elsewhere that failed. Result: whether there was one, so that to try
/// again makes sense.
bool FreeSparePixels();

}  // namespace lacquer
