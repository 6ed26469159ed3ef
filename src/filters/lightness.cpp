// Lightness by way of hue, saturation and lightness.

#include "filters/lightness.h"

#include <algorithm>

#include "filters/colour_models.h"

namespace lacquer {

uint32_t WithLightness(uint32_t argb, float factor) {
    if (factor == 1.0f) return argb;
    const uint32_t ahsl = AhslOf(argb);
    const float lightness = static_cast<float>(ahsl & 0xFF) * std::clamp(factor, 0.0f, 255.0f);
    return ArgbOf((ahsl & ~0xFFu) | std::min(255u, static_cast<uint32_t>(lightness)));
}

}  // namespace lacquer
