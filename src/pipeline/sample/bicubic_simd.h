// The bicubic sampler of the faster tiers, with WeightsQ14 in 16-bit multiply-adds: each source row is summed along its
// columns once, and four such rows, kept in a ring, give a destination row.
#pragma once

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/sample/bicubic.h"

namespace lacquer::LACQUER_TIER {

template <class Source>
class BicubicFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    BicubicFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CentredSteps(source.width, fullSize.cx)),
          down_(CentredSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        columns_ = (count + kPixelsOf<Widest> - 1) & -kPixelsOf<Widest>;
        for (ptrdiff_t i = 0; i < columns_; ++i) {
            // The columns that fill up the last register repeat the last one.
            const CubicTaps taps = CubicTapsAt<WeightsQ14>(across_.At(first + std::min(i, count - 1)), source_.width);
            std::memcpy(taps_[i].index, taps.index, sizeof taps.index);
            taps_[i].inside = taps.index[3] == taps.index[0] + 3 && IsReadable(taps.index[0]);
            taps_[i].weights = PairedWeights(taps);
        }
        for (Line &line : lines_) line.row = -1;
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        const CubicTaps taps = CubicTapsAt<WeightsQ14>(down_.At(row), source_.height);
        const Widest *rows[4];
        for (int i = 0; i < 4; ++i) rows[i] = Summed(taps.index[i]).sums;
        const WeightPairs weights = PairedWeights(taps);
        const Widest upper = EachSixteen<Widest>(weights.first), lower = EachSixteen<Widest>(weights.second);
        const Widest half = EachWord<Widest>(1 << 19), opaque = EachWord<Widest>(Source::kIsOpaque ? kOpaque : 0);
        const auto channels = [&](Widest first, Widest second) {
            const Widest sum = AddWords(AddProducts(first, upper), AddProducts(second, lower));
            return ShiftSignedWordsDown<20>(AddWords(sum, half));
        };
        const auto halfOfPixels = [&](ptrdiff_t i) {
            const Widest a = rows[0][i], b = rows[1][i], c = rows[2][i], d = rows[3][i];
            return PackWords(channels(LanesLow(a, b), LanesLow(c, d)), channels(LanesHigh(a, b), LanesHigh(c, d)));
        };
        for (ptrdiff_t i = 0; i < count; i += kPixelsOf<Widest>) {
            const ptrdiff_t at = 2 * i / kPixelsOf<Widest>;
            const Widest words = PackLanes(halfOfPixels(at), halfOfPixels(at + 1));
            StoreSome(buffer + i * kPixelBytes, Or(words, opaque), count - i);
        }
        return buffer;
    }

private:
    /// The first two weights in each 32 bits of a register, and the last two.
    struct WeightPairs {
        __m128i first, second;
    };

    struct Taps {
        WeightPairs weights;
        int index[4];
        bool inside;  ///< the four pixels are neighbours, and a register can be read there
    };

    /// The sums of one source row for the block's columns, two pixels to 16 bytes. Of the pixels that make a register
    /// of words, a register has the first two of each four, and the next the last two.
    struct Line {
        int row;
        Widest sums[2 * kBlockColumns / kPixelsOf<Widest>];
    };

    static WeightPairs PairedWeights(const CubicTaps &taps) {
        const auto pair = [](int32_t a, int32_t b) {
            return EachWord(static_cast<uint32_t>(b) << 16 | (static_cast<uint32_t>(a) & 0xFFFF));
        };
        return {pair(taps.weight[0], taps.weight[1]), pair(taps.weight[2], taps.weight[3])};
    }

    /// Four neighbouring rows, cut to the source, never meet in one line of the ring.
    const Line &Summed(int row) {
        Line &line = lines_[row & 3];
        if (line.row == row) return line;
        line.row = row;
        const BYTE *const pixels = RowOf(source_, row);
        Widest *sums = line.sums;
        for (ptrdiff_t i = 0; i < columns_; i += kPixelsOf<Widest>) {
            *sums++ = PackWords(SumTaps(pixels, taps_ + i), SumTaps(pixels, taps_ + i + 1));
            *sums++ = PackWords(SumTaps(pixels, taps_ + i + 2), SumTaps(pixels, taps_ + i + 3));
        }
        return line;
    }

    bool IsReadable(ptrdiff_t column) const {
        constexpr ptrdiff_t kBytes = Source::kBitsPerPixel / 8;
        return column * kBytes + kRegisterBytes <= source_.width * kBytes;
    }

    /// Channels in pairs: those of the first pixel beside those of the second, the third beside the fourth.
    __m128i PairsOf(const BYTE *pixels, const Taps &taps) const {
        const auto sorted = [](__m128i words) {
            const __m128i order = _mm_shuffle_epi32(words, _MM_SHUFFLE(3, 1, 2, 0));
            return _mm_unpacklo_epi8(order, _mm_unpackhi_epi64(order, order));
        };
        const ptrdiff_t first = taps.index[0];
        if constexpr (Source::kBitsPerPixel == 32) {
            if (taps.inside) return sorted(LoadFour(pixels + first * kPixelBytes));
        }
        if constexpr (Source::kBitsPerPixel == 24) {
            // What stands where alpha would is not used.
            if (taps.inside) {
                const __m128i four = LoadFour(pixels + first * 3);
                return _mm_unpacklo_epi64(_mm_unpacklo_epi8(four, _mm_srli_si128(four, 3)),
                                          _mm_unpacklo_epi8(_mm_srli_si128(four, 6), _mm_srli_si128(four, 9)));
            }
        }
        const auto read = pixels_.GetReader();
        return sorted(FourWords(read(pixels, taps.index[0]), read(pixels, taps.index[1]), read(pixels, taps.index[2]),
                                read(pixels, taps.index[3])));
    }

    /// WeightsQ14::FinishRow of the row's four taps, for each channel of a pixel and of each fourth one behind it that
    /// a register has room for.
    Widest SumTaps(const BYTE *pixels, const Taps *taps) const {
        const auto eachFourth = [&](const auto &of) {
            return BySixteens<Widest>([&](ptrdiff_t k) { return of(taps[4 * k]); });
        };
        const Widest pairs = eachFourth([&](const Taps &each) { return PairsOf(pixels, each); });
        const Widest zero = EachWord<Widest>(0);
        const Widest sum = AddWords(
            AddProducts(BytesLow(pairs, zero), eachFourth([](const Taps &each) { return each.weights.first; })),
            AddProducts(BytesHigh(pairs, zero), eachFourth([](const Taps &each) { return each.weights.second; })));
        return ShiftSignedWordsDown<8>(AddWords(sum, EachWord<Widest>(1 << 7)));
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    ptrdiff_t columns_ = 0;
    Taps taps_[kBlockColumns];
    Line lines_[4];
};

}  // namespace lacquer::LACQUER_TIER
