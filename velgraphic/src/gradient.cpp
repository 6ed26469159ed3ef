// Gradients as patterns of the renderer, and their exports.

#include "gradient.h"

#include <new>

#include "colour.h"

using lacquer::vel::AreFinite;
using lacquer::vel::Colour;

bool velGradient::IsInRange(Point offset) const {
    return lacquer::vel::InRange(first_ + offset) && lacquer::vel::InRange(second_ + offset) &&
           radius_ <= lacquer::vel::kMaxCoordinate;
}

cairo_pattern_t *velGradient::Pattern(Point offset, double opacity) const {
    const Point first = first_ + offset, second = second_ + offset;
    cairo_pattern_t *pattern = radius_ > 0 ? cairo_pattern_create_radial(first.x, first.y, 0, first.x, first.y, radius_)
                                           : cairo_pattern_create_linear(first.x, first.y, second.x, second.y);
    for (const Stop &stop : stops_) {
        const Colour colour = lacquer::vel::ColourOf(stop.colour, opacity);
        cairo_pattern_add_color_stop_rgba(pattern, static_cast<double>(stop.offset), colour.red, colour.green,
                                          colour.blue, colour.alpha);
    }
    return pattern;
}

velGradient *velGradientCreateLinear(float x0, float y0, float x1, float y1) {
    if (!AreFinite(x0, y0, x1, y1)) return nullptr;
    return new (std::nothrow) velGradient({x0, y0}, {x1, y1}, 0);
}

velGradient *velGradientCreateRadial(float centreX, float centreY, float radius) {
    if (!AreFinite(centreX, centreY, radius) || radius <= 0) return nullptr;
    return new (std::nothrow) velGradient({centreX, centreY}, {centreX, centreY}, radius);
}

int velGradientAddColorStop(velGradient *gradient, float offset, DWORD colour) {
    return gradient && offset >= 0 && offset <= 1 && gradient->AddStop(offset, colour);
}

int velGradientDestroy(velGradient *gradient) {
    if (!gradient) return 0;
    gradient->Release();
    return 1;
}
