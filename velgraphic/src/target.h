// The renderer's end of a canvas: a drawing context over the bitmap, made anew after a failure.
#pragma once

#include <cairo.h>

#include "bitmap.h"
#include "clip.h"
#include "outline.h"
#include "shared.h"

namespace lacquer::vel {

/// Adds an outline, moved by `offset`, to a context's path.
void Trace(cairo_t *context, const Outline &outline, Point offset);

class Target {
public:
    /// How far, in pixels, the lines that stand for a curve may be off.
    static constexpr double kTolerance = 0.03;

    Target() = default;
    ~Target() { DropContext(); }
    Target(const Target &) = delete;
    Target &operator=(const Target &) = delete;

    void SetBitmap(Reference<velBitmap> bitmap);
    const velBitmap *Bitmap() const { return bitmap_.Get(); }

    /// The part of `clip` that the bitmap has.
    Clip Visible(const Clip &clip) const;

    /// A context without a path, confined to `clip`, which is not empty and lies inside the bitmap. Null when there is
    /// no bitmap or memory is short.
    cairo_t *Begin(const Clip &clip);
    /// Ends what Begin began. False when drawing failed on the way.
    bool End();

private:
    void DropContext();

    Reference<velBitmap> bitmap_;
    cairo_surface_t *surface_ = nullptr;
    cairo_t *context_ = nullptr;
    Clip contextClip_;
};

}  // namespace lacquer::vel
