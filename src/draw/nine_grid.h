// The nine-grid: a skin whose corners keep their size while its edges and its centre stretch.
#pragma once

#include "draw/texture_drawing.h"

namespace lacquer {

/// Beyond the draw itself, what a nine-grid needs.
struct NineGridStyle {
    const RECT &margins;  ///< widths of the left column, top row, right column and bottom row, source pixels
    bool hollowCentre;    ///< fill the centre with the colour of its middle pixel instead of stretching it
    DWORD scaleFlags;     ///< LACQUER_SCALE_...: which destination margins `scale` resizes
    float scale;
    bool halfScale;  ///< the source is drawn for twice the resolution: destination margins are half the source's
};

/// Cuts destination and source into nine cells and draws each source cell into its destination cell, nothing tiled.
/// Cells that the margins leave empty or inverted draw nothing. Result: 1, 0 for a slice that can't be resolved.
int DrawNineGrid(const TextureDraw &draw, const NineGridStyle &style);

}  // namespace lacquer
