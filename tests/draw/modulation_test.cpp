// DrawModulation: both rules over dense channel values, clipping, and masks of other depths.

#include <algorithm>

#include "rounds.h"

namespace lacquer {
namespace {

uint32_t Modulated(uint32_t d, uint32_t m, uint32_t c) {
    const auto at = [](uint32_t word, int i) { return ChannelOf(word, i); };
    if (c >> 24 == 255) {
        const uint32_t a = (((at(m, 0) + at(m, 2) + 2 * at(m, 1)) >> 2) + 1) * 255 >> 8;
        return WordOf([&](int i) {
            if (i == 3) return (at(d, 3) * (256 - a) >> 8) + a;
            return (at(d, i) * (255 - at(m, i)) >> 8) + (at(c, i) * at(m, i) >> 8);
        });
    }
    const uint32_t keep = 256 - ((at(m, 3) + 1) * at(c, 3) >> 8);
    return WordOf([&](int i) { return (at(d, i) * keep >> 8) + ((at(m, i) + 1) * at(c, i) >> 8); });
}

TEST(DrawModulation, FollowsBothRulesOverAllChannelValues) {
    // Every pair of destination and mask bytes meets in every channel, the mask's channels unequal.
    const OwnedCanvas canvas(CreateCanvas(256, 256, {}));
    const OwnedBitmap mask(CreateMemBitmap(256, 256));
    const SurfaceView pixels = ViewOf(canvas), coverage = ViewOf(mask);
    Picture before{256, 256, std::vector<uint32_t>(256 * 256)};
    for (const uint32_t bits : {0x00000000u, 0x00550FAAu, 0xFF00FF3Cu}) {
        ForEachPixel(before, [&](LONG x, LONG y) {
            before.At(x, y) = static_cast<uint32_t>(x) * 0x01010101;
            PutPixel(coverage, x, y, (static_cast<uint32_t>(y) * 0x01010101) ^ bits);
        });
        for (const uint32_t colour : {0xFF000000u, 0xFF0180FFu, 0xFFFFFFFEu, 0xFF407F01u, 0xFEFEFEFEu, 0xFE80017Fu,
                                      0x80808080u, 0x7F204060u, 0x01010001u, 0x00000000u, 0x40FF80C0u}) {
            Picture expected = before;
            ForEachPixel(before, [&](LONG x, LONG y) {
                PutPixel(pixels, x, y, before.At(x, y));
                expected.At(x, y) = Modulated(before.At(x, y), PixelAt(coverage, x, y), colour);
            });
            EXPECT_EQ(1, DrawModulation(canvas, 0, 0, mask, nullptr, colour));
            ASSERT_TRUE(Same(expected, PictureOf(pixels))) << std::hex << colour << " mask " << bits;
        }
    }
}

TEST(DrawModulation, ClipsAndMovesTheMaskWithTheClip) {
    ForRounds(4, 500, [](Round &round) {
        const OwnedBitmap mask = NoiseBitmap(90, 90, 32, round.random.Word());
        const LONG x = round.random.Between(0, 5), y = round.random.Between(0, 5);
        const RECT dest = round.Logical(round.dest);
        const RECT from{x, y, x + dest.right - dest.left, y + dest.bottom - dest.top};
        const auto colour = round.random.Of<DWORD>({0xFF884422, 0x80402010});
        EXPECT_EQ(1, DrawModulation(round.canvas, dest.left, dest.top, mask, &from, colour));
        round.Expect(PictureOf(ViewOf(mask)), from, round.clip,
                     [&](uint32_t m, uint32_t d) { return Modulated(d, m, colour); });
    });
    // Only the visible part of the mask has to be there.
    const OwnedBitmap mask = NoiseBitmap(10, 10, 32, 1);
    const auto drawn = [&](int x, int y, const RECT *source) {
        const TestCanvas canvas(CanvasKind::Memory, 20, 20, 1);
        EXPECT_EQ(1, DrawModulation(canvas, x, y, mask, source, 0xFF884422));
        return canvas.Pixels();
    };
    const RECT whole{0, 0, 10, 10}, wider{-50, -5, 10, 10}, outside{0, 0, 11, 10}, inverted{5, 5, 0, 0};
    EXPECT_TRUE(Same(drawn(0, 0, &whole), drawn(-50, -5, &wider))) << "its columns below 0 are not visible";
    for (const RECT *none : {&outside, &inverted}) EXPECT_TRUE(Same(drawn(99, 0, nullptr), drawn(5, 5, none)));
}

TEST(DrawModulation, ReadsShallowMasksUpToTheLastWholeWordOfARow) {
    Random random(5);
    for (int round = 0; round < 300; ++round) {
        const WORD bits = random.Of<WORD>({8, 24});
        const LONG width = random.Between(1, 9), height = random.Between(1, 4);
        const OwnedBitmap mask = NoiseBitmap(width, height, bits, random.Word());
        const RECT source = random.Inside({0, 0, width, height});
        const TestCanvas canvas(CanvasKind::Memory, 12, 6, random.Word());
        Picture expected = canvas.Pixels();
        const SurfaceView view = ViewOf(mask);
        const LONG pixelBytes = bits / 8, words = (source.right - source.left) * pixelBytes / 4;
        for (LONG y = source.top; y < source.bottom; ++y) {
            for (LONG i = 0; i < std::min(words, source.right - source.left); ++i) {
                const auto *bytes =
                    static_cast<const BYTE *>(view.bits) + y * view.stride + source.left * pixelBytes + 4 * i;
                uint32_t &d = expected.At(i, y - source.top);
                d = Modulated(d, WordOf([&](int channel) { return bytes[channel]; }), 0x80604020);
            }
        }
        EXPECT_EQ(1, DrawModulation(canvas, 0, 0, mask, &source, 0x80604020));
        ASSERT_TRUE(Same(expected, canvas.Pixels())) << "round " << round;
    }
}

}  // namespace
}  // namespace lacquer
