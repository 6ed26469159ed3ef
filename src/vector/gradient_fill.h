// Rectangles filled with a gradient of two colours.
#pragma once

#include "core/canvas.h"

namespace lacquer {

enum class GradientDirection { TopToBottom = 1, LeftToRight = 2 };

/// Draws a logical rectangle with a gradient between two straight colours 0xAARRGGBB, by the canvas's vector blend
/// mode, blend value and smoothing. The vector state is afterwards what it was. Nothing is drawn outside of the clip,
/// and when memory is short.
void FillWithGradient(Canvas &canvas, const RECT &rect, DWORD from, DWORD to, GradientDirection direction);

}  // namespace lacquer
