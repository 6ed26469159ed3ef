// The state stack, and drawing by the state.

#include "canvas.h"

#include <new>

#include "clip_geometry.h"
#include "colour.h"
#include "memory_proof.h"
#include "outline_cost.h"
#include "stroke_pieces.h"

using lacquer::vel::Clip;
using lacquer::vel::Dashes;
using lacquer::vel::DrawingCost;
using lacquer::vel::PixelRect;
using lacquer::vel::Point;
using lacquer::vel::SampleMask;
using lacquer::vel::State;
using lacquer::vel::StrokeForm;
using lacquer::vel::View;

namespace {

/// By blend mode.
constexpr cairo_operator_t kOperators[] = {
    CAIRO_OPERATOR_OVER,       CAIRO_OPERATOR_SOURCE,      CAIRO_OPERATOR_CLEAR,      CAIRO_OPERATOR_DEST_OVER,
    CAIRO_OPERATOR_IN,         CAIRO_OPERATOR_DEST_IN,     CAIRO_OPERATOR_OUT,        CAIRO_OPERATOR_DEST_OUT,
    CAIRO_OPERATOR_ATOP,       CAIRO_OPERATOR_DEST_ATOP,   CAIRO_OPERATOR_XOR,        CAIRO_OPERATOR_ADD,
    CAIRO_OPERATOR_MULTIPLY,   CAIRO_OPERATOR_SCREEN,      CAIRO_OPERATOR_OVERLAY,    CAIRO_OPERATOR_DARKEN,
    CAIRO_OPERATOR_LIGHTEN,    CAIRO_OPERATOR_COLOR_DODGE, CAIRO_OPERATOR_COLOR_BURN, CAIRO_OPERATOR_HARD_LIGHT,
    CAIRO_OPERATOR_SOFT_LIGHT, CAIRO_OPERATOR_DIFFERENCE,  CAIRO_OPERATOR_EXCLUSION};
static_assert(sizeof kOperators / sizeof *kOperators == VEL_BLEND_EXCLUSION + 1);
static_assert(VEL_CAP_BUTT == int{CAIRO_LINE_CAP_BUTT} && VEL_CAP_ROUND == int{CAIRO_LINE_CAP_ROUND} &&
              VEL_CAP_SQUARE == int{CAIRO_LINE_CAP_SQUARE});
static_assert(VEL_JOIN_MITER == int{CAIRO_LINE_JOIN_MITER} && VEL_JOIN_ROUND == int{CAIRO_LINE_JOIN_ROUND} &&
              VEL_JOIN_BEVEL == int{CAIRO_LINE_JOIN_BEVEL});

/// The memory that every drawing takes.
constexpr size_t kOfAnyDrawing = size_t{64} << 10;

}  // namespace

struct velCanvas::Placed {
    const Outline *outline;
    Point offset;

    /// The pixels at most `reach` away.
    Clip Touched(double reach) const {
        const auto [low, high] = outline->Extents();
        const Point margin{reach + 1, reach + 1};
        return PixelRect(low + offset - margin, high + offset + margin);
    }
};

struct velCanvas::SavedState {
    State state;
    SavedState *below;
};

velCanvas::~velCanvas() {
    while (Restore()) {
    }
}

bool velCanvas::Save() {
    SavedState *saved = new (std::nothrow) SavedState{state, saved_};
    if (!saved) return false;
    saved_ = saved;
    return true;
}

bool velCanvas::Restore() {
    if (!saved_) return false;
    SavedState *saved = saved_;
    saved_ = saved->below;
    state = std::move(saved->state);
    delete saved;
    return true;
}

/// Calls `drawing` with a context that has clip, operator and smoothing set. True without a call when nothing can be
/// seen.
template <class Drawing>
bool velCanvas::Render(size_t bytes, Drawing drawing) {
    if (!target.Bitmap()) return false;
    const Clip visible = target.Visible(state.clip);
    if (visible.IsEmpty()) return true;
    if (!lacquer::vel::MemoryCanBeHad(bytes)) return false;
    cairo_t *context = target.Begin(visible);
    if (!context) return false;
    cairo_set_operator(context, kOperators[state.blendMode]);
    cairo_set_antialias(context, state.smooth ? CAIRO_ANTIALIAS_GRAY : CAIRO_ANTIALIAS_NONE);
    drawing(context);
    return target.End();
}

bool velCanvas::CanDraw() const { return target.Bitmap() && (!state.UsesGradient() || state.gradient); }

size_t velCanvas::SourceBytes(const Clip &visible) const {
    // The renderer makes a mask of all for modes that change pixels where nothing is drawn.
    const size_t mask = state.ChangesWhatIsNotCovered() ? 2 * static_cast<size_t>(visible.Area()) : 0;
    return mask + (state.UsesGradient() ? state.gradient->Bytes(state.translation, visible) : 0);
}

template <class Reach>
void velCanvas::SetSource(cairo_t *context, Reach reach) const {
    if (!state.UsesGradient()) {
        const auto [red, green, blue, alpha] = lacquer::vel::ColourOf(state.colour, state.Opacity());
        cairo_set_source_rgba(context, red, green, blue, alpha);
        return;
    }
    const velGradient &gradient = *state.gradient;
    const Clip visible = target.Visible(state.clip);
    cairo_pattern_t *pattern = nullptr;
    if (gradient.SuitsRenderer(state.translation, visible)) {
        pattern = pattern_.Of(state.gradient, state.translation, state.Opacity());
    } else {
        pattern = gradient.Painted(reach().Intersected(visible), state.translation, state.Opacity());
    }
    cairo_set_source(context, pattern);
    cairo_pattern_destroy(pattern);
}

