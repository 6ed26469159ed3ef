// Keeping a drawing context over pixels that others change, too.

#include "target.h"

#include <algorithm>

namespace lacquer::vel {
namespace {

int Side(LONG size) { return std::min(static_cast<int>(size), static_cast<int>(kMaxSize)); }

}  // namespace

void Trace(cairo_t *context, const Outline &outline, Point offset) {
    const Point *next = outline.Points().begin();
    for (const Verb verb : outline.Verbs()) {
        Point p[3];
        for (int i = 0; i < PointsOf(verb); ++i) p[i] = *next++ + offset;
        switch (verb) {
            case Verb::Move: cairo_move_to(context, p[0].x, p[0].y); break;
            case Verb::Line: cairo_line_to(context, p[0].x, p[0].y); break;
            case Verb::Curve: cairo_curve_to(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y); break;
            case Verb::Close: cairo_close_path(context); break;
        }
    }
}

void Target::SetBitmap(Reference<velBitmap> bitmap) {
    DropContext();
    bitmap_ = std::move(bitmap);
}

Clip Target::Visible(const Clip &clip) const {
    return clip.Intersected({0, 0, Side(bitmap_->data.width), Side(bitmap_->data.height)});
}

cairo_t *Target::Begin(const Clip &clip) {
    if (!bitmap_) return nullptr;
    if (!context_) {
        const velBitmapData &data = bitmap_->data;
        surface_ = cairo_image_surface_create_for_data(static_cast<unsigned char *>(data.bits), CAIRO_FORMAT_ARGB32,
                                                       Side(data.width), Side(data.height), data.stride);
        context_ = cairo_create(surface_);
        contextClip_ = {};
        if (cairo_status(context_) != CAIRO_STATUS_SUCCESS) {
            DropContext();
            return nullptr;
        }
        cairo_set_tolerance(context_, kTolerance);
    }
    // The renderer remembers when it has cleared the pixels, and would take what others drew since for nothing.
    cairo_surface_mark_dirty(surface_);
    if (clip != contextClip_) {
        cairo_reset_clip(context_);
        cairo_rectangle(context_, clip.left, clip.top, clip.right - clip.left, clip.bottom - clip.top);
        cairo_clip(context_);
        contextClip_ = clip;
    }
    return context_;
}

bool Target::End() {
    cairo_new_path(context_);
    cairo_surface_flush(surface_);
    if (cairo_status(context_) == CAIRO_STATUS_SUCCESS) return true;
    DropContext();  // a context never recovers from an error
    return false;
}

void Target::DropContext() {
    if (context_) cairo_destroy(context_);
    if (surface_) cairo_surface_destroy(surface_);
    context_ = nullptr;
    surface_ = nullptr;
}

}  // namespace lacquer::vel
