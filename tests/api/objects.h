// What the tests of the exported functions ask of objects.
#pragma once

#include <array>

#include "support/objects.h"

namespace lacquer {

inline int GetFilter(HGBITMAP bitmap, DWORD *filter) { return GetBitmapFilter(bitmap, filter); }
inline int GetFilter(HGTEXTURE texture, DWORD *filter) { return GetTextureFilter(texture, filter); }
inline int GetFilter(HGCANVAS canvas, DWORD *filter) { return GetCanvasFilter(canvas, filter); }

template <class Object>
DWORD FilterOf(const Object &object) {
    DWORD filter = 0xAAAAAAAA;
    EXPECT_EQ(1, GetFilter(object, &filter));
    return filter;
}

/// Whether a handle is current.
template <class Handle>
bool IsLive(const Handle &handle) {
    DWORD filter = 0;
    return GetFilter(handle, &filter) == 1;
}

inline int GetSize(HGBITMAP bitmap, SIZE *size) { return GetBitmapSize(bitmap, size); }
inline int GetSize(HGTEXTURE texture, SIZE *size) { return GetTextureSize(texture, size); }
inline int GetSize(HGCANVAS canvas, SIZE *size) { return GetCanvasSize(canvas, size); }

using Size = std::array<LONG, 2>;

/// Width and height; what `GetSize` leaves of (-7, -8) where it fails.
template <class Object>
Size SizeOf(const Object &object) {
    SIZE size{-7, -8};
    GetSize(object, &size);
    return {size.cx, size.cy};
}

inline void DeleteAny(HGBITMAP bitmap) { DeleteBitmap(bitmap); }
inline void DeleteAny(HGTEXTURE texture) { DeleteTexture(texture); }
inline void DeleteAny(HGCANVAS canvas) { DeleteCanvas(canvas); }

/// Deletes whatever a handle names.
inline void DeleteAny(uintptr_t handle) {
    DeleteAny(HGBITMAP{handle});
    DeleteAny(HGTEXTURE{handle});
    DeleteAny(HGCANVAS{handle});
}

/// Makes rectangles comparable and printable.
struct Rect {
    LONG left, top, right, bottom;
    Rect(LONG l, LONG t, LONG r, LONG b) : left(l), top(t), right(r), bottom(b) {}
    Rect(const RECT &rect) : Rect(rect.left, rect.top, rect.right, rect.bottom) {}
    bool operator==(const Rect &) const = default;
    bool IsEmpty() const { return right <= left || bottom <= top; }
    friend void PrintTo(const Rect &rect, std::ostream *out) {
        *out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
    }
};

inline Rect ClipOf(HGCANVAS canvas) {
    RECT clip{};
    EXPECT_EQ(1, GetCanvasClipRect(canvas, &clip));
    return clip;
}

/// Both kinds of storage.
class BothStorages : public testing::TestWithParam<bool> {
protected:
    static HGCANVAS Create(DWORD width, DWORD height, HGCANVAS model = {}) {
        return GetParam() ? CreateSystemCanvas(width, height, model) : CreateCanvas(width, height, model);
    }
};

}  // namespace lacquer
