// The combine rules: how a source word s and a destination word d give the new destination word. Each formula stands
// here once, for the base tier; docs/sampling-and-blending.md explains them.
//
// Notation: dA, sA are alphas, scale(w, f) is channel × f >> 8 for each channel. Sums of words are sums of 32 bits:
// with premultiplied pixels no channel exceeds 255; with others it carries into its neighbour.
#pragma once

#include "pipeline/pixel/pixel.h"

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

/// Colours: d := (d × (256 − a) >> 8) + (s × (a + 1) >> 8); dA := (dA × (256 − a) >> 8) + a. No channel exceeds 255.
class CrossFadeRule {
public:
    explicit CrossFadeRule(uint32_t alpha) : alpha_(alpha) {}
    uint32_t Apply(uint32_t s, uint32_t d) const {
        return Scale(d, 256 - alpha_) + (Scale(s & ~kOpaque, alpha_ + 1) | alpha_ << 24);
    }

private:
    uint32_t alpha_;
};

/// Each channel: d := (s × (w + 1) + d × (255 − w)) >> 8
class MixRule {
public:
    explicit MixRule(uint32_t weight) : take_(weight + 1), keep_(255 - weight) {}
    uint32_t Apply(uint32_t s, uint32_t d) const {
        return JoinUpper(BlueRed(s) * take_ + BlueRed(d) * keep_, GreenAlpha(s) * take_ + GreenAlpha(d) * keep_);
    }

private:
    uint32_t take_, keep_;
};

/// A rule applied to one pixel after the other. The loops are compiled once for each rule, not once for each row.
template <class Rule>
class PerPixel : public Rule {
public:
    static constexpr bool kCopies = false;
    using Rule::Rule;

    /// Combines `count` source words with as many destination words. `source` may be `dest` itself.
    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const;
};

/// d := s. The fetch writes into the destination itself; only a 32-bit row of the same size is copied from elsewhere.
struct CopyCombine : PlainRule {
    static constexpr bool kCopies = true;
    using PlainRule::PlainRule;
};

extern template class PerPixel<OverRule>;
extern template class PerPixel<ConstAlphaRule>;
extern template class PerPixel<BehindRule>;
extern template class PerPixel<ModulateRule>;
extern template class PerPixel<ColorKeyRule>;
extern template class PerPixel<CrossFadeRule>;
extern template class PerPixel<MixRule>;

}  // namespace lacquer
