// Rows of a shadow in which every pixel differs, and those that mirror them.
#pragma once

#include <cstdint>
#include <optional>

#include "draw/geometry/shadow_painter.h"
#include "draw/geometry/shadow_tile.h"
#include "draw/geometry/smooth_tile.h"

namespace lacquer {

/// Some rows that follow each other. What the mirror gives is not computed twice.
class ShadowRows {
public:
    /// Row y is mirrored by row `mirror` − y, where that lies inside `visible`.
    ShadowRows(const RECT &visible, int64_t y, int64_t yEnd, std::optional<int64_t> mirror)
        : visible_(visible), y_(y), count_(static_cast<int>(yEnd - y)), mirror_(mirror) {}

    int64_t First() const { return y_; }
    int Count() const { return count_; }

    /// The row that mirrors the one so many rows below the first.
    std::optional<int64_t> MirrorOf(int row) const {
        if (!mirror_) return std::nullopt;
        const int64_t mirrored = *mirror_ - y_ - row;
        if (mirrored == y_ + row || mirrored < visible_.top || mirrored >= visible_.bottom) return std::nullopt;
        return mirrored;
    }

    /// Calls paint(y) for a row and for its mirror image.
    template <class Paint>
    void ForEachImage(int row, const Paint &paint) const {
        paint(y_ + row);
        if (const std::optional<int64_t> mirrored = MirrorOf(row)) paint(*mirrored);
    }

    /// The same for all rows, downwards: first these, then the mirror images.
    template <class Paint>
    void ForEachDown(const Paint &paint) const {
        for (int row = 0; row < count_; ++row) paint(y_ + row);
        for (int row = count_; row-- > 0;) {
            if (const std::optional<int64_t> mirrored = MirrorOf(row)) paint(*mirrored);
        }
    }

private:
    const RECT &visible_;
    const int64_t y_;
    const int count_;
    const std::optional<int64_t> mirror_;
};

/// Paints the columns x..xEnd of rows, of which there are at most as many as a tile has.
void PaintTiles(ShadowTile &tile, ShadowPainter &painter, const ShadowRows &rows, int64_t x, int64_t xEnd);
void PaintTiles(SmoothTile &tile, ShadowPainter &painter, const ShadowRows &rows, int64_t x, int64_t xEnd);

}  // namespace lacquer
