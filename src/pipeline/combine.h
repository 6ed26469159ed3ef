// The combine rules: how a source word s and a destination word d give the new destination word. Each formula stands
// here once, for the base tier; docs/sampling-and-blending.md explains them.
//
// Notation: dA, sA are alphas, scale(w, f) is channel × f >> 8 for each channel. Sums of words are sums of 32 bits:
// with premultiplied pixels no channel exceeds 255; with others it carries into its neighbour.
#pragma once

#include "pipeline/pixel.h"

namespace lacquer {

/// Rules without a parameter derive from this, so that all rules are made the same way.
struct PlainRule {
    static constexpr bool kHasParameter = false;
    explicit PlainRule(uint32_t /*unused*/) {}
};

/// d := s + scale(d, 256 − sA)
struct OverRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t Apply(uint32_t s, uint32_t d) const { return s + Scale(d, 256 - Alpha(s)); }
};

/// s' := scale(s, A + 1); d := s' + scale(d, 256 − s'A)
class ConstAlphaRule {
public:
    static constexpr bool kHasParameter = true;
    explicit ConstAlphaRule(uint32_t alpha) : factor_((alpha & 0xFF) + 1) {}
    uint32_t Apply(uint32_t s, uint32_t d) const {
        const uint32_t scaled = Scale(s, factor_);
        return scaled + Scale(d, 256 - Alpha(scaled));
    }

private:
    uint32_t factor_;
};

/// d := d + scale(s, 256 − dA)
struct BehindRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t Apply(uint32_t s, uint32_t d) const { return d + Scale(s, 256 - Alpha(d)); }
};

/// Each channel: d := (s + 1) × d >> 8
struct ModulateRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t Apply(uint32_t s, uint32_t d) const { return Multiply(d, s); }
};

/// d := s, where s is not the key
class ColorKeyRule {
public:
    static constexpr bool kHasParameter = true;
    explicit ColorKeyRule(uint32_t key) : key_(key) {}
    uint32_t Apply(uint32_t s, uint32_t d) const { return s == key_ ? d : s; }

private:
    uint32_t key_;
};

/// A rule applied to one pixel after the other.
template <class Rule>
class PerPixel : public Rule {
public:
    static constexpr bool kCopies = false;
    using Rule::Rule;

    /// Combines `count` source words with as many destination words. `source` may be `dest` itself.
    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        const Rule rule = *this;
        for (ptrdiff_t i = 0; i < count * kPixelBytes; i += kPixelBytes) {
            StorePixel(dest + i, rule.Apply(LoadPixel(source + i), LoadPixel(dest + i)));
        }
    }
};

/// d := s. The fetch writes into the destination itself; only a 32-bit row of the same size is copied from elsewhere.
struct CopyCombine : PlainRule {
    static constexpr bool kCopies = true;
    using PlainRule::PlainRule;
};

}  // namespace lacquer
