// The exported fills.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "draw/fill.h"
#include "pipeline/pixel/pixel.h"
#include "vector/gradient_fill.h"

using namespace lacquer;

int FillSolidRect(HGCANVAS canvas, DWORD colour, const RECT *rect) {
    return FillSolidRectEx(canvas, colour, rect, kFillOver);
}

int FillSolidRectEx(HGCANVAS canvas, DWORD colour, const RECT *rect, DWORD modeWord) {
    return FillPreMulColorRectEx(canvas, Premultiplied(colour), rect, modeWord);
}

int FillPreMulColorRectEx(HGCANVAS canvas, DWORD colour, const RECT *rect, DWORD modeWord) {
    // Before the handle test, on purpose: what would change nothing succeeds on any handle.
    if (IsVoidFill(colour, modeWord)) return 1;
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    FillRectangle(*found, *rect, colour, modeWord);
    return 1;
}

int FillGradualRect(HGCANVAS canvas, DWORD from, DWORD to, const RECT *rect, int direction) {
    const DWORD first = Premultiplied(from);
    if (first == Premultiplied(to)) return FillPreMulColorRectEx(canvas, first, rect, kFillOver);
    Canvas *found = Find(canvas);
    if (!found || !rect) return 0;
    const auto along = static_cast<GradientDirection>(direction);
    if (along == GradientDirection::TopToBottom || along == GradientDirection::LeftToRight) {
        FillWithGradient(*found, *rect, from, to, along);
    } else {
        FillRectangle(*found, *rect, first, kFillOver);
    }
    return 1;
}
