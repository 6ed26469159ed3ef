// Positions in the source that belong to the pixels of a stretched destination.
#pragma once

#include <algorithm>
#include <cstdint>

namespace lacquer {

/// Source positions along one axis, 16.16 fixed point, in 64 bits: index i of the full rectangle is at first + i ×
/// step.
struct Steps {
    int64_t first, step;

    int64_t At(int64_t index) const { return first + index * step; }
};

/// From the first pixel's corner, without a half-pixel offset: positions stay below the source's size.
inline Steps CornerSteps(int64_t sourceSize, int64_t fullSize) { return {0, (sourceSize << 16) / fullSize}; }

/// From pixel centre to pixel centre. The 1 that is added to the step can carry a position past the source.
inline Steps CentredSteps(int64_t sourceSize, int64_t fullSize) {
    const int64_t step = (sourceSize << 16) / fullSize + 1;
    return {(step >> 1) - 32768, step};
}

/// The whole pixels of a position, rounded down, and the 256ths beyond them.
struct Place {
    int64_t pixel;
    int fraction;

    explicit Place(int64_t position) : pixel(position >> 16), fraction(static_cast<int>(position >> 8 & 255)) {}
};

/// An index cut to the pixels 0..size − 1.
inline int ClampIndex(int64_t index, int size) {
    return static_cast<int>(std::clamp<int64_t>(index, 0, int64_t{size} - 1));
}

}  // namespace lacquer
