// Making companion canvases, pointing them at a canvas's pixels, and handing them its clip and origins.

#include "vector/companion.h"

#include "core/geometry.h"
#include "core/locked.h"

namespace lacquer {
namespace {

bool DrawsInto(velCanvas *companion, const SurfaceView &view) {
    SurfaceView present{};
    return FindPixels(companion, &present) && present.bits == view.bits && present.width == view.width &&
           present.height == view.height && present.stride == view.stride;
}

/// Result: false without pixels, and without memory; the companion then keeps what it had, which may be gone.
bool PointAtPixels(velCanvas *companion, Canvas &canvas) {
    const LockedCanvas pixels(canvas, nullptr);
    const SurfaceView *view = pixels.View();
    if (!view) return false;
    // Any call may have moved the pixels, also one through a handle of the surface alone. Asking is cheap.
    if (DrawsInto(companion, *view)) return true;
    velBitmap *bitmap = velBitmapCreateFromData(view->bits, view->width, view->height, view->stride);
    const bool done = bitmap && velCanvasSetBitmap(companion, bitmap);
    velBitmapDestroy(bitmap);
    return done;
}

velCanvas *FindOrMake(Canvas &canvas) {
    if (!canvas.Surface()) return nullptr;
    if (!canvas.Companion()) canvas.SetCompanion({velCanvasCreate(), velCanvasDestroy});
    return canvas.Companion();
}

bool SetClipAndOrigins(velCanvas *companion, const Canvas &canvas) {
    const POINT viewport = canvas.ViewportOrg(), window = canvas.WindowOrg();
    const RECT clip = Moved(canvas.ClipBox(), static_cast<int64_t>(viewport.x) - window.x,
                            static_cast<int64_t>(viewport.y) - window.y);
    return velCanvasClipRect(companion, clip.left, clip.top, clip.right, clip.bottom) &&
           velCanvasTranslate(companion, static_cast<float>(viewport.x), static_cast<float>(viewport.y)) &&
           velCanvasTranslate(companion, -static_cast<float>(window.x), -static_cast<float>(window.y));
}

}  // namespace

velCanvas *CompanionOf(Canvas &canvas) {
    velCanvas *companion = FindOrMake(canvas);
    if (companion) PointAtPixels(companion, canvas);
    return companion;
}

bool FindPixels(velCanvas *companion, SurfaceView *out) {
    velBitmapData pixels{};
    const bool isFound = velCanvasLockBits(companion, nullptr, &pixels) != 0;
    velCanvasUnlockBits(companion, nullptr);
    if (!isFound) return false;
    *out = {};
    out->width = pixels.width;
    out->height = pixels.height;
    out->stride = pixels.stride;
    out->bits = pixels.bits;
    return true;
}

VectorDraw::VectorDraw(Canvas &canvas) {
    velCanvas *companion = FindOrMake(canvas);
    if (!companion || !PointAtPixels(companion, canvas) || !velCanvasSave(companion)) return;
    if (SetClipAndOrigins(companion, canvas)) {
        companion_ = companion;
    } else {
        velCanvasRestore(companion);
    }
}

VectorDraw::~VectorDraw() {
    if (companion_) velCanvasRestore(companion_);
}

}  // namespace lacquer
