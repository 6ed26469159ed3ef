// Rendering one glyph's coverage.

#include "glyph_mask.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "memory_proof.h"
#include "outline_cost.h"
#include "target.h"

namespace lacquer::vel {
namespace {

/// The largest side, and the most bytes, of a mask: an eighth of what the cache holds.
constexpr int kMaxSide = 4096;
constexpr size_t kMaxBytes = size_t{1} << 20;

/// The renderer counts in steps of this many to a pixel.
double Rounded(double coordinate) { return std::nearbyint(coordinate * 256) / 256; }
Point Rounded(Point p) { return {Rounded(p.x), Rounded(p.y)}; }

}  // namespace

MaskResult MakeGlyphMask(FontFace &face, const GlyphKey &key, Outline &scratch, GlyphMask &mask) {
    // A font that has no memory to read a glyph looks like one without the glyph.
    constexpr size_t kOfReading = size_t{120} << 10;
    if (!MemoryCanBeHad(kOfReading)) return MaskResult::MemoryIsShort;
    scratch.Clear();
    const double scale = static_cast<double>(key.size) / face.UnitsPerEm();
    if (!face.AppendGlyph(key.glyph, {key.quarter / 4.0, 0}, scale, scratch)) return MaskResult::MemoryIsShort;
    const auto [low, high] = scratch.Extents();
    mask.box = PixelsTouched({Rounded(low), Rounded(high)});
    const int width = mask.box.right - mask.box.left, height = mask.box.bottom - mask.box.top;
    if (width == 0 || height == 0) return MaskResult::Made;
    if (width > kMaxSide || height > kMaxSide) return MaskResult::TooLarge;
    mask.stride = (width + GlyphMask::kBlock - 1) & ~(GlyphMask::kBlock - 1);
    if (mask.Bytes() > kMaxBytes) return MaskResult::TooLarge;
    mask.rows.reset(new (std::nothrow) uint8_t[mask.Bytes()]{});
    const Point offset{-1.0 * mask.box.left, -1.0 * mask.box.top};
    const auto cost = DrawingCost::OfFill(scratch, offset, {0, 0, width, height});
    if (!mask.rows || !MemoryCanBeHad(cost.Bytes())) return MaskResult::MemoryIsShort;

    cairo_surface_t *surface =
        cairo_image_surface_create_for_data(mask.rows.get(), CAIRO_FORMAT_A8, width, height, mask.stride);
    cairo_t *context = cairo_create(surface);
    cairo_set_tolerance(context, Target::kTolerance);
    cairo_set_antialias(context, CAIRO_ANTIALIAS_GRAY);
    Trace(context, scratch, offset);
    cairo_fill(context);
    const bool isDone = cairo_status(context) == CAIRO_STATUS_SUCCESS;
    cairo_destroy(context);
    cairo_surface_destroy(surface);
    return isDone ? MaskResult::Made : MaskResult::MemoryIsShort;
}

}  // namespace lacquer::vel
