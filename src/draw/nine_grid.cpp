// The nine-grid: margins, cells, and the hollow centre.

#include "draw/nine_grid.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/geometry.h"
#include "draw/pixel_read.h"
#include "draw/texture_pieces.h"
#include "pipeline/pixel/pixel.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {
namespace {

struct Margins {
    int64_t left, top, right, bottom;
};

constexpr size_t kCentre = 4;
using NineCellSplit = std::array<RECT, 9>;

LONG Halved(LONG value) { return MulDiv(value, 1, 2); }
RECT Halved(const RECT &rect) { return {Halved(rect.left), Halved(rect.top), Halved(rect.right), Halved(rect.bottom)}; }

/// Each margin cut to both extents along its axis.
Margins CutMargins(const RECT &margins, int64_t width, int64_t height, const RECT &source) {
    const int64_t mostX = std::min(width, WidthOf(source)), mostY = std::min(height, HeightOf(source));
    return {std::min<int64_t>(mostX, margins.left), std::min<int64_t>(mostY, margins.top),
            std::min<int64_t>(mostX, margins.right), std::min<int64_t>(mostY, margins.bottom)};
}

/// A destination margin times the scale, capped at the destination's extent and at the scaled source extent. All in
/// single precision.
int64_t ScaledMargin(int64_t margin, float scale, int64_t destExtent, int64_t sourceExtent) {
    const auto wanted = static_cast<float>(TruncateToLong(static_cast<float>(margin) * scale));
    const float scaledSource = static_cast<float>(sourceExtent) * scale;
    const auto whole = static_cast<float>(destExtent);
    const float cap = scaledSource > whole ? whole : scaledSource;
    return TruncateToLong(wanted > cap ? cap : wanted);
}

void ScaleMargins(Margins &margins, const NineGridStyle &style, const RECT &dest, const RECT &source) {
    const auto scaled = [&](int64_t margin, DWORD flag, int64_t destExtent, int64_t sourceExtent) {
        return style.scaleFlags & flag ? ScaledMargin(margin, style.scale, destExtent, sourceExtent) : margin;
    };
    margins.left = scaled(margins.left, LACQUER_SCALE_LEFT, WidthOf(dest), WidthOf(source));
    margins.top = scaled(margins.top, LACQUER_SCALE_TOP, HeightOf(dest), HeightOf(source));
    margins.right = scaled(margins.right, LACQUER_SCALE_RIGHT, WidthOf(dest), WidthOf(source));
    margins.bottom = scaled(margins.bottom, LACQUER_SCALE_BOTTOM, HeightOf(dest), HeightOf(source));
}

/// Row by row from the top-left cell. Neighbours share their coordinates; corners are clamped into the rectangle, while
/// edges and the centre come out empty or inverted where margins overlap.
NineCellSplit SplitByMargins(const RECT &rect, const Margins &margins) {
    const LONG innerLeft = ClampToLong(rect.left + margins.left), innerTop = ClampToLong(rect.top + margins.top);
    const LONG innerRight = ClampToLong(rect.right - margins.right),
               innerBottom = ClampToLong(rect.bottom - margins.bottom);
    const LONG leftEnd = std::min(rect.right, innerLeft), topEnd = std::min(rect.bottom, innerTop);
    const LONG rightStart = std::max(rect.left, innerRight), bottomStart = std::max(rect.top, innerBottom);
    return {{{rect.left, rect.top, leftEnd, topEnd},
             {innerLeft, rect.top, innerRight, topEnd},
             {rightStart, rect.top, rect.right, topEnd},
             {rect.left, innerTop, leftEnd, innerBottom},
             {innerLeft, innerTop, innerRight, innerBottom},
             {rightStart, innerTop, rect.right, innerBottom},
             {rect.left, bottomStart, leftEnd, rect.bottom},
             {innerLeft, bottomStart, innerRight, rect.bottom},
             {rightStart, bottomStart, rect.right, rect.bottom}}};
}

/// The middle pixel of a cell; (left + right) / 2 truncates towards zero.
bool ReadMiddle(PixelSurface &surface, const RECT &cell, DWORD *colour) {
    const auto middle = [](LONG a, LONG b) { return static_cast<LONG>((static_cast<int64_t>(a) + b) / 2); };
    return ReadPixel(surface, middle(cell.left, cell.right), middle(cell.top, cell.bottom), colour);
}

/// What fills a hollow centre: its middle pixel at the draw's strength; none where there is none, and when the fill
/// would change nothing.
std::optional<DWORD> CentreColour(const TextureDraw &draw, const RECT &sourceCell) {
    PixelSurface &surface = draw.texture.Surface();
    DWORD colour = 0;
    if (!ReadMiddle(surface, sourceCell, &colour)) return std::nullopt;
    if (DrawModeOf(surface.Filter()) != LACQUER_DRAW_MODULATE) colour = Scale(colour, draw.alpha + 1u);
    if (IsVoidFill(colour, surface.Filter())) return std::nullopt;
    return colour;
}

/// Whether it takes longer to copy a rectangle of a device context for nothing than to make copies of the eight pieces
/// around it.
bool IsLarge(const RECT &rect) {
    return static_cast<double>(WidthOf(rect)) * static_cast<double>(HeightOf(rect)) > 0x10000;
}

}  // namespace

int DrawNineGrid(const TextureDraw &draw, const NineGridStyle &style) {
    PixelSurface &surface = draw.texture.Surface();
    RECT slice{};
    if (!ResolveSlice(surface, draw.slice, &slice)) return 0;

    const int64_t doubling = style.halfScale ? 2 : 1;
    const RECT halfSlice = style.halfScale ? Halved(slice) : slice;
    const RECT halfMargins = style.halfScale ? Halved(style.margins) : style.margins;
    const Margins sourceMargins =
        CutMargins(style.margins, WidthOf(draw.dest) * doubling, HeightOf(draw.dest) * doubling, slice);
    Margins destMargins = CutMargins(halfMargins, WidthOf(draw.dest), HeightOf(draw.dest), halfSlice);
    ScaleMargins(destMargins, style, draw.dest, halfSlice);

    const NineCellSplit destCells = SplitByMargins(draw.dest, destMargins);
    const NineCellSplit sourceCells = SplitByMargins(slice, sourceMargins);
    const auto fill = style.hollowCentre ? CentreColour(draw, sourceCells[kCentre]) : std::nullopt;
    const bool staysOpen = style.hollowCentre && !fill;
    TexturePieces pieces(draw, staysOpen && IsLarge(destCells[kCentre]) ? RECT{} : draw.dest);
    for (size_t i = 0; i < destCells.size(); ++i) {
        if (!style.hollowCentre || i != kCentre) {
            pieces.Draw(destCells[i], sourceCells[i]);
        } else if (fill) {
            pieces.Fill(destCells[i], *fill);
        }
    }
    return 1;
}

}  // namespace lacquer
