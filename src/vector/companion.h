// The companion canvas that draws vector shapes into a canvas's own pixels.
#pragma once

#include <velgraphic/velgraphic.h>

#include "core/canvas.h"

namespace lacquer {

/// The canvas's companion: made at the first call, kept with its state for the canvas's life, and pointed at the pixels
/// again whenever they have moved. Result: null without a pixel surface and without memory.
velCanvas *CompanionOf(Canvas &canvas);

/// One drawing operation. While it lives, the companion is clipped to the canvas's clip and takes logical coordinates;
/// its end takes both back.
class VectorDraw {
public:
    explicit VectorDraw(Canvas &canvas);
    ~VectorDraw();
    VectorDraw(const VectorDraw &) = delete;
    VectorDraw &operator=(const VectorDraw &) = delete;

    /// What to draw with; null when there is no companion, when it has no pixels, and without memory.
    velCanvas *Companion() const { return companion_; }

private:
    velCanvas *companion_ = nullptr;
};

}  // namespace lacquer
