// Texture layouts but the nine-grid. Cells outside the visible part are counted, not walked: a destination may be 2^32
// wide.

#include "draw/texture_drawing.h"

#include <algorithm>
#include <utility>

#include "core/geometry.h"
#include "draw/texture_pieces.h"

namespace lacquer {

namespace {

void DrawOnePiece(const TextureDraw &draw, const RECT &dest, const RECT &piece) {
    Blit(draw.canvas, dest, draw.texture.Surface(), &piece, StyleOf(draw));
}

RECT ClampedRect(int64_t left, int64_t top, int64_t right, int64_t bottom) {
    return {ClampToLong(left), ClampToLong(top), ClampToLong(right), ClampToLong(bottom)};
}

/// The end of a source piece that fills `length` destination pixels, in single precision; a scale of 0 or less, or not
/// a number, gives an end that no lock accepts.
LONG PieceEnd(LONG start, int64_t length, float scale) {
    return TruncateToLong(static_cast<float>(start) + static_cast<float>(length) / scale);
}

}  // namespace

bool ResolveSlice(const PixelSurface &surface, const RECT *slice, RECT *out) {
    const RECT whole{0, 0, surface.GetWidth(), surface.GetHeight()};
    RECT resolved = slice ? *slice : whole;
    if (resolved.left > resolved.right) std::swap(resolved.left, resolved.right);
    if (resolved.top > resolved.bottom) std::swap(resolved.top, resolved.bottom);
    const bool inside =
        resolved.left >= 0 && resolved.top >= 0 && resolved.right <= whole.right && resolved.bottom <= whole.bottom;
    if (!inside || IsRectEmpty(&resolved)) return false;
    *out = resolved;
    return true;
}

int DrawStretched(const TextureDraw &draw) {
    RECT slice{};
    if (!ResolveSlice(draw.texture.Surface(), draw.slice, &slice)) return 0;
    DrawOnePiece(draw, draw.dest, slice);
    return 1;
}

int DrawCentred(const TextureDraw &draw) {
    RECT slice{};
    if (!ResolveSlice(draw.texture.Surface(), draw.slice, &slice)) return 0;
    const int64_t destWidth = WidthOf(draw.dest), destHeight = HeightOf(draw.dest);
    const int64_t sliceWidth = WidthOf(slice), sliceHeight = HeightOf(slice);
    const int64_t byWidth = sliceHeight * destWidth, byHeight = sliceWidth * destHeight;
    int64_t insetX = 0, insetY = 0;
    // The halving truncates, so that the drawn side is the exact one or one pixel more.
    if (byHeight >= byWidth) {
        insetY = std::max<int64_t>(0, (destHeight - byWidth / sliceWidth) / 2);
    } else {
        insetX = std::max<int64_t>(0, (destWidth - byHeight / sliceHeight) / 2);
    }
    const RECT &dest = draw.dest;
    DrawOnePiece(draw, ClampedRect(dest.left + insetX, dest.top + insetY, dest.right - insetX, dest.bottom - insetY),
                 slice);
    return 1;
}

void DrawTiled(const TextureDraw &draw, DWORD scaleFlags, float scale) {
    RECT piece{}, visible{};
    if (!ResolveSlice(draw.texture.Surface(), draw.slice, &piece)) return;
    int64_t cellWidth = WidthOf(piece), cellHeight = HeightOf(piece);
    if (scaleFlags & kScaleCell) {
        const auto scaled = [&](LONG start, int64_t length) {
            return static_cast<int64_t>(
                       TruncateToLong(static_cast<float>(start) + scale * static_cast<float>(length))) -
                   start;
        };
        cellWidth = scaled(piece.left, cellWidth);
        cellHeight = scaled(piece.top, cellHeight);
    }
    const RECT &dest = draw.dest;
    TexturePieces pieces(draw, dest);
    if (cellWidth <= 0 || cellHeight <= 0 || !pieces.FindVisible(dest, &visible)) return;
    for (int64_t y = dest.top; y < visible.bottom;) {
        if (y + cellHeight > dest.bottom) {
            cellHeight = dest.bottom - y;
            piece.bottom = PieceEnd(piece.top, cellHeight, scale);
        }
        const auto drawCell = [&](int64_t x) { pieces.Draw(ClampedRect(x, y, x + cellWidth, y + cellHeight), piece); };
        const int64_t wholeCells = WidthOf(dest) / cellWidth;
        const int64_t cutX = dest.left + wholeCells * cellWidth;
        const int64_t firstVisible = (static_cast<int64_t>(visible.left) - dest.left) / cellWidth;
        const bool rowIsVisible = y + cellHeight > visible.top;
        for (int64_t x = dest.left + firstVisible * cellWidth;
             rowIsVisible && x < std::min<int64_t>(cutX, visible.right); x += cellWidth) {
            drawCell(x);
        }
        int64_t rows = 1;
        if (cutX < dest.right) {
            // Cell and piece keep the cut width in the rows below.
            cellWidth = dest.right - cutX;
            piece.right = PieceEnd(piece.left, cellWidth, scale);
            drawCell(cutX);
        } else {
            rows = std::max<int64_t>(1, (visible.top - y) / cellHeight);
        }
        y += rows * cellHeight;
    }
}

void DrawTopTiled(const TextureDraw &draw, const RECT &margins) {
    RECT slice{};
    if (!ResolveSlice(draw.texture.Surface(), draw.slice, &slice)) return;
    const RECT &dest = draw.dest;
    const int64_t width = WidthOf(slice);
    const int64_t bandBottom = static_cast<int64_t>(dest.top) + margins.top;
    // A negative top margin carries the bottom band above the destination, so only columns are counted out here.
    TexturePieces pieces(draw,
                         {dest.left, ClampToLong(std::min<int64_t>(dest.top, bandBottom)), dest.right, dest.bottom});
    const RECT &clipBox = pieces.ClipBox();
    const int64_t firstVisible = std::max<int64_t>(0, static_cast<int64_t>(clipBox.left) - dest.left) / width;
    const LONG end = std::min(dest.right, clipBox.right);
    for (int64_t x = dest.left + firstVisible * width; x < end; x += width) {
        const int64_t right = std::min<int64_t>(x + width, dest.right), sourceRight = slice.left + (right - x);
        const int64_t topHeight = std::min<int64_t>(margins.top, HeightOf(dest));
        pieces.Draw(ClampedRect(x, dest.top, right, dest.top + topHeight),
                    ClampedRect(slice.left, slice.top, sourceRight, slice.top + topHeight));
        pieces.Draw(
            ClampedRect(x, bandBottom, right, dest.bottom),
            ClampedRect(slice.left, static_cast<int64_t>(slice.bottom) - margins.bottom, sourceRight, slice.bottom));
    }
}

}  // namespace lacquer
