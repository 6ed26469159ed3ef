// Quarter turns, mirrors and transpositions of whole surfaces.

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/surface_copy.h"
#include "core/surface_view.h"
#include "platform/simd.h"

namespace lacquer {

namespace {

constexpr DWORD kFlipVertical = 4, kLastCode = 7;
constexpr DWORD kSwappingCodes = 0xCA;  // bit set of the codes that exchange width and height

/// Where the destination's pixel (0, 0) comes from, and how far, in bytes, the source moves per destination column and
/// row.
struct Walk {
    const BYTE *start;
    std::ptrdiff_t perColumn, perRow;
};

Walk WalkOf(const SurfaceView &source, DWORD code) {
    const std::ptrdiff_t pixel = source.bitsPerPixel / 8, stride = source.stride;
    const BYTE *topLeft = RowOf(source, 0);
    const BYTE *topRight = topLeft + (source.width - 1) * pixel;
    const BYTE *bottomLeft = RowOf(source, source.height - 1);
    const BYTE *bottomRight = bottomLeft + (source.width - 1) * pixel;
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

/// A rectangle of destination pixels; the ends are exclusive.
struct Part {
    LONG left, top, right, bottom;
};

template <size_t PixelBytes>
void MovePart(const SurfaceView &dest, const Walk &walk, const Part &part) {
    for (LONG y = part.top; y < part.bottom; ++y) {
        BYTE *out = RowOf(dest, y) + part.left * static_cast<std::ptrdiff_t>(PixelBytes);
        const BYTE *in = walk.start + y * walk.perRow + part.left * walk.perColumn;
        for (LONG x = part.left; x < part.right; ++x, out += PixelBytes, in += walk.perColumn) {
            std::memcpy(out, in, PixelBytes);
        }
    }
}

/// Destination rows are written in order, in tiles small enough for the source lines that a turned tile reads to stay
/// cached.
template <class Move>
void ForEachTile(const SurfaceView &dest, const Move &move) {
    constexpr LONG kTile = 16;
    for (LONG top = 0; top < dest.height; top += kTile) {
        for (LONG left = 0; left < dest.width; left += kTile) {
            move(Part{left, top, std::min(left + kTile, dest.width), std::min(top + kTile, dest.height)});
        }
    }
}

template <size_t PixelBytes>
void MovePixels(const SurfaceView &dest, const Walk &walk) {
    ForEachTile(dest, [&](const Part &part) { MovePart<PixelBytes>(dest, walk, part); });
}

#ifdef LACQUER_SSE2

constexpr LONG kBlock = 4;
constexpr std::ptrdiff_t kWord = 4;

__m128i LoadWords(const BYTE *words) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(words)); }
void StoreWords(BYTE *words, __m128i value) { _mm_storeu_si128(reinterpret_cast<__m128i *>(words), value); }

/// Moves 4 × 4 words whose columns are the source's rows.
void TurnBlock(const SurfaceView &dest, const Walk &walk, LONG left, LONG top) {
    // Where the source runs backwards, four words in memory belong to four destination rows from the last to the first.
    const bool backwards = walk.perRow < 0;
    const BYTE *in = walk.start + (backwards ? top + kBlock - 1 : top) * walk.perRow + left * walk.perColumn;
    const __m128i a = LoadWords(in), b = LoadWords(in + walk.perColumn);
    const __m128i c = LoadWords(in + 2 * walk.perColumn), d = LoadWords(in + 3 * walk.perColumn);
    const __m128i abLow = _mm_unpacklo_epi32(a, b), abHigh = _mm_unpackhi_epi32(a, b);
    const __m128i cdLow = _mm_unpacklo_epi32(c, d), cdHigh = _mm_unpackhi_epi32(c, d);
    const __m128i rows[kBlock] = {_mm_unpacklo_epi64(abLow, cdLow), _mm_unpackhi_epi64(abLow, cdLow),
                                  _mm_unpacklo_epi64(abHigh, cdHigh), _mm_unpackhi_epi64(abHigh, cdHigh)};
    BYTE *out = RowOf(dest, backwards ? top + kBlock - 1 : top) + left * kWord;
    const std::ptrdiff_t step = backwards ? -std::ptrdiff_t{dest.stride} : dest.stride;
    for (LONG i = 0; i < kBlock; ++i) StoreWords(out + i * step, rows[i]);
}

/// Quarter turns and transpositions of 32-bit pixels.
void TurnWords(const SurfaceView &dest, const Walk &walk) {
    ForEachTile(dest, [&](const Part &part) {
        const LONG right = part.left + ((part.right - part.left) & ~(kBlock - 1));
        const LONG bottom = part.top + ((part.bottom - part.top) & ~(kBlock - 1));
        for (LONG y = part.top; y < bottom; y += kBlock) {
            for (LONG x = part.left; x < right; x += kBlock) TurnBlock(dest, walk, x, y);
        }
        MovePart<kWord>(dest, walk, {right, part.top, part.right, bottom});
        MovePart<kWord>(dest, walk, {part.left, bottom, part.right, part.bottom});
    });
}

/// Mirrored rows of 32-bit pixels: the source runs backwards under the destination's columns.
void MirrorWords(const SurfaceView &dest, const Walk &walk) {
    const LONG right = dest.width & ~(kBlock - 1);
    for (LONG y = 0; y < dest.height; ++y) {
        BYTE *const out = RowOf(dest, y);
        const BYTE *const in = walk.start + y * walk.perRow - (kBlock - 1) * kWord;
        for (LONG x = 0; x < right; x += kBlock) {
            const __m128i words = LoadWords(in - x * kWord);
            StoreWords(out + x * kWord, _mm_shuffle_epi32(words, _MM_SHUFFLE(0, 1, 2, 3)));
        }
    }
    MovePart<kWord>(dest, walk, {right, 0, dest.width, dest.height});
}

void MoveWords(const SurfaceView &dest, const Walk &walk) {
    if (walk.perColumn == -kWord) {
        MirrorWords(dest, walk);
    } else {
        TurnWords(dest, walk);
    }
}

#else

void MoveWords(const SurfaceView &dest, const Walk &walk) { MovePixels<4>(dest, walk); }

#endif

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
        case 32: return MoveWords(dest, walk);
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
