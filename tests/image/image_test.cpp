// Picture files: that every kind is read as what it holds, PNG written as what was there, and everything else refused.

#include <gtest/gtest.h>
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

#include "pictures.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

lq::Span<const BYTE> SpanOf(const Bytes &bytes) { return {bytes.data(), bytes.size()}; }

uint32_t Premultiplied(uint32_t word) {
    uint32_t result = word & 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8) result |= ((word >> shift & 255) * ((word >> 24) + 1) >> 8) << shift;
    return result;
}

template <class Object>
std::vector<uint32_t> Colours(const Object &object) {
    return ColoursOf(lq::Lock(object).View());
}

/// The slot that the next object would get: another one once a handle has been left behind.
uintptr_t NextSlot() { return lq::Bitmap::Create(1, 1).Handle().value & 0xFFFF; }

::testing::AssertionResult AreAlike(const std::vector<uint32_t> &actual, const std::vector<uint32_t> &expected,
                                    int tolerance) {
    if (actual.size() != expected.size()) return ::testing::AssertionFailure() << actual.size() << " pixels";
    for (size_t i = 0; i < actual.size(); ++i)
        for (int shift = 0; shift < 32; shift += 8)
            if (std::abs(static_cast<int>(actual[i] >> shift & 255) - static_cast<int>(expected[i] >> shift & 255)) >
                (shift < 24 ? tolerance : 0))
                return ::testing::AssertionFailure() << std::hex << actual[i] << " for " << expected[i] << " at " << i;
    return ::testing::AssertionSuccess();
}

TEST(Image, EveryKindIsReadAsWhatItHolds) {
    const uintptr_t slot = NextSlot();
    for (const Picture &picture : Pictures()) {
        SCOPED_TRACE(picture.name);
        const auto file = SpanOf(picture.file);
        const auto info = lq::ReadImageInfo(file);
        ASSERT_TRUE(info) << ImageLastError();
        EXPECT_EQ(0, std::memcmp(&*info, &picture.info, sizeof *info));

        const bool isOpaque =
            std::all_of(picture.pixels.begin(), picture.pixels.end(), [](uint32_t word) { return word >= 0xFF000000; });
        std::vector<uint32_t> expected = picture.pixels;
        for (uint32_t &word : expected) word = Premultiplied(word);
        for (DWORD flags = 0; flags < 4; ++flags) {
            const lq::Bitmap bitmap = lq::LoadBitmapOf(file, {flags, 0, 0});
            ASSERT_TRUE(bitmap) << ImageLastError();
            const bool isStraight = (flags & LACQUER_IMAGE_STRAIGHT) != 0;
            EXPECT_EQ((flags & LACQUER_IMAGE_KEEP_DEPTH) != 0 ? info->bitsPerPixel : 32,
                      lq::Lock(bitmap).BitsPerPixel());
            EXPECT_TRUE(AreAlike(Colours(bitmap), isStraight ? picture.pixels : expected, picture.tolerance)) << flags;
            DWORD filter = 0;
            EXPECT_EQ(1, GetBitmapFilter(bitmap, &filter));
            EXPECT_EQ(isOpaque || isStraight ? LACQUER_DRAW_COPY : LACQUER_DRAW_OVER, static_cast<int>(filter >> 24));
            EXPECT_EQ(LACQUER_IMAGE_DONE, ImageLastStatus());
        }
        const lq::Texture texture = lq::LoadTexture(file);
        DWORD filter = 0;
        EXPECT_EQ(1, GetTextureFilter(texture, &filter));
        EXPECT_EQ(isOpaque ? LACQUER_DRAW_COPY : LACQUER_DRAW_OVER, static_cast<int>(filter >> 24));
        EXPECT_TRUE(AreAlike(Colours(texture), expected, picture.tolerance));

        const DWORD side = std::max(info->width, info->height);
        const uint64_t bytes = uint64_t{info->width} * info->height * 4;
        EXPECT_TRUE(lq::LoadTexture(file, {0, side, bytes}));
        for (const ImageLoadOptions &limit : {ImageLoadOptions{0, side - 1, 0}, ImageLoadOptions{0, 0, bytes - 1}}) {
            EXPECT_FALSE(lq::LoadTexture(file, limit));
            EXPECT_EQ(LACQUER_IMAGE_TOO_LARGE, ImageLastStatus());
        }
    }
    EXPECT_EQ(slot, NextSlot());
}

