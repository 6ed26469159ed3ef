// Both directions of the conversion: integers forth, single precision back.

#include "filters/colour_models.h"

#include <algorithm>

#include "filters/single_precision.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

constexpr uint32_t kGreen = 85, kBlue = 170;  ///< places on the circle of hues; greys are given that of blue
constexpr uint32_t kSixth = 42;               ///< of the circle, cut from 42.5

/// t: degrees away from the channel's own third of the circle, moved by a third.
float ChannelAt(float t, float p, float q) {
    if (t > 360.0f) {
        t = t - 360.0f;
    } else if (t < 0.0f) {
        t = t + 360.0f;
    }
    if (t < 60.0f) return ((q - p) * t) / 60.0f + p;
    if (t < 180.0f) return q;
    if (t < 240.0f) return ((240.0f - t) * (q - p)) / 60.0f + p;
    return p;
}

uint32_t ByteOf(float value) { return static_cast<uint32_t>(static_cast<int>(value * 255.0f)) & 0xFF; }

}  // namespace

uint32_t AhslOf(uint32_t argb) {
    const uint32_t blue = argb & 0xFF, green = argb >> 8 & 0xFF, red = argb >> 16 & 0xFF;
    const uint32_t largest = std::max({red, green, blue}), smallest = std::min({red, green, blue});
    const uint32_t sum = largest + smallest, range = largest - smallest;
    const uint32_t lightness = (sum + 1) / 2;
    uint32_t hue = kBlue, saturation = 0;
    if (range != 0) {
        const uint32_t widest = lightness >= 128 ? 510 - sum : sum;
        saturation = (range * 255 + widest / 2) / widest;
        const auto distance = [=](uint32_t channel) { return ((largest - channel) * kSixth + range / 2) / range; };
        if (largest == red) {
            hue = distance(blue) - distance(green);
        } else if (largest == green) {
            hue = distance(red) - distance(blue) + kGreen;
        } else {
            hue = distance(green) - distance(red) + kBlue;
        }
    }
    return (argb & kOpaque) | (hue & 0xFF) << 16 | saturation << 8 | lightness;
}

uint32_t ArgbOf(uint32_t ahsl) {
    const uint32_t alpha = ahsl & kOpaque;
    const float s = static_cast<float>(ahsl >> 8 & 0xFF) / 255.0f, l = static_cast<float>(ahsl & 0xFF) / 255.0f;
    if (s == 0.0f) return alpha | ByteOf(l) * 0x010101;
    const float q = l <= 0.5f ? (s + 1.0f) * l : (l + s) - l * s;
    const float p = (l + l) - q;
    const float h = static_cast<float>((ahsl >> 16 & 0xFF) * 360) / 255.0f;
    const uint32_t red = ByteOf(ChannelAt(h + 120.0f, p, q));
    const uint32_t green = ByteOf(ChannelAt(h, p, q));
    const uint32_t blue = ByteOf(ChannelAt(h - 120.0f, p, q));
    return alpha | red << 16 | green << 8 | blue;
}

}  // namespace lacquer
