// Across, a row of knots becomes a line of shares of 14 bits; down, a row of pixels is the sum of two such lines.

#include "draw/geometry/smooth_tile.h"

#include <algorithm>
#include <cstdlib>

namespace lacquer {
namespace {

constexpr int kWayBits = 12, kWay = 1 << kWayBits;
constexpr int kLineBits = 14, kLeftOut = 28 - kLineBits;  ///< of a share, which is in 2^-28

constexpr int32_t kUnseen = kFullShadow / 600;  ///< less than half of 1/255

int16_t LineShare(int32_t share) { return static_cast<int16_t>((share + (1 << (kLeftOut - 1))) >> kLeftOut); }

}  // namespace

/// A shape's middle lies on a whole 1/512 pixel, so that the way is exact, and the same in mirror images.
SmoothTile::Place SmoothTile::PlaceOf(int64_t pixel, int64_t middle) {
    const int64_t way = (pixel * GaussianEdge::kPixel + GaussianEdge::kPixel / 2 - middle) / (kSpacing / kWay);
    return {way >> kWayBits, static_cast<int>(way & (kWay - 1))};
}

void SmoothTile::Compute(int64_t x, int64_t y, int columns, int rows) {
    const int64_t middleX = caster_.MiddleAcross(), middleY = caster_.MiddleDown();
    x_ = x;
    y_ = y;
    columns_ = columns;
    firstColumn_ = PlaceOf(x, middleX);
    firstRow_ = PlaceOf(y, middleY).knot;
    grid_ = {middleX - GaussianEdge::kPixel / 2 + firstColumn_.knot * kSpacing,
             middleY - GaussianEdge::kPixel / 2 + firstRow_ * kSpacing, kSpacing,
             static_cast<int>(PlaceOf(x + columns - 1, middleX).knot - firstColumn_.knot) + 2,
             static_cast<int>(PlaceOf(y + rows - 1, middleY).knot - firstRow_) + 2};
    PixelRange wanted[ShadowTile::kRows];
    std::fill_n(wanted, grid_.rows, PixelRange{0, grid_.columns});
    knots_.ComputeGrid(grid_, wanted);
    std::fill_n(lineRows_, 2, INT64_MAX);
}

void SmoothTile::MakeLine(int64_t knotRow) {
    int16_t line[ShadowTile::kColumns * kStep];
    const int32_t *knots = knots_.Row(static_cast<int>(knotRow - firstRow_));
    const int before = firstColumn_.way * kStep / kWay, way = firstColumn_.way % (kWay / kStep);
    for (int i = 0; i + 1 < grid_.columns; ++i) {
        const int share = LineShare(knots[i]), change = LineShare(knots[i + 1]) - share;
        const int start = share * kWay + change * way + kWay / 2;
        for (int j = 0; j < kStep; ++j) {
            line[i * kStep + j] = static_cast<int16_t>((start + change * j * (kWay / kStep)) >> kWayBits);
        }
    }
    seen_[knotRow & 1] = FindSeen(knots);
    for (int x = 0; x < columns_; x += kLinePixels) {
        std::copy_n(line + before + x, std::min(kLinePixels, columns_ - x), lines_[x / kLinePixels][knotRow & 1]);
    }
    lineRows_[knotRow & 1] = knotRow;
}

/// Pixels between knots that are all of one kind: a shape's shares rise and fall once.
SmoothTile::Seen SmoothTile::FindSeen(const int32_t *knots) const {
    const int count = grid_.columns, before = firstColumn_.way * kStep / kWay;
    const auto firstOf = [=](int32_t share, bool isNear, int knot) {
        while (knot < count && (std::abs(knots[knot] - share) < kUnseen) != isNear) ++knot;
        return knot;
    };
    int last = count;
    const int first = firstOf(nothing_, false, 0), full = firstOf(kFullShadow, true, 0);
    while (last > first && std::abs(knots[last - 1] - nothing_) < kUnseen) --last;
    if (first == last) return {};
    const int afterFull = firstOf(kFullShadow, false, full);
    return {{(first - 1) * kStep - before, last * kStep - before},
            {full * kStep - before, (afterFull - 1) * kStep - before}};
}

SmoothTile::Seen SmoothTile::GoTo(int row, const PixelRange &wanted) {
    row_ = y_ + row;
    const int64_t knot = PlaceOf(row_, caster_.MiddleDown()).knot;
    for (const int64_t knotRow : {knot, knot + 1}) {
        if (lineRows_[knotRow & 1] != knotRow) MakeLine(knotRow);
    }
    const PixelRange all = seen_[0].all.With(seen_[1].all).CutTo(wanted);
    const PixelRange full = seen_[0].full.CutTo(seen_[1].full).CutTo(all);
    return {all, full.IsEmpty() ? PixelRange{all.to, all.to} : full};
}

const int32_t *SmoothTile::Shares(const PixelRange &range) {
    const auto [knot, way] = PlaceOf(row_, caster_.MiddleDown());
    // Together they are what lines leave out.
    constexpr int kUnit = (1 << kLeftOut) / kWay;
    int16_t weights[2];
    weights[knot & 1] = static_cast<int16_t>(kUnit * (kWay - way));
    weights[(knot + 1) & 1] = static_cast<int16_t>(kUnit * way);
    std::fill(shares_ + range.from, shares_ + range.to, 0);
    for (int x = range.from & -kLinePixels; x < range.to; x += kLinePixels) {
        kernels_.addLines(shares_ + x, lines_[x / kLinePixels][0], weights, 2, std::max(0, range.from - x),
                          std::min(kLinePixels, range.to - x));
    }
    caster_.SetWhole(x_, row_, range, shares_);
    return shares_;
}

}  // namespace lacquer
