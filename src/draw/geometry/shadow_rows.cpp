// Tile by tile: narrow ones that come row after row, and wide ones.

#include "draw/geometry/shadow_rows.h"

#include <algorithm>

namespace lacquer {
namespace {

/// Each row of a tile lies in another part of memory: it is asked for so many rows before.
constexpr int kRowsAhead = 8;

/// After a tile's last rows come the first ones of the tile beside it.
void PrefetchAhead(const ShadowPainter &painter, const ShadowRows &rows, int row, int64_t x, int64_t xEnd) {
    int ahead = row + kRowsAhead;
    if (ahead >= rows.Count()) {
        ahead -= rows.Count();
        x += ShadowTile::kColumns;
    }
    if (ahead >= rows.Count() || x >= xEnd) return;
    const ptrdiff_t columns = std::min<int64_t>(ShadowTile::kColumns, xEnd - x);
    rows.ForEachImage(ahead, [&](int64_t y) { painter.Prefetch(x, columns, y); });
}

/// The pixels of `columns` from x on that shadow may be painted into, in a row or in its mirror image.
PixelRange WantedOf(ShadowPainter &painter, const ShadowRows &rows, int row, int64_t x, int columns) {
    PixelRange wanted{0, 0};
    rows.ForEachImage(row, [&](int64_t y) { wanted = wanted.With(painter.Narrowed(x, {0, columns}, y)); });
    return wanted;
}

void PaintRow(ShadowPainter &painter, const ShadowRows &rows, int row, int64_t x, const PixelRange &wanted,
              const int32_t *shares) {
    painter.Take(shares, wanted);
    rows.ForEachImage(row, [&](int64_t y) { painter.Varying(x, painter.Narrowed(x, wanted, y), y, y + 1); });
}

}  // namespace

void PaintTiles(ShadowTile &tile, ShadowPainter &painter, const ShadowRows &rows, int64_t x, int64_t xEnd) {
    for (; x < xEnd; x += ShadowTile::kColumns) {
        const int columns = static_cast<int>(std::min<int64_t>(ShadowTile::kColumns, xEnd - x));
        PixelRange wanted[ShadowTile::kRows];
        bool isAnyWanted = false;
        for (int row = 0; row < rows.Count(); ++row) {
            wanted[row] = WantedOf(painter, rows, row, x, columns);
            isAnyWanted |= !wanted[row].IsEmpty();
        }
        if (!isAnyWanted) continue;
        tile.Compute(x, rows.First(), columns, rows.Count(), wanted);
        for (int row = 0; row < rows.Count(); ++row) {
            PrefetchAhead(painter, rows, row, x, xEnd);
            if (!wanted[row].IsEmpty()) PaintRow(painter, rows, row, x, wanted[row], tile.Row(row));
        }
    }
}

void PaintTiles(SmoothTile &tile, ShadowPainter &painter, const ShadowRows &rows, int64_t x, int64_t xEnd) {
    for (; x < xEnd; x += SmoothTile::kColumns) {
        const int columns = static_cast<int>(std::min<int64_t>(SmoothTile::kColumns, xEnd - x));
        tile.Compute(x, rows.First(), columns, rows.Count());
        for (int row = 0; row < rows.Count(); ++row) {
            const PixelRange wanted = WantedOf(painter, rows, row, x, columns);
            if (wanted.IsEmpty()) continue;
            const auto seen = tile.GoTo(row, wanted);
            const PixelRange all = seen.all, full = seen.full;
            if (all.IsEmpty()) continue;
            if (row + 1 < rows.Count()) {
                rows.ForEachImage(row + 1, [&](int64_t y) { painter.Prefetch(x + all.from, all.to - all.from, y); });
            }
            for (const PixelRange &part : {PixelRange{all.from, full.from}, PixelRange{full.to, all.to}}) {
                if (!part.IsEmpty()) PaintRow(painter, rows, row, x, part, tile.Shares(part));
            }
            if (full.IsEmpty()) continue;
            rows.ForEachImage(row, [&](int64_t y) { painter.Even(x + full.from, x + full.to, y, y + 1, kFullShadow); });
        }
    }
}

}  // namespace lacquer
