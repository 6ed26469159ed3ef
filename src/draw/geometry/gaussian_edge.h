// How a straight edge looks once it is blurred.
#pragma once

#include <cstdint>

namespace lacquer {

/// The integral of a Gaussian that ends at three standard deviations, less its half: what lies on one side of a blurred
/// edge. Distances are in 1/65536 pixel, positive on the inner side.
class GaussianEdge {
public:
    static constexpr int kHalf = 1 << 13;  ///< the whole is 2^14
    static constexpr int64_t kPixel = 65536;

    /// `blur`: units, above 0, at most 1024 pixels; twice the standard deviation.
    explicit GaussianEdge(int64_t blur);

    /// Three standard deviations: beyond, the edge is not felt.
    int64_t Reach() const { return reach_; }

    int64_t Deviation() const { return reach_ / 3; }

    /// The mean over the pixel that begins so far from the edge, −kHalf..kHalf. Exactly odd around the pixel's middle,
    /// and exactly ±kHalf beyond the reach.
    int At(int64_t distance) const;

    /// The same for `count` pixels that begin `spacing` after each other: one pixel, or more where the blur is so wide
    /// that the edge IsWide().
    void Line(int64_t distance, int64_t spacing, int count, int16_t *out) const;

    /// The value in a pixel's middle is its mean.
    bool IsWide() const { return isWide_; }

private:
    int AtMiddle(int64_t distance) const;
    int64_t Integral(int64_t distance) const;
    int Mean(int64_t distance, int64_t from, int64_t to) const;

    int64_t reach_;
    bool isWide_;
    int64_t scale_;    ///< from distances to steps of the table, 2^-44 of one
    int shift_;        ///< what keeps the quotient by a pixel's steps inside 64 bits
    int64_t inverse_;  ///< 2^48 / a pixel's steps
};

}  // namespace lacquer
