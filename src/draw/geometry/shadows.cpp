// A shadow is painted like a nine-grid: its corners tile by tile, its straight edges from one computed row or column
// each, its middle as a fill.

#include "draw/geometry/shadows.h"

#include <algorithm>

#include "draw/fill.h"
#include "draw/geometry/shadow_tile.h"
#include "draw/geometry/visible_part.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

/// A part of the canvas in one direction.
struct Band {
    enum Kind { kOutside, kSide, kMiddle } kind;
    int64_t from, to;
};

/// Calls visit(band) for the parts of a span that lie in from..to, and for what lies outside the span.
template <class Visit>
void ForEachBand(const ShadowSpan &span, int64_t from, int64_t to, const Visit &visit) {
    const Band bands[] = {{Band::kOutside, from, span.begin},
                          {Band::kSide, span.begin, span.middleBegin},
                          {Band::kMiddle, span.middleBegin, span.middleEnd},
                          {Band::kSide, span.middleEnd, span.end},
                          {Band::kOutside, span.end, to}};
    for (Band band : bands) {
        band.from = std::max(band.from, from);
        band.to = std::min(band.to, to);
        if (band.from < band.to) visit(band);
    }
}

/// A piece of at most a tile's size, of which the rows are computed one by one, or one row stands for all.
void PaintTile(ShadowTile &tile, ShadowPainter &painter, int64_t x, int columns, int64_t y, int rows) {
    ShadowTile::Wanted wanted[ShadowTile::kSide];
    bool isAnyWanted = false;
    for (int row = 0; row < rows; ++row) {
        int64_t from = x, to = x + columns;
        painter.Narrow(&from, &to, y + row);
        wanted[row] = {static_cast<int>(from - x), static_cast<int>(std::max(from, to) - x)};
        if (from >= to) continue;
        isAnyWanted = true;
        painter.Prefetch(from, static_cast<int>(to - from), y + row);
    }
    if (!isAnyWanted) return;
    tile.Compute(x, y, columns, rows, wanted);
    for (int row = 0; row < rows; ++row) {
        const auto [from, to] = wanted[row];
        if (from < to) painter.Varying(x + from, to - from, y + row, y + row + 1, tile.Row(row) + from);
    }
}

void PaintSides(ShadowTile &tile, ShadowPainter &painter, const Band &columns, const Band &rows) {
    constexpr int64_t kSide = ShadowTile::kSide;
    for (int64_t x = columns.from; x < columns.to; x += kSide) {
        const int width = static_cast<int>(std::min(kSide, columns.to - x));
        if (rows.kind == Band::kMiddle) {
            const ShadowTile::Wanted all{0, width};
            tile.Compute(x, rows.from, width, 1, &all);
            painter.Varying(x, width, rows.from, rows.to, tile.Row(0));
            continue;
        }
        for (int64_t y = rows.from; y < rows.to; y += kSide) {
            PaintTile(tile, painter, x, width, y, static_cast<int>(std::min(kSide, rows.to - y)));
        }
    }
}

void PaintBlurred(ShadowPainter &painter, const Caster &caster, const RECT &visible) {
    ShadowTile tile(caster);
    ForEachBand(caster.Rows(), visible.top, visible.bottom, [&](const Band &rows) {
        ForEachBand(caster.Columns(), visible.left, visible.right, [&](const Band &columns) {
            if (rows.kind == Band::kOutside || columns.kind == Band::kOutside) {
                painter.Even(columns.from, columns.to, rows.from, rows.to, 0);
            } else if (columns.kind == Band::kSide) {
                PaintSides(tile, painter, columns, rows);
            } else if (rows.kind == Band::kMiddle) {
                painter.Even(columns.from, columns.to, rows.from, rows.to, kFullShadow);
            } else {
                for (int64_t y = rows.from; y < rows.to; ++y) {
                    const int32_t share = caster.RowWeight(y) * 2 * GaussianEdge::kHalf;
                    painter.Even(columns.from, columns.to, y, y + 1, share);
                }
            }
        });
    });
}

int32_t ShareOf(BYTE cover) { return static_cast<int32_t>(int64_t{kFullShadow} * cover / 255); }

/// Without a blur the shadow is the shape itself.
void PaintSharp(ShadowPainter &painter, const RoundedRect &shape, const RECT &visible) {
    int32_t shares[PartPainter::kMostCovered];
    for (int64_t y = visible.top; y < visible.bottom;) {
        const CoverRow row(shape, y);
        const int64_t yEnd = std::min<int64_t>(row.AlikeUntil(), visible.bottom);
        int64_t x = visible.left;
        for (const int64_t cut : {row.begin, row.flatBegin, row.flatEnd, row.end, int64_t{visible.right}}) {
            const int64_t to = std::min<int64_t>(cut, visible.right);
            if (to <= x) continue;
            const bool isOutside = x < row.begin || x >= row.end;
            if (isOutside || (x >= row.flatBegin && x < row.flatEnd)) {
                painter.Even(x, to, y, yEnd, isOutside ? 0 : ShareOf(row.flat));
            } else {
                for (int64_t from = x; from < to; from += PartPainter::kMostCovered) {
                    const int count = static_cast<int>(std::min<int64_t>(PartPainter::kMostCovered, to - from));
                    for (int i = 0; i < count; ++i) shares[i] = ShareOf(row.At(from + i));
                    painter.Varying(from, count, y, yEnd, shares);
                }
            }
            x = to;
        }
        y = yEnd;
    }
}

RoundedRect CasterOf(const RoundedRect &rect, const Shadow &shadow) {
    RoundedRect moved = rect;
    moved.left += shadow.offsetX;
    moved.right += shadow.offsetX;
    moved.top += shadow.offsetY;
    moved.bottom += shadow.offsetY;
    RoundedRect caster = moved.Grown(shadow.place == ShadowPlace::Inside ? -shadow.spread : shadow.spread);
    for (size_t i = 0; i < caster.radii.size(); ++i) {
        if (rect.radii[i] == 0) caster.radii[i] = 0;
    }
    return caster;
}

}  // namespace

void DrawShadow(Canvas &canvas, const RoundedRect &rect, const Shadow &shadow) {
    if (rect.IsEmpty() || Alpha(shadow.colour) == 0) return;
    const RoundedRect shape = CasterOf(rect, shadow);
    const bool isInside = shadow.place == ShadowPlace::Inside;
    if (shape.IsEmpty() && !isInside) return;
    const RoundedRect &bounds = isInside ? rect : shape;
    const int64_t reach = isInside ? 0 : (3 * shadow.blur + 1) / 2;
    const VisiblePart part(canvas, PixelAt(bounds.left - reach), PixelAt(bounds.top - reach),
                           PixelFrom(bounds.right + reach), PixelFrom(bounds.bottom + reach));
    if (!part.View()) return;
    const RECT &visible = part.Rect();
    const PartPainter parts(*part.View(), visible.left, visible.top, {shadow.colour, 0, kFillOver});
    ShadowPainter painter(parts, rect, shadow.place);
    if (shape.IsEmpty()) return painter.Even(visible.left, visible.right, visible.top, visible.bottom, 0);
    if (shadow.blur == 0) return PaintSharp(painter, shape, visible);
    const Caster caster(shape, shadow.blur);
    if (caster.IsEmpty()) return painter.Even(visible.left, visible.right, visible.top, visible.bottom, 0);
    PaintBlurred(painter, caster, visible);
}

}  // namespace lacquer
