// The loops of the faster combine rules, one for each.

#include "pipeline/combine/rules_sse2.h"

namespace lacquer {

template <class Rule>
void PerVector<Rule>::Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
    RunInline(dest, source, count);
}

template class PerVector<VectorOver>;
template class PerVector<VectorConstAlpha>;
template class PerVector<VectorBehind>;
template class PerVector<VectorModulate>;
template class PerVector<VectorColorKey>;
template class PerVector<VectorCrossFade>;
template class PerVector<VectorMix>;

}  // namespace lacquer
