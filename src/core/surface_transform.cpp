// Quarter turns, mirrors and transpositions of whole surfaces.

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/surface_copy.h"
#include "core/surface_view.h"
#include "pipeline/memory/lookahead.h"
#include "pipeline/memory/streaming_sse2.h"
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
void MoveRow(BYTE *out, const BYTE *in, std::ptrdiff_t perColumn, LONG count) {
    for (; count > 0; --count, out += PixelBytes, in += perColumn) std::memcpy(out, in, PixelBytes);
}

/// 24-bit pixels are moved with the byte behind them, which the next pixel of the row then gets right; the last `exact`
/// pixels on their own.
void MovePackedRow(BYTE *out, const BYTE *in, std::ptrdiff_t perColumn, LONG count, LONG exact) {
    for (; count >= exact + 4; count -= 4, out += 12, in += 4 * perColumn) {
        for (int i = 0; i < 4; ++i) std::memcpy(out + i * 3, in + i * perColumn, 4);
    }
    for (; count > exact; --count, out += 3, in += perColumn) std::memcpy(out, in, 4);
    MoveRow<3>(out, in, perColumn, count);
}

template <size_t PixelBytes>
void MovePart(const SurfaceView &dest, const Walk &walk, const Part &part) {
    const LONG count = part.right - part.left;
    for (LONG y = part.top; y < part.bottom; ++y) {
        BYTE *const out = RowOf(dest, y) + part.left * static_cast<std::ptrdiff_t>(PixelBytes);
        const BYTE *const in = walk.start + y * walk.perRow + part.left * walk.perColumn;
        if constexpr (PixelBytes == 3) {
            // Nothing follows a row's last pixel, and the source's corners lie in the outer rows.
            const bool isOuter = y == 0 || y == dest.height - 1;
            MovePackedRow(out, in, walk.perColumn, count, isOuter ? count : part.right == dest.width ? 1 : 0);
        } else {
            MoveRow<PixelBytes>(out, in, walk.perColumn, count);
        }
    }
}

/// A result of so many bytes stays in the first-level cache whole, and its source beside it.
constexpr int64_t kUntiledBytes = int64_t{16} << 10;

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

template <size_t PixelBytes>
void MovePixels(const SurfaceView &dest, const Walk &walk) {
    ForEachTile(dest, [&](const Part &part) { MovePart<PixelBytes>(dest, walk, part); });
}

void MovePacked(const SurfaceView &dest, const Walk &walk) {
    if (walk.perColumn == -3) {
        MovePart<3>(dest, walk, {0, 0, dest.width, dest.height});
    } else {
        MovePixels<3>(dest, walk);
    }
}

#ifdef LACQUER_SSE2

__m128i LoadVector(const BYTE *bytes) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes)); }
void StoreVector(BYTE *bytes, __m128i value) { _mm_storeu_si128(reinterpret_cast<__m128i *>(bytes), value); }
__m128i LoadHalf(const BYTE *bytes) { return _mm_loadl_epi64(reinterpret_cast<const __m128i *>(bytes)); }
void StoreHalf(BYTE *bytes, __m128i value) { _mm_storel_epi64(reinterpret_cast<__m128i *>(bytes), value); }

/// From so many bytes on a turn goes past the caches: earlier than a copy, as its stores jump from row to row.
constexpr int64_t kLargeTurn = int64_t{4} << 20;

/// 32-bit pixels, four to a register.
struct Words {
    static constexpr size_t kBytes = 4;
    static constexpr LONG kVector = 4, kBlock = 4;

    static __m128i Mirror(__m128i words) { return _mm_shuffle_epi32(words, _MM_SHUFFLE(0, 1, 2, 3)); }

    /// Row i of a block, `inStep` after the one before, becomes column i.
    static void Turn(BYTE *out, std::ptrdiff_t outStep, const BYTE *in, std::ptrdiff_t inStep) {
        const __m128i a = LoadVector(in), b = LoadVector(in + inStep);
        const __m128i c = LoadVector(in + 2 * inStep), d = LoadVector(in + 3 * inStep);
        const __m128i abLow = _mm_unpacklo_epi32(a, b), abHigh = _mm_unpackhi_epi32(a, b);
        const __m128i cdLow = _mm_unpacklo_epi32(c, d), cdHigh = _mm_unpackhi_epi32(c, d);
        StoreVector(out, _mm_unpacklo_epi64(abLow, cdLow));
        StoreVector(out + outStep, _mm_unpackhi_epi64(abLow, cdLow));
        StoreVector(out + 2 * outStep, _mm_unpacklo_epi64(abHigh, cdHigh));
        StoreVector(out + 3 * outStep, _mm_unpackhi_epi64(abHigh, cdHigh));
    }
};

