// Reading source pixels of each depth as words: the part of a fetch that knows the memory layout.
#pragma once

#include "pipeline/pixel/grey_ramp.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// 32-bit pixels: the word as stored.
class WordPixels {
public:
    static constexpr int kBitsPerPixel = 32;
    static constexpr bool kIsOpaque = false;

    explicit WordPixels(const SurfaceView & /*view*/) {}

    /// What a loop reads with; a small value, to be kept in registers.
    struct Reader {
        uint32_t operator()(const BYTE *row, ptrdiff_t column) const { return LoadPixel(row + column * 4); }
    };
    Reader GetReader() const { return {}; }
};

/// The opaque word of three bytes.
inline uint32_t LoadPacked(const BYTE *pixel) {
    return kOpaque | uint32_t{pixel[2]} << 16 | uint32_t{pixel[1]} << 8 | pixel[0];
}

/// 24-bit pixels, bytes blue, green, red: always opaque.
class PackedPixels {
public:
    static constexpr int kBitsPerPixel = 24;
    static constexpr bool kIsOpaque = true;

    explicit PackedPixels(const SurfaceView & /*view*/) {}

    struct Reader {
        uint32_t operator()(const BYTE *row, ptrdiff_t column) const { return LoadPacked(row + column * 3); }
    };
    Reader GetReader() const { return {}; }
};

/// 8-bit pixels: indices into the view's palette, or into the grey ramp when it has none. The reader only ever sees 256
/// entries: a shorter palette is copied, and its missing entries are 0.
class IndexedPixels {
public:
    static constexpr int kBitsPerPixel = 8;
    static constexpr bool kIsOpaque = false;

    explicit IndexedPixels(const SurfaceView &view) : palette_(view.palette ? view.palette : GreyRamp()) {
        if (!view.palette || view.paletteCount >= kPaletteEntries) return;
        for (DWORD i = 0; i < kPaletteEntries; ++i) completed_[i] = i < view.paletteCount ? view.palette[i] : 0;
        palette_ = completed_;
    }
    IndexedPixels(const IndexedPixels &) = delete;
    IndexedPixels &operator=(const IndexedPixels &) = delete;

    struct Reader {
        const DWORD *palette;
        uint32_t operator()(const BYTE *row, ptrdiff_t column) const { return palette[row[column]]; }
    };
    Reader GetReader() const { return {palette_}; }

private:
    static constexpr DWORD kPaletteEntries = 256;
    const DWORD *palette_;
    DWORD completed_[kPaletteEntries];
};

/// Writes the words of `count` pixels, of which it reads the bytes and no others.
template <class Reader>
inline void ExpandPixels(BYTE *out, Reader read, const BYTE *pixels, ptrdiff_t count) {
    for (ptrdiff_t i = 0; i < count; ++i) StorePixel(out + i * kPixelBytes, read(pixels, i));
}

}  // namespace lacquer
