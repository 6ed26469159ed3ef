// Filters of single pixels: their rules on every pair of alpha and channel, and what they do at every depth.

#include <algorithm>
#include <array>

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
    return (c & 0xFFFFFF) | std::max(ChannelOf(c, 0), std::max(ChannelOf(c, 1), ChannelOf(c, 2))) << 24;
}
constexpr DWORD kFind = 0x80402010, kPut = 0x12345678;
uint32_t Translated(uint32_t c) { return c == kFind ? kPut : c; }
uint32_t Translated24(uint32_t c) { return (c & 0xFFFFFF) == (kFind & 0xFFFFFF) ? kPut & 0xFFFFFF : c; }

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
    {"alpha to colour", [](HGTEXTURE texture) { return ShuffleTexture(texture, 1); },
     [](HGBITMAP bitmap) { return ShuffleBitmap(bitmap, 1); }, AlphaShown, nullptr, nullptr},
    {"colour to alpha", [](HGTEXTURE texture) { return ShuffleTexture(texture, 6); },
     [](HGBITMAP bitmap) { return ShuffleBitmap(bitmap, 6); }, LightAsAlpha, nullptr, nullptr},
    {"shuffle 2", [](HGTEXTURE texture) { return ShuffleTexture(texture, 2); },
     [](HGBITMAP bitmap) { return ShuffleBitmap(bitmap, 0xFFFFFFFF); }, [](uint32_t c) { return c; }, nullptr, nullptr},
};
constexpr Filter kInvert{"invert", InvertTexture, InvertBitmap, Inverted, nullptr, nullptr};

void ExpectRule(const Filter &filter, const Picture &before) {
    Picture expected = before;
    for (uint32_t &pixel : expected.pixels) pixel = filter.deep(pixel);
    const auto width = static_cast<DWORD>(before.width), height = static_cast<DWORD>(before.height);
    const OwnedTexture texture(CreateTexture(width, height));
    Put(ViewOf(texture), before);
    ASSERT_EQ(1, filter.onTexture(texture)) << filter.name;
    ASSERT_TRUE(Same(expected, PictureOf(ViewOf(texture)))) << filter.name << ' ' << width;
    if (!filter.onBitmap) return;
    for (const bool isSystem : {false, true}) {
        const OwnedBitmap bitmap(isSystem ? CreateSystemBitmap(width, height) : CreateMemBitmap(width, height));
        Put(ViewOf(bitmap), before);
        ASSERT_EQ(1, filter.onBitmap(bitmap)) << filter.name;
        ASSERT_TRUE(Same(expected, PictureOf(ViewOf(bitmap)))) << filter.name << ' ' << width;
    }
}

/// Every pair of alpha and blue with two more channels that take every value.
Picture AllPairs() {
    Picture picture{256, 256, {}};
    for (uint32_t alpha = 0; alpha < 256; ++alpha) {
        for (uint32_t c = 0; c < 256; ++c) {
            picture.pixels.push_back(alpha << 24 | (c ^ 0x5B) << 16 | ((c * 7 + alpha) & 0xFF) << 8 | c);
        }
    }
    picture.pixels[777] = picture.pixels[778] = picture.pixels[779] = kFind;
    return picture;
}

TEST(PixelFilters, FollowTheirRulesOnDeepPixels) {
    const Picture all = AllPairs();
    for (const Filter &filter : kFilters) ExpectRule(filter, all);
    ExpectRule(kInvert, all);
    // The largest one is worked on in pieces.
    for (const LONG width : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 523}) {
        Picture odd = NoisePicture(width, width > 13 ? 257 : 3, static_cast<uint32_t>(width));
        odd.pixels.back() = odd.pixels.front() = kFind;
        for (const Filter &filter : kFilters) ExpectRule(filter, odd);
        ExpectRule(kInvert, odd);
    }
}

