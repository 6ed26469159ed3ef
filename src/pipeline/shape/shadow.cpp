// The base tier's forms.

#include "pipeline/shape/shadow.h"

namespace lacquer {

void AddLines(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from, int to) {
    for (int i = 0; i < count; ++i) {
        const int32_t weight = weights[i];
        for (int x = from; x < to; ++x) sums[x] += weight * lines[i * kLinePixels + x];
    }
}

void CoverShares(const int32_t *shares, int count, bool ofRest, BYTE *out) {
    for (int i = 0; i < count; ++i) out[i] = CoverOfShare(ofRest ? kFullShadow - shares[i] : shares[i], 255);
}

}  // namespace lacquer
