// The combine rules: how a source word s and a destination word d give the new destination word. Each formula stands
// here once, for the base tier; docs/sampling-and-blending.md explains them. Those of the rows come first, then those
// of fills, conversions and mixes.
//
// Notation: dA, sA are alphas, scale(w, f) is channel × f >> 8 for each channel. Sums of words are sums of 32 bits:
// with premultiplied pixels no channel exceeds 255; with others it carries into its neighbour.
#pragma once

#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// Rules derive from one of these, so that all are made the same way, from a word that not all need.
struct PlainRule {
    static constexpr bool kHasParameter = false;
    static constexpr bool kCopies = false;  ///< the new word is s, whatever d is
    explicit PlainRule(uint32_t = 0) {}
};
struct ParameterRule {
    static constexpr bool kHasParameter = true;
    static constexpr bool kCopies = false;
};

/// The parameter is a weight w, of which 0 leaves d and 255 copies s; the rule is asked for those between.
struct WeightRule : ParameterRule {};

/// d := s
struct CopyRule : PlainRule {
    static constexpr bool kCopies = true;
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t /*d*/) const { return s; }
};

/// d := s + scale(d, 256 − sA)
struct OverRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t d) const { return s + Scale(d, 256 - Alpha(s)); }
};

/// s' := scale(s, A + 1); d := s' + scale(d, 256 − s'A)
class ConstAlphaRule : public ParameterRule {
public:
    explicit ConstAlphaRule(uint32_t alpha) : factor_((alpha & 0xFF) + 1) {}
    uint32_t operator()(uint32_t s, uint32_t d) const { return OverRule()(Scale(s, factor_), d); }

private:
    uint32_t factor_;
};

/// d := d + scale(s, 256 − dA)
struct BehindRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t d) const { return OverRule()(d, s); }
};

/// Each channel: d := (s + 1) × d >> 8
struct ModulateRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t d) const { return Multiply(d, s); }
};

/// d := s, where s is not the key
class ColorKeyRule : public ParameterRule {
public:
    explicit ColorKeyRule(uint32_t key) : key_(key) {}
    uint32_t operator()(uint32_t s, uint32_t d) const { return s == key_ ? d : s; }

private:
    uint32_t key_;
};

/// d := s | d
struct OrRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t d) const { return s | d; }
};

/// g := ((dB + 2 dG + dR) >> 2) × sA >> 8; colours: d := (d × (256 − dA) >> 8) + g, modulo 256; dA stays.
struct GreyTintRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t d) const {
        const uint32_t tinted = AddModulo(Scale(d, 256 - Alpha(d)), Grey(GreyOf(d) * Alpha(s) >> 8));
        return WithAlphaOf(d, tinted);
    }
};

/// d := s | 0xFF000000
struct OpaqueRule : PlainRule {
    using PlainRule::PlainRule;
    uint32_t operator()(uint32_t s, uint32_t /*d*/) const { return s | kOpaque; }
};

/// Colours: d := (d × (256 − a) >> 8) + (s × (a + 1) >> 8); dA := (dA × (256 − a) >> 8) + a. No channel exceeds 255.
class CrossFadeRule : public ParameterRule {
public:
    explicit CrossFadeRule(uint32_t alpha) : alpha_(alpha) {}
    uint32_t operator()(uint32_t s, uint32_t d) const {
        return Scale(d, 256 - alpha_) + (Scale(s & kColours, alpha_ + 1) | alpha_ << 24);
    }

private:
    uint32_t alpha_;
};

/// Each channel: d := (s × (w + 1) + d × (255 − w)) >> 8
class MixRule : public WeightRule {
public:
    explicit MixRule(uint32_t weight) : take_(weight + 1), keep_(255 - weight) {}
    uint32_t operator()(uint32_t s, uint32_t d) const {
        return JoinUpper(BlueRed(s) * take_ + BlueRed(d) * keep_, GreenAlpha(s) * take_ + GreenAlpha(d) * keep_);
    }

private:
    uint32_t take_, keep_;
};

/// Each channel: d := (d × (255 − w) >> 8) + s, modulo 256. The source carries its own weight.
class AddWeightedRule : public WeightRule {
public:
    explicit AddWeightedRule(uint32_t weight) : keep_(255 - weight) {}
    uint32_t operator()(uint32_t s, uint32_t d) const { return AddModulo(Scale(d, keep_), s); }

private:
    uint32_t keep_;
};

/// The rules by the names of the lists of rows and single slots.
struct BaseRules {
    using Copy = CopyRule;
    using Over = OverRule;
    using Behind = BehindRule;
    using Modulate = ModulateRule;
    using ColorKey = ColorKeyRule;
    using ConstAlpha = ConstAlphaRule;
    using Or = OrRule;
    using GreyTint = GreyTintRule;
    using Opaque = OpaqueRule;
    using CrossFade = CrossFadeRule;
    using Mix = MixRule;
    using AddWeighted = AddWeightedRule;
};

}  // namespace lacquer
