// A shadow is painted like a nine-grid: its corners tile by tile, its straight edges from one computed row or column
// each, its middle as a fill. What a mirror gives is not computed twice.

#include "draw/geometry/shadows.h"

#include <algorithm>
#include <optional>

#include "draw/fill.h"
#include "draw/geometry/shadow_rows.h"
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

/// Columns in which one row stands for all.
void PaintAlike(ShadowTile &tile, ShadowPainter &painter, const Band &columns, const Band &rows) {
    int32_t shares[ShadowPainter::kMaxVarying];
    int count = 0;
    for (int64_t x = columns.from; x < columns.to;) {
        const int width = static_cast<int>(std::min<int64_t>(ShadowTile::kColumns, columns.to - x));
        const PixelRange all{0, width};
        tile.Compute(x, rows.from, width, 1, &all);
        std::copy_n(tile.Row(0), width, shares + count);
        count += width;
        x += width;
        if (count + ShadowTile::kColumns <= ShadowPainter::kMaxVarying && x < columns.to) continue;
        painter.Take(shares, {0, count});
        painter.Varying(x - count, {0, count}, rows.from, rows.to);
        count = 0;
    }
}

/// Rows in which every pixel may differ, made by one of the two kinds of tiles.
template <class Tile>
void PaintRows(Tile &tile, ShadowPainter &painter, const Caster &caster, const RECT &visible, const ShadowRows &rows) {
    ForEachBand(caster.Columns(), visible.left, visible.right, [&](const Band &columns) {
        if (columns.kind == Band::kSide) return PaintTiles(tile, painter, rows, columns.from, columns.to);
        rows.ForEachDown([&](int64_t y) {
            const bool isOutside = columns.kind == Band::kOutside;
            painter.Even(columns.from, columns.to, y, y + 1, isOutside ? 0 : caster.RowShare(y));
        });
    });
}

void PaintBlurred(ShadowPainter &painter, const Caster &caster, const RECT &visible) {
    ShadowTile tile(caster);
    SmoothTile smoothTile(caster, tile, painter.Nothing());
    const bool isSmooth = SmoothTile::Suits(caster.Edge());
    const int tileRows = isSmooth ? SmoothTile::kRows : ShadowTile::kRows;
    const std::optional<int64_t> mirror = caster.MirrorDown();
    const auto paintRows = [&](int64_t y, int64_t yEnd, std::optional<int64_t> mirrorOf) {
        for (; y < yEnd; y += tileRows) {
            const ShadowRows rows(visible, y, std::min(y + tileRows, yEnd), mirrorOf);
            if (isSmooth) {
                PaintRows(smoothTile, painter, caster, visible, rows);
            } else {
                PaintRows(tile, painter, caster, visible, rows);
            }
        }
    };
    ForEachBand(caster.Rows(), visible.top, visible.bottom, [&](const Band &rows) {
        if (rows.kind == Band::kOutside) {
            painter.Even(visible.left, visible.right, rows.from, rows.to, 0);
        } else if (rows.kind == Band::kSide) {
            // Rows below the axis are painted with those above it, as far as these are visible.
            const int64_t half = mirror ? std::clamp((*mirror >> 1) + 1, rows.from, rows.to) : rows.to;
            paintRows(rows.from, half, mirror);
            if (mirror) paintRows(std::max(half, *mirror - visible.top + 1), rows.to, std::nullopt);
        } else {
            ForEachBand(caster.Columns(), visible.left, visible.right, [&](const Band &columns) {
                if (columns.kind == Band::kSide) return PaintAlike(tile, painter, columns, rows);
                const bool isOutside = columns.kind == Band::kOutside;
                painter.Even(columns.from, columns.to, rows.from, rows.to, isOutside ? 0 : kFullShadow);
            });
        }
    });
}

int32_t ShareOf(BYTE cover) { return static_cast<int32_t>(int64_t{kFullShadow} * cover / 255); }

/// Without a blur the shadow is the shape itself.
void PaintSharp(ShadowPainter &painter, const RoundedRect &shape, const RECT &visible) {
    int32_t shares[PartPainter::kMaxCovered];
    const CoverShape covers(shape);
    for (int64_t y = visible.top; y < visible.bottom;) {
        const CoverRow row(covers, y);
        const int64_t yEnd = std::min<int64_t>(row.alikeUntil, visible.bottom);
        int64_t x = visible.left;
        for (const int64_t cut : {row.begin, row.flatBegin, row.flatEnd, row.end, int64_t{visible.right}}) {
            const int64_t to = std::min<int64_t>(cut, visible.right);
            if (to <= x) continue;
            const bool isOutside = x < row.begin || x >= row.end;
            if (isOutside || (x >= row.flatBegin && x < row.flatEnd)) {
                painter.Even(x, to, y, yEnd, isOutside ? 0 : ShareOf(row.flat));
            } else {
                for (int64_t from = x; from < to; from += PartPainter::kMaxCovered) {
                    const int count = static_cast<int>(std::min<int64_t>(PartPainter::kMaxCovered, to - from));
                    for (int i = 0; i < count; ++i) shares[i] = ShareOf(row.At(from + i));
                    painter.Take(shares, {0, count});
                    painter.Varying(from, {0, count}, y, yEnd);
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
