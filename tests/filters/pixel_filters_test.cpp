// Filters of single pixels: their rules on every pair of alpha and channel, and what they do at every depth.

#include <algorithm>

#include "models.h"

namespace lacquer {
namespace {

uint32_t Grey(uint32_t c) {
    const uint32_t grey = (ChannelOf(c, 0) + 2 * ChannelOf(c, 1) + ChannelOf(c, 2)) / 4;
    return WordOf([&](int i) { return i == 3 ? c >> 24 : grey; });
}
uint32_t Premultiplied(uint32_t c) {
    return WordOf([&](int i) { return i == 3 ? c >> 24 : ChannelOf(c, i) * ((c >> 24) + 1) / 256; });
}
uint32_t Inverted(uint32_t c) {
    return WordOf([&](int i) { return i == 3 ? c >> 24 : (c >> 24) - ChannelOf(c, i); });
}
uint32_t AlphaShown(uint32_t c) { return (c >> 24) * 0x01010101; }
uint32_t LightAsAlpha(uint32_t c) {
    return (c & 0xFFFFFF) | std::max({ChannelOf(c, 0), ChannelOf(c, 1), ChannelOf(c, 2)}) << 24;
}
constexpr DWORD kFind = 0x80402010, kPut = 0x12345678;
uint32_t Translated(uint32_t c) { return c == kFind ? kPut : c; }
uint32_t Translated24(uint32_t c) { return (c & 0xFFFFFF) == (kFind & 0xFFFFFF) ? kPut & 0xFFFFFF : c; }
constexpr Deltas kShift{0.3f, -0.4f, 0.2f};
uint32_t Shifted(uint32_t c) { return ModelColorized(c, kShift); }

using Rule = uint32_t (*)(uint32_t colour);

struct Filter {
    const char *name;
    int (*onTexture)(HGTEXTURE texture);
    int (*onBitmap)(HGBITMAP bitmap);
    Rule deep;     ///< 32-bit pixels
    Rule triples;  ///< 24-bit pixels, null: unchanged
    Rule palette;  ///< entries of 8-bit surfaces, null: unchanged
};

constexpr Filter kFilters[] = {
    {"grey", GrayTexture, GrayBitmap, Grey, Grey, Grey},
    {"normalize", NormalizeTexture, NormalizeBitmap, Premultiplied, nullptr, Premultiplied},
    {"translate", [](HGTEXTURE texture) { return TranslateTexture(texture, kFind, kPut); }, nullptr, Translated,
     Translated24, Translated},
    {"colorize", [](HGTEXTURE texture) { return ColorizeTexture(texture, kShift.h, kShift.s, kShift.l); }, nullptr,
     Shifted, Shifted, Shifted},
    {"alpha to colour", [](HGTEXTURE texture) { return ShuffleTexture(texture, 1); },
     [](HGBITMAP bitmap) { return ShuffleBitmap(bitmap, 1); }, AlphaShown, nullptr, nullptr},
    {"colour to alpha", [](HGTEXTURE texture) { return ShuffleTexture(texture, 6); },
     [](HGBITMAP bitmap) { return ShuffleBitmap(bitmap, 6); }, LightAsAlpha, nullptr, nullptr},
    {"shuffle 2", [](HGTEXTURE texture) { return ShuffleTexture(texture, 2); },
     [](HGBITMAP bitmap) { return ShuffleBitmap(bitmap, 0xFFFFFFFF); }, [](uint32_t c) { return c; }, nullptr, nullptr},
    {"invert", InvertTexture, InvertBitmap, Inverted, nullptr, nullptr},
};
constexpr const Filter &kInvert = kFilters[7];

void ExpectRule(const Filter &filter, const Picture &before) {
    Picture expected = before;
    std::transform(before.pixels.begin(), before.pixels.end(), expected.pixels.begin(), filter.deep);
    const OwnedTexture texture = TextureOf(before);
    const OwnedBitmap bitmap = BitmapOf(before), system = BitmapOf(before, true);
    ASSERT_EQ(1, filter.onTexture(texture));
    ASSERT_TRUE(Same(expected, PictureOf(ViewOf(texture)))) << filter.name << ' ' << before.width;
    for (const OwnedBitmap *object : {&bitmap, &system}) {
        if (!filter.onBitmap) continue;
        ASSERT_EQ(1, filter.onBitmap(*object));
        ASSERT_TRUE(Same(expected, PictureOf(ViewOf(*object)))) << filter.name << ' ' << before.width;
    }
}

TEST(PixelFilters, FollowTheirRulesOnDeepPixels) {
    // Every pair of alpha and blue with two more channels that take every value.
    Picture all = NoisePicture(256, 256, 0);
    ForEachPixel(all, [&](LONG c, LONG alpha) {
        all.At(c, alpha) = WordOf([=](int i) {
            return i == 3 ? alpha : i == 2 ? c ^ 0x5B : i == 1 ? c * 7 + alpha : c;
        });
    });
    all.pixels[777] = kFind;
    for (const Filter &filter : kFilters) ExpectRule(filter, all);
    // The largest one is worked on in pieces.
    for (const LONG width : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 523}) {
        Picture odd = NoisePicture(width, width > 13 ? 257 : 3, static_cast<uint32_t>(width));
        odd.pixels.back() = odd.pixels.front() = kFind;
        for (const Filter &filter : kFilters) ExpectRule(filter, odd);
    }
}

std::vector<BYTE> BytesOf(const SurfaceView &view) {
    const auto *bytes = static_cast<const BYTE *>(view.bits);
    return {bytes, bytes + static_cast<size_t>(view.stride) * static_cast<size_t>(view.height)};
}

/// A texture whose bytes, gaps between the rows included, are all noise; and its palette, if it has one of its own.
OwnedTexture NoisyBytes(DWORD width, WORD bits, DWORD paletteCount = 0) {
    OwnedTexture texture(CreateTextureEx(width, 4, bits, paletteCount));
    const SurfaceView view = ViewOf(texture);
    auto *bytes = static_cast<BYTE *>(view.bits);
    for (LONG i = 0; i < view.stride * view.height; ++i)
        bytes[i] = static_cast<BYTE>(Noise(bits, static_cast<uint32_t>(i)));
    if (bits == 24) PutPixel(view, 1, 1, kFind);
    if (paletteCount > 0) {
        FillPaletteWithNoise(view, paletteCount);
        view.palette[0] = kFind;
    }
    return texture;
}

TEST(PixelFilters, ChangeWhatTheyNameAtOtherDepths) {
    struct Format {
        WORD bits;
        DWORD paletteCount;  ///< 0 for the shared greys, which no filter changes
    };
    for (const Filter &filter : kFilters) {
        for (const Format &format : {Format{8, 0}, {8, 1}, {8, 5}, {8, 256}, {16, 0}, {24, 0}, {48, 0}}) {
            for (const DWORD width : {2u, 3u, 5u, 9u}) {
                const OwnedTexture texture = NoisyBytes(width, format.bits, format.paletteCount),
                                   expected = NoisyBytes(width, format.bits, format.paletteCount);
                const SurfaceView view = ViewOf(expected), actual = ViewOf(texture);
                for (DWORD i = 0; filter.palette && i < format.paletteCount; ++i) {
                    view.palette[i] = filter.palette(view.palette[i]);
                }
                // Inverting walks the whole words of every row.
                SurfaceView walked = view;
                Rule rule = format.bits == 24 ? filter.triples : nullptr;
                if (&filter == &kInvert) {
                    rule = Inverted;
                    walked.bitsPerPixel = 32;
                    walked.width = static_cast<LONG>(width) * (format.bits / 8) / 4;
                }
                for (LONG i = 0; rule && i < walked.width * walked.height; ++i) {
                    const LONG x = i % walked.width, y = i / walked.width;
                    PutPixel(walked, x, y, rule(PixelAt(walked, x, y)));
                }
                EXPECT_EQ(1, filter.onTexture(texture)) << filter.name;
                EXPECT_EQ(BytesOf(view), BytesOf(actual)) << filter.name << ' ' << format.bits << ' ' << width;
                EXPECT_TRUE(std::equal(view.palette, view.palette + view.paletteCount, actual.palette)) << filter.name;
            }
        }
    }
}

TEST(PixelFilters, ShuffleARectangle) {
    Random random(3);
    for (int i = 0; i < 100; ++i) {
        const Picture before = NoisePicture(15, 11, random.Word());
        const RECT rect = random.Inside(before.Bounds());
        const bool toAlpha = random.Coin();
        Picture expected = before, part = Cut(before, rect);
        for (uint32_t &pixel : part.pixels) pixel = toAlpha ? LightAsAlpha(pixel) : AlphaShown(pixel);
        Paste(expected, rect.left, rect.top, part);
        const OwnedTexture texture = TextureOf(before);
        const OwnedBitmap bitmap = BitmapOf(before);
        EXPECT_EQ(1, ShuffleTextureEx(texture, &rect, toAlpha ? 6 : 1));
        EXPECT_EQ(1, ShuffleBitmapEx(bitmap, &rect, toAlpha ? 6 : 1));
        for (const RECT &outside : kOutside) EXPECT_EQ(0, ShuffleTextureEx(texture, &outside, 1));
        for (const SurfaceView &view : {ViewOf(texture), ViewOf(bitmap)}) EXPECT_TRUE(Same(expected, PictureOf(view)));
    }
}

}  // namespace
}  // namespace lacquer