// Orientation n tells at which side of what is seen the first stored row and the first stored column are.
TEST(Image, JpegsAreTurnedUpright) {
    for (DWORD orientation = 0; orientation < 10; ++orientation) {
        const Picture picture = TurnedJpeg(orientation, orientation % 2 != 0);
        const DWORD n = orientation >= 1 && orientation <= 8 ? orientation : 1;
        const bool rowIsFar = n == 3 || n == 4 || n == 6 || n == 7, columnIsFar = n == 2 || n == 3 || n == 7 || n == 8;
        const DWORD width = picture.info.width, height = picture.info.height, seenWidth = n > 4 ? height : width;
        std::vector<uint32_t> seen(picture.pixels.size());
        for (DWORD i = 0; i < seen.size(); ++i) {
            const DWORD column = i % width, row = i / width;
            const DWORD along = columnIsFar ? width - 1 - column : column, across = rowIsFar ? height - 1 - row : row;
            seen[n > 4 ? along * seenWidth + across : across * seenWidth + along] = picture.pixels[i];
        }
        const auto info = lq::ReadImageInfo(SpanOf(picture.file));
        ASSERT_TRUE(info) << ImageLastError();
        EXPECT_EQ(n, info->orientation);
        EXPECT_EQ(seenWidth, info->width);
        const lq::Texture upright = lq::LoadTexture(SpanOf(picture.file));
        EXPECT_EQ(static_cast<LONG>(seenWidth), upright.Size().value_or(SIZE{}).cx);
        EXPECT_TRUE(AreAlike(Colours(upright), seen, 3)) << orientation;
        const lq::Texture stored = lq::LoadTexture(SpanOf(picture.file), {LACQUER_IMAGE_KEEP_ORIENTATION, 0, 0});
        EXPECT_TRUE(AreAlike(Colours(stored), picture.pixels, 3));
    }
}

/// Loads what was written and compares it.
template <class Object>
void ExpectReadBack(const Object &object, DWORD flags, const std::vector<uint32_t> &expected) {
    const lq::ImageData data = lq::EncodePng(object, flags);
    ASSERT_TRUE(data) << ImageLastError();
    EXPECT_EQ(expected, Colours(lq::LoadTexture(data.Bytes())));
}

TEST(Png, WhatIsWrittenReadsBackAsTheSamePixels) {
    // All premultiplied channels under all alphas, and white under each.
    const lq::Texture all = lq::Texture::Create(256, 256);
    for (LONG alpha = 0; alpha < 256; ++alpha)
        for (LONG c = 0; c < 256; ++c) {
            const DWORD a = static_cast<DWORD>(alpha), channel = std::min(static_cast<DWORD>(c), a);
            lq::Lock(all).Row(alpha)[static_cast<size_t>(c)] = a << 24 | channel << 16 | (a - channel) << 8 | a;
        }
    ExpectReadBack(all, 0, Colours(all));
    const lq::ImageData data = lq::EncodePng(all);
    for (const uint32_t word : Colours(lq::LoadTexture(data.Bytes(), {LACQUER_IMAGE_STRAIGHT, 0, 0})))
        ASSERT_EQ(word >= 0x01000000 ? 255u : 0u, word & 255);

    for (const DWORD bits : {DWORD{8}, DWORD{24}, DWORD{32}}) {
        const lq::Bitmap bitmap = lq::Bitmap::Create(31, 7, bits, bits == 8 ? 200 : 0);
        FillWithNoise(lq::Lock(bitmap).View(), 1);
        FillPaletteWithNoise(lq::Lock(bitmap).View(), 2);
        ExpectReadBack(bitmap, 0, Colours(bitmap));
        std::vector<uint32_t> opaque = Colours(bitmap);
        for (uint32_t &word : opaque) word |= 0xFF000000;
        ExpectReadBack(bitmap, LACQUER_PNG_OPAQUE, opaque);
    }

    // Clip, origin and slices play no part; opaque pixels need no alpha in the file.
    lq::Canvas canvas = lq::Canvas::Create(20, 10);
    canvas.Fill({0, 0, 20, 10}, 0xFF336699);
    SetViewportOrg(canvas, 3, 4, nullptr);
    const RECT clip{1, 1, 2, 2};
    SetCanvasClipRect(canvas, &clip);
    ExpectReadBack(canvas, 0, std::vector<uint32_t>(200, 0xFF336699));
    EXPECT_EQ(0u, lq::ReadImageInfo(lq::EncodePng(canvas).Bytes()).value_or(ImageFileInfo{}).hasAlpha);
}

