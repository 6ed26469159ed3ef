// The shadows' sums in the faster tiers: sums of products of a register of pixels at a time, two lines in a step.
#pragma once

#include "pipeline/register/registers.h"
#include "pipeline/shape/shadow.h"

namespace lacquer::LACQUER_TIER {

/// As the base tier's. Sums beside `from`..`to`, in the same register, are changed too: nobody asks for them.
inline void AddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to) {
    constexpr int kLanes = kBytesOf<Widest> / 2, kWords = kLanes / 2;
    for (int x = from & -kLanes; x < to; x += kLanes) {
        Widest low = Load<Widest>(sums + x), high = Load<Widest>(sums + x + kWords);
        for (ptrdiff_t i = 0; i < count; i += 2) {
            const bool isPair = i + 1 < count;
            const auto line = [&](ptrdiff_t index) { return Reorder(Load<Widest>(lines + index * kLinePixels + x)); };
            const Widest first = line(i), second = isPair ? line(i + 1) : EachWord<Widest>(0);
            const int second16 = isPair ? weights[i + 1] : 0;
            const Widest both =
                EachWord<Widest>(static_cast<uint32_t>(second16) << 16 | static_cast<uint16_t>(weights[i]));
            low = AddWords(low, AddProducts(LanesLow(first, second), both));
            high = AddWords(high, AddProducts(LanesHigh(first, second), both));
        }
        Store(sums + x, low);
        Store(sums + x + kWords, high);
    }
}

inline void CoverShares(const int32_t *shares, int count, bool ofRest, BYTE *out) {
    // What a share leaves of the whole is the whole and the share with its bits turned over and one. A share in 2^-16
    // is moved down by half, so that the pack bounds it to 16 bits; 1 and the number before it have one cover.
    const Widest turn = EachWord<Widest>(ofRest ? ~uint32_t{0} : 0);
    const Widest start =
        EachWord<Widest>(static_cast<uint32_t>((1 << 11) - (1 << 27) + (ofRest ? kFullShadow + 1 : 0)));
    const Widest half = EachLane<Widest>(0x8000), most = EachLane<Widest>(255);
    const auto bounded = [&](const int32_t *words) {
        return ShiftSignedWordsDown<12>(AddWords(Xor(Load<Widest>(words), turn), start));
    };
    constexpr int kLanes = kBytesOf<Widest> / 2;
    int i = 0;
    for (; i + kLanes <= count; i += kLanes) {
        const Widest share = Xor(Reorder(PackWords(bounded(shares + i), bounded(shares + i + kLanes / 2))), half);
        const Widest carry = ShiftLanesDown<15>(MultiplyLanes(share, most));
        const Widest covers = AddLanes(MultiplyLanesHigh(share, most), carry);
        StoreHalf(out + i, Reorder(PackLanes(covers, covers)));
    }
    lacquer::CoverShares(shares + i, count - i, ofRest, out + i);
}

}  // namespace lacquer::LACQUER_TIER
