// Straight colours 0xAARRGGBB as the renderer takes them.
#pragma once

#include <velgraphic/velgraphic.h>

namespace lacquer::vel {

struct Colour {
    double red, green, blue, alpha;
};

/// `opacity` scales the alpha; both 0 to 1.
inline Colour ColourOf(DWORD argb, double opacity) {
    const auto channel = [argb](int shift) { return static_cast<double>(argb >> shift & 0xFF) / 255; };
    return {channel(16), channel(8), channel(0), channel(24) * opacity};
}

}  // namespace lacquer::vel
