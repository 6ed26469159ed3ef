// One side of what casts a shadow, cut into slabs with straight vertical edges.
#pragma once

#include <cstdint>

#include "draw/geometry/arc.h"

namespace lacquer {

/// The left side: an arc, a straight edge, another arc. A right side is mirrored: its x axis runs the other way. All in
/// 1/65536 pixel.
class CasterSide {
public:
    /// The side from y = `top` to `bottom`, of a rectangle whose edge is at x = `edge`. The arcs' circles have their
    /// centres at `upperCentre` and `lowerCentre`, one radius inwards of the edge; `slab` is the length of arc that one
    /// slab may stand for.
    CasterSide(int64_t edge, int64_t top, int64_t bottom, int64_t upperCentre, int64_t upperRadius, int64_t lowerCentre,
               int64_t lowerRadius, int64_t slab);

    int64_t SlabCount() const { return upper_.count + 1 + lower_.count; }

    /// Slab i lies between Cut(i) and Cut(i + 1), which never decrease.
    int64_t Cut(int64_t i) const;

    /// The slab's edge: where the side is on average.
    int64_t EdgeOf(int64_t i) const;

    /// Slabs up to this one come nearer to the straight edge, those after the next one go away from it.
    int64_t StraightSlab() const { return upper_.count; }

    /// Where the side is at a height between top and bottom.
    int64_t At(int64_t y) const;

private:
    struct Arc {
        int64_t centre;
        ArcRadius radius;
        int64_t count;  ///< of its slabs

        /// The cut between slabs i - 1 and i, counted from the arc's far end: its distance from the centre.
        int64_t CutHeight(int64_t i) const;

        /// How far the circle reaches at a height.
        int64_t ReachAt(int64_t height) const;

        /// The mean reach between two heights, low < high.
        int64_t MeanReach(int64_t low, int64_t high) const;
    };

    static Arc MakeArc(int64_t centre, int64_t radius, int64_t slab);

    int64_t edge_, top_, bottom_;
    Arc upper_, lower_;
};

}  // namespace lacquer
