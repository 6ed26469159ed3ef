// The walk that each code stands for, and the pixels moved one by one.

#include "pipeline/transform/turn.h"

#include "pipeline/transform/turn_tiles.h"

namespace lacquer {
namespace {

PixelWalk WalkOf(const SurfaceView &source, DWORD code) {
    const ptrdiff_t pixel = source.bitsPerPixel / 8, stride = source.stride;
    const BYTE *topLeft = RowOf(source, 0);
    const BYTE *topRight = topLeft + (source.width - 1) * pixel;
    const BYTE *bottomLeft = RowOf(source, source.height - 1);
    const BYTE *bottomRight = bottomLeft + (source.width - 1) * pixel;
    switch (code) {
        case LACQUER_ROTATE_90: return {bottomLeft, -stride, pixel};
        case LACQUER_ROTATE_180: return {bottomRight, -pixel, -stride};
        case LACQUER_ROTATE_270: return {topRight, stride, -pixel};
        case LACQUER_FLIP_VERTICAL: return {bottomLeft, pixel, -stride};
        case LACQUER_FLIP_HORIZONTAL: return {topRight, -pixel, stride};
        case LACQUER_TRANSPOSE: return {topLeft, stride, pixel};
        default: return {bottomRight, -stride, -pixel};
    }
}

void FlipRows(const SurfaceView &dest, const PixelWalk &walk) {
    const size_t bytes = static_cast<size_t>(dest.width) * (dest.bitsPerPixel / 8);
    for (LONG y = 0; y < dest.height; ++y) std::memcpy(RowOf(dest, y), walk.start + y * walk.perRow, bytes);
}

template <size_t kBytes>
void TurnPixels(const SurfaceView &dest, const PixelWalk &walk) {
    ForEachTile(dest, [&](const Part &part) { MovePart<kBytes>(dest, walk, part); });
}

/// 24-bit pixels are moved with the byte behind them, which the next pixel of the row then gets right; the last `exact`
/// pixels on their own.
void MovePackedRow(BYTE *out, const BYTE *in, ptrdiff_t perColumn, LONG count, LONG exact) {
    for (; count >= exact + 4; count -= 4, out += 12, in += 4 * perColumn) {
        for (ptrdiff_t i = 0; i < 4; ++i) std::memcpy(out + i * 3, in + i * perColumn, 4);
    }
    for (; count > exact; --count, out += 3, in += perColumn) std::memcpy(out, in, 4);
    MovePixels<3>(out, in, perColumn, count);
}

void MovePackedPart(const SurfaceView &dest, const PixelWalk &walk, const Part &part) {
    const LONG count = part.right - part.left;
    for (LONG y = part.top; y < part.bottom; ++y) {
        // Nothing follows a row's last pixel, and the source's corners lie in the outer rows.
        const bool isOuter = y == 0 || y == dest.height - 1;
        MovePackedRow(RowOf(dest, y) + PixelOffset(part.left, 3),
                      walk.start + y * walk.perRow + part.left * walk.perColumn, walk.perColumn, count,
                      isOuter                    ? count
                      : part.right == dest.width ? 1
                                                 : 0);
    }
}

void TurnPacked(const SurfaceView &dest, const PixelWalk &walk) {
    if (walk.perColumn == -3) return MovePackedPart(dest, walk, {0, 0, dest.width, dest.height});
    ForEachTile(dest, [&](const Part &part) { MovePackedPart(dest, walk, part); });
}

}  // namespace

bool SwapsSides(DWORD code) {
    return code == LACQUER_ROTATE_90 || code == LACQUER_ROTATE_270 || code == LACQUER_TRANSPOSE ||
           code == LACQUER_TRANSVERSE;
}

void TurnView(const ImageTable &kernels, const SurfaceView &dest, const SurfaceView &source, DWORD code) {
    const PixelWalk walk = WalkOf(source, code);
    if (code == LACQUER_FLIP_VERTICAL) return FlipRows(dest, walk);
    switch (source.bitsPerPixel) {
        case 8: return kernels.turnBytes(dest, walk);
        case 24: return TurnPacked(dest, walk);
        case 32: return kernels.turnWords(dest, walk);
        default: return;
    }
}

void TurnBytes(const SurfaceView &dest, const PixelWalk &walk) { TurnPixels<1>(dest, walk); }
void TurnWords(const SurfaceView &dest, const PixelWalk &walk) { TurnPixels<4>(dest, walk); }

}  // namespace lacquer
