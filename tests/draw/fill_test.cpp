// Fills: those that do nothing, every rule of combining, clip and origins.

#include "rounds.h"

namespace lacquer {
namespace {

constexpr HGCANVAS kNoCanvas{};

DWORD ModeWord(DWORD mode) { return mode << 24 | 0x00ABCDEF; }

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
        const TestCanvas canvas(CanvasKind::Memory, 4, 4, 1);
        const DWORD mode = ModeWord(c.mode);
        SCOPED_TRACE(::testing::Message() << c.mode << " " << std::hex << c.colour);
        EXPECT_EQ(c.isVoid, FillPreMulColorRectEx(kNoCanvas, c.colour, &whole, mode));
        EXPECT_EQ(c.isVoid, FillPreMulColorRectEx({HGTEXTURE(texture).value}, c.colour, &whole, mode));
        EXPECT_EQ(c.isVoid, FillPreMulColorRectEx(canvas, c.colour, nullptr, mode));
    }
    EXPECT_EQ(1, FillSolidRect(kNoCanvas, 0x00FFFFFF, &whole));
    EXPECT_EQ(0, FillSolidRect(kNoCanvas, 0x01FFFFFF, &whole));
}

TEST(Fills, FollowTheirFormulasInsideClipAndOrigins) {
    ForRounds(3, 1500, [](Round &round) {
        const auto colour = round.random.Of<DWORD>(
            {0, 0x01010001, 0x40102030, 0x80808080, 0xFE00FE7F, 0xFF000000, 0xFF0180FF, 0xFFFFFFFF});
        const DWORD mode = round.random.Word() % 10;
        const RECT dest = round.Logical(round.dest), inverted{dest.right, dest.top, dest.left, dest.bottom};
        EXPECT_EQ(1, FillPreMulColorRectEx(round.canvas, colour, &inverted, ModeWord(mode)));
        EXPECT_EQ(1, FillPreMulColorRectEx(round.canvas, colour, &dest, ModeWord(mode)));
        round.Expect(TestCanvas(CanvasKind::Memory, 1, 1, 0).Pixels(), {0, 0, 1, 1}, round.clip,
                     [&](uint32_t, uint32_t d) { return Filled(mode, colour, d); });
    });
}

TEST(Fills, GradientsOfOneColourAreSolid) {
    const RECT part{2, 1, 7, 6};
    const TestCanvas solid(CanvasKind::Memory, 8, 8, 5);
    EXPECT_EQ(1, FillSolidRect(solid, 0x80FF8001, &part));
    const auto expectSolid = [&](DWORD to, int direction) {
        const TestCanvas canvas(CanvasKind::Memory, 8, 8, 5);
        EXPECT_EQ(1, FillGradualRect(canvas, 0x80FF8001, to, &part, direction));
        EXPECT_TRUE(Same(solid.Pixels(), canvas.Pixels())) << direction;
    };
    expectSolid(0x80FF8001, 1);
    expectSolid(0x80FF8000, 2);  // equal once premultiplied
    for (const int direction : {0, 3, -1}) expectSolid(0xFF000000, direction);
    EXPECT_EQ(1, FillGradualRect(kNoCanvas, 0x00FFFFFF, 0x00123456, &part, 1)) << "both are transparent black";
    for (const int direction : {0, 1}) {
        EXPECT_EQ(0, FillGradualRect(kNoCanvas, 0xFFFFFFFF, 0xFF123456, &part, direction));
    }
}

}  // namespace
}  // namespace lacquer
