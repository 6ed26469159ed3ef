// Rectangles of one colour.
#pragma once

#include "core/canvas.h"
#include "core/locked_pieces.h"

namespace lacquer {

/// Mode word of a fill that draws its colour over the canvas.
constexpr DWORD kFillOver = DWORD{LACQUER_DRAW_OVER} << 24;

/// Whether a fill with a premultiplied colour changes nothing by definition, on whatever canvas: a transparent colour
/// drawn over or keyed (modes 1 and 2), white that multiplies or is OR-ed (modes 3 and 4).
bool IsVoidFill(DWORD colour, DWORD modeWord);

/// Fills the visible part of a logical rectangle with a premultiplied colour; the mode word's top byte is the fill's
/// rule.
void FillRectangle(Canvas &canvas, const RECT &rect, DWORD colour, DWORD modeWord);

/// As FillRectangle, for one piece of a draw of several.
void FillPiece(LockedPieces &target, const RECT &rect, DWORD colour, DWORD modeWord);

}  // namespace lacquer
