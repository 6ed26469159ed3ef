// Gradient rectangles, drawn by the companion in a state of their own.

#include "vector/gradient_fill.h"

#include <cmath>

#include "core/geometry.h"
#include "vector/companion.h"

namespace lacquer {
namespace {

velGradient *NewGradient(const RECT &rect, DWORD from, DWORD to, GradientDirection direction) {
    const auto left = static_cast<float>(rect.left), top = static_cast<float>(rect.top);
    velGradient *gradient = direction == GradientDirection::TopToBottom
                                ? velGradientCreateLinear(left, top, left, static_cast<float>(rect.bottom))
                                : velGradientCreateLinear(left, top, static_cast<float>(rect.right), top);
    if (gradient && velGradientAddColorStop(gradient, 0.0f, from) && velGradientAddColorStop(gradient, 1.0f, to)) {
        return gradient;
    }
    velGradientDestroy(gradient);
    return nullptr;
}

/// A float not above, or not below, a coordinate.
float FloatBelow(int64_t coordinate) {
    const auto nearest = static_cast<float>(coordinate);
    return static_cast<double>(nearest) > static_cast<double>(coordinate) ? std::nextafter(nearest, -INFINITY)
                                                                          : nearest;
}
float FloatAbove(int64_t coordinate) { return -FloatBelow(-coordinate); }

/// Draws what is visible of a rectangle. Its edges may need more digits than a float has: the clip has them.
void DrawRectangleOf(Canvas &canvas, const RECT &rect, const RECT &visible) {
    const VectorDraw draw(canvas);
    velCanvas *companion = draw.Companion();
    if (!companion || !velCanvasClipRect(companion, visible.left, visible.top, visible.right, visible.bottom)) return;
    const float left = FloatBelow(rect.left), top = FloatBelow(rect.top);
    velCanvasDrawRectangle(companion, left, top, FloatAbove(rect.right - static_cast<int64_t>(left)),
                           FloatAbove(rect.bottom - static_cast<int64_t>(top)));
}

}  // namespace

void FillWithGradient(Canvas &canvas, const RECT &rect, DWORD from, DWORD to, GradientDirection direction) {
    RECT visible{};
    if (!canvas.FindVisible(rect, &visible)) return;
    velCanvas *companion = CompanionOf(canvas);
    if (!companion || !velCanvasSave(companion)) return;
    velGradient *gradient = NewGradient(rect, from, to, direction);
    if (gradient && velCanvasSetGradient(companion, gradient) &&
        velCanvasSetDrawStyle(companion, VEL_STYLE_GRADIENT_FILL)) {
        DrawRectangleOf(canvas, rect, visible);
    }
    velGradientDestroy(gradient);
    velCanvasRestore(companion);
}

}  // namespace lacquer
