// From a mode record to one of the layouts.

#include "draw/layout.h"

#include "draw/nine_grid.h"

namespace lacquer {

int DrawLaidOut(const TextureDraw &draw, float scale, bool halfScale) {
    const TextureMode &mode = draw.texture.Mode();
    switch (mode.mode) {
        case LACQUER_LAYOUT_NINE_GRID:
        case LACQUER_LAYOUT_HOLLOW_NINE_GRID:
            return DrawNineGrid(
                draw, {mode.margins, mode.mode == LACQUER_LAYOUT_HOLLOW_NINE_GRID, mode.scaleFlags, scale, halfScale});
        case LACQUER_LAYOUT_TILE: DrawTiled(draw, mode.scaleFlags, scale); return 0;
        case LACQUER_LAYOUT_CENTER: return DrawCentred(draw);
        case LACQUER_LAYOUT_TOP_TILE: DrawTopTiled(draw, mode.margins); return 0;
        default: return DrawStretched(draw);
    }
}

}  // namespace lacquer
