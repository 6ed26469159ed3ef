// Small painting helpers over the drawing calls: boxes, gradients, checkerboards, layouts, and draws at a place.
#pragma once

#include <span>

#include "common/image.h"

namespace lacquer::examples {

/// A rectangle by its corner and size.
inline RECT Box(int left, int top, int width, int height) { return {left, top, left + width, top + height}; }

/// A cleared canvas in a DIB section. Throws std::runtime_error on failure, as all functions here do.
Canvas MakeCanvas(int width, int height);

/// The draw mode (LACQUER_DRAW_...) of a texture, with the key colour 0xRRGGBB of the colour key.
void SetDrawMode(const Texture &texture, DWORD mode, DWORD key = 0);

/// How a texture is laid out (LACQUER_LAYOUT_...) when it is drawn, with the margins and scale flags of the layout.
void SetLayout(const Texture &texture, DWORD layout, const RECT &margins = {}, DWORD scaleFlags = 0);

/// Names parts of a texture: its slices, numbered from 0.
void SetSlices(const Texture &texture, std::span<const RECT> slices);

/// A texture of the same depth, palette and draw mode with the pixels of a part of `texture`, or of all of it when
/// `part` is null. The copy has no slices and no layout.
Texture CopyOf(const Texture &texture, const RECT *part = nullptr);

/// The size of the current slice, or of the whole texture.
SIZE SizeOf(const Texture &texture);

/// Draws a texture, or its current slice, at its own size with its left top corner at (x, y).
void DrawAt(const Canvas &canvas, int x, int y, const Texture &texture, BYTE alpha = 255);

/// Draws a texture, or its current slice, into a rectangle, in its layout. `scale`: of the margins or the tile that
/// the scale flags name.
void DrawInto(const Canvas &canvas, const RECT &dest, const Texture &texture, DWORD kernelMode = LACQUER_BILINEAR,
              BYTE alpha = 255, float scale = 1.0f);

/// Draws a slice of a texture into a rectangle, in the texture's layout.
void DrawSlice(const Canvas &canvas, const RECT &dest, const Texture &texture, int slice,
               DWORD kernelMode = LACQUER_BILINEAR);

/// Lays a straight colour 0xAARRGGBB over a rectangle.
void FillBox(const Canvas &canvas, const RECT &rect, std::uint32_t colour);

/// Replaces a rectangle by a vertical gradient between two straight colours.
void FillGradient(const Canvas &canvas, const RECT &rect, std::uint32_t top, std::uint32_t bottom);

/// Covers a rectangle with squares of two grey tones, the usual sign for "transparent".
void FillChecker(const Canvas &canvas, const RECT &rect, int square);

/// A line of one pixel just inside a rectangle.
void OutlineBox(const Canvas &canvas, const RECT &rect, std::uint32_t colour);

/// Lays all pixels of one canvas over another, with its left top corner at (x, y).
void DrawLayer(const Canvas &canvas, int x, int y, const Canvas &layer, BYTE alpha = 255);

}  // namespace lacquer::examples
