/* The public header alone in C11: layouts. tests/install has a whole program in C. */
#include <lacquer/lacquer.h>

#include <stddef.h>

_Static_assert(sizeof(HGBITMAP) == sizeof(void *), "a handle travels like a pointer");
_Static_assert(sizeof(HGTEXTURE) == sizeof(void *), "a handle travels like a pointer");
_Static_assert(sizeof(HGCANVAS) == sizeof(void *), "a handle travels like a pointer");
_Static_assert(sizeof(DWORD) == 4 && sizeof(LONG) == 4 && sizeof(WORD) == 2 && sizeof(BYTE) == 1, "Win32 sizes");
_Static_assert(sizeof(WCHAR) == 2 && sizeof(BOOL) == 4, "Win32 sizes");
_Static_assert(sizeof(RECT) == 16 && sizeof(POINT) == 8 && sizeof(SIZE) == 8, "Win32 sizes");
_Static_assert(sizeof(BITMAP) == 32 && offsetof(BITMAP, bmBits) == 24, "the Win32 layout");
_Static_assert(sizeof(SurfaceView) == 48, "the layout of SurfaceView");
_Static_assert(offsetof(SurfaceView, width) == 4 && offsetof(SurfaceView, height) == 8, "the layout of SurfaceView");
_Static_assert(offsetof(SurfaceView, stride) == 12 && offsetof(SurfaceView, planes) == 16, "the layout of SurfaceView");
_Static_assert(offsetof(SurfaceView, bitsPerPixel) == 18 && offsetof(SurfaceView, bits) == 24,
               "the layout of SurfaceView");
_Static_assert(offsetof(SurfaceView, paletteCount) == 32 && offsetof(SurfaceView, palette) == 40,
               "the layout of SurfaceView");
_Static_assert(sizeof(TextureMode) == 24 && offsetof(TextureMode, margins) == 8, "the layout of TextureMode");
_Static_assert(sizeof(GeoRect) == 16 && sizeof(GeoStyle) == 28 && sizeof(ShadowStyle) == 44, "records of floats");
_Static_assert(offsetof(GeoStyle, radii) == 12 && offsetof(ShadowStyle, radii) == 20 &&
                   offsetof(ShadowStyle, flags) == 40,
               "records of floats");
