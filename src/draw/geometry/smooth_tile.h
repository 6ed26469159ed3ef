// A piece of a shape that is blurred so widely that little changes from pixel to pixel.
#pragma once

#include <cstdint>

#include "draw/geometry/shadow_tile.h"

namespace lacquer {

/// Up to kColumns × kRows pixels. Their shares are computed in knots, kStep pixels apart from the shape's middle on,
/// and are linear between these. As a blurred shape curves by less than 1 / (2 deviation²), this errs by less than half
/// of 1/255.
class SmoothTile {
public:
    static constexpr int kStep = 8;
    static constexpr int kColumns = (ShadowTile::kColumns - 2) * kStep, kRows = (ShadowTile::kRows / 2 - 1) * kStep;

    /// Whether a blur is wide enough.
    static bool Suits(const GaussianEdge &edge) { return edge.Deviation() >= kStep * kSpacing; }

    /// `knots` keeps them, and has to live as long. Of shares as good as `nothing`, 0 or kFullShadow, nothing is seen.
    SmoothTile(const Caster &caster, ShadowTile &knots, int32_t nothing)
        : caster_(caster), kernels_(ImageKernels()), knots_(knots), nothing_(nothing) {}

    /// Prepares `rows` rows of `columns` pixels from (x, y) on.
    void Compute(int64_t x, int64_t y, int columns, int rows);

    /// Of a row's wanted pixels those of which something may be seen, and inside them those as good as full of shadow.
    struct Seen {
        PixelRange all, full;
    };

    /// Goes to a row; best in order.
    Seen GoTo(int row, const PixelRange &wanted);

    /// The row's shares of kFullShadow, until the next call.
    const int32_t *Shares(const PixelRange &range);

private:
    static constexpr int64_t kSpacing = kStep * GaussianEdge::kPixel;
    static constexpr int kPieces = (kColumns + kLinePixels - 1) / kLinePixels;  ///< of a row

    /// The knot before a pixel, counted from the shape's middle, and in 4096ths the way from there to the next one.
    struct Place {
        int64_t knot;
        int way;
    };
    static Place PlaceOf(int64_t pixel, int64_t middle);

    void MakeLine(int64_t knotRow);
    Seen FindSeen(const int32_t *knots) const;

    const Caster &caster_;
    const ImageTable &kernels_;
    ShadowTile &knots_;
    const int32_t nothing_;
    int64_t x_ = 0, y_ = 0;
    int columns_ = 0;
    Place firstColumn_{};
    ShadowGrid grid_{};
    int64_t firstRow_ = 0;                    ///< of knots
    int64_t lineRows_[2];                     ///< which rows of knots `lines_` holds
    int16_t lines_[kPieces][2][kLinePixels];  ///< even rows of knots first, at every pixel
    Seen seen_[2];                            ///< in `lines_`
    int64_t row_ = 0;                         ///< the one gone to
    int32_t shares_[kPieces * kLinePixels];
};

}  // namespace lacquer
