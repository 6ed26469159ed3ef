// Operations on SurfaceView records and on the palettes behind them.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "pipeline/memory/view_rows.h"
#include "platform/platform.h"

namespace lacquer {

static_assert(offsetof(SurfaceView, type) == 0 && offsetof(SurfaceView, width) == 4 &&
              offsetof(SurfaceView, height) == 8);
static_assert(offsetof(SurfaceView, stride) == 12 && offsetof(SurfaceView, planes) == 16);
static_assert(offsetof(SurfaceView, bitsPerPixel) == 18 && offsetof(SurfaceView, bits) == 24);
static_assert(offsetof(SurfaceView, paletteCount) == 32 && offsetof(SurfaceView, palette) == 40);
static_assert(sizeof(SurfaceView) == 48 && sizeof(BITMAP) == 32 && sizeof(TextureMode) == 24);
static_assert(sizeof(HGBITMAP) == sizeof(void *) && std::is_trivial_v<HGBITMAP> && std::is_trivial_v<HGTEXTURE> &&
              std::is_trivial_v<HGCANVAS>);

/// The view that a bitmap's description stands for, without a palette.
SurfaceView ViewOf(const BITMAP &description);

/// Narrows the view of a whole surface to `rect`; null keeps the whole. Result: false, with the view unchanged, unless
/// the rectangle is inside and not empty.
inline bool NarrowView(SurfaceView &view, const RECT *rect) {
    if (!rect) return true;
    if (rect->left < 0 || rect->top < 0 || rect->right > view.width || rect->bottom > view.height ||
        IsRectEmpty(rect)) {
        return false;
    }
    view.bits = RowOf(view, rect->top) + static_cast<std::ptrdiff_t>(view.bitsPerPixel / 8) * rect->left;
    view.width = rect->right - rect->left;
    view.height = rect->bottom - rect->top;
    return true;
}

/// Writes the fields up to `bits` only: the record may be a caller's BITMAP.
inline void WriteBitmapPart(SurfaceView *out, const SurfaceView &view) {
    std::memcpy(out, &view, offsetof(SurfaceView, paletteCount));
}

/// Copies the source's palette entries to a destination with as many; the shared grey palette stays as it is.
void CopyPalette(const SurfaceView &dest, const SurfaceView &source);

/// The four-byte pixels that fit into a row, for what walks such pixels whatever the depth.
inline LONG WordsPerRow(const SurfaceView &view) {
    return static_cast<LONG>(static_cast<int64_t>(view.width) * (view.bitsPerPixel / 8) / 4);
}

}  // namespace lacquer