TEST(PixelFilters, HaveKnownValues) {
    struct Case {
        uint32_t before, after;
        int (*filter)(HGTEXTURE texture);
    };
    constexpr Case kCases[] = {
        {0x000000FF, 0x003F3F3F, GrayTexture},
        {0xFF123456, 0xFF123456, NormalizeTexture},
        {0x00FFFFFF, 0x00000000, NormalizeTexture},
        {0x80404040, 0x80404040, InvertTexture},
        {0xFF000000, 0xFFFFFFFF, InvertTexture},
        {0x00000000, 0x00000000, InvertTexture},
        {0x10FF0000, 0x10111010, InvertTexture},
        {0xFF0000FF, 0xFF0000FF, [](HGTEXTURE t) { return ShuffleTexture(t, 6); }},
        {0x00102030, 0x30102030, [](HGTEXTURE t) { return ShuffleTexture(t, 6); }},
        {0x40102030, 0x40404040, [](HGTEXTURE t) { return ShuffleTexture(t, 1); }},
        {0x00112233, 0x00112233, [](HGTEXTURE t) { return TranslateTexture(t, 0xFF112233, 0); }},
        {0x00112233, 0x00112233, [](HGTEXTURE t) { return TranslateTexture(t, 0x112233, 0x112233); }},
        {0x00112233, 0xFF000000, [](HGTEXTURE t) { return TranslateTexture(t, 0x112233, 0xFF000000); }}};
    for (const Case &known : kCases) {
        const OwnedTexture texture(CreateTexture(5, 1));
        FillWith(ViewOf(texture), known.before);
        EXPECT_EQ(1, known.filter(texture));
        EXPECT_EQ(std::vector<uint32_t>(5, known.after), PixelsOf(ViewOf(texture))) << std::hex << known.before;
    }
}

std::vector<BYTE> BytesOf(const SurfaceView &view) {
    const auto *bytes = static_cast<const BYTE *>(view.bits);
    return {bytes, bytes + static_cast<size_t>(view.stride) * static_cast<size_t>(view.height)};
}

/// A texture whose bytes, gaps between the rows included, are all noise.
OwnedTexture NoisyBytes(DWORD width, WORD bits, DWORD paletteCount) {
    OwnedTexture texture(CreateTextureEx(width, 4, bits, paletteCount));
    const SurfaceView view = ViewOf(texture);
    auto *bytes = static_cast<BYTE *>(view.bits);
    for (LONG i = 0; i < view.stride * view.height; ++i)
        bytes[i] = static_cast<BYTE>(Noise(bits, static_cast<uint32_t>(i)));
    if (bits == 24) PutPixel(view, 1, 1, kFind);
    return texture;
}

TEST(PixelFilters, ChangeWhatTheyNameAtOtherDepths) {
    for (const Filter &filter : kFilters) {
        for (const WORD bits : std::initializer_list<WORD>{8, 16, 24, 48}) {
            for (const DWORD width : {2u, 3u, 5u, 9u}) {
                const OwnedTexture texture = NoisyBytes(width, bits, 0), expected = NoisyBytes(width, bits, 0);
                const SurfaceView view = ViewOf(expected);
                for (LONG y = 0; bits == 24 && filter.triples && y < view.height; ++y) {
                    for (LONG x = 0; x < view.width; ++x) PutPixel(view, x, y, filter.triples(PixelAt(view, x, y)));
                }
                EXPECT_EQ(1, filter.onTexture(texture)) << filter.name;
                EXPECT_EQ(BytesOf(view), BytesOf(ViewOf(texture))) << filter.name << ' ' << bits << ' ' << width;
            }
        }
    }
}

TEST(PixelFilters, ChangePalettesButNotTheSharedOne) {
    for (const Filter &filter : kFilters) {
        const OwnedTexture grey = NoisyBytes(6, 8, 0);
        const std::vector<uint32_t> before = ColoursOf(ViewOf(grey));
        EXPECT_EQ(1, filter.onTexture(grey));
        EXPECT_EQ(1, ColorizeTexture(grey, 0.5f, 0.5f, 0.5f));
        EXPECT_EQ(before, ColoursOf(ViewOf(grey))) << filter.name;
        const SurfaceView shared = ViewOf(grey);
        for (DWORD i = 0; i < 256; ++i) ASSERT_EQ(0xFF000000 | i * 0x010101, shared.palette[i]);

        for (const DWORD count : {1u, 5u, 256u}) {
            const OwnedTexture texture = NoisyBytes(6, 8, count);
            const SurfaceView view = ViewOf(texture);
            const std::vector<BYTE> indices = BytesOf(view);
            FillPaletteWithNoise(view, count);
            view.palette[0] = kFind;
            std::vector<uint32_t> expected(view.palette, view.palette + count);
            if (filter.palette) std::transform(expected.begin(), expected.end(), expected.begin(), filter.palette);
            EXPECT_EQ(1, filter.onTexture(texture));
            EXPECT_EQ(expected, std::vector<uint32_t>(view.palette, view.palette + count)) << filter.name;
            EXPECT_EQ(indices, BytesOf(view));
        }
    }
}

