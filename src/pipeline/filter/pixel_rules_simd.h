// The filters of single pixels in the faster tiers, on a register of words at once or on two.
#pragma once

#include "pipeline/combine/run_simd.h"

namespace lacquer::LACQUER_TIER {

struct GreyRule {
    template <Register V>
    V operator()(V c) const {
        const V blueRed = AddProducts(LowerBytes(c), EachLane<V>(1));
        const V twiceGreen = And(ShiftWordsDown<7>(c), EachWord<V>(0x1FE));
        const V grey = ShiftWordsDown<2>(AddWords(blueRed, twiceGreen));
        const V lower = Or(grey, ShiftWordsUp<8>(grey));
        const V alpha = And(c, EachWord<V>(kOpaque));
        return Or(Or(lower, ShiftWordsUp<16>(grey)), alpha);
    }
};

struct PremultiplyRule {
    /// With a channel of 255 in its place, alpha is one more channel to scale: 255 × (alpha + 1) >> 8 is alpha.
    template <Register V>
    Pair<V> operator()(const Pair<V> &c) const requires kPairsShareAlphas {
        const V opaque = EachWord<V>(kOpaque);
        return Scale(Pair<V>{Or(c.first, opaque), Or(c.second, opaque)}, AddLanes(AlphasOf(c), EachLane<V>(1)));
    }
    template <Register V>
    V operator()(V c) const {
        return Scale(Or(c, EachWord<V>(kOpaque)), AddLanes(AlphaLanes(c), EachLane<V>(1)));
    }
};

struct InvertRule {
    template <Register V>
    V operator()(V c) const {
        const V alpha = ShiftWordsDown<24>(c);
        const V pair = Or(alpha, ShiftWordsUp<8>(alpha));
        return SubtractBytes(Or(pair, ShiftWordsUp<16>(pair)), And(c, EachWord<V>(kColours)));
    }
};

struct ColourToAlphaRule {
    template <Register V>
    V operator()(V c) const {
        const V redGreen = MaxOfBytes(ShiftWordsUp<8>(c), ShiftWordsUp<16>(c));
        return WithAlphaOf(MaxOfBytes(redGreen, ShiftWordsUp<24>(c)), c);
    }
};

/// Applies a rule to `count` words.
template <class Rule>
void FilterRun(BYTE *words, ptrdiff_t count) {
    MapRun(words, count, Rule());
}

}  // namespace lacquer::LACQUER_TIER
