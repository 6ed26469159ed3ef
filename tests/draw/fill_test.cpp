// Fills: premultiplying, the fills that do nothing, every rule of combining, clip and origins.

#include "painting.h"

namespace lacquer {
namespace {

constexpr HGCANVAS kNoCanvas{};

DWORD ModeWord(DWORD mode) { return mode << 24 | 0x00ABCDEF; }

uint32_t Filled(DWORD mode, uint32_t c, uint32_t d) {
    const uint32_t alpha = c >> 24, dA = d >> 24;
    switch (mode) {
        case LACQUER_DRAW_COPY: return c;
        case LACQUER_DRAW_MODULATE: return WordOf([&](int i) { return ChannelOf(d, i) * (ChannelOf(c, i) + 1) >> 8; });
        case LACQUER_DRAW_OR: return c == 0 ? 0 : c == 0xFFFFFFFF ? d : d | c;
        case LACQUER_DRAW_GREY_TINT: {
            if (alpha == 0) return d;
            const uint32_t grey = ((ChannelOf(d, 0) + 2 * ChannelOf(d, 1) + ChannelOf(d, 2)) >> 2) * alpha >> 8;
            return WordOf([&](int i) { return i == 3 ? dA : (ChannelOf(d, i) * (256 - dA) >> 8) + grey; });
        }
        case LACQUER_DRAW_BEHIND:
            return WordOf([&](int i) { return ChannelOf(d, i) + (ChannelOf(c, i) * (256 - dA) >> 8); });
        default: return WordOf([&](int i) { return ChannelOf(c, i) + (ChannelOf(d, i) * (256 - alpha) >> 8); });
    }
}

TEST(Fills, PremultiplyStraightColours) {
    const std::pair<DWORD, DWORD> colours[] = {{0x80FF0000, 0x80800000},
                                               {0xFF123456, 0xFF123456},
                                               {0x00FFFFFF, 0x00000000},
                                               {0x7F80FF01, 0x7F407F00},
                                               {0xFEFF0180, 0xFEFE007F}};
    const RECT whole{0, 0, 2, 2};
    for (const auto &[straight, premultiplied] : colours) {
        const OwnedCanvas canvas(CreateCanvas(2, 2, kNoCanvas));
        EXPECT_EQ(1, FillSolidRectEx(canvas, straight, &whole, 0));
        EXPECT_EQ(std::vector<uint32_t>(4, premultiplied), PixelsOf(ViewOf(canvas))) << std::hex << straight;
    }
    const TestCanvas over(CanvasKind::Memory, 9, 9, 1), same(CanvasKind::Memory, 9, 9, 1);
    const RECT part{1, 2, 8, 7};
    EXPECT_EQ(1, FillSolidRect(over, 0x80FF0000, &part));
    EXPECT_EQ(1, FillPreMulColorRectEx(same, 0x80800000, &part, kOver));
    EXPECT_TRUE(Same(same.Pixels(), over.Pixels()));
}

TEST(Fills, WithoutEffectSucceedOnAnyHandle) {
    struct Case {
        DWORD mode, colour;
        bool isVoid;
    };
    constexpr Case kCases[] = {
        {0, 0, false},          {1, 0, true},           {1, 0x00FFFFFF, true},  {1, kOver, false},
        {2, 0x00123456, true},  {2, 0xFF000000, false}, {3, 0xFFFFFFFF, true},  {3, 0, false},
        {4, 0xFFFFFFFF, true},  {4, 0, false},          {5, 0, false},          {6, 0, false},
        {7, 0x00FFFFFF, false}, {1, 0xFFFFFFFF, false}, {0, 0xFFFFFFFF, false}, {255, 0, false}};
    const RECT whole{0, 0, 4, 4};
    const OwnedTexture texture(CreateTexture(4, 4));
    for (const Case &c : kCases) {
        SCOPED_TRACE(::testing::Message() << c.mode << " " << std::hex << c.colour);
        for (const HGCANVAS handle : {kNoCanvas, HGCANVAS{HGTEXTURE(texture).value}}) {
            EXPECT_EQ(c.isVoid, FillPreMulColorRectEx(handle, c.colour, &whole, ModeWord(c.mode)));
        }
        const TestCanvas canvas(CanvasKind::Memory, 4, 4, 1);
        const Picture before = canvas.Pixels();
        EXPECT_EQ(c.isVoid, FillPreMulColorRectEx(canvas, c.colour, nullptr, ModeWord(c.mode)));
        EXPECT_EQ(1, FillPreMulColorRectEx(canvas, c.colour, &whole, ModeWord(c.mode)));
        if (c.isVoid) {
            EXPECT_TRUE(Same(before, canvas.Pixels()));
        }
    }
    EXPECT_EQ(1, FillSolidRect(kNoCanvas, 0x00FFFFFF, &whole));
    EXPECT_EQ(0, FillSolidRect(kNoCanvas, 0x01FFFFFF, &whole));
}

TEST(Fills, FollowTheirFormulasInsideClipAndOrigins) {
    constexpr DWORD kColours[] = {0,          0x00000000, 0x01010001, 0x40102030, 0x80808080,
                                  0xFE00FE7F, 0xFF000000, 0xFF0180FF, 0xFFFFFFFF};
    const RECT fill{-3, 4, 21, 17}, clip{2, -1, 15, 12};
    for (const CanvasKind kind : kCanvasKinds) {
        for (DWORD mode = 0; mode <= 9; ++mode) {
            for (const DWORD colour : kColours) {
                const TestCanvas canvas(kind, 18, 16, mode);
                Picture expected = canvas.Pixels();
                SetViewportOrg(canvas, 3, 1, nullptr);
                SetWindowOrg(canvas, 1, 2, nullptr);
                SetCanvasClipRect(canvas, &clip);
                EXPECT_EQ(1, FillPreMulColorRectEx(canvas, colour, &fill, ModeWord(mode)));
                DrawNearest(expected, Moved(clip, 2, -1), Moved(fill, 2, -1), expected, expected.Bounds(),
                            [&](uint32_t, uint32_t d) { return Filled(mode, colour, d); });
                EXPECT_TRUE(Same(expected, canvas.Pixels()))
                    << "kind " << static_cast<int>(kind) << " mode " << mode << " colour " << std::hex << colour;
            }
        }
    }
}

TEST(Fills, NothingVisibleIsNoFailure) {
    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    for (const RECT &rect : {RECT{8, 0, 12, 8}, RECT{-4, -4, 0, 0}, RECT{5, 5, 5, 8}, RECT{6, 6, 2, 2}}) {
        EXPECT_EQ(1, FillSolidRect(canvas, 0xFF00FF00, &rect));
        EXPECT_EQ(1, FillGradualRect(canvas, 0xFF00FF00, 0xFF0000FF, &rect, 1));
    }
    EXPECT_TRUE(Same(before, canvas.Pixels()));
}

TEST(Fills, GradientsOfOneColourAreSolid) {
    const RECT part{2, 1, 7, 6};
    const auto gradual = [&](DWORD from, DWORD to, int direction) {
        const TestCanvas canvas(CanvasKind::Memory, 8, 8, 5);
        EXPECT_EQ(1, FillGradualRect(canvas, from, to, &part, direction));
        return canvas.Pixels();
    };
    const TestCanvas solid(CanvasKind::Memory, 8, 8, 5);
    EXPECT_EQ(1, FillSolidRect(solid, 0x80FF8001, &part));
    EXPECT_TRUE(Same(solid.Pixels(), gradual(0x80FF8001, 0x80FF8001, 1)));
    EXPECT_TRUE(Same(solid.Pixels(), gradual(0x80FF8001, 0x80FF8000, 2))) << "equal once premultiplied";
    for (const int direction : {0, 3, -1}) {
        EXPECT_TRUE(Same(solid.Pixels(), gradual(0x80FF8001, 0xFF000000, direction))) << direction;
    }
    EXPECT_EQ(1, FillGradualRect(kNoCanvas, 0x00FFFFFF, 0x00123456, &part, 1)) << "both are transparent black";
    EXPECT_EQ(0, FillGradualRect(kNoCanvas, 0xFFFFFFFF, 0xFF123456, &part, 1));
    EXPECT_EQ(0, FillGradualRect(kNoCanvas, 0xFFFFFFFF, 0xFF123456, &part, 0));
}

}  // namespace
}  // namespace lacquer
