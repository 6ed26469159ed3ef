// Plain divisions and comparisons; nothing here is shared with the kernels.

#include "pipeline/rules.h"

#include <algorithm>

namespace lacquer {
namespace {

/// Channels whose sums may exceed 255.
template <class Value>
uint32_t Sums(Overflow overflow, const Value &value) {
    if (overflow == Overflow::Saturates) return WordOf([&](int i) { return std::min<uint32_t>(value(i), 255); });
    uint32_t word = 0;
    for (int i = 0; i < 4; ++i) word += value(i) << 8 * i;
    return word;
}

uint32_t Over(uint32_t s, uint32_t d, Overflow overflow) {
    return Sums(overflow, [&](int i) { return ChannelOf(s, i) + ChannelOf(d, i) * (256 - (s >> 24)) / 256; });
}

}  // namespace

uint32_t ModelCombine(CombineKind rule, uint32_t s, uint32_t d, uint32_t parameter, Overflow overflow) {
    switch (rule) {
        case CombineKind::Copy: return s;
        case CombineKind::Over: return Over(s, d, overflow);
        case CombineKind::Behind: return Over(d, s, overflow);
        case CombineKind::ConstAlpha:
            return Over(WordOf([&](int i) { return ChannelOf(s, i) * (parameter + 1) / 256; }), d, overflow);
        case CombineKind::Modulate: return WordOf([&](int i) { return (ChannelOf(s, i) + 1) * ChannelOf(d, i) / 256; });
        case CombineKind::ColorKey: return s == parameter ? d : s;
        case CombineKind::Or: return s | d;
        case CombineKind::GreyTint: {
            const uint32_t dA = d >> 24, sA = s >> 24;
            const uint32_t grey = (ChannelOf(d, 0) + 2 * ChannelOf(d, 1) + ChannelOf(d, 2)) / 4 * sA / 256;
            return WordOf([&](int i) { return i == 3 ? dA : ChannelOf(d, i) * (256 - dA) / 256 + grey; });
        }
        case CombineKind::Opaque: return s | 0xFF000000;
        case CombineKind::CrossFade:
            // The source's alpha is never read: the result is that of an opaque source.
            return WordOf([&](int i) {
                return ChannelOf(d, i) * (256 - parameter) / 256 +
                       (i == 3 ? parameter : ChannelOf(s, i) * (parameter + 1) / 256);
            });
        case CombineKind::Mix:
            if (parameter == 0 || parameter == 255) return parameter ? s : d;
            return WordOf(
                [&](int i) { return (ChannelOf(s, i) * (parameter + 1) + ChannelOf(d, i) * (255 - parameter)) / 256; });
        case CombineKind::AddWeighted:
            if (parameter == 0 || parameter == 255) return parameter ? s : d;
            return WordOf([&](int i) { return ChannelOf(d, i) * (255 - parameter) / 256 + ChannelOf(s, i); });
    }
    return 0;
}

}  // namespace lacquer
