// Whole pixels go to the fills; covered ones to the kernels of this folder, by way of the fills in the less usual
// modes.

#include "draw/geometry/painted_parts.h"

#include <algorithm>
#include <cstring>

#include "draw/fill.h"
#include "pipeline/memory/lookahead.h"
#include "pipeline/pixel/pixel.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {
namespace {

/// A column of few pixels finds each row in another part of memory: it is asked for so many rows before.
constexpr int64_t kRowsAhead = 8, kNarrow = 16;

/// Whether fills of this mode draw over.
bool IsOver(DWORD modeWord) {
    const DWORD mode = DrawModeOf(modeWord);
    return mode == LACQUER_DRAW_OVER || mode == LACQUER_DRAW_COLOR_KEY || mode > LACQUER_DRAW_BEHIND;
}

bool IsAnyCovered(const BYTE *cover, int count) {
    BYTE any = 0;
    for (int i = 0; i < count; ++i) any |= cover[i];
    return any != 0;
}

}  // namespace

PartPainter::Part PartPainter::PartOf(DWORD straight, DWORD modeWord) {
    const DWORD colour = Premultiplied(straight);
    const bool isPainted = straight >> 24 != 0 && !IsVoidFill(colour, modeWord);
    return {isPainted ? colour : 0, isPainted};
}

PartPainter::PartPainter(const SurfaceView &view, int64_t left, int64_t top, const Paint &paint)
    : view_(view),
      left_(left),
      top_(top),
      modeWord_(paint.modeWord),
      isOver_(IsOver(paint.modeWord)),
      fill_(PartOf(paint.fill, paint.modeWord)),
      border_(PartOf(paint.border, paint.modeWord)),
      kernels_(CoverKernelsInUse()) {}

BYTE *PartPainter::PixelAt(int64_t x, int64_t y) const {
    return static_cast<BYTE *>(RowOf(view_, y - top_)) + (x - left_) * kPixelBytes;
}

void PartPainter::Whole(const Part &part, int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const {
    if (!part.isPainted || x >= xEnd || y >= yEnd) return;
    if (isOver_ && xEnd - x <= kNarrow) {
        const int count = static_cast<int>(xEnd - x);
        const bool isOpaque = Alpha(part.colour) == 255;
        for (; y < yEnd; ++y) {
            BYTE *pixels = PixelAt(x, y);
            if (isOpaque) {
                for (ptrdiff_t i = 0; i < count; ++i) StorePixel(pixels + i * kPixelBytes, part.colour);
            } else {
                if (y + kRowsAhead < yEnd) Prefetch(x, count, y + kRowsAhead);
                kernels_.overEvenly(pixels, part.colour, 255, count);
            }
        }
        return;
    }
    SurfaceView block = view_;
    block.bits = PixelAt(x, y);
    block.width = static_cast<LONG>(xEnd - x);
    block.height = static_cast<LONG>(yEnd - y);
    FillView(&block, part.colour, modeWord_);
}

/// The pixels as each fill makes them, and then their mix.
void PartPainter::MixByFills(BYTE *pixels, int count, const BYTE *inner, const BYTE *border) const {
    DWORD words[2][kMostCovered];
    const Part *parts[2] = {&fill_, &border_};
    for (int i = 0; i < 2; ++i) {
        std::memcpy(words[i], pixels, static_cast<size_t>(count) * kPixelBytes);
        if (!parts[i]->isPainted) continue;
        SurfaceView row{};
        row.width = count;
        row.height = 1;
        row.stride = count * kPixelBytes;
        row.bitsPerPixel = 32;
        row.bits = words[i];
        FillView(&row, parts[i]->colour, modeWord_);
    }
    kernels_.mix(pixels, words[0], words[1], inner, border, count);
}

void PartPainter::Covered(int64_t x, int count, int64_t y, int64_t yEnd, const BYTE *inner, const BYTE *border) const {
    const bool hasInner = fill_.isPainted && IsAnyCovered(inner, count);
    const bool hasBorder = border_.isPainted && IsAnyCovered(border, count);
    if (!hasInner && !hasBorder) return;
    for (; y < yEnd; ++y) {
        if (y + kRowsAhead < yEnd) Prefetch(x, count, y + kRowsAhead);
        BYTE *pixels = PixelAt(x, y);
        if (!isOver_) {
            MixByFills(pixels, count, inner, border);
        } else if (!hasBorder) {
            kernels_.overOne(pixels, fill_.colour, inner, count);
        } else if (!hasInner) {
            kernels_.overOne(pixels, border_.colour, border, count);
        } else {
            kernels_.over(pixels, fill_.colour, border_.colour, inner, border, count);
        }
    }
}

void PartPainter::Prefetch(int64_t x, int count, int64_t y) const {
    PrefetchBytes(PixelAt(x, y), ptrdiff_t{count} * kPixelBytes);
}

void PartPainter::Evenly(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, BYTE inner, BYTE border) const {
    if (inner == 255) return FillWhole(x, xEnd, y, yEnd);
    if (border == 255) return BorderWhole(x, xEnd, y, yEnd);
    const bool hasInner = inner != 0 && fill_.isPainted, hasBorder = border != 0 && border_.isPainted;
    if (!hasInner && !hasBorder) return;
    if (isOver_ && hasInner != hasBorder) {
        const DWORD colour = hasInner ? fill_.colour : border_.colour;
        for (; y < yEnd; ++y) kernels_.overEvenly(PixelAt(x, y), colour, hasInner ? inner : border, xEnd - x);
        return;
    }
    BYTE inners[kMostCovered], borders[kMostCovered];
    std::memset(inners, inner, sizeof inners);
    std::memset(borders, border, sizeof borders);
    for (; x < xEnd; x += kMostCovered) {
        Covered(x, static_cast<int>(std::min<int64_t>(kMostCovered, xEnd - x)), y, yEnd, inners, borders);
    }
}

}  // namespace lacquer
