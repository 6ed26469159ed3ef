// The turns of the faster tiers: square blocks of pixels are turned in registers, mirrored rows are read backwards.
#pragma once

#include "pipeline/memory/lookahead.h"
#include "pipeline/memory/streaming_simd.h"
#include "pipeline/transform/turn_tiles.h"

namespace lacquer::LACQUER_TIER {

/// 32-bit pixels, four to a register.
struct TurnedWords {
    static constexpr size_t kBytes = 4;
    static constexpr LONG kRegister = 4, kBlock = 4;

    static __m128i Mirror(__m128i words) { return _mm_shuffle_epi32(words, _MM_SHUFFLE(0, 1, 2, 3)); }
#ifdef LACQUER_WIDE_REGISTERS
    static __m256i Mirror(__m256i words) {
        return _mm256_permutevar8x32_epi32(words, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
    }
#endif

    /// Row i of a block, `inStep` after the one before, becomes column i.
    static void Turn(BYTE *out, ptrdiff_t outStep, const BYTE *in, ptrdiff_t inStep) {
        const __m128i a = LoadFour(in), b = LoadFour(in + inStep);
        const __m128i c = LoadFour(in + 2 * inStep), d = LoadFour(in + 3 * inStep);
        const __m128i abLow = _mm_unpacklo_epi32(a, b), abHigh = _mm_unpackhi_epi32(a, b);
        const __m128i cdLow = _mm_unpacklo_epi32(c, d), cdHigh = _mm_unpackhi_epi32(c, d);
        StoreFour(out, _mm_unpacklo_epi64(abLow, cdLow));
        StoreFour(out + outStep, _mm_unpackhi_epi64(abLow, cdLow));
        StoreFour(out + 2 * outStep, _mm_unpacklo_epi64(abHigh, cdHigh));
        StoreFour(out + 3 * outStep, _mm_unpackhi_epi64(abHigh, cdHigh));
    }
};

/// 8-bit pixels, sixteen to a register.
struct TurnedBytes {
    static constexpr size_t kBytes = 1;
    static constexpr LONG kRegister = 16, kBlock = 8;

    static __m128i Mirror(__m128i bytes) {
        const __m128i pairs = _mm_or_si128(_mm_srli_epi16(bytes, 8), _mm_slli_epi16(bytes, 8));
        constexpr int kBackwards = _MM_SHUFFLE(0, 1, 2, 3);
        const __m128i halves = _mm_shufflehi_epi16(_mm_shufflelo_epi16(pairs, kBackwards), kBackwards);
        return _mm_shuffle_epi32(halves, _MM_SHUFFLE(1, 0, 3, 2));
    }
#ifdef LACQUER_WIDE_REGISTERS
    static __m256i Mirror(__m256i bytes) {
        const __m256i backwards =
            EachSixteen<__m256i>(_mm_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
        return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(bytes, backwards), _MM_SHUFFLE(1, 0, 3, 2));
    }
#endif

