// What casts a blurred shadow: a rounded rectangle, the blur, and where on the canvas both are felt.
#pragma once

#include <cstdint>
#include <optional>

#include "draw/geometry/caster_side.h"
#include "draw/geometry/gaussian_edge.h"
#include "draw/geometry/rounded_rect.h"
#include "draw/geometry/units.h"

namespace lacquer {

/// Pixels from `begin` to `end` are shadowed at all, those from `middleBegin` to `middleEnd` as by straight edges of
/// the other direction alone.
struct ShadowSpan {
    int64_t begin, middleBegin, middleEnd, end;
};

/// Positions are in 1/65536 pixel.
class Caster {
public:
    /// `blur`: units, above 0. `shape` is not empty; its corners' squares may overlap.
    Caster(const RoundedRect &shape, int64_t blur);

    const GaussianEdge &Edge() const { return edge_; }

    /// The right side runs against the x axis.
    const CasterSide &Left() const { return left_; }
    const CasterSide &Right() const { return right_; }

    /// No row has anything to cast.
    bool IsEmpty() const { return top_ >= bottom_; }

    ShadowSpan Columns() const;
    ShadowSpan Rows() const;

    /// The share of kFullShadow in a row's pixels between the sides.
    int32_t RowShare(int64_t y) const;

    /// The sum of the rows of which one mirrors the other, if the shape is symmetric.
    std::optional<int64_t> MirrorDown() const;

    /// Where the middle of the shape is: no mirror changes its distances.
    int64_t MiddleAcross() const { return (shape_.left + shape_.right) / 2; }
    int64_t MiddleDown() const { return (shape_.top + shape_.bottom) / 2; }

    /// Sets the shares of pixels that are nothing but shadow: with the blur's reach around them they lie in the caster.
    /// They are in row y; `shares` begins with that of pixel x.
    void SetWhole(int64_t x, int64_t y, const PixelRange &columns, int32_t *shares) const;

private:
    void CutOverlap();
    CasterSide MakeSide(bool isLeft) const;
    int64_t WidthAt(int64_t y) const { return -right_.At(y) - left_.At(y); }

    RoundedRect shape_;  ///< in 1/65536 pixel
    GaussianEdge edge_;
    int64_t top_, bottom_;  ///< of the rows that the arcs leave over
    CasterSide left_, right_;
};

}  // namespace lacquer
