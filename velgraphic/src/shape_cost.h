// What it takes to draw the shapes of a Lottie animation, from above, without drawing them.
#pragma once

#include <algorithm>

#include "lottie_reader.h"

namespace lacquer::vel {

/// Beyond these an animation is refused.
inline constexpr double kMaxShapes = 100'000, kMaxReach = 1e9;

/// What shapes come to, at most: how many there are, the outline that a stroke or fill behind them all gets, and how
/// far from the origin they reach with their strokes.
struct Cost {
    double shapes = 0, points = 0, length = 0, reach = 0;

    void Add(const Cost &other) {
        *this = {shapes + other.shapes, points + other.points, length + other.length, std::max(reach, other.reach)};
    }
};

/// Adds the cost of a list of shapes, which begins at 0. Result: false when the list is malformed or beyond reason.
bool AddShapes(const LottieReader &reader, const JsonNode &list, Cost &cost);

}  // namespace lacquer::vel
