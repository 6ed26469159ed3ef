// The combine rules of the faster tiers, on a register of words at once or on two. The formulas are those of rules.h,
// except that the sums of over, constant alpha and behind stop at 255 per channel.
#pragma once

#include "pipeline/combine/rules.h"
#include "pipeline/pixel/pixel_simd.h"

namespace lacquer::LACQUER_TIER {

struct CopyRule : PlainRule {
    static constexpr bool kCopies = true;
    using PlainRule::PlainRule;
    template <Register V>
    V operator()(V s, V /*d*/) const {
        return s;
    }
};

struct OverRule : PlainRule {
    using PlainRule::PlainRule;
    template <Register V>
    V operator()(V s, V d) const {
        return AddBytesUpTo255(s, Scale(d, InverseAlpha(s)));
    }
    template <Register V>
    Pair<V> operator()(const Pair<V> &s, const Pair<V> &d) const requires kPairsShareAlphas {
        const Pair<V> kept = Scale(d, SubtractLanes(EachLane<V>(256), AlphasOf(s)));
        return {AddBytesUpTo255(s.first, kept.first), AddBytesUpTo255(s.second, kept.second)};
    }
};

class ConstAlphaRule : public ParameterRule {
public:
    explicit ConstAlphaRule(uint32_t alpha) : factor_((alpha & 0xFF) + 1) {}
    template <Register V>
    V operator()(V s, V d) const {
        return OverRule()(Scale(s, EachLane<V>(factor_)), d);
    }
    template <Register V>
    Pair<V> operator()(const Pair<V> &s, const Pair<V> &d) const requires kPairsShareAlphas {
        const V factors = EachLane<V>(factor_);
        return OverRule()(Pair<V>{Scale(s.first, factors), Scale(s.second, factors)}, d);
    }

private:
    uint32_t factor_;
};

struct BehindRule : PlainRule {
    using PlainRule::PlainRule;
    template <Register V>
    V operator()(V s, V d) const {
        return OverRule()(d, s);
    }
};

struct ModulateRule : PlainRule {
    using PlainRule::PlainRule;
    template <Register V>
    V operator()(V s, V d) const {
        return Multiply(d, s);
    }
};

class ColorKeyRule : public ParameterRule {
public:
    explicit ColorKeyRule(uint32_t key) : key_(key) {}
    template <Register V>
    V operator()(V s, V d) const {
        const V isKey = AreWordsEqual(s, EachWord<V>(key_));
        return Or(And(isKey, d), AndNot(isKey, s));
    }

private:
    uint32_t key_;
};

struct OrRule : PlainRule {
    using PlainRule::PlainRule;
    template <Register V>
    V operator()(V s, V d) const {
        return Or(s, d);
    }
};

class CrossFadeRule : public ParameterRule {
public:
    explicit CrossFadeRule(uint32_t alpha) : alpha_(alpha) {}
    template <Register V>
    V operator()(V s, V d) const {
        const V taken = WithAlphaOf(EachWord<V>(alpha_ << 24), Scale(s, EachLane<V>(alpha_ + 1)));
        return AddBytes(Scale(d, EachLane<V>(256 - alpha_)), taken);
    }

private:
    uint32_t alpha_;
};

class MixRule : public WeightRule {
public:
    explicit MixRule(uint32_t weight) : weight_(weight) {}
    template <Register V>
    V operator()(V s, V d) const {
        const V take = EachLane<V>(weight_ + 1), keep = EachLane<V>(255 - weight_);
        const auto sum = [&](V x, V y) { return AddLanes(MultiplyLanes(x, take), MultiplyLanes(y, keep)); };
        return JoinUpperBytes(sum(LowerBytes(s), LowerBytes(d)), sum(UpperBytes(s), UpperBytes(d)));
    }

private:
    uint32_t weight_;
};

class AddWeightedRule : public WeightRule {
public:
    explicit AddWeightedRule(uint32_t weight) : keep_(255 - weight) {}
    template <Register V>
    V operator()(V s, V d) const {
        return AddBytes(Scale(d, EachLane<V>(keep_)), s);
    }

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

}  // namespace lacquer::LACQUER_TIER