TEST(Image, PathsAreUtf8) {
    const std::string folder = "картинки-é", path = folder + "/アイコン-🙂.png";
    const auto place = std::filesystem::u8path(path);
    std::filesystem::create_directory(place.parent_path());
    const lq::Bitmap bitmap = lq::Bitmap::CreateSystem(3, 2);
    lq::Lock(bitmap).Row(1)[2] = 0x80402010;
    for (int i = 0; i < 2; ++i) {  // a file that is there is replaced
        ASSERT_TRUE(lq::SavePng(bitmap, path.c_str())) << ImageLastError();
        EXPECT_TRUE(std::filesystem::exists(place));
        std::ofstream(place, std::ios::app) << std::string(100000, ' ');  // what follows the end does not count
        EXPECT_EQ(3u, lq::ReadImageInfo(path.c_str()).value_or(ImageFileInfo{}).width);
        EXPECT_EQ(Colours(bitmap), Colours(lq::LoadTexture(path.c_str()))) << ImageLastError();
    }
    EXPECT_FALSE(lq::LoadBitmapOf(path.c_str(), {0, 0, 100000}));
    EXPECT_EQ(LACQUER_IMAGE_TOO_LARGE, ImageLastStatus());
    EXPECT_FALSE(lq::SavePng(bitmap, folder.c_str()));
    EXPECT_EQ(LACQUER_IMAGE_BAD_FILE, ImageLastStatus());

    // What comes before the size may be longer than what is read at first.
    Bytes file = TurnedJpeg(6, true).file;
    const Bytes segment(65533, 0x7F), head{0xFF, 0xE2, 0xFF, 0xFF};
    for (int i = 0; i < 20; ++i) {
        file.insert(file.begin() + 2, segment.begin(), segment.end());
        file.insert(file.begin() + 2, head.begin(), head.end());
    }
    std::ofstream(place, std::ios::binary)
        .write(reinterpret_cast<const char *>(file.data()), static_cast<std::streamsize>(file.size()));
    EXPECT_EQ(6u, lq::ReadImageInfo(path.c_str()).value_or(ImageFileInfo{}).orientation) << ImageLastError();
    std::filesystem::remove_all(place.parent_path());
    EXPECT_FALSE(lq::ReadImageInfo(path.c_str()));
    EXPECT_EQ(LACQUER_IMAGE_BAD_FILE, ImageLastStatus());
}

TEST(Image, FilesThatEndEarlyOrAreDamagedAreRefused) {
    const uintptr_t slot = NextSlot();
    for (const Picture &picture : Pictures()) {
        SCOPED_TRACE(picture.name);
        for (size_t size = 0; size < picture.file.size(); ++size) {
            const Bytes part(picture.file.begin(), picture.file.begin() + static_cast<ptrdiff_t>(size));
            ASSERT_FALSE(LoadTextureFromData(part.data() ? part.data() : picture.file.data(), size, nullptr)) << size;
            ASSERT_NE(LACQUER_IMAGE_DONE, ImageLastStatus());
            ASSERT_STRNE("", ImageLastError());
        }
        for (size_t at = 0; at < picture.file.size(); ++at) {
            Bytes damaged = picture.file;
            damaged[at] ^= 0x15;
            const bool isRead = static_cast<bool>(lq::LoadTexture(SpanOf(damaged)));
            // Each byte of a PNG file is guarded by a checksum or by its meaning.
            const bool isGuarded = picture.info.format == LACQUER_IMAGE_PNG;
            ASSERT_FALSE(isRead && isGuarded) << at;
        }
    }
    // Pixels that would have to be guessed: an end in the middle.
    Bytes guessed = TurnedJpeg(1, true).file;
    guessed[guessed.size() - 20] = 0xFF;
    guessed[guessed.size() - 19] = 0xD9;
    EXPECT_FALSE(lq::LoadTexture(SpanOf(guessed)));
    for (const DWORD flags : {DWORD{0}, DWORD{LACQUER_IMAGE_KEEP_DEPTH}})
        EXPECT_FALSE(lq::LoadTexture(SpanOf(PngBeyondItsPalette()), {flags, 0, 0}));
    EXPECT_EQ(slot, NextSlot());
}

