// What the tests of regions, clips and draws compare with: sets of points, the pixels that a stretch takes, and blends.
#pragma once

#include <bitset>
#include <cstdint>
#include <random>
#include <vector>

#include "gdi_objects.h"

namespace lacquer {

/// A set of points with small coordinates, as a region holds them.
class Points {
public:
    Points() = default;
    /// A rectangle's, its corners in any order.
    explicit Points(const RECT &rect);

    bool Has(int x, int y) const { return points_[Index(x, y)]; }
    Points Combined(const Points &other, int mode) const;
    Points Moved(int x, int y) const;
    bool operator==(const Points &) const = default;

    /// The rectangles that a region keeps: bands of equal rows, from the top, and within them from the left.
    std::vector<RECT> Bands() const;
    RECT Box() const;
    int Kind() const;
    OwnedRegion Region() const;

private:
    static constexpr int kLow = -20, kSide = 64;
    static size_t Index(int x, int y) { return static_cast<size_t>((y - kLow) * kSide + x - kLow); }

    std::bitset<size_t{kSide} * kSide> points_;
};

/// Numbers that are the same on every run and system.
class Random {
public:
    explicit Random(unsigned seed) : generator_(seed) {}

    int Between(int low, int high) {
        return low + static_cast<int>(generator_() % static_cast<unsigned>(high - low + 1));
    }
    bool Coin() { return Between(0, 1) != 0; }
    /// Corners of 0 ... 13, in any order, and up to three such rectangles.
    RECT Rect() { return {Between(0, 13), Between(0, 13), Between(0, 13), Between(0, 13)}; }
    Points Shape();

private:
    std::mt19937 generator_;
};

/// One axis of a stretch: `destLength` pixels from `dest` on are made of `sourceLength` pixels from `source` on. A
/// negative length goes backwards.
struct Stretch {
    int dest, destLength, source, sourceLength;

    bool IsMirrored() const { return (destLength < 0) != (sourceLength < 0); }

    /// The source pixels, of 0 ... limit - 1, that belong to a destination pixel, as a walk along the source meets
    /// them. `isBlt` adds what StretchBlt alone does. Where that moves a mirrored part of a source, the stretch has to
    /// grow by a whole factor.
    std::vector<int> PixelsOf(int position, int limit, bool isBlt) const;
};

/// A source word with two alphas over a destination's. Sums beyond 255 set the lowest bit of the channel above.
uint32_t Blended(uint32_t source, uint32_t dest, uint32_t constant, bool hasPixelAlpha);

}  // namespace lacquer
