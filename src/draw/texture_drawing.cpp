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

/// One direction of a tile: cells of one length that follow each other, and the part of the source that each shows.
/// What the destination's end cuts stays cut for all cells that follow.
struct TileAxis {
    TileAxis(LONG destBegin, LONG destEnd, LONG sliceBegin, LONG sliceEnd, float cellScale)
        : begin(destBegin), end(destEnd), pieceBegin(sliceBegin), pieceEnd(sliceEnd) {
        const auto length = static_cast<float>(int64_t{sliceEnd} - sliceBegin);
        cell = int64_t{TruncateToLong(static_cast<float>(sliceBegin) + cellScale * length)} - sliceBegin;
    }

    /// Where the cell begins that `position`, at or after the first one's begin, lies in.
    int64_t FirstCellAt(int64_t position) const { return begin + (position - begin) / cell * cell; }
    int64_t WholeCellsEnd() const { return begin + (end - begin) / cell * cell; }

    /// Cuts the cell that begins at `position` where it sticks out. Result: whether it was cut, and has pixels left.
    bool CutAt(int64_t position, float scale) {
        if (position >= end || position + cell <= end) return false;
        cell = end - position;
        pieceEnd = PieceEnd(pieceBegin, cell, scale);
        return true;
    }

    int64_t begin, end;  ///< of the destination
    int64_t cell;        ///< the length of a cell
    LONG pieceBegin, pieceEnd;
};

}  // namespace

bool ResolveSlice(const PixelSurface &surface, const RECT *slice, RECT *out) {
    const RECT whole{0, 0, surface.Width(), surface.Height()};
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
    RECT slice{}, visible{};
    if (!ResolveSlice(draw.texture.Surface(), draw.slice, &slice)) return;
    const float cellScale = scaleFlags & LACQUER_SCALE_CELL ? scale : 1;
    TileAxis columns(draw.dest.left, draw.dest.right, slice.left, slice.right, cellScale);
    TileAxis rows(draw.dest.top, draw.dest.bottom, slice.top, slice.bottom, cellScale);
    TexturePieces pieces(draw, draw.dest);
    if (columns.cell <= 0 || rows.cell <= 0 || !pieces.FindVisible(draw.dest, &visible)) return;
    for (int64_t y = rows.begin; y < visible.bottom;) {
        rows.CutAt(y, scale);
        const auto drawCell = [&](int64_t x) {
            pieces.Draw(ClampedRect(x, y, x + columns.cell, y + rows.cell),
                        {columns.pieceBegin, rows.pieceBegin, columns.pieceEnd, rows.pieceEnd});
        };
        const int64_t wholeEnd = columns.WholeCellsEnd();
        if (y + rows.cell > visible.top) {
            const int64_t end = std::min<int64_t>(wholeEnd, visible.right);
            for (int64_t x = columns.FirstCellAt(visible.left); x < end; x += columns.cell) drawCell(x);
        }
        if (columns.CutAt(wholeEnd, scale)) {
            drawCell(wholeEnd);
            y += rows.cell;
        } else {
            // From now on all rows are alike: those above the visible part are passed over together.
            y += std::max<int64_t>(1, (visible.top - y) / rows.cell) * rows.cell;
        }
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
