// The nine-grid: its cells against a model of its margins, and the properties that a skin relies on.

#include <algorithm>
#include <array>
#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

constexpr RECT kSheet{0, 0, 23, 17};
constexpr DWORD kOver = 0x01000000;

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
    const SurfaceView view = Locked(sheet);
    DWORD filter = 0;
    GetBitmapFilter(sheet, &filter);
    for (size_t i = 0; i < cells.size(); ++i) {
        const Cell &cell = cells[i];
        if (!grid.hollow || i != 4) {
            DrawBitmapRectEx(canvas, &cell.dest, sheet, &cell.source, grid.kernelMode, grid.alpha);
            continue;
        }
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
    const Sheet sheets[] = {
        {23, 17, 32, 1, kOver}, {23, 17, 32, 2, 0}, {23, 17, 24, 3, 0x06000000}, {23, 17, 8, 4, 0x03000000}};
    for (int round = 0; round < 4000; ++round) {
        Grid grid{random.Inside({-20, -20, 60, 56}), random.Inside(kSheet), {}};
        const auto margin = [&] { return random.Between(0, 9) == 0 ? random.Between(-5, 60) : random.Between(0, 9); };
        grid.margins = {margin(), margin(), margin(), margin()};
        grid.kernelMode = random.Of<DWORD>({0u, 1u, 4u, 5u});
        grid.hollow = random.Between(0, 2) == 0;
        grid.alpha = random.Of<BYTE>({255, 128});
        grid.scaleFlags = random.Word() & 0x1F;
        grid.scale = random.Of({0.1f, 0.5f, 0.75f, 1.0f, 1.3f, 2.0f, 5.0f, -0.5f});
        grid.halfScale = random.Between(0, 1);
        if (random.Between(0, 19) == 0) std::swap(grid.dest.left, grid.dest.right);
        if (random.Between(0, 19) == 0) std::swap(grid.dest.top, grid.dest.bottom);
        const Sheet &sheet = sheets[random.Word() % std::size(sheets)];
        const Twins twins(random.Of({CanvasKind::Memory, CanvasKind::System, CanvasKind::FromDC}),
                          random.Inside({0, 0, 40, 36}), random.Word());
        EXPECT_EQ(1, grid.Draw(twins.drawn, sheet.texture));
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

bool DestMarginsFit(const Grid &grid) {
    const std::array<Cell, 9> cells = CellsOf(grid);
    return WidthOf(cells[4].dest) >= 0 && HeightOf(cells[4].dest) >= 0;
}

TEST(NineGrid, DrawsEveryPixelOnceAndNothingFromOutsideTheSlice) {
    // The slice is of one translucent colour that shows when it is drawn twice, on a sheet of another.
    constexpr uint32_t kColour = 0x60105020, kPoison = 0xFFFF00FF;
    const OwnedTexture texture(CreateTexture(23, 17));
    const SurfaceView view = Locked(texture);
    FillWith(view, kPoison);
    Random random(2);
    int drawn = 0;
    for (int round = 0; round < 3000; ++round) {
        const Grid grid = FittingGrid(random);
        for (LONG y = grid.slice.top; y < grid.slice.bottom; ++y) {
            for (LONG x = grid.slice.left; x < grid.slice.right; ++x) PutPixel(view, x, y, kColour);
        }
        if (!DestMarginsFit(grid)) continue;
        // A source column without width leaves its destination column out.
        const std::array<Cell, 9> cells = CellsOf(grid);
        if (std::any_of(cells.begin(), cells.end(), [](const Cell &cell) {
                return (WidthOf(cell.dest) > 0 && WidthOf(cell.source) <= 0) ||
                       (HeightOf(cell.dest) > 0 && HeightOf(cell.source) <= 0);
            })) {
            continue;
        }
        ++drawn;
        SetTextureFilter(texture, kOver);
        const OwnedCanvas canvas(CreateCanvas(40, 36, {}));
        EXPECT_EQ(1, grid.Draw(canvas, texture));
        const Picture result = PictureOf(Locked(canvas));
        for (LONG y = 0; y < 36; ++y) {
            for (LONG x = 0; x < 40; ++x) {
                const uint32_t pixel = result.At(x, y), wanted = Contains(grid.dest, x, y) ? kColour : 0;
                // Bicubic weights may sum to a little less than 1.
                for (int i = 0; i < 4; ++i) {
                    const int difference =
                        static_cast<int>(ChannelOf(wanted, i)) - static_cast<int>(ChannelOf(pixel, i));
                    ASSERT_TRUE(difference == 0 || (grid.kernelMode >= 4 && std::abs(difference) <= 1))
                        << "round " << round << " at " << x << ", " << y << " kernel mode " << grid.kernelMode;
                }
            }
        }
    }
    EXPECT_GT(drawn, 1000);
}

TEST(NineGrid, KeepsTheCornersWhereTheMarginsAgree) {
    const Sheet sheet(23, 17, 32, 1, 0);
    const Picture source = PictureOf(Locked(sheet.bitmap));
    Random random(3);
    for (int round = 0; round < 300; ++round) {
        Grid grid = FittingGrid(random);
        grid.scaleFlags = 0;
        grid.halfScale = 0;
        grid.dest = {1, 2, random.Between(20, 39), random.Between(20, 35)};
        const TestCanvas canvas(CanvasKind::Memory, 40, 36, 1);
        grid.Draw(canvas, sheet.texture);
        const Picture result = canvas.Pixels();
        const RECT &d = grid.dest, &s = grid.slice, &m = grid.margins;
        for (LONG y = d.top; y < d.bottom; ++y) {
            for (LONG x = d.left; x < d.right; ++x) {
                const bool left = x < d.left + m.left, right = x >= d.right - m.right;
                const bool top = y < d.top + m.top, bottom = y >= d.bottom - m.bottom;
                if (!(left || right) || !(top || bottom)) continue;
                const LONG sourceX = left ? s.left + x - d.left : s.right - (d.right - x);
                const LONG sourceY = top ? s.top + y - d.top : s.bottom - (d.bottom - y);
                ASSERT_EQ(source.At(sourceX, sourceY), result.At(x, y)) << "round " << round;
            }
        }
    }
}

TEST(NineGrid, HalfScaleHalvesTheDestinationMarginsAwayFromZero) {
    const Sheet sheet(20, 20, 32, 1, 0);
    const Picture source = PictureOf(Locked(sheet.bitmap));
    // Margins of 5 become 3, so that the right column begins at 27 - 3.
    const Grid grid{{0, 0, 27, 27}, {0, 0, 20, 20}, {5, 5, 5, 5}, LACQUER_NEAREST, 0, 255, 0, 1.0f, 1};
    const OwnedCanvas canvas(CreateCanvas(30, 30, {}));
    EXPECT_EQ(1, grid.Draw(canvas, sheet.texture));
    const Picture result = PictureOf(Locked(canvas));
    const LONG columns[] = {0, 1, 3};
    for (LONG i = 0; i < 3; ++i) {
        EXPECT_EQ(source.At(columns[i], 0), result.At(i, 0));
        EXPECT_EQ(source.At(15 + columns[i], 15), result.At(24 + i, 24));
    }
    EXPECT_EQ(source.At(5, 5), result.At(3, 3)) << "the centre starts behind the source margins";
}

TEST(NineGrid, OverlappingMarginsLeaveTheCornersOnly) {
    const Sheet sheet(20, 20, 32, 1, 0);
    const Picture source = PictureOf(Locked(sheet.bitmap));
    const Grid grid{{4, 4, 12, 12}, {0, 0, 20, 20}, {15, 15, 15, 15}};
    const Twins twins(CanvasKind::Memory, {0, 0, 40, 36}, 1);
    EXPECT_EQ(1, grid.Draw(twins.drawn, sheet.texture));
    // Cut to the destination's eight pixels, all four corners fill it, and the last one stays.
    const RECT lastCorner{12, 12, 20, 20};
    DrawBitmapRectEx(twins.expected, &grid.dest, sheet.bitmap, &lastCorner, 0, 255);
    twins.ExpectSame();
}

TEST(NineGrid, FillsAHollowCentreByTheFilterWord) {
    constexpr uint32_t kColour = 0xFF804020;
    const Grid plain{{2, 2, 32, 30}, {0, 0, 20, 16}, {3, 4, 5, 2}, LACQUER_BICUBIC, 1, 128};
    const auto centreOn = [&](WORD bits, DWORD filter, uint32_t before) {
        const OwnedTexture texture(CreateTextureEx(20, 16, bits, bits == 8 ? 4 : 0));
        const SurfaceView view = Locked(texture);
        if (bits == 8) view.palette[2] = kColour;
        FillWith(view, 0);
        // The middle of the source centre (3, 4)-(15, 14).
        PutPixel(view, 9, 9, bits == 8 ? 2 : kColour);
        SetTextureFilter(texture, filter);
        const OwnedCanvas canvas(CreateCanvas(40, 36, {}));
        FillWith(Locked(canvas), before);
        EXPECT_EQ(1, plain.Draw(canvas, texture));
        const Picture result = PictureOf(Locked(canvas));
        const uint32_t centre = result.At(5, 6);
        for (LONG y = 6; y < 28; ++y) {
            for (LONG x = 5; x < 27; ++x) EXPECT_EQ(centre, result.At(x, y));
        }
        return centre;
    };
    for (const WORD bits : {WORD{8}, WORD{24}, WORD{32}}) {
        EXPECT_EQ(0x80402010, centreOn(bits, 0, 0xFF112233)) << "faded by 129 / 256, copied";
        EXPECT_EQ(0x80402010 + 0x7F081119, centreOn(bits, kOver, 0xFF112233)) << "drawn over";
        EXPECT_EQ(0xFF201008, centreOn(bits, 0x03000000, 0xFF404040)) << "modulates, not faded";
        EXPECT_EQ(0x81412111, centreOn(bits, 0x04000000, 0x01010101)) << "OR, as in fills";
    }
}

TEST(NineGrid, RefusesNullMarginsAndSlicesOutside) {
    const Sheet sheet(23, 17, 32, 1, 0);
    const TestCanvas canvas(CanvasKind::Memory, 40, 36, 1);
    const Picture before = canvas.Pixels();
    const RECT dest{0, 0, 30, 30}, margins{2, 2, 2, 2}, outside{0, 0, 24, 17};
    EXPECT_EQ(0, DrawTexture9Grid(canvas, &dest, sheet.texture, nullptr, nullptr, 1, 0, 255, 0, 1.0f, 0));
    EXPECT_EQ(0, DrawTexture9Grid(canvas, &dest, sheet.texture, &outside, &margins, 1, 0, 255, 0, 1.0f, 0));
    EXPECT_EQ(0, DrawTexture9Grid(canvas, nullptr, sheet.texture, nullptr, &margins, 1, 0, 255, 0, 1.0f, 0));
    EXPECT_TRUE(Same(before, canvas.Pixels()));
    const RECT away{100, 100, 140, 140};
    EXPECT_EQ(1, DrawTexture9Grid(canvas, &away, sheet.texture, nullptr, &margins, 1, 1, 255, 0, 1.0f, 0));
    EXPECT_TRUE(Same(before, canvas.Pixels()));

    // Exchanged edges are put right.
    const Twins twins(CanvasKind::Memory, {0, 0, 40, 36}, 1);
    const Grid grid{dest, {20, 3, 4, 15}, margins}, ordered{dest, {4, 3, 20, 15}, margins};
    EXPECT_EQ(1, grid.Draw(twins.drawn, sheet.texture));
    EXPECT_EQ(1, ordered.Draw(twins.expected, sheet.texture));
    twins.ExpectSame();
}

}  // namespace
}  // namespace lacquer
