// Canvases: a state with its stack, and the operations that put outlines and images on the bitmap by that state.
#pragma once

#include <velgraphic/velgraphic.h>

#include "outline.h"
#include "sample_mask.h"
#include "state.h"
#include "target.h"

struct velCanvas final {
public:
    using Outline = lacquer::vel::Outline;

    lacquer::vel::State state;
    lacquer::vel::Target target;

    velCanvas() = default;
    ~velCanvas();
    velCanvas(const velCanvas &) = delete;
    velCanvas &operator=(const velCanvas &) = delete;

    /// False when memory is short.
    bool Save();
    /// False when no state is saved.
    bool Restore();

    /// An empty outline for one draw; its memory is kept for the next.
    Outline &Scratch() {
        scratch_.Clear();
        return scratch_;
    }

    /// Whether there are the bitmap, and the gradient if the style asks for one, that a draw needs.
    bool CanDraw() const;

    // Outlines are in logical coordinates, which may be as large as any float. All of these give false, and draw
    // nothing, without a bitmap or a gradient that the style asks for, with too many dashes, and when memory is short.

    /// Fills or strokes as the style says.
    bool Draw(const Outline &outline, DWORD fillType);
    bool Fill(const Outline &outline, DWORD fillType);
    bool Stroke(const Outline &outline);
    /// A context with which to paint through masks, by the state, some of the pixels `touched`; target.End() has to
    /// follow. Null when the canvas can't draw and when memory is short. Some of the visible pixels have to be touched.
    cairo_t *BeginMasks(const lacquer::vel::Clip &touched);
    /// Colours everything within the clip.
    bool Cover(DWORD colour);
    /// Puts an image, stretched, on the pixels `place`.
    bool DrawImage(cairo_surface_t *image, const lacquer::vel::Clip &place);

private:
    struct SavedState;
    /// An outline, and how far away from it the renderer draws.
    struct Placed;

    /// `bytes`: what the drawing takes.
    template <class Drawing>
    bool Render(size_t bytes, Drawing drawing);
    /// Puts the source on the pixels that the mask covers.
    bool DrawMask(lacquer::vel::SampleMask &mask, bool evenOdd, const lacquer::vel::Clip &visible, const Placed &figure,
                  double reach);
    /// The memory that the colour or the gradient takes.
    size_t SourceBytes(const lacquer::vel::Clip &visible) const;
    /// Takes the colour, or as much of the gradient as shows in the pixels that `reach` gives.
    template <class Reach>
    void SetSource(cairo_t *context, Reach reach) const;

    SavedState *saved_ = nullptr;
    Outline scratch_, clipped_;
};