TEST(PixelFilters, InvertWalksWholeWordsOfEveryRow) {
    for (const WORD bits : std::initializer_list<WORD>{8, 16, 24, 32, 48}) {
        for (const DWORD width : {1u, 2u, 5u, 21u}) {
            const OwnedTexture texture = NoisyBytes(width, bits, 0);
            const SurfaceView view = ViewOf(texture);
            std::vector<BYTE> expected = BytesOf(view);
            const size_t rowBytes = width * (bits / 8u) / 4 * 4;
            for (size_t y = 0; y < 4; ++y) {
                for (size_t i = 0; i < rowBytes; i += 4) {
                    BYTE *pixel = expected.data() + y * static_cast<size_t>(view.stride) + i;
                    for (int channel = 0; channel < 3; ++channel)
                        pixel[channel] = static_cast<BYTE>(pixel[3] - pixel[channel]);
                }
            }
            EXPECT_EQ(1, InvertTexture(texture));
            EXPECT_EQ(expected, BytesOf(view)) << bits << ' ' << width;
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
        const OwnedTexture texture(CreateTexture(15, 11));
        const OwnedBitmap bitmap(CreateMemBitmap(15, 11));
        Put(ViewOf(texture), before);
        Put(ViewOf(bitmap), before);
        EXPECT_EQ(1, ShuffleTextureEx(texture, &rect, toAlpha ? 6 : 1));
        EXPECT_EQ(1, ShuffleBitmapEx(bitmap, &rect, toAlpha ? 6 : 1));
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(texture))));
        EXPECT_TRUE(Same(expected, PictureOf(ViewOf(bitmap))));
        EXPECT_EQ(1, ShuffleTextureEx(texture, nullptr, 1));
        EXPECT_EQ(1, ShuffleBitmapEx(bitmap, nullptr, 1));
        EXPECT_TRUE(Same(PictureOf(ViewOf(texture)), PictureOf(ViewOf(bitmap))));
    }
}

TEST(PixelFilters, FailWhereNothingCanBeLocked) {
    const OwnedTexture shallow(CreateTextureEx(6, 6, 4, 0));
    for (const Filter &filter : kFilters) EXPECT_EQ(0, filter.onTexture(shallow)) << filter.name;
    EXPECT_EQ(0, InvertTexture(shallow));
    const OwnedTexture texture = NoiseTexture(6, 6, 32, 1);
    const OwnedBitmap bitmap = NoiseBitmap(6, 6, 32, 1);
    const Picture before = PictureOf(ViewOf(texture));
    for (const RECT &rect : kOutside) {
        for (const DWORD code : {1u, 2u, 6u}) {
            EXPECT_EQ(0, ShuffleTextureEx(texture, &rect, code));
            EXPECT_EQ(0, ShuffleBitmapEx(bitmap, &rect, code));
        }
    }
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(texture))));
    EXPECT_TRUE(Same(before, PictureOf(ViewOf(bitmap))));

    // Deleting one handle of a canvas's pixels empties what the other one names.
    const OwnedCanvas canvas(CreateCanvas(4, 4, HGCANVAS{}));
    const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas);
    DeleteBitmap(first);
    for (const Filter &filter : kFilters) {
        if (filter.onBitmap) {
            EXPECT_EQ(0, filter.onBitmap(second)) << filter.name;
        }
    }
    EXPECT_EQ(1, InvertBitmap(second));
    EXPECT_EQ(1, LightBitmap(second));
    ReleaseBitmap(second);
}

}  // namespace
}  // namespace lacquer
