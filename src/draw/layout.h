// The layout that a texture's mode record asks for.
#pragma once

#include "draw/texture_drawing.h"

namespace lacquer {

/// Draws the texture laid out as its mode record says, with the record's margins and scale flags. `scale` and
/// `halfScale`: as of the layouts that have them. Result: 1; 0 for a slice that can't be resolved, and always for the
/// tile and the top-tile.
int DrawLaidOut(const TextureDraw &draw, float scale, bool halfScale);

}  // namespace lacquer
