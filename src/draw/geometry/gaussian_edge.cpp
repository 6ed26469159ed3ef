// One table serves every blur: the Gaussian's integral in steps of 3/256 standard deviations, taken as linear between
// them, so that its own integral, which the mean over a pixel needs, is exact.

#include "draw/geometry/gaussian_edge.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>

namespace lacquer {
namespace {

constexpr int kSteps = 256;
constexpr int kFraction = 20;  ///< bits of a position between two steps
constexpr int64_t kTableHalf = int64_t{1} << 23;

/// From so many units of blur on, the mean over a pixel differs from the value in its middle by less than 1/6000.
constexpr int64_t kWideBlur = int64_t{16} * 256;

struct Knot {
    int64_t value;          ///< of the integral, 0 at the edge, kTableHalf at its reach
    int64_t twiceIntegral;  ///< of the values so far
};

constexpr std::array<Knot, kSteps + 1> MakeKnots() {
    // exp(−(i h)² / 2) by its ratio from one i to the next, exp(−h² (i + 1/2)), which has a constant ratio itself. In
    // 2^-31; the series of both end early, as h is small.
    constexpr uint64_t kOne = uint64_t{1} << 31, kHalfSquare = (9 * kOne) >> 17, kSquare = (9 * kOne) >> 16;
    uint64_t density = kOne, ratio = kOne - kHalfSquare + (kHalfSquare * kHalfSquare >> 32);
    const uint64_t ratioOfRatios = kOne - kSquare + (kSquare * kSquare >> 32);
    std::array<uint64_t, kSteps + 1> sums{};
    for (size_t i = 0; i < kSteps; ++i) {
        const uint64_t next = density * ratio >> 31;
        sums[i + 1] = sums[i] + density + next;
        density = next;
        ratio = ratio * ratioOfRatios >> 31;
    }
    std::array<Knot, kSteps + 1> knots{};
    for (size_t i = 0; i <= kSteps; ++i) {
        knots[i].value = static_cast<int64_t>((sums[i] >> 2) * kTableHalf / (sums[kSteps] >> 2));
        if (i > 0) knots[i].twiceIntegral = knots[i - 1].twiceIntegral + knots[i - 1].value + knots[i].value;
    }
    return knots;
}
constexpr std::array<Knot, kSteps + 1> kKnots = MakeKnots();

}  // namespace

GaussianEdge::GaussianEdge(int64_t blur)
    : reach_(384 * blur), isWide_(blur >= kWideBlur), scale_((int64_t{kSteps} << 44) / reach_) {
    const int64_t steps = kPixel * scale_ >> 24;
    shift_ = std::max(0, static_cast<int>(std::bit_width(static_cast<uint64_t>(steps))) - 20);
    inverse_ = (int64_t{1} << 48) / std::max<int64_t>(1, steps >> shift_);
}

/// The value in the middle of the pixel that begins at this distance.
int GaussianEdge::AtMiddle(int64_t distance) const {
    const int64_t middle = distance + kPixel / 2;
    const int64_t position = std::abs(middle) * scale_ >> 24;
    const auto step = static_cast<size_t>(position >> kFraction);
    if (step >= kSteps) return middle < 0 ? -kHalf : kHalf;
    const int64_t rest = position & ((int64_t{1} << kFraction) - 1);
    const int64_t value = kKnots[step].value + (rest * (kKnots[step + 1].value - kKnots[step].value) >> kFraction);
    const int rounded = static_cast<int>((value + (1 << 9)) >> 10);
    return middle < 0 ? -rounded : rounded;
}

/// Of the edge's value from the edge to here; even. In 2^-24 × 2^-20 steps.
int64_t GaussianEdge::Integral(int64_t distance) const {
    const int64_t position = std::abs(distance) * scale_ >> 24;
    constexpr int64_t kEnd = int64_t{kSteps} << kFraction;
    if (position >= kEnd) return (kKnots[kSteps].twiceIntegral << (kFraction - 1)) + (position - kEnd) * kTableHalf;
    const auto step = static_cast<size_t>(position >> kFraction);
    const int64_t rest = position & ((int64_t{1} << kFraction) - 1);
    const Knot &knot = kKnots[step];
    return (knot.twiceIntegral << (kFraction - 1)) + rest * knot.value +
           ((rest * rest >> 1) * (kKnots[step + 1].value - knot.value) >> kFraction);
}

int GaussianEdge::Mean(int64_t distance, int64_t from, int64_t to) const {
    if (distance >= reach_) return kHalf;
    if (distance + kPixel <= -reach_) return -kHalf;
    const int64_t size = std::abs(to - from) >> shift_ >> 12;
    const int mean = static_cast<int>(std::min<int64_t>(kHalf, (size * inverse_ + (int64_t{1} << 45)) >> 46));
    return to < from ? -mean : mean;
}

int GaussianEdge::At(int64_t distance) const {
    // The integral is asked for near the edge only, where its terms are small.
    if (distance >= reach_) return kHalf;
    if (distance + kPixel <= -reach_) return -kHalf;
    if (isWide_) return AtMiddle(distance);
    return Mean(distance, Integral(distance), Integral(distance + kPixel));
}

void GaussianEdge::Line(int64_t distance, int64_t spacing, int count, int16_t *out) const {
    int i = 0;
    for (; i < count && distance + kPixel <= -reach_; ++i, distance += spacing) out[i] = -kHalf;
    if (isWide_) {
        for (; i < count && distance < reach_; ++i, distance += spacing) {
            out[i] = static_cast<int16_t>(AtMiddle(distance));
        }
    } else if (i < count && distance < reach_) {
        for (int64_t from = Integral(distance); i < count && distance < reach_; ++i, distance += kPixel) {
            const int64_t to = Integral(distance + kPixel);
            out[i] = static_cast<int16_t>(Mean(distance, from, to));
            from = to;
        }
    }
    std::fill(out + i, out + count, static_cast<int16_t>(kHalf));
}

}  // namespace lacquer
