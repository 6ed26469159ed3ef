// The nine-grid: its cells against a model of its margins.

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

/// One margin of the destination, after the scale.
int64_t DestMargin(int64_t margin, bool scaled, float scale, int64_t destExtent, int64_t sourceExtent) {
    if (!scaled) return margin;
    const float wanted = std::trunc(static_cast<float>(margin) * scale);
    const float most = std::min(static_cast<float>(sourceExtent) * scale, static_cast<float>(destExtent));
    return static_cast<int64_t>(std::min(wanted, most));
}

/// Half, rounded away from zero.
int64_t Half(int64_t value) { return value < 0 ? -((1 - value) / 2) : (value + 1) / 2; }

/// The begin and the end of the three cells along one axis. The outer ones are cut to the extent, the inner one is not.
using Cells = std::array<std::pair<LONG, LONG>, 3>;
Cells CellsOf(int64_t begin, int64_t end, int64_t first, int64_t last) {
    const auto cell = [](int64_t from, int64_t to) {
        return std::pair{static_cast<LONG>(from), static_cast<LONG>(to)};
    };
    return {cell(begin, std::min(end, begin + first)), cell(begin + first, end - last),
            cell(std::max(begin, end - last), end)};
}

struct Axis {
    Cells dest, source;
};

/// `flags`: the scale flags of the first and the last margin.
Axis CutAxis(const Grid &grid, int64_t destFrom, int64_t destTo, int64_t sliceFrom, int64_t sliceTo, int64_t first,
             int64_t last, const std::array<DWORD, 2> &flags) {
    const int64_t dest = destTo - destFrom, slice = sliceTo - sliceFrom;
    const auto half = [&](int64_t value) { return grid.halfScale ? Half(value) : value; };
    const int64_t doubled = grid.halfScale ? 2 * dest : dest, halfSlice = half(sliceTo) - half(sliceFrom);
    const auto destMargin = [&](int64_t margin, DWORD flag) {
        return DestMargin(std::min({dest, halfSlice, half(margin)}), (grid.scaleFlags & flag) != 0, grid.scale, dest,
                          halfSlice);
    };
    return {CellsOf(destFrom, destTo, destMargin(first, flags[0]), destMargin(last, flags[1])),
            CellsOf(sliceFrom, sliceTo, std::min({doubled, slice, first}), std::min({doubled, slice, last}))};
}

void DrawModel(HGCANVAS canvas, const Grid &grid, HGBITMAP sheet) {
    const RECT &d = grid.dest, &s = grid.slice, &m = grid.margins;
    const Axis x = CutAxis(grid, d.left, d.right, s.left, s.right, m.left, m.right, {1, 4});
    const Axis y = CutAxis(grid, d.top, d.bottom, s.top, s.bottom, m.top, m.bottom, {2, 8});
    const SurfaceView view = ViewOf(sheet);
    DWORD filter = 0;
    GetBitmapFilter(sheet, &filter);
    for (size_t i = 0; i < 9; ++i) {
        const auto rect = [i](const Cells &columns, const Cells &rows) {
            return RECT{columns[i % 3].first, rows[i / 3].first, columns[i % 3].second, rows[i / 3].second};
        };
        const RECT to = rect(x.dest, y.dest), from = rect(x.source, y.source);
        if (!grid.hollow || i != 4) {
            DrawBitmapRectEx(canvas, &to, sheet, &from, grid.kernelMode, grid.alpha);
            continue;
        }
        const LONG middleX = (from.left + from.right) / 2, middleY = (from.top + from.bottom) / 2;
        if (view.bitsPerPixel == 16 || !Contains({0, 0, view.width, view.height}, middleX, middleY)) continue;
        uint32_t colour = ColourAt(view, middleX, middleY);
        if (filter >> 24 != LACQUER_DRAW_MODULATE) {
            colour = WordOf([&](int channel) { return ChannelOf(colour, channel) * (grid.alpha + 1u) >> 8; });
        }
        FillPreMulColorRectEx(canvas, colour, &to, filter);
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

}  // namespace
}  // namespace lacquer
