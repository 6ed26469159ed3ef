// The nine-grid: its cells against a model of its margins, and the properties that a skin relies on.

#include <algorithm>
#include <array>
#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

constexpr RECT kSheet{0, 0, 23, 17};

struct Grid {
    RECT dest, slice, margins;
    DWORD kernelMode = 1;
    int hollow = 0;
    BYTE alpha = 255;
    DWORD scaleFlags = 0;
    float scale = 1.0f;
    int halfScale = 0;

    int Draw(HGCANVAS canvas, HGTEXTURE texture) const {
        return DrawTexture9Grid(canvas, &dest, texture, &slice, &margins, kernelMode, hollow, alpha, scaleFlags, scale,
                                halfScale);
    }
};

/// The two margins of one axis, and the four places where they cut it.
struct Cuts {
    int64_t start, inner, outer, end;

    Cuts(int64_t from, int64_t to, int64_t first, int64_t last)
        : start(from), inner(from + first), outer(to - last), end(to) {}

    /// The outer cells are cut to the rectangle, the inner one is not.
    std::pair<LONG, LONG> Cell(int index) const {
        const int64_t from[] = {start, inner, std::max(start, outer)};
        const int64_t to[] = {std::min(end, inner), outer, end};
        return {static_cast<LONG>(from[index]), static_cast<LONG>(to[index])};
    }
};

/// One margin of the destination, after the scale.
int64_t DestMargin(int64_t margin, bool scaled, float scale, int64_t destExtent, int64_t sourceExtent) {
    if (!scaled) return margin;
    const float wanted = std::trunc(static_cast<float>(margin) * scale);
    const float most = std::min(static_cast<float>(sourceExtent) * scale, static_cast<float>(destExtent));
    return static_cast<int64_t>(std::min(wanted, most));
}

/// Half, rounded away from zero.
int64_t Half(int64_t value) { return value < 0 ? -((1 - value) / 2) : (value + 1) / 2; }

struct Axis {
    Cuts dest, source;
};

/// `first` and `last`: the margins; `flags`: the scale flags of the two.
Axis CutAxis(const Grid &grid, int64_t destFrom, int64_t destTo, int64_t sliceFrom, int64_t sliceTo, int64_t first,
             int64_t last, DWORD firstFlag, DWORD lastFlag) {
    const int64_t dest = destTo - destFrom, slice = sliceTo - sliceFrom;
    const auto half = [&](int64_t value) { return grid.halfScale ? Half(value) : value; };
    const int64_t doubled = grid.halfScale ? 2 * dest : dest, halfSlice = half(sliceTo) - half(sliceFrom);
    const auto destMargin = [&](int64_t margin, DWORD flag) {
        return DestMargin(std::min({dest, halfSlice, half(margin)}), (grid.scaleFlags & flag) != 0, grid.scale, dest,
                          halfSlice);
    };
    return {Cuts(destFrom, destTo, destMargin(first, firstFlag), destMargin(last, lastFlag)),
            Cuts(sliceFrom, sliceTo, std::min({doubled, slice, first}), std::min({doubled, slice, last}))};
}

struct Cell {
    RECT dest, source;
};

std::array<Cell, 9> CellsOf(const Grid &grid) {
    const RECT &d = grid.dest, &s = grid.slice, &m = grid.margins;
    const Axis x = CutAxis(grid, d.left, d.right, s.left, s.right, m.left, m.right, 1, 4);
    const Axis y = CutAxis(grid, d.top, d.bottom, s.top, s.bottom, m.top, m.bottom, 2, 8);
    std::array<Cell, 9> cells{};
    for (int i = 0; i < 9; ++i) {
        const auto rect = [&](const Cuts &columns, const Cuts &rows) {
            const auto [left, right] = columns.Cell(i % 3);
            const auto [top, bottom] = rows.Cell(i / 3);
            return RECT{left, top, right, bottom};
        };
        cells[static_cast<size_t>(i)] = {rect(x.dest, y.dest), rect(x.source, y.source)};
    }
    return cells;
}

void DrawModel(HGCANVAS canvas, const Grid &grid, HGBITMAP sheet) {
    const std::array<Cell, 9> cells = CellsOf(grid);
    const SurfaceView view = ViewOf(sheet);
    DWORD filter = 0;
    GetBitmapFilter(sheet, &filter);
    for (size_t i = 0; i < cells.size(); ++i) {
        const Cell &cell = cells[i];
        if (!grid.hollow || i != 4) {
            DrawBitmapRectEx(canvas, &cell.dest, sheet, &cell.source, grid.kernelMode, grid.alpha);
            continue;
        }
        if (view.bitsPerPixel == 16) continue;
        const LONG x = (cell.source.left + cell.source.right) / 2, y = (cell.source.top + cell.source.bottom) / 2;
        if (!Contains({0, 0, view.width, view.height}, x, y)) continue;
        uint32_t colour = ColourAt(view, x, y);
        if (filter >> 24 != LACQUER_DRAW_MODULATE) {
            colour = WordOf([&](int channel) { return ChannelOf(colour, channel) * (grid.alpha + 1u) >> 8; });
        }
        FillPreMulColorRectEx(canvas, colour, &cell.dest, filter);
    }
}

