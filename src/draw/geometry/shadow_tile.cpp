// A shape is a stack of slabs, and a blurred slab is a product: its weight in the row × the transition at its edge in
// the column. The transitions of the left side rise and those of the right side fall; whole shadow is where both are
// at their upper end. Slabs whose edge is felt nowhere in the tile count together.

#include "draw/geometry/shadow_tile.h"

#include <algorithm>

namespace lacquer {
namespace {

constexpr int64_t kPixel = GaussianEdge::kPixel;

/// The first number from `low` on for which `test` fails; it fails for all that follow.
template <class Test>
int64_t FirstFailing(int64_t low, int64_t high, const Test &test) {
    while (low < high) {
        const int64_t middle = low + (high - low) / 2;
        if (test(middle)) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

}  // namespace

void ShadowTile::Compute(int64_t x, int64_t y, int columns, int rows, const PixelRange *wanted) {
    ComputeGrid({x * kPixel, y * kPixel, kPixel, columns, rows}, wanted);
    for (int row = 0; row < rows; ++row) caster_.SetWhole(x, y + row, wanted[row], sums_[row]);
}

void ShadowTile::ComputeGrid(const ShadowGrid &grid, const PixelRange *wanted) {
    grid_ = grid;
    wanted_ = wanted;
    std::fill_n(groups_, grid.rows, 0);
    const Felt left = FindFelt(caster_.Left(), true), right = FindFelt(caster_.Right(), false);
    AddGroups(caster_.Left(), left);
    AddGroups(caster_.Right(), right);
    for (int row = 0; row < grid.rows; ++row) std::fill_n(sums_[row], grid.columns, groups_[row]);
    for (const bool isLeft : {true, false}) {
        const CasterSide &side = isLeft ? caster_.Left() : caster_.Right();
        const Felt &felt = isLeft ? left : right;
        GatherSlabs(side, isLeft, felt.upperFelt, felt.upperEnd);
        GatherSlabs(side, isLeft, felt.straight, felt.afterStraight);
        GatherSlabs(side, isLeft, felt.lowerFelt, felt.lowerEnd);
    }
    AddGathered();
}

ShadowTile::Felt ShadowTile::FindFelt(const CasterSide &side, bool isLeft) const {
    const int64_t reach = caster_.Edge().Reach();
    const int64_t above = grid_.y - reach, below = grid_.YEnd() + reach;
    const int64_t nearLimit = (isLeft ? grid_.x : -grid_.XEnd()) - reach;
    const int64_t farLimit = (isLeft ? grid_.XEnd() : -grid_.x) + reach;
    const auto isBefore = [&](int64_t i) { return side.EdgeOf(i) <= nearLimit; };
    const auto isNotBefore = [&](int64_t i) { return side.EdgeOf(i) > nearLimit; };
    const auto isBeyond = [&](int64_t i) { return side.EdgeOf(i) >= farLimit; };
    const auto isNotBeyond = [&](int64_t i) { return side.EdgeOf(i) < farLimit; };

    // Downwards the upper arc comes nearer, and the lower arc goes away.
    Felt felt{};
    felt.first = FirstFailing(0, side.SlabCount(), [&](int64_t i) { return side.Cut(i + 1) <= above; });
    felt.last = FirstFailing(felt.first, side.SlabCount(), [&](int64_t i) { return side.Cut(i) < below; });
    felt.straight = std::clamp(side.StraightSlab(), felt.first, felt.last);
    felt.afterStraight = std::clamp(side.StraightSlab() + 1, felt.first, felt.last);
    felt.upperFelt = FirstFailing(felt.first, felt.straight, isBeyond);
    felt.upperEnd = FirstFailing(felt.upperFelt, felt.straight, isNotBefore);
    felt.lowerFelt = FirstFailing(felt.afterStraight, felt.last, isBefore);
    felt.lowerEnd = FirstFailing(felt.lowerFelt, felt.last, isNotBeyond);
    // A straight edge that is not felt joins the group after it.
    if (felt.straight < felt.afterStraight && isBefore(felt.straight)) felt.afterStraight = felt.straight;
    return felt;
}

void ShadowTile::AddGroups(const CasterSide &side, const Felt &felt) {
    AddGroup(side, felt.first, felt.upperFelt, -GaussianEdge::kHalf);
    AddGroup(side, felt.upperEnd, felt.straight, GaussianEdge::kHalf);
    AddGroup(side, felt.afterStraight, felt.lowerFelt, GaussianEdge::kHalf);
    AddGroup(side, felt.lowerEnd, felt.last, -GaussianEdge::kHalf);
}

/// The transition at a slab's end, by row.
void ShadowTile::LineDown(int64_t cut, int16_t *out) const {
    caster_.Edge().Line(grid_.y - cut, grid_.spacing, grid_.rows, out);
}

/// Slabs with one transition in all of the tile.
void ShadowTile::AddGroup(const CasterSide &side, int64_t from, int64_t to, int transition) {
    if (from >= to) return;
    int16_t top[kRows], bottom[kRows];
    LineDown(side.Cut(from), top);
    LineDown(side.Cut(to), bottom);
    for (int row = 0; row < grid_.rows; ++row) groups_[row] += (top[row] - bottom[row]) * transition;
}

void ShadowTile::GatherSlabs(const CasterSide &side, bool isLeft, int64_t from, int64_t to) {
    if (from >= to) return;
    const int64_t start = isLeft ? grid_.x : -grid_.XEnd();
    int16_t cuts[2][kRows];  // transitions at a slab's ends, by row; the lower end is the next one's upper
    LineDown(side.Cut(from), cuts[from & 1]);
    for (int64_t i = from; i < to; ++i) {
        if (gathered_ == kMaxLines) AddGathered();
        int16_t *line = lines_ + ptrdiff_t{gathered_} * kLinePixels;
        caster_.Edge().Line(start - side.EdgeOf(i), grid_.spacing, grid_.columns, line);
        if (!isLeft) std::reverse(line, line + grid_.columns);
        const int16_t *top = cuts[i & 1];
        int16_t *bottom = cuts[(i + 1) & 1];
        LineDown(side.Cut(i + 1), bottom);
        for (int row = 0; row < grid_.rows; ++row)
            weights_[row][gathered_] = static_cast<int16_t>(top[row] - bottom[row]);
        ++gathered_;
    }
}

/// Adds the slabs' lines to every row that feels them.
void ShadowTile::AddGathered() {
    for (int row = 0; row < grid_.rows; ++row) {
        if (wanted_[row].IsEmpty()) continue;
        const int16_t *weights = weights_[row];
        int first = 0, end = gathered_;
        while (first < end && weights[first] == 0) ++first;
        while (first < end && weights[end - 1] == 0) --end;
        if (first == end) continue;
        kernels_.addLines(sums_[row], lines_ + ptrdiff_t{first} * kLinePixels, weights + first, end - first,
                          wanted_[row].from, wanted_[row].to);
    }
    gathered_ = 0;
}

}  // namespace lacquer
