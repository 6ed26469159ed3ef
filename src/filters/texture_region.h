// The region of a texture's visible pixels.
#pragma once

#include "core/texture.h"
#include "platform/platform.h"

namespace lacquer {

/// A new region of the pixels of `rect` (null: the whole texture) whose word is not 0, relative to the rectangle's
/// top-left corner; the whole rectangle when the texture's draw mode is 0. All pixels of a 24-bit texture are visible.
/// Result: the caller's to delete; null for a rectangle that is inverted or not inside, an empty one unless the draw
/// mode is 0, other depths than 8, 24 and 32 bits, and without memory.
HRGN MakeTextureRegion(Texture &texture, const RECT *rect);

}  // namespace lacquer
