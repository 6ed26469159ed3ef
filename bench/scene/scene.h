// The scenes: windows of the examples' skin, without their text and vector parts, as lists of steps.
#pragma once

#include <vector>

#include "scene_painter.h"

namespace lacquer::bench {

enum class Verb { kFill, kBlend, kPicture, kStretch, kNineGrid, kTile };

/// One call of a painter's verb.
struct Step {
    Verb verb;
    Piece piece;  // not of fills
    Place place;
    std::uint32_t colour;  // of fills
    int scale;             // of nine-grids
};

using Steps = std::vector<Step>;

void Paint(ScenePainter &painter, const Steps &steps);

struct Scene {
    const char *name;
    int width, height;
    Steps steps;
};

/// A window with its shadow on nothing, an open popup, and a dim over everything: at 640 x 460, at twice that size with
/// more in it, and at twice that size with everything twice as large.
Scene SmallWindow();
Scene LargeWindow();
Scene ScaledWindow();

/// Two windows, a splash and a popup over a wallpaper.
Scene Desktop();

}  // namespace lacquer::bench
