// Rectangle arithmetic that can't overflow: sums in 64 bits, clamped where they are stored in 32.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/platform.h"

namespace lacquer {

inline LONG ClampToLong(int64_t value) { return static_cast<LONG>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX)); }

/// Truncated towards zero; INT32_MIN for what does not fit and for not a number.
inline LONG TruncateToLong(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<LONG>(value) : INT32_MIN;
}

/// True differences; negative for an inverted rectangle.
inline int64_t WidthOf(const RECT &rect) { return static_cast<int64_t>(rect.right) - rect.left; }
inline int64_t HeightOf(const RECT &rect) { return static_cast<int64_t>(rect.bottom) - rect.top; }

/// Whether the sides fit into 32 bits. Larger rectangles are never stretched to.
inline bool HasShortSides(const RECT &rect) { return WidthOf(rect) <= INT32_MAX && HeightOf(rect) <= INT32_MAX; }

inline SIZE SizeOf(const RECT &rect) { return {ClampToLong(WidthOf(rect)), ClampToLong(HeightOf(rect))}; }

/// Where a part of a rectangle with short sides lies in it.
inline POINT OffsetIn(const RECT &whole, const RECT &part) {
    return {static_cast<LONG>(static_cast<int64_t>(part.left) - whole.left),
            static_cast<LONG>(static_cast<int64_t>(part.top) - whole.top)};
}

inline RECT Moved(const RECT &rect, int64_t dx, int64_t dy) {
    if (dx == 0 && dy == 0) return rect;
    return {ClampToLong(rect.left + dx), ClampToLong(rect.top + dy), ClampToLong(rect.right + dx),
            ClampToLong(rect.bottom + dy)};
}

}  // namespace lacquer
