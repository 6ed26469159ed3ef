// The filters of single pixels: how a colour word c gives the new one. Each formula stands here once, for the base
// tier.
#pragma once

#include <algorithm>

#include "pipeline/combine/run.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// B, G and R become (B + 2 G + R) >> 2.
struct GreyRule {
    uint32_t operator()(uint32_t c) const { return WithAlphaOf(c, Grey(GreyOf(c))); }
};

/// Each colour x becomes x × (A + 1) >> 8.
struct PremultiplyRule {
    uint32_t operator()(uint32_t c) const { return Premultiplied(c); }
};

/// Each colour x becomes A − x, modulo 256.
struct InvertRule {
    uint32_t operator()(uint32_t c) const {
        // A spare bit above each channel takes the borrow.
        const uint32_t alpha = Alpha(c), both = alpha | alpha << 16;
        return WithAlphaOf(c, JoinLower((both | 0x01000100) - BlueRed(c), (alpha | 0x100) - (c >> 8 & 0xFF)));
    }
};

/// Alpha becomes the largest colour.
struct ColourToAlphaRule {
    uint32_t operator()(uint32_t c) const {
        return WithAlphaOf(std::max({c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF}) << 24, c);
    }
};

/// B, G and R become A.
struct AlphaToColourRule {
    uint32_t operator()(uint32_t c) const { return WithAlphaOf(c, Grey(Alpha(c))); }
};

/// Applies a rule to `count` words.
template <class Rule>
void FilterRun(BYTE *words, ptrdiff_t count) {
    MapRun(words, count, Rule());
}

}  // namespace lacquer
