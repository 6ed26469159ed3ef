// What the benchmarks of kernels draw from and into.
#pragma once

#include <algorithm>
#include <vector>

#include "pipeline/table/kernel_table.h"
#include "platform/prefetch.h"

namespace lacquer::bench {

/// Pixels without a handle, from a line of the cache on: noise, premultiplied with an alpha of 128 or opaque.
class Pixels {
public:
    Pixels(LONG width, LONG height, WORD bitsPerPixel)
        : size_(static_cast<size_t>(width) * static_cast<size_t>(height) * (bitsPerPixel / 8u)),
          block_(size_ + kCacheLineBytes),
          palette_(256) {
        BYTE *const bytes =
            block_.data() - reinterpret_cast<uintptr_t>(block_.data()) % kCacheLineBytes + kCacheLineBytes;
        uint32_t state = 1;
        for (size_t i = 0; i < size_; ++i) {
            state = state * 1664525u + 1013904223u;
            const bool isAlpha = bitsPerPixel == 32 && i % 4 == 3;
            bytes[i] = static_cast<BYTE>(isAlpha ? 128 + (state >> 31) * 127 : state >> 25);
        }
        for (DWORD i = 0; i < 256; ++i) palette_[i] = 0x80000000u | i / 2 * 0x00010101u;
        view_.width = width;
        view_.height = height;
        view_.stride = width * (bitsPerPixel / 8);
        view_.bitsPerPixel = bitsPerPixel;
        view_.bits = bytes;
        view_.palette = palette_.data();
        view_.paletteCount = 256;
    }
    const SurfaceView *View() const { return &view_; }
    size_t Size() const { return size_; }

private:
    size_t size_;
    std::vector<BYTE> block_;
    std::vector<DWORD> palette_;
    SurfaceView view_ = {};
};

/// Stretching rows enlarge by 1.7; averages reduce by 4.
inline LONG SourceLength(const RowTraits &traits, LONG length) {
    switch (traits.sampler) {
        case SamplerKind::SameSize: return length;
        case SamplerKind::Area: return length * 4;
        default: return std::max<LONG>(1, length * 10 / 17);
    }
}

/// Calls a single slot's kernel with what it takes of two views, a colour and a weight.
struct SlotCall {
    const SurfaceView *dest, *source;

    void operator()(FillKernel kernel) const { kernel(dest, kColour); }
    void operator()(MixColorKernel kernel) const { kernel(dest, kColour, kWeight); }
    void operator()(ConvertKernel kernel) const { kernel(dest, source); }
    void operator()(MixKernel kernel) const { kernel(dest, source, kWeight); }

    static constexpr DWORD kColour = 0x80402010;
    static constexpr BYTE kWeight = 100;
};

}  // namespace lacquer::bench
