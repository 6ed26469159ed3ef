// The view of a figure.

#include "clip_geometry.h"

namespace lacquer::vel {

View::View(const Clip &visible, Point translation, double reach) {
    // Lines between points given as floats are found exactly as long as the points stay as they are; a translation so
    // large that it would take digits from the borders is applied to the points.
    constexpr double kLarge = 0x1p33;
    const bool isLarge = std::fabs(translation.x) > kLarge || std::fabs(translation.y) > kLarge;
    (isLarge ? before : after) = translation;
    const auto bounds = [&](double margin) {
        return Bounds{Point{visible.left - margin, visible.top - margin} - after,
                      Point{visible.right + margin, visible.bottom + margin} - after};
    };
    const double margin = reach + 2;  // what the renderer spreads over pixels, and rounds
    seen = bounds(margin);
    // A piece of a curve that is seen has to come to lie in range when the curve is halved often enough.
    range = bounds(std::max(margin + 1000, kSafeCoordinate / 2));
}

}  // namespace lacquer::vel
