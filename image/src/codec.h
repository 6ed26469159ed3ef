// What a picture format has to offer: a file in memory becomes straight pixels.
#pragma once

#include <cstddef>
#include <cstdint>

#include "fault.h"

namespace lacquer::image {

/// A file in memory, or its beginning.
struct Bytes {
    const uint8_t *data;
    size_t size;
};

/// What is known before pixels are decoded. Width and height are those of the stored pixels, not turned yet.
struct Header : ImageFileInfo {
    DWORD paletteCount;  ///< with 8 bits per pixel; 0 for greys
};

struct Codec {
    bool (*matches)(Bytes file);

    /// Fills the header, `bitsPerPixel` being the smallest depth that keeps the colours.
    bool (*readHeader)(Bytes file, Header &header, Fault &fault);

    /// Decodes all pixels, straight, into a view of the header's size. It has the header's depth, with a palette to be
    /// filled, or 32 bits. Takes at most twice as much memory as the pixels have with 32 bits, and a little.
    bool (*decode)(Bytes file, const Header &header, const SurfaceView &to, Fault &fault);
};

extern const Codec kPng, kJpeg, kWebp;

inline uint8_t *RowOf(const SurfaceView &view, LONG y) {
    return static_cast<uint8_t *>(view.bits) + static_cast<ptrdiff_t>(y) * view.stride;
}

inline size_t RowBytes(const SurfaceView &view) {
    return static_cast<size_t>(view.width) * static_cast<size_t>(view.bitsPerPixel / 8);
}

}  // namespace lacquer::image
