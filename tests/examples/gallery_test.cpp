// The gallery's pictures: that they are painted whole, that none depends on what was painted before it, and that their
// pixels stay what they are.
#include "gallery/gallery.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

TEST(Gallery, PicturesAreTheSameInAnyOrder) {
    const Skin skin = LoadSkin();
    std::vector<std::vector<DWORD>> first;
    for (const Picture &picture : Pictures()) first.push_back(PixelsOf(picture.paint(skin)));
    for (std::size_t i = first.size(); i-- > 0;) {
        const Picture &picture = Pictures()[i];
        EXPECT_EQ(PixelsOf(picture.paint(skin)), first[i]) << picture.name;
    }
}

TEST(Gallery, OpaquePicturesHaveNoHoles) {
    const Skin skin = LoadSkin();
    for (const Picture &picture : Pictures()) {
        const std::vector<DWORD> pixels = PixelsOf(picture.paint(skin));
        const bool opaque = std::ranges::all_of(pixels, [](DWORD word) { return word >> 24 == 255; });
        EXPECT_EQ(opaque, picture.kind == PngKind::kOpaque) << picture.name;
        EXPECT_GT(std::set<DWORD>(pixels.begin(), pixels.end()).size(), 200u) << picture.name;
    }
}

// What is drawn premultiplied stays so: no channel grows beyond its alpha.
TEST(Gallery, TheTransparentWindowIsPremultiplied) {
    const std::vector<DWORD> pixels = PixelsOf(PaintWindow(LoadSkin()));
    EXPECT_EQ(pixels.front(), 0u);
    for (const DWORD word : pixels)
        for (int shift = 0; shift < 24; shift += 8) ASSERT_LE(word >> shift & 255, word >> 24);
}

/// FNV-1a over the words' bytes, blue first, as 16 hexadecimal digits.
std::string DigestOf(const std::vector<DWORD> &pixels) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const DWORD word : pixels)
        for (int shift = 0; shift < 32; shift += 8) hash = (hash ^ (word >> shift & 255)) * 0x100000001B3;
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[hash >> shift & 15];
    return digits;
}

/// Pictures whose pixels depend on more than the library: text on how the system reads the outlines of the DejaVu
/// fonts, the film on the compiler of the animation library. They may differ by so many levels from their references.
const std::map<std::string_view, int> kTolerances{{"text", 24}, {"window", 24}, {"film", 2}};

bool IsWriting() { return std::getenv("LACQUER_WRITE_DIGESTS") != nullptr; }

// With LACQUER_WRITE_DIGESTS set the file is written instead: look at the pictures before you commit it.
TEST(Gallery, PixelsAreThoseOfTheDigests) {
    // Blurs and colour shifts count in floating point, and a bicubic draw has the weights of the processor's kind.
    std::set<std::string_view> inexact{"filters", "hues", "glow", "samplers", "desktop"};
#ifdef _WIN32
    inexact.insert("sources");  // the system's decoder gives every image 32 bits per pixel
#endif
    const Skin skin = LoadSkin();
    std::map<std::string, std::string> painted;
    for (const Picture &picture : Pictures())
        if (!inexact.contains(picture.name) && !kTolerances.contains(picture.name))
            painted[std::string(picture.name)] = DigestOf(PixelsOf(picture.paint(skin)));
    if (IsWriting()) {
        std::ofstream file(GALLERY_DIGESTS);
        for (const auto &[name, digest] : painted) file << name << ' ' << digest << '\n';
        ASSERT_TRUE(file.flush());
        return;
    }
    std::map<std::string, std::string> expected;
    std::ifstream file(GALLERY_DIGESTS);
    for (std::string name, digest; file >> name >> digest;)
        if (!inexact.contains(name)) expected[name] = digest;
    EXPECT_EQ(painted, expected);
}

/// Whether there is a library that draws animations.
bool HasAnimations() {
    constexpr std::string_view kNothing = R"({"v":"5.5.2","fr":30,"ip":0,"op":1,"w":8,"h":8,"layers":[]})";
    velLottie *animation = velLottieCreateFromData(kNothing.data(), kNothing.size());
    velLottieDestroy(animation);
    return animation != nullptr;
}

int LargestDifference(DWORD a, DWORD b) {
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
    return largest;
}

// With LACQUER_WRITE_DIGESTS set the references are written instead, where files can be.
TEST(Gallery, TextAndFramesAreLikeTheirReferences) {
    const Skin skin = LoadSkin();
    for (const Picture &picture : Pictures()) {
        const auto tolerance = kTolerances.find(picture.name);
        if (tolerance == kTolerances.end() || (picture.name == "film" && !HasAnimations())) continue;
        SCOPED_TRACE(picture.name);
        const Canvas canvas = picture.paint(skin);
#ifndef _WIN32
        if (IsWriting()) WritePng(ReferencePath(std::string(picture.name)), canvas.get(), picture.kind);
#endif
        const Image reference = ReadReference(std::string(picture.name));
        const CanvasPixels pixels(canvas.get());
        ASSERT_EQ(reference.width, pixels.width());
        ASSERT_EQ(reference.height, pixels.height());
        int largest = 0;
        POINT where{};
        for (int y = 0; y < pixels.height(); ++y) {
            for (int x = 0; x < pixels.width(); ++x) {
                const bool isItalic =
                    x >= kItalics.left && x < kItalics.right && y >= kItalics.top && y < kItalics.bottom;
                if (picture.name == "text" && isItalic) continue;
                const int difference = LargestDifference(pixels.words(y)[x], reference.word(x, y));
                if (difference <= largest) continue;
                largest = difference;
                where = {x, y};
            }
        }
        EXPECT_LE(largest, tolerance->second) << "at " << where.x << ", " << where.y;
    }
}

}  // namespace
}  // namespace lacquer::examples
