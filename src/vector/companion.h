// The companion canvas that draws vector shapes into a canvas's own pixels.
#pragma once

#include <velgraphic/velgraphic.h>

#include "core/canvas.h"

namespace lacquer {

/// The canvas's companion: made at the first call, kept with its state for the canvas's life, and pointed at the pixels
/// again whenever they have moved. Result: null without a pixel surface and without memory.
velCanvas *CompanionOf(Canvas &canvas);

/// Describes the pixels that a companion canvas draws on. Result: false, with nothing written, when there are none.
bool FindPixels(velCanvas *companion, SurfaceView *out);

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

/// One drawing operation by a function of the companion's. Result: the function's; 0 when it can't be called.
template <class Function, class... Arguments>
int DrawWith(Canvas &canvas, Function draw, Arguments... arguments) {
    const VectorDraw operation(canvas);
    return operation.Companion() ? draw(operation.Companion(), arguments...) : 0;
}

}  // namespace lacquer
