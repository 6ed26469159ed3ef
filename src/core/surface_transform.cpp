// Quarter turns, mirrors and transpositions of whole surfaces.

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/surface_copy.h"
#include "core/surface_view.h"

namespace lacquer {

namespace {

constexpr DWORD kFlipVertical = 4, kLastCode = 7;
constexpr DWORD kSwappingCodes = 0xCA;  // bit set of the codes that exchange width and height

/// Where the destination's pixel (0, 0) comes from, and how far, in bytes, the source moves per destination column and
/// row.
struct Walk {
    const std::byte *start;
    std::ptrdiff_t perColumn, perRow;
};

Walk WalkOf(const SurfaceView &source, DWORD code) {
    const std::ptrdiff_t pixel = source.bitsPerPixel / 8, stride = source.stride;
    const std::byte *topLeft = RowOf(source, 0);
    const std::byte *topRight = topLeft + (source.width - 1) * pixel;
    const std::byte *bottomLeft = RowOf(source, source.height - 1);
    const std::byte *bottomRight = bottomLeft + (source.width - 1) * pixel;
    switch (code) {
        case 1: return {bottomLeft, -stride, pixel};
        case 2: return {bottomRight, -pixel, -stride};
        case 3: return {topRight, stride, -pixel};
        case kFlipVertical: return {bottomLeft, pixel, -stride};
        case 5: return {topRight, -pixel, stride};
        case 6: return {topLeft, stride, pixel};
        default: return {bottomRight, -stride, -pixel};
    }
}

/// Destination rows are written in order, in tiles small enough for the source lines that a turned tile reads to stay
/// cached.
template <size_t PixelBytes>
void MovePixels(const SurfaceView &dest, const Walk &walk) {
    constexpr LONG kTile = 32;
    for (LONG top = 0; top < dest.height; top += kTile) {
        const LONG bottom = std::min(top + kTile, dest.height);
        for (LONG left = 0; left < dest.width; left += kTile) {
            const LONG right = std::min(left + kTile, dest.width);
            for (LONG y = top; y < bottom; ++y) {
                std::byte *out = RowOf(dest, y) + left * static_cast<std::ptrdiff_t>(PixelBytes);
                const std::byte *in = walk.start + y * walk.perRow + left * walk.perColumn;
                for (LONG x = left; x < right; ++x, out += PixelBytes, in += walk.perColumn) {
                    std::memcpy(out, in, PixelBytes);
                }
            }
        }
    }
}

void TransformView(const SurfaceView &dest, const SurfaceView &source, DWORD code) {
    const Walk walk = WalkOf(source, code);
    if (code == kFlipVertical) {
        const size_t bytes = static_cast<size_t>(source.width) * (source.bitsPerPixel / 8);
        for (LONG y = 0; y < dest.height; ++y) std::memcpy(RowOf(dest, y), walk.start + y * walk.perRow, bytes);
        return;
    }
    switch (source.bitsPerPixel) {
        case 8: return MovePixels<1>(dest, walk);
        case 24: return MovePixels<3>(dest, walk);
        case 32: return MovePixels<4>(dest, walk);
        default: return;
    }
}

}  // namespace

std::unique_ptr<PixelSurface> TransformedSurface(PixelSurface &source, DWORD code, SurfaceKind kind) {
    if (code == 0 || code > kLastCode) return nullptr;
    const bool swaps = (kSwappingCodes >> code & 1) != 0;
    const auto width = static_cast<DWORD>(swaps ? source.GetHeight() : source.GetWidth());
    const auto height = static_cast<DWORD>(swaps ? source.GetWidth() : source.GetHeight());
    std::unique_ptr<PixelSurface> result = MakeSurface(width, height, static_cast<DWORD>(source.GetBitsPixel()),
                                                       static_cast<DWORD>(source.GetPaletteCount()), kind);
    if (!result) return nullptr;
    result->SetFilter(source.GetFilter());
    SurfaceView from{}, to{};
    if (!source.LockEx(&from) || !result->LockEx(&to)) return result;
    if (from.bitsPerPixel != to.bitsPerPixel || from.paletteCount != to.paletteCount) return result;
    CopyPalette(to, from);
    TransformView(to, from, code);
    return result;
}

}  // namespace lacquer