TEST(Image, CallsThatMakeNoSenseAreRefused) {
    const Bytes text(100, 'x'), file = TurnedJpeg(1, true).file;
    const lq::Bitmap bitmap = lq::Bitmap::Create(1, 1);
    const ImageLoadOptions flags{8, 0, 0};
    ImageFileInfo info{9, 9, 9, 9, 9, 9, 9};
    const ImageFileInfo before = info;
    size_t length = 9;
    const auto expect = [](int status, bool result) {
        EXPECT_FALSE(result);
        EXPECT_EQ(status, ImageLastStatus()) << ImageLastError();
        EXPECT_STRNE("", ImageLastError());
    };
    expect(LACQUER_IMAGE_BAD_ARGUMENT, GetImageFileInfo(nullptr, &info) != 0);
    expect(LACQUER_IMAGE_BAD_ARGUMENT, GetImageFileInfo("a.png", nullptr) != 0);
    expect(LACQUER_IMAGE_BAD_ARGUMENT, GetImageDataInfo(nullptr, 1, &info) != 0);
    expect(LACQUER_IMAGE_BAD_ARGUMENT, GetImageDataInfo(file.data(), file.size(), nullptr) != 0);
    expect(LACQUER_IMAGE_BAD_FORMAT, GetImageDataInfo(text.data(), text.size(), &info) != 0);
    expect(LACQUER_IMAGE_BAD_ARGUMENT, static_cast<bool>(LoadTextureFromFile(nullptr, nullptr)));
    expect(LACQUER_IMAGE_BAD_ARGUMENT, static_cast<bool>(LoadBitmapFromData(nullptr, 9, nullptr)));
    expect(LACQUER_IMAGE_BAD_ARGUMENT, static_cast<bool>(LoadBitmapFromData(file.data(), file.size(), &flags)));
    expect(LACQUER_IMAGE_BAD_FORMAT, static_cast<bool>(LoadTextureFromData(text.data(), text.size(), nullptr)));
    expect(LACQUER_IMAGE_BAD_FILE, static_cast<bool>(LoadBitmapFromFile(".", nullptr)));
    expect(LACQUER_IMAGE_BAD_ARGUMENT, lq::SavePng(lq::Canvas(), "a.png"));
    expect(LACQUER_IMAGE_BAD_ARGUMENT, lq::SavePng(bitmap, nullptr));
    expect(LACQUER_IMAGE_BAD_ARGUMENT, lq::SavePng(bitmap, "a.png", 2));
    expect(LACQUER_IMAGE_BAD_FILE, lq::SavePng(bitmap, "no-such-folder/a.png"));
    expect(LACQUER_IMAGE_BAD_ARGUMENT, EncodeTextureAsPng(HGTEXTURE{bitmap.Handle().value}, 0, &length) != nullptr);
    expect(LACQUER_IMAGE_BAD_ARGUMENT, EncodeBitmapAsPng(bitmap, 0, nullptr) != nullptr);
    EXPECT_EQ(0, std::memcmp(&info, &before, sizeof info));
    EXPECT_EQ(9u, length);
    std::thread([] { EXPECT_EQ(LACQUER_IMAGE_DONE, ImageLastStatus()); }).join();
    EXPECT_EQ(LACQUER_IMAGE_BAD_ARGUMENT, ImageLastStatus());
    EXPECT_TRUE(lq::LoadTexture(SpanOf(file)));
    EXPECT_STREQ("", ImageLastError());
}

}  // namespace
}  // namespace lacquer