/// 8-bit pixels, sixteen to a register.
struct Bytes {
    static constexpr size_t kBytes = 1;
    static constexpr LONG kVector = 16, kBlock = 8;

    static __m128i Mirror(__m128i bytes) {
        const __m128i pairs = _mm_or_si128(_mm_srli_epi16(bytes, 8), _mm_slli_epi16(bytes, 8));
        constexpr int kBackwards = _MM_SHUFFLE(0, 1, 2, 3);
        const __m128i halves = _mm_shufflehi_epi16(_mm_shufflelo_epi16(pairs, kBackwards), kBackwards);
        return _mm_shuffle_epi32(halves, _MM_SHUFFLE(1, 0, 3, 2));
    }

    static void Turn(BYTE *out, std::ptrdiff_t outStep, const BYTE *in, std::ptrdiff_t inStep) {
        const auto twoRows = [&](int i) {
            return _mm_unpacklo_epi8(LoadHalf(in + i * inStep), LoadHalf(in + (i + 1) * inStep));
        };
        const __m128i a = twoRows(0), b = twoRows(2), c = twoRows(4), d = twoRows(6);
        const __m128i abLow = _mm_unpacklo_epi16(a, b), abHigh = _mm_unpackhi_epi16(a, b);
        const __m128i cdLow = _mm_unpacklo_epi16(c, d), cdHigh = _mm_unpackhi_epi16(c, d);
        const auto storeTwo = [&](int i, __m128i columns) {
            StoreHalf(out + i * outStep, columns);
            StoreHalf(out + (i + 1) * outStep, _mm_unpackhi_epi64(columns, columns));
        };
        storeTwo(0, _mm_unpacklo_epi32(abLow, cdLow));
        storeTwo(2, _mm_unpackhi_epi32(abLow, cdLow));
        storeTwo(4, _mm_unpacklo_epi32(abHigh, cdHigh));
        storeTwo(6, _mm_unpackhi_epi32(abHigh, cdHigh));
    }
};

/// Turns part of the destination into a tile at `out`, in square blocks whose columns are the source's rows. Result:
/// what whole blocks have filled; the rest is the caller's.
template <class Pixels>
Part TurnBlocks(BYTE *out, std::ptrdiff_t outStride, Walk walk, Part part) {
    constexpr LONG kBlock = Pixels::kBlock;
    const LONG right = part.right - (part.right - part.left) % kBlock;
    const LONG bottom = part.bottom - (part.bottom - part.top) % kBlock;
    // Where the source runs backwards, neighbours in memory belong to destination rows from the last to the first.
    const bool backwards = walk.perRow < 0;
    const std::ptrdiff_t outStep = backwards ? -outStride : outStride;
    for (LONG top = part.top; top < bottom; top += kBlock) {
        const LONG y = backwards ? top + kBlock - 1 : top;
        BYTE *const row = out + (y - part.top) * outStride;
        for (LONG x = part.left; x < right; x += kBlock) {
            Pixels::Turn(row + (x - part.left) * static_cast<std::ptrdiff_t>(Pixels::kBytes), outStep,
                         walk.start + y * walk.perRow + x * walk.perColumn, walk.perColumn);
        }
    }
    return {part.left, part.top, right, bottom};
}

template <class Pixels>
void TurnPart(const SurfaceView &dest, const Walk &walk, const Part &part) {
    BYTE *const out = RowOf(dest, part.top) + part.left * static_cast<std::ptrdiff_t>(Pixels::kBytes);
    const Part whole = TurnBlocks<Pixels>(out, dest.stride, walk, part);
    if (whole.right == part.right && whole.bottom == part.bottom) return;
    MovePart<Pixels::kBytes>(dest, walk, {whole.right, part.top, part.right, whole.bottom});
    MovePart<Pixels::kBytes>(dest, walk, {part.left, whole.bottom, part.right, part.bottom});
}

/// Quarter turns and transpositions.
template <class Pixels>
void TurnPixels(const SurfaceView &dest, const Walk &walk) {
    ForEachTile(dest, [&](const Part &part) { TurnPart<Pixels>(dest, walk, part); });
}