bool velCanvas::Draw(const Outline &outline, DWORD fillType) {
    return state.Strokes() ? Stroke(outline) : Fill(outline, fillType);
}

bool velCanvas::Fill(const Outline &outline, DWORD fillType) {
    if (!CanDraw()) return false;
    const Clip visible = target.Visible(state.clip);
    if (visible.IsEmpty()) return true;
    Placed figure{&outline, state.translation};
    if (!outline.SuitsRenderer(state.translation) || outline.IsTooLong()) {
        clipped_.Clear();
        if (!ClipFill(outline, View(visible, state.translation, 0), clipped_) || clipped_.IsTooLong()) return false;
        figure = {&clipped_, {}};
    }
    const bool evenOdd = fillType == VEL_FILL_EVEN_ODD;
    const auto cost = DrawingCost::OfFill(*figure.outline, figure.offset, visible);
    if (cost.IsHigh(state.smooth)) {
        SampleMask mask(visible, state.smooth);
        AddFill(*figure.outline, figure.offset, mask);
        return DrawMask(mask, evenOdd, visible, figure, 0);
    }
    return Render(cost.Bytes() + SourceBytes(visible), [&](cairo_t *context) {
        SetSource(context, [&] { return figure.Touched(0); });
        Trace(context, *figure.outline, figure.offset);
        cairo_set_fill_rule(context, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
        cairo_fill(context);
    });
}

bool velCanvas::Stroke(const Outline &outline) {
    if (!CanDraw()) return false;
    if (state.strokeWidth == 0) return true;
    const Clip visible = target.Visible(state.clip);
    if (visible.IsEmpty()) return true;
    const StrokeForm form{static_cast<double>(state.strokeWidth), state.cap, state.join};
    const double reach = form.Reach();
    Dashes dashes = Dashes::Of(state.dashStyle, form.width, state.dashes.Get());
    Placed figure{&outline, state.translation};
    const auto clip = [&] {
        clipped_.Clear();
        if (!ClipStroke(outline, View(visible, state.translation, reach), dashes, clipped_)) return false;
        if (clipped_.IsTooLong()) return false;
        figure = {&clipped_, {}};
        if (dashes) dashes = Dashes::Whole();
        return true;
    };
    if (!outline.SuitsRenderer(state.translation) || outline.IsTooLong() ||
        (dashes && dashes.AreTooMany(outline.LengthAtMost()))) {
        if (!clip()) return false;
    }
    const auto cost = DrawingCost::OfStroke(*figure.outline, figure.offset, visible, form, dashes);
    if (cost.IsHigh(state.smooth)) {
        if (dashes && figure.outline == &outline && !clip()) return false;
        SampleMask mask(visible, state.smooth);
        AddStroke(*figure.outline, figure.offset, form, mask);
        return DrawMask(mask, false, visible, figure, reach);
    }
    return Render(cost.Bytes() + SourceBytes(visible), [&](cairo_t *context) {
        SetSource(context, [&] { return figure.Touched(reach); });
        Trace(context, *figure.outline, figure.offset);
        cairo_set_line_width(context, form.width);
        cairo_set_line_cap(context, static_cast<cairo_line_cap_t>(state.cap));
        cairo_set_line_join(context, static_cast<cairo_line_join_t>(state.join));
        dashes.ApplyTo(context);
        cairo_stroke(context);
    });
}

bool velCanvas::DrawMask(SampleMask &mask, bool evenOdd, const Clip &visible, const Placed &figure, double reach) {
    const unsigned char *coverage = mask.IsWhole() ? mask.Render(evenOdd) : nullptr;
    if (!coverage) return false;
    return Render(
        kOfAnyDrawing + 8 * static_cast<size_t>(visible.Area()) + SourceBytes(visible), [&](cairo_t *context) {
            SetSource(context, [&] { return figure.Touched(reach); });
            cairo_surface_t *image = cairo_image_surface_create_for_data(
                const_cast<unsigned char *>(coverage), CAIRO_FORMAT_A8, mask.Columns(), mask.Rows(), mask.Stride());
            cairo_mask_surface(context, image, visible.left, visible.top);
            cairo_surface_destroy(image);
        });
}

cairo_t *velCanvas::BeginMasks(const Clip &touched) {
    if (!CanDraw()) return nullptr;
    const Clip visible = target.Visible(state.clip);
    if (!lacquer::vel::MemoryCanBeHad(kOfAnyDrawing + SourceBytes(visible))) return nullptr;
    cairo_t *context = target.Begin(visible);
    if (!context) return nullptr;
    cairo_set_operator(context, kOperators[state.blendMode]);
    SetSource(context, [&] { return touched; });
    return context;
}

bool velCanvas::Cover(DWORD colour) {
    return Render(kOfAnyDrawing, [&](cairo_t *context) {
        const auto [red, green, blue, alpha] = lacquer::vel::ColourOf(colour, state.Opacity());
        cairo_set_source_rgba(context, red, green, blue, alpha);
        cairo_paint(context);
    });
}

bool velCanvas::DrawImage(cairo_surface_t *image, const Clip &place) {
    return Render(kOfAnyDrawing, [&](cairo_t *context) {
        const double width = place.right - place.left, height = place.bottom - place.top;
        cairo_save(context);
        cairo_rectangle(context, place.left, place.top, width, height);
        cairo_clip(context);
        cairo_translate(context, place.left, place.top);
        cairo_scale(context, width / cairo_image_surface_get_width(image),
                    height / cairo_image_surface_get_height(image));
        cairo_set_source_surface(context, image, 0, 0);
        cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
        cairo_paint_with_alpha(context, state.Opacity());
        cairo_restore(context);
    });
}
