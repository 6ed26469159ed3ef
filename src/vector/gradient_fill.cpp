// Gradient rectangles, drawn by the companion in a state of their own.

#include "vector/gradient_fill.h"

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

void DrawRectangleOf(Canvas &canvas, const RECT &rect) {
    const VectorDraw draw(canvas);
    if (!draw.Companion()) return;
    velCanvasDrawRectangle(draw.Companion(), static_cast<float>(rect.left), static_cast<float>(rect.top),
                           static_cast<float>(WidthOf(rect)), static_cast<float>(HeightOf(rect)));
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
        DrawRectangleOf(canvas, rect);
    }
    velGradientDestroy(gradient);
    velCanvasRestore(companion);
}

}  // namespace lacquer
