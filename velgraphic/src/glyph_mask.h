// Masks of glyphs, made of their outlines by the renderer that fills larger ones.
#pragma once

#include "font_face.h"
#include "glyph_cache.h"

namespace lacquer::vel {

enum class MaskResult { Made, TooLarge, MemoryIsShort };

/// Makes the mask that `key` names, of a glyph of `face`. `scratch` is overwritten.
MaskResult MakeGlyphMask(FontFace &face, const GlyphKey &key, Outline &scratch, GlyphMask &mask);

}  // namespace lacquer::vel
