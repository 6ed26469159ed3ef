// Memory for pixels.
#pragma once

#include <cstddef>
#include <memory>

namespace lacquer {

/// Frees what AllocatePixels allocated.
struct PixelBlockDeleter {
    std::size_t largeSize = 0;  ///< bytes of a large block, 0 for others
    void operator()(std::byte *block) const;
};

using PixelBlock = std::unique_ptr<std::byte[], PixelBlockDeleter>;

/// `size` bytes, not initialised; null without memory. A block of 2 MiB and more begins at the boundary of a large page
/// and asks the system for such pages: there are fewer of them to make and to look up. The last one freed, up to 64
/// MiB, is kept for the next of about its size: to make the pages of a large bitmap takes as long as to draw it.
PixelBlock AllocatePixels(std::size_t size);

}  // namespace lacquer
