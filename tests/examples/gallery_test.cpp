// The gallery's pictures: that they are painted whole, that none depends on what was painted before it, and that their
// pixels stay what they are.
#include "gallery/gallery.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "example_skin.h"
#include "picture_file.h"

namespace lacquer::examples {
namespace {

/// Pictures whose pixels depend on more than the library: text on how the system reads the outlines of the DejaVu
/// fonts, the film on the compiler of the animation library. They may differ by so many levels from their references.
const std::map<std::string_view, int> kTolerances{{"text", 24}, {"window", 24}, {"desktop", 24}, {"film", 2}};

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
    std::string digits;
    for (int shift = 60; shift >= 0; shift -= 4) digits += "0123456789ABCDEF"[hash >> shift & 15];
    return digits;
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
    velLottie *animation = velLottieCreateFromData(kNothing.data(), kNothing.size());
    velLottieDestroy(animation);
    return animation != nullptr;
}

bool IsWriting() { return std::getenv("LACQUER_WRITE_DIGESTS") != nullptr; }

/// The pictures, painted once for all tests.
class Gallery : public testing::Test {
protected:
    struct Painted {
        std::string name;
        PngKind kind;
        int width, height;
        std::vector<DWORD> words;
    };

    static void SetUpTestSuite() {
        for (const Picture &picture : Pictures()) {
            if (picture.name == "film" && !HasAnimations()) continue;
            const Canvas canvas = picture.paint(LoadSkin());
            const CanvasPixels pixels(canvas.get());
            painted_.push_back(
                {std::string(picture.name), picture.kind, pixels.width(), pixels.height(), PixelsOf(canvas)});
        }
    }
    static void TearDownTestSuite() { painted_.clear(); }

    inline static std::vector<Painted> painted_;
};

TEST_F(Gallery, PicturesAreTheSameInAnyOrder) {
    const Skin skin = LoadSkin();
    for (std::size_t i = painted_.size(); i-- > 0;) {
        const auto picture = std::ranges::find(Pictures(), painted_[i].name, &Picture::name);
        EXPECT_TRUE(PixelsOf(picture->paint(skin)) == painted_[i].words) << picture->name;
    }
}

// What is drawn premultiplied stays so: no channel grows beyond its alpha.
TEST_F(Gallery, PicturesAreWholeAndPremultiplied) {
    for (const Painted &picture : painted_) {
        const auto isOpaque = [](DWORD word) { return word >> 24 == 255; };
        const auto isPremultiplied = [](DWORD word) {
            return std::max({word >> 16 & 255, word >> 8 & 255, word & 255}) <= word >> 24;
        };
        EXPECT_EQ(std::ranges::all_of(picture.words, isOpaque), picture.kind == PngKind::kOpaque) << picture.name;
        EXPECT_TRUE(std::ranges::all_of(picture.words, isPremultiplied)) << picture.name;
        EXPECT_GT(std::set<DWORD>(picture.words.begin(), picture.words.end()).size(), 200u) << picture.name;
    }
}

/// Writes a picture, and where it differs from what it was (bright) under what is the same (dark), beside the build.
/// Result: where they are, for the failure's text. `before` is empty when nobody knows it.
std::string Report(const std::string &name, int width, int height, std::vector<DWORD> words,
                   const std::vector<DWORD> &before) {
    std::filesystem::create_directories("mismatch");
    PlainPicture difference{width, height, words};
    for (std::size_t i = 0; i < before.size() && i < words.size(); ++i) {
        const int levels = LargestDifference(before[i], words[i]);
        const DWORD dark = 0xFF000000 | (words[i] >> 3 & 0x1F1F1F);
        difference.words[i] = levels > 0 ? 0xFF800000 | static_cast<DWORD>(128 + levels / 2) << 16 : dark;
    }
    for (DWORD &word : words) word = StraightWord(word);
    const std::string file = "mismatch/" + name + ".png", other = "mismatch/" + name + "-difference.png";
    const bool isWritten = WritePlainPicture(file, {width, height, words}) &&
                           (before.size() != words.size() || WritePlainPicture(other, difference));
    const std::string folder = std::filesystem::current_path().string() + "/";
    return name + (isWritten ? " is " : " can't be written to ") + folder + file +
           (before.size() == words.size() ? ", its difference " + folder + other : "; what it was is not known here");
}

/// The words of a picture with this digest, kept when it was last painted in this build.
class Kept {
public:
    Kept(const std::string &name, const std::string &digest) : path_("matched/" + name + "-" + digest) {}

    void Write(const std::vector<DWORD> &words) const {
        if (std::filesystem::exists(path_)) return;
        std::filesystem::create_directories("matched");
        std::ofstream(path_, std::ios::binary)
            .write(reinterpret_cast<const char *>(words.data()),
                   static_cast<std::streamsize>(words.size() * sizeof(DWORD)));
    }
    std::vector<DWORD> Read() const {
        std::vector<DWORD> words(std::filesystem::exists(path_) ? std::filesystem::file_size(path_) / sizeof(DWORD)
                                                                : 0);
        std::ifstream(path_, std::ios::binary)
            .read(reinterpret_cast<char *>(words.data()), static_cast<std::streamsize>(words.size() * sizeof(DWORD)));
        return words;
    }

private:
    std::filesystem::path path_;
};

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
        if (pinned == digest) Kept(picture.name, digest).Write(picture.words);
        EXPECT_TRUE(pinned == digest) << picture.name << " has the digest " << digest << '\n'
                                      << Report(picture.name, picture.width, picture.height, picture.words,
                                                Kept(picture.name, pinned).Read());
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
        SCOPED_TRACE(picture.name);
#ifndef _WIN32
        if (IsWriting()) {
            const auto painter = std::ranges::find(Pictures(), picture.name, &Picture::name);
            WritePng(ReferencePath(picture.name), painter->paint(LoadSkin()).get(), picture.kind);
        }
#endif
        const Image reference = ReadReference(picture.name);
        ASSERT_EQ(reference.width, picture.width);
        ASSERT_EQ(reference.height, picture.height);
        std::vector<DWORD> before;
        int largest = 0;
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                before.push_back(reference.word(x, y));
                const bool isItalic = picture.name == "text" && x >= kItalics.left && x < kItalics.right &&
                                      y >= kItalics.top && y < kItalics.bottom;
                if (!isItalic)
                    largest = std::max(largest, LargestDifference(picture.words[before.size() - 1], before.back()));
            }
        }
        EXPECT_LE(largest, tolerance->second)
            << Report(picture.name, picture.width, picture.height, picture.words, before);
    }
}

}  // namespace
}  // namespace lacquer::examples
