// Painting parts of pixels in the faster tiers, as many at a time as a register holds.
#pragma once

#include <cstring>

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/shape/cover.h"

namespace lacquer::LACQUER_TIER {

/// The weights of covers, from both lanes of each pixel's word.
template <Register V>
V WeightsOf(V covers) {
    return AddLanes(covers, ShiftLanesDown<7>(covers));
}

/// A premultiplied colour drawn over words.
class ColourOver {
public:
    explicit ColourOver(DWORD colour) : colour_(colour) {}
    template <Register V>
    V operator()(V d) const {
        return AddBytesUpTo255(EachWord<V>(colour_), Scale(d, EachLane<V>(256 - Alpha(colour_))));
    }

private:
    DWORD colour_;
};

/// A premultiplied colour drawn over parts of words. d × (256 − w) + s × w is 256 d + (s − d) × w in 16 bits, and s
/// never carries. s − d is the colour less d × alpha / 256, which is rounded up.
class ColourPartlyOver {
public:
    explicit ColourPartlyOver(DWORD colour) : colour_(colour) {}

    template <Register V>
    V operator()(V d, V weights) const {
        const V colour = EachWord<V>(colour_), taken = EachLane<V>(0 - 2 * Alpha(colour_));
        const auto sum = [&](V ofColour, V high) {
            const V change = AddLanes(ofColour, SignedProductHigh(ShiftLanesDown<1>(high), taken));
            return AddLanes(high, MultiplyLanes(change, weights));
        };
        return JoinUpperBytes(sum(LowerBytes(colour), ShiftLanesUp<8>(d)),
                              sum(UpperBytes(colour), And(d, EachLane<V>(0xFF00))));
    }

private:
    DWORD colour_;
};

/// Two lanes at a time: what of the pixel is kept, and what takes its place.
template <Register V>
V Mixed(V d, V fill, V wi, V border, V wb) {
    const V keep = SubtractLanes(EachLane<V>(256), AddLanes(wi, wb));
    const auto sum = [&](V ofD, V ofFill, V ofBorder) {
        return AddLanes(MultiplyLanes(ofD, keep), AddLanes(MultiplyLanes(ofFill, wi), MultiplyLanes(ofBorder, wb)));
    };
    return JoinUpperBytes(sum(LowerBytes(d), LowerBytes(fill), LowerBytes(border)),
                          sum(UpperBytes(d), UpperBytes(fill), UpperBytes(border)));
}

/// The pixels that a step changes: a register of them.
template <Register V>
struct Several {
    ptrdiff_t first;

    V Words(const DWORD *words) const { return Load<V>(words + first); }
    V Weights(const BYTE *covers) const { return WeightsOf(LanesOfBytes<V>(covers + first)); }
};

/// The same of a single pixel.
struct Single {
    ptrdiff_t first;

    __m128i Words(const DWORD *words) const { return OneWord(words[first]); }
    __m128i Weights(const BYTE *covers) const { return WeightsOf(OneWord(covers[first] * 0x00010001u)); }
};

/// d := change(d, the pixels), for as many pixels at a time as there can be.
template <class Change>
void ChangeRun(BYTE *pixels, ptrdiff_t count, const Change &change) {
    ptrdiff_t i = 0;
    const auto changeAll = [&]<Register V>(V) {
        for (; i + kPixelsOf<V> <= count; i += kPixelsOf<V>) {
            BYTE *const at = pixels + i * kPixelBytes;
            Store(at, change(Load<V>(at), Several<V>{i}));
        }
    };
    changeAll(Widest());
    if constexpr (!std::is_same_v<Widest, __m128i>) changeAll(__m128i());
    for (; i < count; ++i) {
        BYTE *const at = pixels + i * kPixelBytes;
        StoreOne(at, change(LoadOne(at), Single{i}));
    }
}

/// As the base tier's, these and those below.
inline void MixParts(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
                     ptrdiff_t count) {
    ChangeRun(pixels, count, [&](auto d, const auto &at) {
        return Mixed(d, at.Words(fill), at.Weights(inner), at.Words(border), at.Weights(outer));
    });
}

inline void DrawParts(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count) {
    const ColourOver fillOver(fill), borderOver(border);
    ChangeRun(pixels, count, [&](auto d, const auto &at) {
        return Mixed(d, fillOver(d), at.Weights(inner), borderOver(d), at.Weights(outer));
    });
}

inline void DrawCovered(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count) {
    const ColourPartlyOver over(colour);
    // A register full of covers is spread at once.
    constexpr ptrdiff_t kCovers = kBytesOf<Widest>, kPairBytes = 2 * kBytesOf<Widest>;
    for (; count >= kCovers; count -= kCovers, cover += kCovers) {
        const Widest covers = Reorder(Load<Widest>(cover)), zero = EachWord<Widest>(0);
        for (const Widest lanes : {BytesLow(covers, zero), BytesHigh(covers, zero)}) {
            const Widest weights = Reorder(WeightsOf(lanes));
            const auto [first, second] = LoadPair<Widest>(pixels);
            StorePair<Widest>(pixels,
                              {over(first, LanesLow(weights, weights)), over(second, LanesHigh(weights, weights))});
            pixels += kPairBytes;
        }
    }
    ChangeRun(pixels, count, [&](auto d, const auto &at) { return over(d, at.Weights(cover)); });
}

inline void DrawEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count) {
    const ColourPartlyOver over(colour);
    ChangeRun(pixels, count, [&]<Register V>(V d, const auto &) { return over(d, EachLane<V>(WeightOf(cover))); });
}

}  // namespace lacquer::LACQUER_TIER