/// The same for a large result: tiles of whole cache lines on both sides, along the source's rows, of which the next
/// lines are brought into the cache, while the tile goes past the caches.
template <class Pixels>
void TurnStreaming(const SurfaceView &dest, const Walk &walk) {
    constexpr LONG kLine = kCacheLineBytes, kTile = kLine / LONG{Pixels::kBytes}, kTilesAhead = 2;
    alignas(16) BYTE tile[kTile * kLine];
    const LONG right = dest.width - dest.width % kTile, bottom = dest.height - dest.height % kTile;
    const auto prefetchTile = [&](LONG left, LONG top) {
        const BYTE *const in = walk.start + (walk.perRow < 0 ? top + kTile - 1 : top) * walk.perRow;
        for (LONG x = left; x < left + kTile; ++x) PrefetchLine(in + x * walk.perColumn);
    };
    for (LONG left = 0; left < right; left += kTile) {
        for (LONG top = 0; top < bottom; top += kTile) {
            if (top + kTilesAhead * kTile < bottom) prefetchTile(left, top + kTilesAhead * kTile);
            TurnBlocks<Pixels>(tile, kLine, walk, {left, top, left + kTile, top + kTile});
            for (LONG y = 0; y < kTile; ++y) {
                BYTE *const out = RowOf(dest, top + y) + left * static_cast<std::ptrdiff_t>(Pixels::kBytes);
                for (LONG i = 0; i < kLine; i += 16) StreamVector(out + i, LoadVector(tile + y * kLine + i));
            }
        }
    }
    FinishStreaming();
    TurnPart<Pixels>(dest, walk, {right, 0, dest.width, bottom});
    TurnPart<Pixels>(dest, walk, {0, bottom, dest.width, dest.height});
}

/// Mirrored rows: the source runs backwards under the destination's columns. `store` stores a vector; `prepare` is told
/// where the next row's lines lie in the source and in the destination.
template <class Pixels, class Store, class Prepare>
void MirrorRows(const SurfaceView &dest, const Walk &walk, const Store &store, const Prepare &prepare) {
    constexpr std::ptrdiff_t kVector = 16, kStep = 4 * kVector;
    const std::ptrdiff_t bytes = dest.width * static_cast<std::ptrdiff_t>(Pixels::kBytes);
    for (LONG y = 0; y < dest.height; ++y) {
        BYTE *const out = RowOf(dest, y);
        const BYTE *const last = walk.start + y * walk.perRow + Pixels::kBytes - kVector;
        const auto mirror = [&](std::ptrdiff_t i) { store(out + i, Pixels::Mirror(LoadVector(last - i))); };
        std::ptrdiff_t i = 0;
        for (; i + kStep <= bytes; i += kStep) {
            prepare(last + walk.perRow - i, out + dest.stride + i);
            mirror(i);
            mirror(i + kVector);
            mirror(i + 2 * kVector);
            mirror(i + 3 * kVector);
        }
        for (; i + kVector <= bytes; i += kVector) mirror(i);
    }
    MovePart<Pixels::kBytes>(dest, walk, {dest.width - dest.width % Pixels::kVector, 0, dest.width, dest.height});
}

template <class Pixels>
void MirrorPixels(const SurfaceView &dest, const Walk &walk) {
    const auto store = [](BYTE *out, __m128i vector) { StoreVector(out, vector); };
    const auto stream = [](BYTE *out, __m128i vector) { StreamVector(out, vector); };
    if (!Lookahead::Pays(dest)) {
        MirrorRows<Pixels>(dest, walk, store, [](const BYTE *, const BYTE *) {});
    } else if (StreamingPays(int64_t{dest.stride} * dest.height) && RowsAreAligned(dest, 16)) {
        MirrorRows<Pixels>(dest, walk, stream, [](const BYTE *in, const BYTE *) { PrefetchLine(in); });
        FinishStreaming();
    } else {
        MirrorRows<Pixels>(dest, walk, store, [](const BYTE *in, const BYTE *out) {
            PrefetchLine(in);
            PrefetchLine(out);
        });
    }
}

template <class Pixels>
void MoveInVectors(const SurfaceView &dest, const Walk &walk) {
    if (walk.perColumn == -static_cast<std::ptrdiff_t>(Pixels::kBytes)) {
        MirrorPixels<Pixels>(dest, walk);
    } else if (int64_t{dest.stride} * dest.height >= kLargeTurn && RowsAreAligned(dest, kCacheLineBytes)) {
        TurnStreaming<Pixels>(dest, walk);
    } else {
        TurnPixels<Pixels>(dest, walk);
    }
}

void MoveBytes(const SurfaceView &dest, const Walk &walk) { MoveInVectors<Bytes>(dest, walk); }
void MoveWords(const SurfaceView &dest, const Walk &walk) { MoveInVectors<Words>(dest, walk); }

#else

void MoveBytes(const SurfaceView &dest, const Walk &walk) { MovePixels<1>(dest, walk); }
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
        case 8: return MoveBytes(dest, walk);
        case 24: return MovePacked(dest, walk);
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
