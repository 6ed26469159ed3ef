// Refusing damaged PNG files, and writing canvases. That good ones are read is seen in the gallery.
#include "common/png_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

TEST(ReadPng, DamagedFilesAreRefused) {
    const std::string path = "damaged.png";
    const auto read = [&](const std::string &bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
        return ReadPng(path);
    };
    EXPECT_THROW(ReadPng("no-such-file.png"), std::runtime_error);
    std::ifstream file(AssetPath("check"), std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // Each byte of the header's and the pixels' chunks is guarded by a checksum or by its meaning.
    for (std::size_t i = 0; i < whole.size(); ++i) {
        ASSERT_THROW(read(whole.substr(0, i)), std::runtime_error) << "cut off after " << i << " bytes";
        std::string damaged = whole;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x15);
        if (i >= whole.size() - 12) continue;
        ASSERT_THROW(read(damaged), std::runtime_error) << "byte " << i << " changed";
    }
    EXPECT_THROW(read("a text, longer than the signature of a picture"), std::runtime_error);
    std::filesystem::remove(path);
}

TEST(WritePng, StraightFilesReadBackAsTheSamePixels) {
    const std::string path = "written.png";
    const Canvas canvas = MakeCanvas(256, 3);
    {
        const auto pixels = Locked(canvas);
        for (int y = 0; y < 3; ++y)
            for (std::uint32_t x = 0; x < 256; ++x)
                pixels.Row(y)[x] = PremultipliedWord(x << 24 | 0xC86400 | (y == 0 ? x : y == 1 ? 255 - x : 77));
    }
    WritePng(path, canvas, PngKind::kStraight);
    const Image image = ReadPng(path);
    ASSERT_EQ(image.bitsPerPixel, 32);
    const std::vector<DWORD> expected = PixelsOf(canvas);
    for (int i = 0; i < 3 * 256; ++i) ASSERT_EQ(image.word(i % 256, i / 256), expected[static_cast<std::size_t>(i)]);
    EXPECT_THROW(WritePng("/no/such/folder/a.png", canvas, PngKind::kOpaque), std::runtime_error);
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace lacquer::examples
