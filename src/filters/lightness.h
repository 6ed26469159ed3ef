// Colours made lighter or darker by a factor.
#pragma once

#include <cstdint>

namespace lacquer {

/// A straight colour with its lightness multiplied by `factor`, which is a number and counts as 0 to 255; the product
/// is truncated and stops at 255. Exactly 1 leaves the colour alone, which the way through hue and saturation would
/// not.
uint32_t WithLightness(uint32_t argb, float factor);

}  // namespace lacquer
