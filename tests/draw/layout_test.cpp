// The centre-fit, tile, top-tile and plain layouts, compared with literal walks of their rules that draw every cell on
// its own, visible or not.

#include <limits>

#include "painting.h"

namespace lacquer {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity(), kNaN = std::numeric_limits<float>::quiet_NaN();

/// What one draw is made of, beside its canvas.
struct Draw {
    RECT dest;
    const Sheet &sheet;
    RECT slice;
    DWORD kernelMode;
    BYTE alpha;

    void Piece(HGCANVAS canvas, const RECT &to, const RECT &from) const {
        EXPECT_EQ(1, DrawBitmapRectEx(canvas, &to, sheet.bitmap, &from, kernelMode, alpha));
    }
};

LONG Truncated(float value) {
    return value >= -2147483648.0f && value < 2147483648.0f ? static_cast<LONG>(value) : INT32_MIN;
}

void WalkTile(HGCANVAS canvas, const Draw &draw, DWORD scaleFlags, float scale) {
    const RECT &dest = draw.dest;
    RECT cell = Ordered(draw.slice), piece = cell;
    if (scaleFlags & 0x10) {
        cell.right = Truncated(static_cast<float>(cell.left) + scale * static_cast<float>(cell.right - cell.left));
        cell.bottom = Truncated(static_cast<float>(cell.top) + scale * static_cast<float>(cell.bottom - cell.top));
    }
    if (cell.right <= cell.left || cell.bottom <= cell.top) return;
    for (LONG y = dest.top; y < dest.bottom; y += cell.bottom - cell.top) {
        for (LONG x = dest.left; x < dest.right; x += cell.right - cell.left) {
            cell = {x, y, x + (cell.right - cell.left), y + (cell.bottom - cell.top)};
            if (cell.right > dest.right) {
                cell.right = dest.right;
                piece.right = Truncated(static_cast<float>(piece.left) + static_cast<float>(dest.right - x) / scale);
            }
            if (cell.bottom > dest.bottom) {
                cell.bottom = dest.bottom;
                piece.bottom = Truncated(static_cast<float>(piece.top) + static_cast<float>(dest.bottom - y) / scale);
            }
            draw.Piece(canvas, cell, piece);
        }
    }
}

void WalkTopTile(HGCANVAS canvas, const Draw &draw, const RECT &margins) {
    const RECT &dest = draw.dest, slice = Ordered(draw.slice);
    const LONG width = slice.right - slice.left;
    for (LONG x = dest.left; x < dest.right; x += width) {
        RECT from{slice.left, slice.top, slice.right, slice.top + margins.top};
        RECT to{x, dest.top, x + width, dest.top + margins.top};
        if (to.right > dest.right) {
            to.right = dest.right;
            from.right = slice.left + (dest.right - x);
        }
        if (to.bottom > dest.bottom) {
            to.bottom = dest.bottom;
            from.bottom = slice.top + (dest.bottom - dest.top);
        }
        draw.Piece(canvas, to, from);
        from = {slice.left, slice.bottom - margins.bottom, from.right, slice.bottom};
        to = {x, dest.top + margins.top, to.right, dest.bottom};
        draw.Piece(canvas, to, from);
    }
}

template <class Case>
void ForRandomDraws(uint32_t seed, int rounds, const Case &test) {
    Random random(seed);
    const Sheet sheets[] = {
        {23, 17, 32, seed, kOver}, {23, 17, 32, seed, 0x06000000}, {23, 17, 24, seed, 0}, {23, 17, 8, seed, kOver}};
    for (int round = 0; round < rounds; ++round) {
        const Draw draw{random.Inside({-25, -25, 65, 60}), sheets[random.Word() % std::size(sheets)],
                        random.AnyOrder(random.Inside({0, 0, 23, 17})), random.Of<DWORD>({0u, 1u, 4u, 5u}),
                        random.Of<BYTE>({255, 120})};
        const Twins twins(random.Of(kAllCanvasKinds), random.Inside({0, 0, 40, 36}), random.Word());
        test(random, draw, twins);
        twins.ExpectSame();
        ASSERT_FALSE(::testing::Test::HasFailure()) << "round " << round;
    }
}

TEST(Tile, DrawsWhatALiteralWalkDraws) {
    ForRandomDraws(1, 1500, [](Random &random, const Draw &draw, const Twins &twins) {
        const DWORD flags = random.Of<DWORD>({0u, 0x10u, 0xFu, 0x1Fu});
        const float scale =
            random.Of({1.0f, 1.0f, 0.5f, 0.3f, 0.07f, 1.7f, 2.0f, 3.3f, 40.0f, -1.0f, 0.0f, kInfinity, kNaN});
        EXPECT_EQ(0, DrawTextureTile(twins.drawn, &draw.dest, draw.sheet.texture, &draw.slice, draw.kernelMode,
                                     draw.alpha, flags, scale));
        WalkTile(twins.expected, draw, flags, scale);
    });
}

TEST(TopTile, DrawsWhatALiteralWalkDraws) {
    ForRandomDraws(2, 1500, [](Random &random, const Draw &draw, const Twins &twins) {
        const RECT margins{random.Between(-50, 50), random.Between(-9, 30), random.Between(-50, 50),
                           random.Between(-9, 20)};
        Draw any = draw;
        if (random.Between(0, 9) == 0) std::swap(any.dest.top, any.dest.bottom);
        EXPECT_EQ(0, DrawTextureTopTile(twins.drawn, &any.dest, any.sheet.texture, &any.slice, &margins, any.kernelMode,
                                        any.alpha));
        WalkTopTile(twins.expected, any, margins);
    });
}

TEST(CentreFit, KeepsTheAspectAndAtMostOneExtraPixel) {
    ForRandomDraws(3, 1500, [](Random &, const Draw &draw, const Twins &twins) {
        const RECT slice = Ordered(draw.slice);
        const int64_t width = WidthOf(draw.dest), height = HeightOf(draw.dest);
        const bool wide = WidthOf(slice) * height >= HeightOf(slice) * width;
        // The side that is shrunk: what there is of it, and what the aspect leaves. The rest is halved.
        const int64_t whole = wide ? height : width;
        const int64_t exact =
            wide ? HeightOf(slice) * width / WidthOf(slice) : WidthOf(slice) * height / HeightOf(slice);
        if (exact == 0 && whole % 2 == 0) return;
        const LONG rest = static_cast<LONG>(whole - exact) / 2;
        RECT fitted = draw.dest;
        (wide ? fitted.top : fitted.left) += rest;
        (wide ? fitted.bottom : fitted.right) -= rest;
        EXPECT_EQ(1, DrawTextureCenter(twins.drawn, &draw.dest, draw.sheet.texture, &draw.slice, draw.kernelMode,
                                       draw.alpha));
        draw.Piece(twins.expected, fitted, slice);
    });
}

TEST(TextureDrawing, DispatchesByTheModeRecord) {
    ForRandomDraws(5, 500, [](Random &random, const Draw &draw, const Twins &twins) {
        const DWORD mode = random.Of<DWORD>({0u, 1u, 2u, 3u, 4u, 5u, 6u, 1000u}), flags = random.Word() & 0x1F;
        const RECT margins{random.Between(0, 9), random.Between(0, 9), random.Between(0, 9), random.Between(0, 9)};
        const TextureMode record{mode, flags, margins};
        const HGCANVAS canvas = twins.expected;
        const HGTEXTURE texture = draw.sheet.texture;
        ASSERT_EQ(1, SetTextureMode(texture, &record));
        // The last slice of a list is the current one; without a list the whole texture is drawn.
        const RECT slices[] = {random.Inside({0, 0, 23, 17}), Ordered(draw.slice)};
        const RECT *used = random.Coin() ? &slices[1] : nullptr;
        SetTextureSlice(texture, used ? 2 : 0, slices);
        const bool isPlain = draw.alpha == 255;
        const float scale = isPlain ? 1.0f : random.Of({0.6f, 2.5f});
        const int half = isPlain ? 0 : random.Between(0, 1);
        EXPECT_EQ(mode != 2 && mode != 5,
                  isPlain ? DrawTexture(twins.drawn, &draw.dest, texture, draw.kernelMode)
                          : DrawTextureEx(twins.drawn, &draw.dest, texture, draw.kernelMode, draw.alpha, scale, half));
        switch (mode) {
            case 1:
            case 4:
                DrawTexture9Grid(canvas, &draw.dest, texture, used, &margins, draw.kernelMode, mode == 4, draw.alpha,
                                 flags, scale, half);
                break;
            case 2:
                DrawTextureTile(canvas, &draw.dest, texture, used, draw.kernelMode, draw.alpha, flags, scale);
                break;
            case 3: DrawTextureCenter(canvas, &draw.dest, texture, used, draw.kernelMode, draw.alpha); break;
            case 5: DrawTextureTopTile(canvas, &draw.dest, texture, used, &margins, draw.kernelMode, draw.alpha); break;
            default: draw.Piece(canvas, draw.dest, used ? *used : RECT{0, 0, 23, 17});
        }
    });
}

TEST(TextureDrawing, RefusesSlicesThatAreEmptyOrReachOutside) {
    const Sheet sheet(23, 17, 32, 6, 0);
    const RECT dest{0, 0, 20, 20};
    const Twins twins(CanvasKind::Memory, {0, 0, 40, 36}, 1);
    for (const RECT &slice : {RECT{5, 5, -1, 0}, RECT{0, -1, 5, 5}, RECT{0, 0, 24, 5}, RECT{24, 5, 0, 0},
                              RECT{0, 0, 5, 18}, RECT{3, 3, 3, 9}, RECT{3, 9, 7, 9}, RECT{30, 30, 40, 40}}) {
        SetTextureSlice(sheet.texture, 1, &slice);
        for (DWORD mode = 0; mode <= 6; ++mode) {
            const TextureMode record{mode, 0, {2, 2, 2, 2}};
            SetTextureMode(sheet.texture, &record);
            EXPECT_EQ(0, DrawTexture(twins.drawn, &dest, sheet.texture, 1)) << mode << " " << slice.left;
        }
    }
    twins.ExpectSame();
}

}  // namespace
}  // namespace lacquer
