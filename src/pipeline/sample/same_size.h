// Sampling 1:1: each destination pixel has the source pixel of the same place.
#pragma once

#include <algorithm>

#include "pipeline/combine/combine_ref.h"
#include "pipeline/memory/draw_area.h"
#include "pipeline/memory/lookahead.h"
#include "pipeline/memory/streaming_sse2.h"
#include "pipeline/pixel/source_pixels.h"

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
    template <class Combine>
    static void DrawWords(const SurfaceView &dest, const SurfaceView &source, const Combine &combine) {
        const Runs runs = CommonRuns(dest, source);
        if constexpr (!Combine::kCopies) {
            const auto drawPiece = [&](BYTE *out, const BYTE *in, ptrdiff_t first, ptrdiff_t count) {
                combine.Run(out + first * kPixelBytes, in + first * kPixelBytes, count);
            };
            if (Lookahead::Pays(CommonPart(dest, source))) return DrawPieces(dest, source, runs, drawPiece);
        }
        const bool streams = StreamingPays(int64_t{runs.length} * runs.count * kPixelBytes);
        for (ptrdiff_t y = 0; y < runs.count; ++y) {
            BYTE *const out = RowOf(dest, y);
            const BYTE *const in = RowOf(source, y);
            if constexpr (Combine::kCopies) {
                CopyRun(out, in, runs.length * kPixelBytes, streams);
            } else if constexpr (requires { combine.RunInline(out, in, runs.length); }) {
                combine.RunInline(out, in, runs.length);
            } else {
                combine.Run(out, in, runs.length);
            }
        }
    }

    template <class Combine>
    static void DrawFetched(const SurfaceView &dest, const SurfaceView &source, const Combine &combine) {
        if constexpr (Combine::kCopies) {
            const Runs runs = CommonRuns(dest, source);
            const Source pixels(source);
            const auto read = pixels.GetReader();
            for (ptrdiff_t y = 0; y < runs.count; ++y) {
                Fetcher::Fetch(RowOf(dest, y), read, RowOf(source, y), 0, runs.length, runs.length);
            }
        } else {
            CombineFetched(dest, source, CombineRef(combine));
        }
    }

    static void CombineFetched(const SurfaceView &dest, const SurfaceView &source, CombineRef combine) {
        const Runs runs = RunsOf(CommonPart(dest, source), false);
        const Source pixels(source);
        const auto read = pixels.GetReader();
        DrawPieces(dest, source, runs, [&](BYTE *out, const BYTE *in, ptrdiff_t first, ptrdiff_t count) {
            BYTE fetched[Lookahead::kPiecePixels * kPixelBytes];
            Fetcher::Fetch(fetched, read, in, first, count, runs.length);
            combine.Run(out + first * kPixelBytes, fetched, count);
        });
    }

    static void CopyRun(BYTE *dest, const BYTE *source, ptrdiff_t bytes, bool streams) {
        const bool overlap = dest < source + bytes && source < dest + bytes;
        if (streams && !overlap) return StreamBytes(dest, source, bytes);
        std::memmove(dest, source, static_cast<size_t>(bytes));
    }

    /// Calls drawPiece(dest row, source row, first column, columns) for pieces of at most Lookahead::kPiecePixels.
    template <class DrawPiece>
    static void DrawPieces(const SurfaceView &dest, const SurfaceView &source, const Runs &runs,
                           const DrawPiece &drawPiece) {
        Lookahead destAhead(dest, runs.length, runs.count), sourceAhead(source, runs.length, runs.count);
        for (ptrdiff_t y = 0; y < runs.count; ++y) {
            for (ptrdiff_t x = 0; x < runs.length; x += Lookahead::kPiecePixels) {
                destAhead.Advance();
                sourceAhead.Advance();
                drawPiece(RowOf(dest, y), RowOf(source, y), x, std::min(Lookahead::kPiecePixels, runs.length - x));
            }
        }
    }

    /// The rows that both have, or all of them as one.
    static Runs CommonRuns(const SurfaceView &dest, const SurfaceView &source) {
        const bool joined = dest.width == source.width && IsContiguous(dest) && IsContiguous(source);
        return RunsOf(CommonPart(dest, source), joined);
    }

    /// The destination's top-left part that the source covers.
    static SurfaceView CommonPart(const SurfaceView &dest, const SurfaceView &source) {
        SurfaceView common = dest;
        common.width = std::min(dest.width, source.width);
        common.height = std::min(dest.height, source.height);
        return common;
    }
};

}  // namespace lacquer
