// Which combine rule a draw or a fill of a mode word stands for.
#pragma once

#include "pipeline/rules.h"

namespace lacquer {

/// What a draw of the source word s leaves of d. `alpha` is the constant alpha.
inline uint32_t Combined(DWORD modeWord, BYTE alpha, WORD sourceBits, uint32_t s, uint32_t d) {
    const DWORD mode = modeWord >> 24;
    if (mode == LACQUER_DRAW_BEHIND) return ModelCombine(CombineKind::Behind, s, d);
    if (mode == LACQUER_DRAW_MODULATE) return ModelCombine(CombineKind::Modulate, s, d);
    if (alpha < 255) return ModelCombine(CombineKind::ConstAlpha, s, d, alpha);
    if (mode == LACQUER_DRAW_OVER) return ModelCombine(CombineKind::Over, s, d);
    const uint32_t key = (modeWord & 0xFFFFFF) | (sourceBits == 24 ? 0xFF000000 : 0);
    return mode == LACQUER_DRAW_COLOR_KEY ? ModelCombine(CombineKind::ColorKey, s, d, key) : s;
}

/// What a fill with the colour c leaves of d.
inline uint32_t Filled(DWORD mode, uint32_t c, uint32_t d) {
    switch (mode) {
        case LACQUER_DRAW_COPY: return c;
        case LACQUER_DRAW_MODULATE: return ModelCombine(CombineKind::Modulate, c, d);
        case LACQUER_DRAW_OR:
            // Its two ends are those of modulation.
            if (c == 0 || c == 0xFFFFFFFF) return c == 0 ? 0 : d;
            return ModelCombine(CombineKind::Or, c, d);
        case LACQUER_DRAW_GREY_TINT: return c >> 24 == 0 ? d : ModelCombine(CombineKind::GreyTint, c, d);
        case LACQUER_DRAW_BEHIND: return ModelCombine(CombineKind::Behind, c, d);
        default: return ModelCombine(CombineKind::Over, c, d);
    }
}

}  // namespace lacquer
