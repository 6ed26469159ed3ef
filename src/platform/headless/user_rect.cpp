// The rectangle helpers of USER that are not inline.
#include <algorithm>
#include <cstdint>

#include "platform/headless/system.h"

namespace {

LONG WrappedSum(LONG a, LONG b) { return static_cast<LONG>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b)); }

LONG WrappedDifference(LONG a, LONG b) {
    return static_cast<LONG>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

}  // namespace

BOOL SetRect(RECT *rect, int left, int top, int right, int bottom) {
    if (!rect) return FALSE;
    *rect = RECT{left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(RECT *rect) { return SetRect(rect, 0, 0, 0, 0); }

BOOL CopyRect(RECT *dest, const RECT *source) {
    if (!dest || !source) return FALSE;
    *dest = *source;
    return TRUE;
}

BOOL OffsetRect(RECT *rect, int x, int y) {
    if (!rect) return FALSE;
    *rect = RECT{WrappedSum(rect->left, x), WrappedSum(rect->top, y), WrappedSum(rect->right, x),
                 WrappedSum(rect->bottom, y)};
    return TRUE;
}

BOOL InflateRect(RECT *rect, int x, int y) {
    if (!rect) return FALSE;
    *rect = RECT{WrappedDifference(rect->left, x), WrappedDifference(rect->top, y), WrappedSum(rect->right, x),
                 WrappedSum(rect->bottom, y)};
    return TRUE;
}

BOOL UnionRect(RECT *dest, const RECT *first, const RECT *second) {
    if (!dest) return FALSE;
    if (IsRectEmpty(first)) {
        *dest = IsRectEmpty(second) ? RECT{} : *second;
    } else if (IsRectEmpty(second)) {
        *dest = *first;
    } else {
        *dest = RECT{std::min(first->left, second->left), std::min(first->top, second->top),
                     std::max(first->right, second->right), std::max(first->bottom, second->bottom)};
    }
    return !IsRectEmpty(dest);
}

BOOL PtInRect(const RECT *rect, POINT point) {
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top && point.y < rect->bottom;
}
