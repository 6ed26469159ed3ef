// The shift of one colour, and of the pixels of a surface.

#include "filters/colorize.h"

#include "core/geometry.h"
#include "filters/apply.h"
#include "filters/colour_models.h"
#include "filters/map_pixels.h"
#include "filters/single_precision.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

bool IsBetween(double low, float value, double high) { return low < value && value < high; }

/// How much a channel moves, modulo 256. A product beyond 32 bits, and not a number, counts as 0: the low byte of
/// INT32_MIN.
uint32_t StepOf(float product, double rounding) {
    return static_cast<uint32_t>(TruncateToLong(static_cast<double>(product) + rounding));
}

/// Moves a channel towards 255 for deltas from 0, and else towards 0; `least` stands for the way down to its end.
uint32_t ShiftedChannel(uint32_t channel, float delta, uint32_t least) {
    if (delta >= 0) return channel + StepOf(static_cast<float>(255 - channel) * delta, 0.5);
    if (IsBetween(-1.001, delta, -0.999)) return least;
    return channel + StepOf(static_cast<float>(channel) * delta, -0.5);
}

}  // namespace

bool ColourShift::IsNothing() const {
    const auto isSmall = [](float delta) { return IsBetween(-0.000001, delta, 0.000001); };
    return isSmall(hue) && isSmall(saturation) && isSmall(lightness);
}

uint32_t ShiftedAhsl(uint32_t ahsl, const ColourShift &shift) {
    const uint32_t h = (ahsl >> 16 & 0xFF) + StepOf(shift.hue * 255.0f * 0.5f, 0.5);
    const uint32_t s = ShiftedChannel(ahsl >> 8 & 0xFF, shift.saturation, 1) & 0xFF;
    const uint32_t l = ShiftedChannel(ahsl & 0xFF, shift.lightness, 0);
    return (ahsl & kOpaque) | (h & 0xFF) << 16 | (s == 0 ? 1 : s) << 8 | (l & 0xFF);
}

uint32_t ShiftedArgb(uint32_t argb, const ColourShift &shift) { return ArgbOf(ShiftedAhsl(AhslOf(argb), shift)); }

bool Colorize(PixelSurface &surface, const ColourShift &shift) {
    return ApplyTo(surface, nullptr, [&](const SurfaceView &view) {
        MapColours(view, [&](uint32_t colour) { return ShiftedArgb(colour, shift); });
    });
}

}  // namespace lacquer
