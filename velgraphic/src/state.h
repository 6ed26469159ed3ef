// What is saved and restored: everything that decides how a draw looks.
#pragma once

#include <velgraphic/velgraphic.h>

#include "clip.h"
#include "dash.h"
#include "font_name.h"
#include "gradient.h"
#include "shared.h"

namespace lacquer::vel {

struct State {
    DWORD style = VEL_STYLE_FILL;
    DWORD colour = 0xFF000000;
    DWORD blendMode = VEL_BLEND_SOURCE_OVER;
    DWORD blendValue = 255;
    DWORD cap = VEL_CAP_BUTT;
    DWORD join = VEL_JOIN_MITER;
    DWORD dashStyle = VEL_DASH_SOLID;
    float strokeWidth = 1;
    float textSize = 16;
    bool smooth = true;
    FontName font;
    Reference<velGradient> gradient;
    Reference<DashPattern> dashes;
    Clip clip;
    Point translation;

    double Opacity() const { return blendValue / 255.0; }
    bool UsesGradient() const { return style == VEL_STYLE_GRADIENT_FILL || style == VEL_STYLE_GRADIENT_STROKE; }
    /// Whether a draw changes pixels where nothing is drawn, too.
    bool ChangesWhatIsNotCovered() const {
        return blendMode == VEL_BLEND_SOURCE_IN || blendMode == VEL_BLEND_DESTINATION_IN ||
               blendMode == VEL_BLEND_SOURCE_OUT || blendMode == VEL_BLEND_DESTINATION_ATOP;
    }
    bool Strokes() const { return style == VEL_STYLE_STROKE || style == VEL_STYLE_GRADIENT_STROKE; }
};

}  // namespace lacquer::vel
