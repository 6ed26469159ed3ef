// Sampling 1:1: each destination pixel has the source pixel of the same place.
#pragma once

#include <algorithm>

#include "pipeline/draw_area.h"
#include "pipeline/lookahead.h"
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
        if constexpr (Source::kBitsPerPixel == 32) {
            DrawWords(dest, source, combine);
        } else {
            DrawFetched(dest, source, combine);
        }
    }

private:
    static ptrdiff_t Width(const SurfaceView &dest, const SurfaceView &source) {
        return std::min(dest.width, source.width);
    }
    static ptrdiff_t Height(const SurfaceView &dest, const SurfaceView &source) {
        return std::min(dest.height, source.height);
    }

    template <class Combine>
    static void DrawWords(const SurfaceView &dest, const SurfaceView &source, const Combine &combine) {
        const ptrdiff_t width = Width(dest, source), height = Height(dest, source);
        if constexpr (!Combine::kCopies) {
            const auto drawPiece = [&](BYTE *out, const BYTE *in, ptrdiff_t first, ptrdiff_t count) {
                combine.Run(out + first * kPixelBytes, in + first * kPixelBytes, count);
            };
            if (Lookahead::Pays(dest)) return DrawPieces(dest, source, drawPiece);
        }
        const bool joined = dest.width == source.width && IsContiguous(dest) && IsContiguous(source);
        const ptrdiff_t run = joined ? width * height : width, runs = joined ? 1 : height;
        for (ptrdiff_t y = 0; y < runs; ++y) {
            BYTE *const out = RowOf(dest, y);
            const BYTE *const in = RowOf(source, y);
            if constexpr (Combine::kCopies) {
                std::memmove(out, in, static_cast<size_t>(run) * kPixelBytes);
            } else if constexpr (requires { combine.RunInline(out, in, run); }) {
                combine.RunInline(out, in, run);
            } else {
                combine.Run(out, in, run);
            }
        }
    }

    template <class Combine>
    static void DrawFetched(const SurfaceView &dest, const SurfaceView &source, const Combine &combine) {
        const ptrdiff_t width = Width(dest, source);
        const Source pixels(source);
        const auto read = pixels.GetReader();
        if constexpr (Combine::kCopies) {
            for (ptrdiff_t y = 0; y < Height(dest, source); ++y) {
                Fetcher::Fetch(RowOf(dest, y), read, RowOf(source, y), 0, width, width);
            }
        } else {
            DrawPieces(dest, source, [&](BYTE *out, const BYTE *in, ptrdiff_t first, ptrdiff_t count) {
                BYTE fetched[Lookahead::kPiecePixels * kPixelBytes];
                Fetcher::Fetch(fetched, read, in, first, count, width);
                combine.Run(out + first * kPixelBytes, fetched, count);
            });
        }
    }

    /// Calls drawPiece(dest row, source row, first column, columns) for pieces of at most Lookahead::kPiecePixels.
    template <class DrawPiece>
    static void DrawPieces(const SurfaceView &dest, const SurfaceView &source, const DrawPiece &drawPiece) {
        const ptrdiff_t width = Width(dest, source), height = Height(dest, source);
        Lookahead destAhead(dest), sourceAhead(source);
        for (ptrdiff_t y = 0; y < height; ++y) {
            for (ptrdiff_t x = 0; x < width; x += Lookahead::kPiecePixels) {
                destAhead.Advance();
                sourceAhead.Advance();
                drawPiece(RowOf(dest, y), RowOf(source, y), x, std::min(Lookahead::kPiecePixels, width - x));
            }
        }
    }
};

}  // namespace lacquer
