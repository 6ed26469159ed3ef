// Counting the samples of dense figures, row by row.

#include "sample_mask.h"

#include <algorithm>

namespace lacquer::vel {
namespace {

constexpr int kSamples = 8;
/// Together about a second.
constexpr int64_t kMaxRows = 600'000'000;
constexpr size_t kMaxEdges = 3'000'000;

}  // namespace

SampleMask::SampleMask(const Clip &visible, bool smooth)
    : visible_(visible),
      samples_(smooth ? kSamples : 1),
      sampleColumns_(samples_ * (visible.right - visible.left)),
      sampleRows_(samples_ * (visible.bottom - visible.top)) {}

void SampleMask::AddEdge(Point from, Point to) {
    const Point origin{static_cast<double>(visible_.left), static_cast<double>(visible_.top)};
    const double samples = samples_;
    Point top = samples * (from - origin), bottom = samples * (to - origin);
    const int32_t direction = top.y < bottom.y ? 1 : -1;
    if (direction < 0) std::swap(top, bottom);
    // Samples lie at halves; those from the first end on, and before the second, are beside the edge.
    const auto firstBelow = [this](double y) {
        return static_cast<int32_t>(std::clamp(std::ceil(y - 0.5), 0.0, static_cast<double>(sampleRows_)));
    };
    const int32_t row = firstBelow(top.y), end = firstBelow(bottom.y);
    if (row >= end || std::min(top.x, bottom.x) > sampleColumns_) return;
    rowsOfEdges_ += end - row;
    isWhole_ = isWhole_ && rowsOfEdges_ <= kMaxRows && edges_.Size() < kMaxEdges;
    if (!isWhole_) return;
    const double slope = (bottom.x - top.x) / (bottom.y - top.y);
    const double x = top.x + (row + 0.5 - top.y) * slope + 0.5;
    constexpr double kSteepest = 0x1p30, kUnit = 0x1p32;  // what is steeper crosses no second row
    isWhole_ = edges_.Append({static_cast<int64_t>(x * kUnit),
                              static_cast<int64_t>(std::clamp(slope, -kSteepest, kSteepest) * kUnit), row, end - row,
                              direction});
}

void SampleMask::AddPiece(const Point *corners, int count) {
    Point low = corners[0], high = corners[0];
    double area = 0;
    for (int i = 0; i < count; ++i) {
        const Point p = corners[i] - corners[0], next = corners[(i + 1) % count] - corners[0];
        area += p.x * next.y - p.y * next.x;
        low = {std::min(low.x, corners[i].x), std::min(low.y, corners[i].y)};
        high = {std::max(high.x, corners[i].x), std::max(high.y, corners[i].y)};
    }
    if (high.x <= visible_.left || low.x >= visible_.right || high.y <= visible_.top || low.y >= visible_.bottom)
        return;
    for (int i = 0; i < count; ++i) {
        const Point p = corners[i], next = corners[(i + 1) % count];
        area > 0 ? AddEdge(p, next) : AddEdge(next, p);
    }
}

const unsigned char *SampleMask::Render(bool evenOdd) {
    const size_t columns = static_cast<size_t>(sampleColumns_) + 1, stride = static_cast<size_t>(Stride());
    const size_t pixels = stride * static_cast<size_t>(Rows());
    if (!turns_.AppendZeros(columns) || !coverage_.AppendZeros(pixels)) return nullptr;

    // The edges that cross the present row are kept in front of those that are still to come.
    Edge *edges = edges_.Data();
    const size_t count = edges_.Size();
    std::sort(edges, edges + count, [](const Edge &a, const Edge &b) { return a.row < b.row; });
    size_t present = 0, next = 0;
    unsigned char *covered = coverage_.Data();
    for (int row = 0; row < sampleRows_; ++row) {
        while (next < count && edges[next].row == row) edges[present++] = edges[next++];
        for (size_t i = 0; i < present;) {
            Edge &edge = edges[i];
            const int64_t column = std::clamp<int64_t>(edge.x >> 32, 0, sampleColumns_);
            turns_.Data()[column] += edge.direction;
            edge.x += edge.step;
            if (--edge.rows > 0) {
                ++i;
            } else {
                edge = edges[--present];
            }
        }
        CountRow(evenOdd ? 1 : -1, covered);
        if (row % samples_ != samples_ - 1) continue;
        const int all = samples_ * samples_;
        for (int x = 0; x < Columns(); ++x) covered[x] = static_cast<unsigned char>((255 * covered[x] + all / 2) / all);
        covered += stride;
    }
    return coverage_.begin();
}

void SampleMask::CountRow(int32_t mask, unsigned char *covered) {
    int32_t *turn = turns_.Data(), winding = 0;
    for (int x = 0; x < Columns(); ++x) {
        for (int i = 0; i < samples_; ++i, ++turn) {
            winding += *turn;
            *turn = 0;
            covered[x] = static_cast<unsigned char>(covered[x] + ((winding & mask) != 0));
        }
    }
    *turn = 0;
}

}  // namespace lacquer::vel
