// How a device context maps coordinates.
#pragma once

#include "platform/platform.h"

namespace lacquer {

/// Whether the context only moves coordinates, neither scaled nor turned nor mirrored, so that a rectangle has as many
/// pixels as its size says.
#ifdef _WIN32
inline bool OnlyMovesCoordinates(HDC dc) {
    // Far enough apart to show any scale that could move a pixel.
    constexpr LONG kFar = 1 << 20;
    POINT points[] = {{0, 0}, {kFar, 0}, {0, kFar}};
    return LPtoDP(dc, points, 3) && points[1].x - points[0].x == kFar && points[1].y == points[0].y &&
           points[2].x == points[0].x && points[2].y - points[0].y == kFar;
}
#else
inline bool OnlyMovesCoordinates(HDC) { return true; }
#endif

}  // namespace lacquer
