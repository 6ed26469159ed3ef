// Rectangles of one colour.
#pragma once

#include "core/canvas.h"
#include "core/locked_pieces.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {

/// Mode word of a fill that draws its colour over the canvas.
constexpr DWORD kFillOver = ModeWord(LACQUER_DRAW_OVER);

/// Fills the visible part of a logical rectangle with a premultiplied colour; the mode word's top byte is the fill's
/// rule.
void FillRectangle(Canvas &canvas, const RECT &rect, DWORD colour, DWORD modeWord);

/// As FillRectangle, for one piece of a draw of several.
void FillPiece(LockedPieces &target, const RECT &rect, DWORD colour, DWORD modeWord);

}  // namespace lacquer
