// Colours as red, green, blue and as hue, saturation, lightness, both in bytes.
#pragma once

#include <cstdint>

namespace lacquer {

/// Converts 0xAARRGGBB to 0xAAHHSSLL. Saturation and lightness are 0..255; hue is 0..255 for the whole circle, 0 red,
/// 85 green, 170 blue. Greys have saturation 0 and hue 170. Alpha stays.
uint32_t AhslOf(uint32_t argb);

/// Converts 0xAAHHSSLL to 0xAARRGGBB. Not the exact inverse of AhslOf: both round.
uint32_t ArgbOf(uint32_t ahsl);

}  // namespace lacquer
