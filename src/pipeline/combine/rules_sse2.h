// The combine rules as the faster tiers compute them: on one word, for the end of a run, and on four at once. The
// formulas are those of combine.h, except that the sums of over, constant alpha and behind stop at 255 per channel.
#pragma once

#include "pipeline/combine/rules.h"
#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer {

/// The channels of the two words added, each up to 255.
constexpr uint32_t AddSaturating(uint32_t a, uint32_t b) {
    const auto channel = [=](int shift) {
        const uint32_t sum = (a >> shift & 0xFF) + (b >> shift & 0xFF);
        return (sum > 255 ? 255 : sum) << shift;
    };
    return channel(0) | channel(8) | channel(16) | channel(24);
}

struct VectorOver : PlainRule {
    using PlainRule::PlainRule;
    uint32_t Apply(uint32_t s, uint32_t d) const { return AddSaturating(s, Scale(d, 256 - Alpha(s))); }
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const { return _mm_adds_epu8(s, ScaleFour(d, InverseAlpha(s))); }

    /// Eight words share the work on their alphas.
    EightWords Apply(EightWords s, EightWords d) const {
        const __m128i alphas = _mm_packs_epi32(_mm_srli_epi32(s.first, 24), _mm_srli_epi32(s.second, 24));
        const __m128i factors = _mm_sub_epi16(EachLane(256), alphas);
        return {_mm_adds_epu8(s.first, ScaleFour(d.first, _mm_unpacklo_epi16(factors, factors))),
                _mm_adds_epu8(s.second, ScaleFour(d.second, _mm_unpackhi_epi16(factors, factors)))};
    }
#endif
};

class VectorConstAlpha {
public:
    static constexpr bool kHasParameter = true;
    explicit VectorConstAlpha(uint32_t alpha) : factor_((alpha & 0xFF) + 1) {}
    uint32_t Apply(uint32_t s, uint32_t d) const { return VectorOver(0).Apply(Scale(s, factor_), d); }
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const { return VectorOver(0).Apply(ScaleFour(s, EachLane(factor_)), d); }
    EightWords Apply(EightWords s, EightWords d) const {
        const __m128i factors = EachLane(factor_);
        return VectorOver(0).Apply(EightWords{ScaleFour(s.first, factors), ScaleFour(s.second, factors)}, d);
    }
#endif

private:
    uint32_t factor_;
};

struct VectorBehind : PlainRule {
    using PlainRule::PlainRule;
    uint32_t Apply(uint32_t s, uint32_t d) const { return AddSaturating(d, Scale(s, 256 - Alpha(d))); }
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const { return _mm_adds_epu8(d, ScaleFour(s, InverseAlpha(d))); }
#endif
};

struct VectorModulate : ModulateRule {
    using ModulateRule::Apply;
    using ModulateRule::ModulateRule;
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const { return MultiplyFour(d, s); }
#endif
};

class VectorColorKey : public ColorKeyRule {
public:
    using ColorKeyRule::Apply;
    explicit VectorColorKey(uint32_t key) : ColorKeyRule(key), key_(key) {}
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const {
        const __m128i isKey = _mm_cmpeq_epi32(s, EachWord(key_));
        return _mm_or_si128(_mm_and_si128(isKey, d), _mm_andnot_si128(isKey, s));
    }
#endif

private:
    uint32_t key_;
};

class VectorCrossFade : public CrossFadeRule {
public:
    using CrossFadeRule::Apply;
    explicit VectorCrossFade(uint32_t alpha) : CrossFadeRule(alpha), alpha_(alpha) {}
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const {
        const __m128i colours = _mm_andnot_si128(EachWord(kOpaque), ScaleFour(s, EachLane(alpha_ + 1)));
        return _mm_add_epi8(ScaleFour(d, EachLane(256 - alpha_)), _mm_or_si128(colours, EachWord(alpha_ << 24)));
    }
#endif

private:
    uint32_t alpha_;
};

class VectorMix : public MixRule {
public:
    using MixRule::Apply;
    explicit VectorMix(uint32_t weight) : MixRule(weight), weight_(weight) {}
#ifdef LACQUER_SSE2
    __m128i Apply(__m128i s, __m128i d) const {
        const __m128i take = EachLane(weight_ + 1), keep = EachLane(255 - weight_);
        const auto sum = [&](__m128i x, __m128i y) {
            return _mm_add_epi16(_mm_mullo_epi16(x, take), _mm_mullo_epi16(y, keep));
        };
        return JoinUpperBytes(sum(LowerBytes(s), LowerBytes(d)), sum(UpperBytes(s), UpperBytes(d)));
    }
#endif

private:
    uint32_t weight_;
};

/// A rule applied to four pixels at a time, without a branch between them.
template <class Rule>
class PerVector : public Rule {
public:
    static constexpr bool kCopies = false;
    using Rule::Rule;

    /// As PerPixel::Run.
    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const;

    /// The same, without a call: for the many short rows of a small draw.
    void RunInline(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        const Rule rule = *this;
        ptrdiff_t i = 0;
        const ptrdiff_t bytes = count * kPixelBytes;
#ifdef LACQUER_SSE2
        constexpr ptrdiff_t kStep = kVectorPixels * kPixelBytes;
        const auto applyToEight = [&rule](EightWords s, EightWords d) -> EightWords {
            if constexpr (requires { rule.Apply(s, d); })
                return rule.Apply(s, d);
            else
                return {rule.Apply(s.first, d.first), rule.Apply(s.second, d.second)};
        };
        for (; i + 2 * kStep <= bytes; i += 2 * kStep) {
            const EightWords words = applyToEight({LoadFour(source + i), LoadFour(source + i + kStep)},
                                                  {LoadFour(dest + i), LoadFour(dest + i + kStep)});
            StoreFour(dest + i, words.first);
            StoreFour(dest + i + kStep, words.second);
        }
        for (; i + kStep <= bytes; i += kStep) {
            StoreFour(dest + i, rule.Apply(LoadFour(source + i), LoadFour(dest + i)));
        }
        if (bytes & kStep / 2) {
            StoreTwo(dest + i, rule.Apply(LoadTwo(source + i), LoadTwo(dest + i)));
            i += kStep / 2;
        }
        if (bytes & kPixelBytes) StoreOne(dest + i, rule.Apply(LoadOne(source + i), LoadOne(dest + i)));
#else
        for (; i < bytes; i += kPixelBytes) {
            StorePixel(dest + i, rule.Apply(LoadPixel(source + i), LoadPixel(dest + i)));
        }
#endif
    }
};

extern template class PerVector<VectorOver>;
extern template class PerVector<VectorConstAlpha>;
extern template class PerVector<VectorBehind>;
extern template class PerVector<VectorModulate>;
extern template class PerVector<VectorColorKey>;
extern template class PerVector<VectorCrossFade>;
extern template class PerVector<VectorMix>;

}  // namespace lacquer
