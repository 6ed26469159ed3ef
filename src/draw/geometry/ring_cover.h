// How much of each pixel a dashed ring covers. Each point of the ring belongs to the nearest point of the ring's centre
// line: across the straight sides along their normals, in the corners along the radii.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "draw/geometry/dashes.h"
#include "draw/geometry/rounded_rect.h"

namespace lacquer {

/// What a block of pixels has in common: no cover, full cover, that its rows are alike, or its columns, or nothing.
enum class RingBlock { kNothing, kWhole, kAlikeDown, kAlikeAcross, kVarying };

/// Lengths and positions are in 1/65536 pixel, areas in 2^-32 square pixels.
class RingCover {
public:
    /// `shape`: with equal radii. `width`: above 0, at most half the smaller side. The last three are in units.
    RingCover(const RoundedRect &shape, int64_t width, int64_t dash, int64_t gap);

    /// The length of the centre line of such a ring.
    static int64_t LineLength(const RoundedRect &shape, int64_t width);

    /// Writes the cover of `count` pixels of row y from x on.
    void Write(int64_t x, int count, int64_t y, BYTE *out) const;

    /// Of the pixels x..xEnd in the rows y..yEnd.
    RingBlock BlockOf(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const;

private:
    /// A box in the system of a side, that is along it clockwise and inwards, or of the corner before it: away from the
    /// circle's centre, first to where its arc begins and then to where it ends.
    struct Box {
        int64_t a0, a1, b0, b1;
        Box CutTo(int64_t aLow, int64_t aHigh, int64_t bLow, int64_t bHigh) const;
        bool IsEmpty() const { return a0 >= a1 || b0 >= b1; }
        int64_t Area() const { return (a1 - a0) * (b1 - b0); }
    };

    /// The sides in order, clockwise from the upper one.
    std::array<Box, 4> InSides(const Box &box) const;
    Box InCorner(const Box &inSide) const { return {-inSide.a1, -inSide.a0, corner_ - inSide.b1, corner_ - inSide.b0}; }
    bool IsInSide(const Box &box, int64_t length) const {
        const int64_t inset = std::max<int64_t>(0, box.b1 - corner_);
        return box.b0 >= 0 && box.b1 <= width_ && box.a0 >= inset && box.a1 <= length - inset;
    }
    bool IsInCorner(const Box &corner) const {
        return corner.a0 >= 0 && corner.a1 <= corner_ && corner.b0 >= 0 && corner.b1 <= corner_;
    }
    int64_t LengthOf(size_t side) const { return side % 2 == 0 ? across_ : down_; }
    int64_t CornerStart(size_t side) const { return side == 0 ? -(arc_ / 2) : starts_[side] - arc_; }
    static BYTE CoverOf(int64_t area) {
        return static_cast<BYTE>(std::min<int64_t>(255, (area * 255 + (int64_t{1} << 31)) >> 32));
    }
    RingBlock CornerBlockOf(const Box &box, int64_t start) const;

    BYTE At(int64_t x, int64_t y) const;
    int64_t SideArea(const Box &box, int64_t length, int64_t start) const;
    int64_t CornerArea(const Box &box, int64_t start) const;
    int64_t SharpCornerArea(const Box &box, int64_t start) const;
    bool IsFar(const Box &box) const;
    int64_t FarArea(const Box &box, int64_t start) const;
    int64_t PlaceOf(int64_t a, int64_t b, int64_t start) const;
    int64_t SectorArea(const Box &box, int64_t from, int64_t to, int64_t start) const;
    int64_t AlongArc(const Box &box, int64_t radius, int64_t start) const;
    static int64_t DiscArea(const Box &box, const Circle &disc);

    int64_t left_, top_, right_, bottom_;
    int64_t width_;
    int64_t outerRadius_, innerRadius_;
    int64_t corner_;                 ///< side of the square in a corner whose points belong to the corner's arc
    int64_t lineRadius_;             ///< of the centre line in the corners
    int64_t across_, down_, arc_;    ///< lengths of the centre line's sides and of its arcs
    std::array<int64_t, 4> starts_;  ///< of the sides on the line
    Dashes dashes_;
    Circle outer_, inner_;
};

}  // namespace lacquer
