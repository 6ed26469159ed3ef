// Moving single pixels, and the tiles in which they are moved: what the turns of all tiers share.
#pragma once

#include <algorithm>
#include <cstring>

#include "pipeline/transform/turn.h"

namespace lacquer {

/// A rectangle of destination pixels; the ends are exclusive.
struct Part {
    LONG left, top, right, bottom;
};

inline constexpr ptrdiff_t PixelOffset(LONG pixels, size_t pixelBytes) {
    return ptrdiff_t{pixels} * static_cast<ptrdiff_t>(pixelBytes);
}

/// Moves `count` pixels into a row.
template <size_t kBytes>
void MovePixels(BYTE *out, const BYTE *in, ptrdiff_t perColumn, LONG count) {
    for (; count > 0; --count, out += kBytes, in += perColumn) std::memcpy(out, in, kBytes);
}

template <size_t kBytes>
void MovePart(const SurfaceView &dest, const PixelWalk &walk, const Part &part) {
    for (LONG y = part.top; y < part.bottom; ++y) {
        MovePixels<kBytes>(RowOf(dest, y) + PixelOffset(part.left, kBytes),
                           walk.start + y * walk.perRow + part.left * walk.perColumn, walk.perColumn,
                           part.right - part.left);
    }
}

/// A result of so many bytes stays in the first-level cache whole, and its source beside it.
inline constexpr int64_t kUntiledBytes = int64_t{16} << 10;

/// Destination rows are written from left to right, in tiles small enough for the source lines that a turned tile reads
/// to stay cached: the pixels of a cache line, or two where those aren't whole. A small result is one tile, whose long
/// rows cost least.
template <class Move>
void ForEachTile(const SurfaceView &dest, const Move &move) {
    const bool isSmall = int64_t{dest.stride} * dest.height <= kUntiledBytes;
    const LONG ofLines = dest.bitsPerPixel == 8 ? 64 : dest.bitsPerPixel == 24 ? 32 : 16;
    const LONG tile = isSmall ? std::max(dest.width, dest.height) : ofLines;
    for (LONG top = 0; top < dest.height; top += tile) {
        for (LONG left = 0; left < dest.width; left += tile) {
            move(Part{left, top, std::min(left + tile, dest.width), std::min(top + tile, dest.height)});
        }
    }
}

}  // namespace lacquer
