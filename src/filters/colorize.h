// Colorizing: shifting hue, saturation and lightness by fractions.
#pragma once

#include <cstdint>

#include "core/pixel_surface.h"

namespace lacquer {

/// Hue: 1 is half the circle. Saturation and lightness: -1 to 1, fractions of the way to the least or the greatest
/// value; what lies beyond wraps around modulo 256.
struct ColourShift {
    float hue, saturation, lightness;

    /// Whether all three are within 0.000001 of 0, where colorizing leaves every colour as it is.
    bool IsNothing() const;
};

/// Shifts a colour 0xAAHHSSLL. The saturation of the result is never 0.
uint32_t ShiftedAhsl(uint32_t ahsl, const ColourShift &shift);

/// Shifts a colour 0xAARRGGBB, its channels taken as straight.
uint32_t ShiftedArgb(uint32_t argb, const ColourShift &shift);

/// Shifts every pixel of a 24- or 32-bit surface and every palette entry of an 8-bit one; other depths stay as they
/// are. Result: false when the surface can't be locked.
bool Colorize(PixelSurface &surface, const ColourShift &shift);

}  // namespace lacquer
