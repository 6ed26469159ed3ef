// Sampling 1:1: each destination pixel has the source pixel of the same place.
#pragma once

#include <algorithm>

#include "pipeline/draw_area.h"
#include "pipeline/source_pixels.h"

namespace lacquer {

/// Fetches one pixel after the other.
struct FetchEach {
    /// Writes the words of `count` source pixels from column `first` on. The row has `width` pixels.
    template <class Reader>
    static void Fetch(BYTE *out, const Reader &read, const BYTE *row, ptrdiff_t first, ptrdiff_t count,
                      ptrdiff_t /*width*/) {
        for (ptrdiff_t i = 0; i < count; ++i) StorePixel(out + i * kPixelBytes, read(row, first + i));
    }
};

/// Draws the common top-left part of both views. 32-bit sources are not fetched: their rows are the words already.
template <class Source, class Fetcher = FetchEach>
struct SameSize {
    using Pixels = Source;

    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea & /*area*/,
                     const Combine &combine) {
        const ptrdiff_t width = std::min(dest.width, source.width), height = std::min(dest.height, source.height);
        if constexpr (Source::kBitsPerPixel == 32) {
            const bool joined = dest.width == source.width && IsContiguous(dest) && IsContiguous(source);
            const ptrdiff_t run = joined ? width * height : width, runs = joined ? 1 : height;
            for (ptrdiff_t y = 0; y < runs; ++y) DrawWords(RowOf(dest, y), RowOf(source, y), run, combine);
        } else {
            const Source pixels(source);
            const auto read = pixels.GetReader();
            for (ptrdiff_t y = 0; y < height; ++y) DrawRow(RowOf(dest, y), RowOf(source, y), width, read, combine);
        }
    }

private:
    template <class Combine>
    static void DrawWords(BYTE *dest, const BYTE *source, ptrdiff_t count, const Combine &combine) {
        if constexpr (Combine::kCopies) {
            std::memmove(dest, source, static_cast<size_t>(count) * kPixelBytes);
        } else if constexpr (requires { combine.RunInline(dest, source, count); }) {
            combine.RunInline(dest, source, count);
        } else {
            combine.Run(dest, source, count);
        }
    }

    template <class Reader, class Combine>
    static void DrawRow(BYTE *dest, const BYTE *source, ptrdiff_t width, const Reader &read, const Combine &combine) {
        const auto expand = [&](BYTE *out, ptrdiff_t first, ptrdiff_t count) {
            Fetcher::Fetch(out, read, source, first, count, width);
        };
        if constexpr (Combine::kCopies) {
            expand(dest, 0, width);
        } else {
            constexpr ptrdiff_t kRun = 256;
            BYTE run[kRun * kPixelBytes];
            for (ptrdiff_t x = 0; x < width; x += kRun) {
                const ptrdiff_t count = std::min(kRun, width - x);
                expand(run, x, count);
                combine.Run(dest + x * kPixelBytes, run, count);
            }
        }
    }
};

}  // namespace lacquer
