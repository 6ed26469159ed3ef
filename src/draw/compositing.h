// Canvas onto canvas, canvas onto a device context, and scrolling.
#pragma once

#include "core/canvas.h"

namespace lacquer {

/// Draws a rectangle of the source into a logical rectangle of the destination, inside its clip. A source whose draw
/// mode is over is drawn by its own alpha; any other is copied, or faded by `alpha` below 255 or onto a destination
/// whose draw mode is over. Faded copies that are stretched and partly clipped ignore `alpha`. Where one canvas has no
/// pixels of its own GDI draws, and ignores `alpha` for opaque sources. Result: 1, or GDI's own.
int BlendCanvases(Canvas &dest, const RECT &destRect, Canvas &source, const RECT &sourceRect, BYTE alpha);

/// Draws a rectangle of the source onto a device context through GDI. Result: GDI's own.
int DrawOnDeviceContext(HDC dc, const RECT &destRect, Canvas &source, const RECT &sourceRect, BYTE alpha);

/// Mix every channel of a rectangle (null: the whole surface, unclipped) with a source rectangle's, stretched where
/// sizes differ, or with a colour that is weighted already. `weight`: 0 keeps, 255 replaces.
void MixCanvases(Canvas &dest, const RECT *destRect, Canvas &source, const RECT *sourceRect, BYTE weight);
void MixWithColor(Canvas &canvas, const RECT *rect, DWORD colour, BYTE weight);

/// Moves the rows of the whole surface by `dy` towards the end of memory (negative: towards its start); the rows left
/// behind keep their pixels. Result: false, with nothing moved, when |dy| is not below the height or the surface can't
/// be locked.
bool ScrollRows(Canvas &canvas, int dy);

}  // namespace lacquer
