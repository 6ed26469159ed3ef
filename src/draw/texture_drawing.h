// Drawing a texture: the plain stretch and the centre-fit, tile and top-tile layouts. The nine-grid stands on its own.
#pragma once

#include "core/canvas.h"
#include "core/texture.h"

namespace lacquer {

/// What a layout draws: a slice of a texture (null: everything) into a logical rectangle of a canvas. `kernelMode` is
/// the sampler of stretched pieces, `alpha` the constant alpha; the texture's filter word is the mode word.
struct TextureDraw {
    Canvas &canvas;
    const RECT &dest;
    Texture &texture;
    const RECT *slice;
    DWORD kernelMode;
    BYTE alpha;
};

/// The source rectangle that an optional slice stands for: the whole surface for null; inverted edges are exchanged.
/// Result: false when it is empty or not inside the surface.
bool ResolveSlice(const PixelSurface &surface, const RECT *slice, RECT *out);

/// Stretches the slice to the destination. Result, as of the next: 1, 0 for a slice that can't be resolved.
int DrawStretched(const TextureDraw &draw);

/// Scales the slice into the destination with its aspect kept, centred, never cropped.
int DrawCentred(const TextureDraw &draw);

/// Repeats the slice from the destination's top-left corner, in cells that `scale` resizes with LACQUER_SCALE_CELL.
/// Once the last cell of a row was cut at the right edge, later rows start with the cut cell. Nothing is drawn with a
/// cell that is not at least one pixel wide and high.
void DrawTiled(const TextureDraw &draw, DWORD scaleFlags, float scale);

/// Repeats the slice from left to right at its own width; of each repetition the top margin's rows keep their height
/// and the bottom margin's rows are stretched over the rest.
void DrawTopTiled(const TextureDraw &draw, const RECT &margins);

}  // namespace lacquer