    static void Turn(BYTE *out, ptrdiff_t outStep, const BYTE *in, ptrdiff_t inStep) {
        const auto twoRows = [&](int i) {
            return _mm_unpacklo_epi8(LoadTwo(in + i * inStep), LoadTwo(in + (i + 1) * inStep));
        };
        const __m128i a = twoRows(0), b = twoRows(2), c = twoRows(4), d = twoRows(6);
        const __m128i abLow = _mm_unpacklo_epi16(a, b), abHigh = _mm_unpackhi_epi16(a, b);
        const __m128i cdLow = _mm_unpacklo_epi16(c, d), cdHigh = _mm_unpackhi_epi16(c, d);
        const auto storeTwo = [&](int i, __m128i columns) {
            StoreTwo(out + i * outStep, columns);
            StoreTwo(out + (i + 1) * outStep, _mm_unpackhi_epi64(columns, columns));
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
Part TurnBlocks(BYTE *out, ptrdiff_t outStride, PixelWalk walk, Part part) {
    constexpr LONG kBlock = Pixels::kBlock;
    const LONG right = part.right - (part.right - part.left) % kBlock;
    const LONG bottom = part.bottom - (part.bottom - part.top) % kBlock;
    // Where the source runs backwards, neighbours in memory belong to destination rows from the last to the first.
    const bool backwards = walk.perRow < 0;
    const ptrdiff_t outStep = backwards ? -outStride : outStride;
    for (LONG top = part.top; top < bottom; top += kBlock) {
        const LONG y = backwards ? top + kBlock - 1 : top;
        BYTE *const row = out + (y - part.top) * outStride;
        for (LONG x = part.left; x < right; x += kBlock) {
            Pixels::Turn(row + (x - part.left) * ptrdiff_t{Pixels::kBytes}, outStep,
                         walk.start + y * walk.perRow + x * walk.perColumn, walk.perColumn);
        }
    }
    return {part.left, part.top, right, bottom};
}

template <class Pixels>
void TurnPart(const SurfaceView &dest, const PixelWalk &walk, const Part &part) {
    BYTE *const out = RowOf(dest, part.top) + part.left * ptrdiff_t{Pixels::kBytes};
    const Part whole = TurnBlocks<Pixels>(out, dest.stride, walk, part);
    if (whole.right == part.right && whole.bottom == part.bottom) return;
    MovePart<Pixels::kBytes>(dest, walk, {whole.right, part.top, part.right, whole.bottom});
    MovePart<Pixels::kBytes>(dest, walk, {part.left, whole.bottom, part.right, part.bottom});
}

/// Quarter turns and transpositions.
template <class Pixels>
void TurnPixels(const SurfaceView &dest, const PixelWalk &walk) {
    ForEachTile(dest, [&](const Part &part) { TurnPart<Pixels>(dest, walk, part); });
}

/// The same for a large result: tiles of whole cache lines on both sides, along the source's rows, of which the next
/// lines are brought into the cache, while the tile goes past the caches.
template <class Pixels>
void TurnStreaming(const SurfaceView &dest, const PixelWalk &walk) {
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
                BYTE *const out = RowOf(dest, top + y) + left * ptrdiff_t{Pixels::kBytes};
                for (ptrdiff_t i = 0; i < kLine; i += kRegisterBytes) Stream(out + i, LoadFour(tile + y * kLine + i));
            }
        }
    }
    FinishStreaming();
    TurnPart<Pixels>(dest, walk, {right, 0, dest.width, bottom});
    TurnPart<Pixels>(dest, walk, {0, bottom, dest.width, dest.height});
}

/// Mirrored rows: the source runs backwards under the destination's columns. `store` stores a register; `prepare` is
/// told where the next row's lines lie in the source and in the destination.
template <class Pixels, class StoreRegister, class Prepare>
void MirrorRows(const SurfaceView &dest, const PixelWalk &walk, const StoreRegister &store, const Prepare &prepare) {
    const ptrdiff_t bytes = dest.width * ptrdiff_t{Pixels::kBytes};
    for (LONG y = 0; y < dest.height; ++y) {
        BYTE *const out = RowOf(dest, y);
        const BYTE *const end = walk.start + y * walk.perRow + Pixels::kBytes;
        const auto mirror = [&]<Register V>(V, ptrdiff_t i) {
            store(out + i, Pixels::Mirror(Load<V>(end - i - kBytesOf<V>)));
        };
        ptrdiff_t i = 0;
        for (; i + kCacheLineBytes <= bytes; i += kCacheLineBytes) {
            prepare(end + walk.perRow - i - 1, out + dest.stride + i);
            for (ptrdiff_t at = i; at < i + kCacheLineBytes; at += kBytesOf<Widest>) mirror(Widest(), at);
        }
        for (; i + kBytesOf<Widest> <= bytes; i += kBytesOf<Widest>) mirror(Widest(), i);
        if (i + kRegisterBytes <= bytes) mirror(__m128i(), i);
    }
    MovePart<Pixels::kBytes>(dest, walk, {dest.width - dest.width % Pixels::kRegister, 0, dest.width, dest.height});
}

template <class Pixels>
void MirrorPixels(const SurfaceView &dest, const PixelWalk &walk) {
    const auto store = [](BYTE *out, auto pixels) { Store(out, pixels); };
    const auto stream = [](BYTE *out, auto pixels) { Stream(out, pixels); };
    if (!Lookahead::Pays(dest)) {
        MirrorRows<Pixels>(dest, walk, store, [](const BYTE *, const BYTE *) {});
    } else if (int64_t{dest.stride} * dest.height >= memoryLimits.streamedCopyBytes &&
               RowsAreAligned(dest, kBytesOf<Widest>)) {
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
void TurnInRegisters(const SurfaceView &dest, const PixelWalk &walk) {
    if (walk.perColumn == -ptrdiff_t{Pixels::kBytes}) {
        MirrorPixels<Pixels>(dest, walk);
    } else if (int64_t{dest.stride} * dest.height >= memoryLimits.streamedBytes &&
               RowsAreAligned(dest, kCacheLineBytes)) {
        TurnStreaming<Pixels>(dest, walk);
    } else {
        TurnPixels<Pixels>(dest, walk);
    }
}

inline void TurnBytes(const SurfaceView &dest, const PixelWalk &walk) { TurnInRegisters<TurnedBytes>(dest, walk); }
inline void TurnWords(const SurfaceView &dest, const PixelWalk &walk) { TurnInRegisters<TurnedWords>(dest, walk); }

}  // namespace lacquer::LACQUER_TIER
