// Whole pixels go to the fills; covered ones to the kernels for shapes, by way of the fills in the less usual modes.

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

/// Rows come in pieces, of which one so many pixels ahead is asked for: the processor's own guesses end with each page.
constexpr int64_t kPiecePixels = Lookahead::kPiecePixels, kPixelsAhead = 4 * kPiecePixels;

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
      kernels_(ImageKernels()),
      isOpaque_(isOver_ && Alpha(fill_.colour & border_.colour) == 255) {
    if (!isOpaque_) return;
    std::fill_n(words_[0], kMaxCovered, fill_.colour);
    std::fill_n(words_[1], kMaxCovered, border_.colour);
}

BYTE *PartPainter::PixelAt(int64_t x, int64_t y) const {
    return static_cast<BYTE *>(RowOf(view_, y - top_)) + (x - left_) * kPixelBytes;
}

void PartPainter::Whole(const Part &part, int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const {
    if (!part.isPainted || x >= xEnd || y >= yEnd) return;
    if (isOver_ && xEnd - x <= kNarrow) {
        const int count = static_cast<int>(xEnd - x);
        if (Alpha(part.colour) < 255) {
            for (; y < yEnd; ++y) {
                if (y + kRowsAhead < yEnd) Prefetch(x, count, y + kRowsAhead);
                kernels_.drawEvenly(PixelAt(x, y), part.colour, 255, count);
            }
            return;
        }
        BYTE *pixels = PixelAt(x, y);
        for (; y < yEnd; ++y, pixels += view_.stride) {
            for (ptrdiff_t i = 0; i < count; ++i) StorePixel(pixels + i * kPixelBytes, part.colour);
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
    DWORD words[2][kMaxCovered];
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
    kernels_.mixParts(pixels, words[0], words[1], inner, border, count);
}

void PartPainter::Covered(int64_t x, int count, int64_t y, int64_t yEnd, const BYTE *inner, const BYTE *border) const {
    if (!fill_.isPainted && !border_.isPainted) return;
    for (; y < yEnd; ++y) {
        if (y + kRowsAhead < yEnd) Prefetch(x, count, y + kRowsAhead);
        BYTE *pixels = PixelAt(x, y);
        if (isOpaque_) {
            kernels_.mixParts(pixels, words_[0], words_[1], inner, border, count);
        } else if (!isOver_) {
            MixByFills(pixels, count, inner, border);
        } else if (!border_.isPainted) {
            kernels_.drawCovered(pixels, fill_.colour, inner, count);
        } else if (!fill_.isPainted) {
            kernels_.drawCovered(pixels, border_.colour, border, count);
        } else {
            kernels_.drawParts(pixels, fill_.colour, border_.colour, inner, border, count);
        }
    }
}

void PartPainter::FillCovered(int64_t x, ptrdiff_t count, int64_t y, int64_t yEnd, const BYTE *cover) const {
    if (!fill_.isPainted) return;
    for (; y < yEnd; ++y) {
        if (y + kRowsAhead < yEnd) Prefetch(x, count, y + kRowsAhead);
        kernels_.drawCovered(PixelAt(x, y), fill_.colour, cover, count);
    }
}

void PartPainter::Prefetch(int64_t x, ptrdiff_t count, int64_t y) const {
    PrefetchBytes(PixelAt(x, y), count * kPixelBytes);
}

void PartPainter::OverEvenly(const Part &part, int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, BYTE cover) const {
    const int64_t width = xEnd - x;
    for (; y < yEnd; ++y) {
        for (int64_t from = x; from < xEnd; from += kPiecePixels) {
            const int64_t to = std::min(from + kPiecePixels, xEnd);
            const int64_t ahead = from - x + kPixelsAhead, below = y + std::min(ahead / width, kRowsAhead);
            const int64_t next = x + ahead % width;
            if (below - top_ < view_.height) Prefetch(next, std::min(kPiecePixels, xEnd - next), below);
            kernels_.drawEvenly(PixelAt(from, y), part.colour, cover, to - from);
        }
    }
}

void PartPainter::Evenly(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, BYTE inner, BYTE border) const {
    if (inner == 255) return FillWhole(x, xEnd, y, yEnd);
    if (border == 255) return BorderWhole(x, xEnd, y, yEnd);
    const bool hasInner = inner != 0 && fill_.isPainted, hasBorder = border != 0 && border_.isPainted;
    if (!hasInner && !hasBorder) return;
    if (isOver_ && hasInner != hasBorder) {
        return OverEvenly(hasInner ? fill_ : border_, x, xEnd, y, yEnd, hasInner ? inner : border);
    }
    BYTE inners[kMaxCovered], borders[kMaxCovered];
    std::memset(inners, inner, sizeof inners);
    std::memset(borders, border, sizeof borders);
    for (; x < xEnd; x += kMaxCovered) {
        Covered(x, static_cast<int>(std::min<int64_t>(kMaxCovered, xEnd - x)), y, yEnd, inners, borders);
    }
}

}  // namespace lacquer
