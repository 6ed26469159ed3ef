// Shapes that the companion has no call of its own for: drawn as paths.
#pragma once

#include <velgraphic/velgraphic.h>

#include "platform/platform.h"

namespace lacquer {

/// Draws the closed polygon of `count` points, at least 1. Result: 0, with nothing drawn, when the companion refuses.
int DrawPolygonWith(velCanvas *companion, const POINT *points, int count);

/// Draws the cubic curve with the given start, two control points and end. Result: as above.
int DrawCurveWith(velCanvas *companion, const velPointF (&points)[4]);

}  // namespace lacquer
