// From the numbers of a caller to the 1/256 pixel in which shapes are measured.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/platform.h"

namespace lacquer {

/// Positions and lengths of shapes are whole units of 1/256 pixel.
inline constexpr int64_t kUnits = 256;

inline constexpr int64_t kLongestLength = 16384;  ///< pixels

/// Nearest, halves up; not for not-a-number. The product and the sum are exact in double precision.
inline int64_t NearestUnits(double pixels) {
    return static_cast<int64_t>(std::floor(pixels * static_cast<double>(kUnits) + 0.5));
}

/// A coordinate, clamped to 2^31 pixels on either side of 0.
inline int64_t CoordinateUnits(float pixels) {
    return NearestUnits(std::clamp(static_cast<double>(pixels), -2147483648.0, 2147483648.0));
}

/// A length, clamped to `lowest` .. `highest` pixels.
inline int64_t LengthUnits(float pixels, int64_t lowest = 0, int64_t highest = kLongestLength) {
    return NearestUnits(
        std::clamp(static_cast<double>(pixels), static_cast<double>(lowest), static_cast<double>(highest)));
}

inline int64_t LengthUnits(int pixels) { return std::clamp<int64_t>(pixels, 0, kLongestLength) * kUnits; }

/// The pixel that a position lies in, and the first pixel that begins at it or after it.
constexpr int64_t PixelAt(int64_t units) { return units >> 8; }
constexpr int64_t PixelFrom(int64_t units) { return (units + kUnits - 1) >> 8; }

/// Some pixels of a row, counted from a first one; none when `from` is not below `to`.
struct PixelRange {
    int from, to;

    bool IsEmpty() const { return from >= to; }

    PixelRange CutTo(const PixelRange &other) const { return {std::max(from, other.from), std::min(to, other.to)}; }

    /// From the first pixel of both to the last one.
    PixelRange With(const PixelRange &other) const {
        if (IsEmpty() || other.IsEmpty()) return IsEmpty() ? other : *this;
        return {std::min(from, other.from), std::max(to, other.to)};
    }
};

}  // namespace lacquer
