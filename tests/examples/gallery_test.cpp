// The gallery's pictures: that none depends on what was painted before it, and that their pixels stay what they are.
#include "gallery/gallery.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <map>
#include <sstream>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

/// Pictures whose pixels depend on more than the library: text on how the system reads the outlines of the DejaVu
/// fonts, the film on the compiler of the animation library and its processor (2 levels on Windows, 15 on ARM). They
/// may differ by so many levels from their references.
const std::map<std::string_view, int> kTolerances{{"text", 24}, {"window", 24}, {"desktop", 24}, {"film", 16}};

/// Of which build of anything but the library a picture's digest is: of the fonts and their renderer, of the system's
/// decoder of images, which gives all of them 32 bits per pixel on Windows, or of none.
std::string BuildOf(std::string_view picture) {
    if (kTolerances.contains(picture)) return GALLERY_RENDERER;
#ifdef _WIN32
    if (picture == "sources") return "windows-decoder";
#endif
    return "any";
}

/// FNV-1a over the words' bytes, blue first, as 16 hexadecimal digits.
std::string DigestOf(const std::vector<DWORD> &pixels) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const DWORD word : pixels)
        for (int shift = 0; shift < 32; shift += 8) hash = (hash ^ (word >> shift & 255)) * 0x100000001B3;
    std::ostringstream digits;
    digits << std::hex << std::uppercase << std::setw(16) << std::setfill('0') << hash;
    return digits.str();
}

int LargestDifference(DWORD a, DWORD b) {
    int largest = 0;
    for (int shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
    return largest;
}

/// Whether there is a library that draws animations.
bool HasAnimations() {
    constexpr std::string_view kNothing = R"({"v":"5.5.2","fr":30,"ip":0,"op":1,"w":8,"h":8,"layers":[]})";
    return static_cast<bool>(Lottie::FromData(kNothing));
}

bool IsWriting() { return std::getenv("LACQUER_WRITE_DIGESTS") != nullptr; }

/// The pictures, painted once for all tests.
class Gallery : public testing::Test {
protected:
    struct Painted {
        const Picture *picture;
        std::string name;
        int width;
        std::vector<DWORD> words;
    };

    static void SetUpTestSuite() {
        for (const Picture &picture : Pictures()) {
            if (picture.name == "film" && !HasAnimations()) continue;
            const Canvas canvas = picture.paint(LoadSkin());
            painted_.push_back({&picture, std::string(picture.name), canvas.Size()->cx, PixelsOf(canvas)});
        }
    }
    static void TearDownTestSuite() { painted_.clear(); }

    inline static std::vector<Painted> painted_;
};

TEST_F(Gallery, PicturesAreTheSameInAnyOrder) {
    const Skin skin = LoadSkin();
    for (std::size_t i = painted_.size(); i-- > 0;)
        EXPECT_TRUE(PixelsOf(painted_[i].picture->paint(skin)) == painted_[i].words) << painted_[i].name;
}

// Each line of the file has a picture's name, its digest and the build that it is of. A picture of text or animation
// has a digest where its build is known, and a tolerance everywhere. With LACQUER_WRITE_DIGESTS set the lines of this
// build are written instead: look at the pictures before you commit them.
TEST_F(Gallery, PixelsAreThoseOfTheDigests) {
    std::map<std::pair<std::string, std::string>, std::string> expected;
    std::ifstream file(GALLERY_DIGESTS);
    for (std::string name, digest, build; file >> name >> digest >> build;) {
        expected[{name, build}] = digest;
        EXPECT_NE(std::ranges::find(Pictures(), name, &Picture::name), Pictures().end()) << name;
    }
    for (const Painted &picture : painted_) {
        const std::string build = BuildOf(picture.name), digest = DigestOf(picture.words);
        std::string &pinned = expected[{picture.name, build}];
        if (IsWriting() || (pinned.empty() && kTolerances.contains(picture.name))) pinned = digest;
        EXPECT_TRUE(pinned == digest) << picture.name << " has the digest " << digest << " and is "
                                      << WritePicture(picture.name, picture.width, picture.words);
    }
    if (!IsWriting()) return;
    std::ofstream out(GALLERY_DIGESTS);
    for (const auto &[key, digest] : expected) out << key.first << ' ' << digest << ' ' << key.second << '\n';
    ASSERT_TRUE(out.flush());
}

// With LACQUER_WRITE_DIGESTS set the references are written instead, where files can be.
TEST_F(Gallery, TextAndFramesAreLikeTheirReferences) {
    for (const Painted &picture : painted_) {
        const auto tolerance = kTolerances.find(picture.name);
        if (tolerance == kTolerances.end()) continue;
#ifndef _WIN32
        const auto &[name, kind, paint] = *picture.picture;
        if (IsWriting()) WritePng(ReferencePath(picture.name), paint(LoadSkin()), kind);
#endif
        const Image reference = ReadReference(picture.name);
        ASSERT_EQ(reference.width, picture.width);
        ASSERT_EQ(static_cast<std::size_t>(reference.width * reference.height), picture.words.size());
        int largest = 0;
        for (std::size_t i = 0; i < picture.words.size(); ++i) {
            const int x = static_cast<int>(i) % reference.width, y = static_cast<int>(i) / reference.width;
            const auto isIn = [&](const RECT &r) { return x >= r.left && x < r.right && y >= r.top && y < r.bottom; };
            if (picture.name != "text" || !(isIn(kItalics) || isIn(kOtherFonts)))
                largest = std::max(largest, LargestDifference(picture.words[i], reference.word(x, y)));
        }
        EXPECT_LE(largest, tolerance->second)
            << picture.name << " is " << WritePicture(picture.name, picture.width, picture.words);
    }
}

}  // namespace
}  // namespace lacquer::examples
