// The gallery's pictures: that they are painted whole, and that none depends on what was painted before it.
#include "gallery/gallery.h"

#include <gtest/gtest.h>

#include <algorithm>
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

}  // namespace
}  // namespace lacquer::examples
