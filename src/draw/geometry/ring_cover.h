// How much of each pixel a dashed ring covers. Each point of the ring belongs to the nearest point of the ring's centre
// line: across the straight sides along their normals, in the corners along the radii.
#pragma once

#include <cstdint>

#include "draw/geometry/dashes.h"
#include "draw/geometry/rounded_rect.h"

namespace lacquer {

/// Lengths and positions are in 1/65536 pixel, areas in 2^-32 square pixels.
class RingCover {
public:
    /// `shape`: with equal radii. `width`: above 0, at most half the smaller side. The last three are in units.
    RingCover(const RoundedRect &shape, int64_t width, int64_t dash, int64_t gap);

    /// The length of the centre line of such a ring.
    static int64_t LineLength(const RoundedRect &shape, int64_t width);

    BYTE At(int64_t x, int64_t y) const;

private:
    /// A box in the system of a side or a corner.
    struct Box {
        int64_t a0, a1, b0, b1;
        Box CutTo(int64_t aLow, int64_t aHigh, int64_t bLow, int64_t bHigh) const;
        bool IsEmpty() const { return a0 >= a1 || b0 >= b1; }
        int64_t Area() const { return (a1 - a0) * (b1 - b0); }
    };

    int64_t SideArea(const Box &box, int64_t length, int64_t start) const;
    int64_t CornerArea(const Box &box, int64_t start) const;
    int64_t SharpCornerArea(const Box &box, int64_t start) const;
    bool IsFar(const Box &box) const;
    int64_t FarArea(const Box &box, int64_t start) const;
    int64_t SectorArea(const Box &box, int64_t from, int64_t to, int64_t start) const;
    int64_t AlongArc(const Box &box, int64_t radius, int64_t start) const;
    static int64_t DiscArea(const Box &box, const Circle &disc);

    int64_t left_, top_, right_, bottom_;
    int64_t width_;
    int64_t outerRadius_, innerRadius_;
    int64_t corner_;               ///< side of the square in a corner whose points belong to the corner's arc
    int64_t lineRadius_;           ///< of the centre line in the corners
    int64_t across_, down_, arc_;  ///< lengths of the centre line's sides and of its arcs
    Dashes dashes_;
    Circle outer_, inner_;
};

}  // namespace lacquer
