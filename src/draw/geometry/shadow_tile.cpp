// A shape is a stack of slabs, and a blurred slab is a product: its weight in the row × the transition at its edge in
// the column. The transitions of the left side rise and those of the right side fall; whole shadow is where both are
// at their upper end. Slabs whose edge is felt nowhere in the tile count together.

#include "draw/geometry/shadow_tile.h"

#include <algorithm>
#include <cstring>

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

void ShadowTile::Compute(int64_t x, int64_t y, int columns, int rows, const Wanted *wanted) {
    x_ = x;
    y_ = y;
    columns_ = columns;
    rows_ = rows;
    wanted_ = wanted;
    std::memset(sums_, 0, sizeof sums_[0] * static_cast<size_t>(rows));
    AddSide(caster_.Left(), true);
    AddSide(caster_.Right(), false);
    SetWhole();
}

void ShadowTile::AddSide(const CasterSide &side, bool isLeft) {
    const int64_t reach = caster_.Edge().Reach();
    const int64_t above = y_ * kPixel - reach, below = (y_ + rows_) * kPixel + reach;
    const int64_t near = (isLeft ? x_ : -(x_ + columns_)) * kPixel - reach;
    const int64_t far = (isLeft ? x_ + columns_ : -x_) * kPixel + reach;
    const int64_t first = FirstFailing(0, side.SlabCount(), [&](int64_t i) { return side.Cut(i + 1) <= above; });
    const int64_t last = FirstFailing(first, side.SlabCount(), [&](int64_t i) { return side.Cut(i) < below; });
    const int64_t straight = std::clamp(side.StraightSlab(), first, last);
    const int64_t afterStraight = std::clamp(side.StraightSlab() + 1, first, last);
    const auto isBefore = [&](int64_t i) { return side.EdgeOf(i) <= near; };
    const auto isBeyond = [&](int64_t i) { return side.EdgeOf(i) >= far; };

    // Downwards the upper arc comes nearer, and the lower arc goes away.
    const int64_t upperFelt = FirstFailing(first, straight, isBeyond);
    const int64_t upperEnd = FirstFailing(upperFelt, straight, [&](int64_t i) { return !isBefore(i); });
    const int64_t lowerFelt = FirstFailing(afterStraight, last, isBefore);
    const int64_t lowerEnd = FirstFailing(lowerFelt, last, [&](int64_t i) { return !isBeyond(i); });
    AddGroup(side, first, upperFelt, -GaussianEdge::kHalf);
    AddSlabs(side, isLeft, upperFelt, upperEnd);
    AddGroup(side, upperEnd, straight, GaussianEdge::kHalf);
    AddSlabs(side, isLeft, straight, afterStraight);
    AddGroup(side, afterStraight, lowerFelt, GaussianEdge::kHalf);
    AddSlabs(side, isLeft, lowerFelt, lowerEnd);
    AddGroup(side, lowerEnd, last, -GaussianEdge::kHalf);
}

/// Slabs with one transition in all of the tile.
void ShadowTile::AddGroup(const CasterSide &side, int64_t from, int64_t to, int transition) {
    if (from >= to) return;
    const GaussianEdge &edge = caster_.Edge();
    const int64_t top = side.Cut(from), bottom = side.Cut(to);
    for (int row = 0; row < rows_; ++row) {
        const int64_t y = (y_ + row) * kPixel;
        const int32_t added = (edge.At(y - top) - edge.At(y - bottom)) * transition;
        if (added == 0) continue;
        for (int x = wanted_[row].from; x < wanted_[row].to; ++x) sums_[row][x] += added;
    }
}

void ShadowTile::AddSlabs(const CasterSide &side, bool isLeft, int64_t from, int64_t to) {
    for (int64_t done = from; done < to; done += kMostLines) {
        const int count = static_cast<int>(std::min<int64_t>(kMostLines, to - done));
        for (int i = 0; i < count; ++i) {
            int16_t *line = lines_ + i * kLinePixels;
            const int64_t start = (isLeft ? x_ : -(x_ + columns_)) * kPixel;
            caster_.Edge().Line(start - side.EdgeOf(done + i), columns_, line);
            if (!isLeft) std::reverse(line, line + columns_);
        }
        AddWeighted(side, done, count);
    }
}

/// Adds the lines of `count` slabs from `first` on to every row that feels them.
void ShadowTile::AddWeighted(const CasterSide &side, int64_t first, int count) {
    const GaussianEdge &edge = caster_.Edge();
    int64_t cuts[kMostLines + 1];
    for (int i = 0; i <= count; ++i) cuts[i] = side.Cut(first + i);
    for (int row = 0; row < rows_; ++row) {
        if (wanted_[row].from >= wanted_[row].to) continue;
        const int64_t y = (y_ + row) * kPixel;
        int16_t weights[kMostLines];
        int felt = count, end = 0;
        int above = edge.At(y - cuts[0]);
        for (int i = 0; i < count; ++i) {
            const int below = edge.At(y - cuts[i + 1]);
            weights[i] = static_cast<int16_t>(above - below);
            above = below;
            if (weights[i] == 0) continue;
            felt = std::min(felt, i);
            end = i + 1;
        }
        if (felt < end) {
            kernels_.addLines(sums_[row], lines_ + felt * kLinePixels, weights + felt, end - felt, wanted_[row].from,
                              wanted_[row].to);
        }
    }
}

void ShadowTile::SetWhole() {
    for (int row = 0; row < rows_; ++row) {
        int64_t begin = 0, end = 0;
        caster_.FindWhole(y_ + row, &begin, &end);
        begin = std::max<int64_t>(begin - x_, wanted_[row].from);
        end = std::min<int64_t>(end - x_, wanted_[row].to);
        for (int64_t x = begin; x < end; ++x) sums_[row][x] = kFullShadow;
    }
}

}  // namespace lacquer
