// The loops of the base combine rules, one for each.

#include "pipeline/combine/rules.h"

namespace lacquer {

template <class Rule>
void PerPixel<Rule>::Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
    const Rule rule = *this;
    for (ptrdiff_t i = 0; i < count * kPixelBytes; i += kPixelBytes) {
        StorePixel(dest + i, rule.Apply(LoadPixel(source + i), LoadPixel(dest + i)));
    }
}

template class PerPixel<OverRule>;
template class PerPixel<ConstAlphaRule>;
template class PerPixel<BehindRule>;
template class PerPixel<ModulateRule>;
template class PerPixel<ColorKeyRule>;
template class PerPixel<CrossFadeRule>;
template class PerPixel<MixRule>;

}  // namespace lacquer