TEST(NineGrid, CutsByItsMargins) {
    Random random(1);
    const Sheet sheets[] = {{23, 17, 32, 1, kOver},     {23, 17, 32, 2, 0},          {23, 17, 24, 3, 0x06000000},
                            {23, 17, 8, 4, 0x03000000}, {23, 17, 32, 5, 0x04000000}, {23, 17, 8, 6, kOver},
                            {23, 17, 16, 7, 0}};
    for (int round = 0; round < 4000; ++round) {
        Grid grid{random.AnyOrder(random.Inside({-20, -20, 60, 56})), random.AnyOrder(random.Inside(kSheet)), {}};
        const auto margin = [&] { return random.Between(0, 9) == 0 ? random.Between(-5, 60) : random.Between(0, 9); };
        grid.margins = {margin(), margin(), margin(), margin()};
        grid.kernelMode = random.Of<DWORD>({0u, 1u, 4u, 5u});
        grid.hollow = random.Between(0, 2) == 0;
        grid.alpha = random.Of<BYTE>({255, 128});
        grid.scaleFlags = random.Word() & 0x1F;
        grid.scale = random.Of({0.1f, 0.5f, 0.75f, 1.0f, 1.3f, 2.0f, 5.0f, -0.5f});
        grid.halfScale = random.Between(0, 1);
        const Sheet &sheet = sheets[random.Word() % std::size(sheets)];
        const RECT clip = random.Coin() ? RECT{0, 0, 60, 60} : random.Inside({0, 0, 40, 36});
        const Twins twins(random.Of(kAllCanvasKinds), clip, random.Word());
        EXPECT_EQ(1, grid.Draw(twins.drawn, sheet.texture));
        grid.slice = Ordered(grid.slice);
        DrawModel(twins.expected, grid, sheet.bitmap);
        twins.ExpectSame();
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

/// A grid whose margins fit into the slice and into the destination.
Grid FittingGrid(Random &random) {
    Grid grid{random.Inside({0, 0, 40, 36}), {2, 2, 21, 15}, {}};
    grid.margins = {random.Between(0, 6), random.Between(0, 5), random.Between(0, 6), random.Between(0, 5)};
    grid.kernelMode = random.Of<DWORD>({0u, 1u, 4u, 5u});
    grid.scaleFlags = random.Word() & 0xF;
    grid.scale = 0.1f * static_cast<float>(random.Between(1, 50));
    grid.halfScale = random.Between(0, 1);
    return grid;
}

bool DestMarginsFit(const std::array<Cell, 9> &cells) {
    return WidthOf(cells[4].dest) >= 0 && HeightOf(cells[4].dest) >= 0;
}

TEST(NineGrid, DrawsEveryPixelOnceAndNothingFromOutsideTheSlice) {
    // The slice is of one translucent colour that shows when it is drawn twice, on a sheet of another.
    constexpr uint32_t kColour = 0x60105020, kPoison = 0xFFFF00FF;
    const OwnedTexture texture(CreateTexture(23, 17));
    const SurfaceView view = ViewOf(texture);
    FillWith(view, kPoison);
    SetTextureFilter(texture, kOver);
    Random random(2);
    const RECT slice = FittingGrid(random).slice;
    for (LONG y = slice.top; y < slice.bottom; ++y) {
        for (LONG x = slice.left; x < slice.right; ++x) PutPixel(view, x, y, kColour);
    }
    int drawn = 0;
    for (int round = 0; round < 3000; ++round) {
        const Grid grid = FittingGrid(random);
        // A source column without width leaves its destination column out.
        const std::array<Cell, 9> cells = CellsOf(grid);
        if (!DestMarginsFit(cells) || std::any_of(cells.begin(), cells.end(), [](const Cell &cell) {
                return (WidthOf(cell.dest) > 0 && WidthOf(cell.source) <= 0) ||
                       (HeightOf(cell.dest) > 0 && HeightOf(cell.source) <= 0);
            })) {
            continue;
        }
        ++drawn;
        const OwnedCanvas canvas(CreateCanvas(40, 36, {}));
        EXPECT_EQ(1, grid.Draw(canvas, texture));
        const Picture result = PictureOf(ViewOf(canvas));
        // Bicubic weights may sum to a little less than 1.
        const int tolerance = grid.kernelMode >= 4 ? 1 : 0;
        ForEachPixel(result, [&](LONG x, LONG y) {
            const uint32_t wanted = Contains(grid.dest, x, y) ? kColour : 0;
            for (int i = 0; i < 4; ++i) {
                const auto at = [i](uint32_t word) { return static_cast<int>(ChannelOf(word, i)); };
                ASSERT_LE(std::abs(at(wanted) - at(result.At(x, y))), tolerance)
                    << "round " << round << " at " << x << ", " << y << " kernel mode " << grid.kernelMode;
            }
        });
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(drawn, 1000);
}

}  // namespace
}  // namespace lacquer
