// The combine rules of the faster tiers, on four words at once or on eight. The formulas are those of rules.h, except
// that the sums of over, constant alpha and behind stop at 255 per channel.
#pragma once

#include "pipeline/combine/rules.h"
#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer::sse2 {

struct CopyRule : PlainRule {
    static constexpr bool kCopies = true;
    using PlainRule::PlainRule;
    __m128i operator()(__m128i s, __m128i /*d*/) const { return s; }
};

struct OverRule : PlainRule {
    using PlainRule::PlainRule;
    __m128i operator()(__m128i s, __m128i d) const { return _mm_adds_epu8(s, ScaleFour(d, InverseAlpha(s))); }
    EightWords operator()(const EightWords &s, const EightWords &d) const {
        const EightWords kept = ScaleEight(d, _mm_sub_epi16(EachLane(256), AlphasOf(s)));
        return {_mm_adds_epu8(s.first, kept.first), _mm_adds_epu8(s.second, kept.second)};
    }
};

class ConstAlphaRule : public ParameterRule {
public:
    explicit ConstAlphaRule(uint32_t alpha) : factor_((alpha & 0xFF) + 1) {}
    __m128i operator()(__m128i s, __m128i d) const { return OverRule()(ScaleFour(s, EachLane(factor_)), d); }
    EightWords operator()(const EightWords &s, const EightWords &d) const {
        const __m128i factors = EachLane(factor_);
        return OverRule()(EightWords{ScaleFour(s.first, factors), ScaleFour(s.second, factors)}, d);
    }

private:
    uint32_t factor_;
};

struct BehindRule : PlainRule {
    using PlainRule::PlainRule;
    __m128i operator()(__m128i s, __m128i d) const { return OverRule()(d, s); }
};

struct ModulateRule : PlainRule {
    using PlainRule::PlainRule;
    __m128i operator()(__m128i s, __m128i d) const { return MultiplyFour(d, s); }
};

class ColorKeyRule : public ParameterRule {
public:
    explicit ColorKeyRule(uint32_t key) : key_(key) {}
    __m128i operator()(__m128i s, __m128i d) const {
        const __m128i isKey = _mm_cmpeq_epi32(s, EachWord(key_));
        return _mm_or_si128(_mm_and_si128(isKey, d), _mm_andnot_si128(isKey, s));
    }

private:
    uint32_t key_;
};

struct OrRule : PlainRule {
    using PlainRule::PlainRule;
    __m128i operator()(__m128i s, __m128i d) const { return _mm_or_si128(s, d); }
};

class CrossFadeRule : public ParameterRule {
public:
    explicit CrossFadeRule(uint32_t alpha) : alpha_(alpha) {}
    __m128i operator()(__m128i s, __m128i d) const {
        const __m128i taken = WithAlphaOf(EachWord(alpha_ << 24), ScaleFour(s, EachLane(alpha_ + 1)));
        return _mm_add_epi8(ScaleFour(d, EachLane(256 - alpha_)), taken);
    }

private:
    uint32_t alpha_;
};

class MixRule : public WeightRule {
public:
    explicit MixRule(uint32_t weight) : weight_(weight) {}
    __m128i operator()(__m128i s, __m128i d) const {
        const __m128i take = EachLane(weight_ + 1), keep = EachLane(255 - weight_);
        const auto sum = [&](__m128i x, __m128i y) {
            return _mm_add_epi16(_mm_mullo_epi16(x, take), _mm_mullo_epi16(y, keep));
        };
        return JoinUpperBytes(sum(LowerBytes(s), LowerBytes(d)), sum(UpperBytes(s), UpperBytes(d)));
    }

private:
    uint32_t weight_;
};

class AddWeightedRule : public WeightRule {
public:
    explicit AddWeightedRule(uint32_t weight) : keep_(255 - weight) {}
    __m128i operator()(__m128i s, __m128i d) const { return _mm_add_epi8(ScaleFour(d, EachLane(keep_)), s); }

private:
    uint32_t keep_;
};

/// The rules by the names of the lists of rows and single slots. What is missing here stays the base tier's.
struct Rules {
    using Copy = CopyRule;
    using Over = OverRule;
    using Behind = BehindRule;
    using Modulate = ModulateRule;
    using ColorKey = ColorKeyRule;
    using ConstAlpha = ConstAlphaRule;
    using Or = OrRule;
    using CrossFade = CrossFadeRule;
    using Mix = MixRule;
    using AddWeighted = AddWeightedRule;
};

}  // namespace lacquer::sse2
