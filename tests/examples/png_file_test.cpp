// Reading every kind of PNG file, refusing damaged ones, and writing canvases.
#include "common/png_file.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

// A file for one test in the current folder, removed at its end.
class ScratchFile {
public:
    ScratchFile() : path_(TestName()) {}
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;
    ~ScratchFile() { std::filesystem::remove(path_); }

    const std::string &path() const { return path_; }

    void Write(const std::string &bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }

private:
    static std::string TestName() {
        const auto *test = testing::UnitTest::GetInstance()->current_test_info();
        return std::string(test->test_suite_name()) + "_" + test->name() + ".png";
    }

    std::string path_;
};

std::string ReadBytes(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

struct Sample {
    int colourType, bitDepth;
    std::vector<png_byte> row;            // of two pixels, packed as the format wants
    std::vector<png_color> palette = {};  // for palette images
    std::vector<png_byte> alphas = {};    // of the palette's first entries
    png_color_16 *transparent = nullptr;  // the one clear colour of greys and colours without alpha
    int interlace = PNG_INTERLACE_NONE;
};

void AppendBytes(png_structp png, png_bytep data, png_size_t size) {
    static_cast<std::string *>(png_get_io_ptr(png))->append(reinterpret_cast<const char *>(data), size);
}

/// A file of two equal rows.
std::string Encode(const Sample &sample) {
    std::string file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, AppendBytes, nullptr);
    png_set_IHDR(png, info, 2, 2, sample.bitDepth, sample.colourType, sample.interlace, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    if (!sample.palette.empty())
        png_set_PLTE(png, info, sample.palette.data(), static_cast<int>(sample.palette.size()));
    if (!sample.alphas.empty() || sample.transparent != nullptr)
        png_set_tRNS(png, info, sample.alphas.data(), static_cast<int>(sample.alphas.size()), sample.transparent);
    std::vector<png_byte> row = sample.row;
    std::vector<png_bytep> rows{row.data(), row.data()};
    png_set_rows(png, info, rows.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

void ExpectWords(const Sample &sample, int bitsPerPixel, std::uint32_t left, std::uint32_t right) {
    SCOPED_TRACE(testing::Message() << "colour type " << sample.colourType << ", bit depth " << sample.bitDepth);
    const ScratchFile file;
    file.Write(Encode(sample));
    const Image image = ReadPng(file.path(), Alpha::kAsStored);
    EXPECT_EQ(image.bitsPerPixel, bitsPerPixel);
    ASSERT_EQ(image.width, 2);
    ASSERT_EQ(image.height, 2);
    for (int y = 0; y < 2; ++y) {
        EXPECT_EQ(image.word(0, y), left);
        EXPECT_EQ(image.word(1, y), right);
    }
}

TEST(ReadPng, EveryKindBecomesTheNearestDepth) {
    ExpectWords({PNG_COLOR_TYPE_GRAY, 1, {0x40}}, 8, 0xFF000000, 0xFFFFFFFF);
    ExpectWords({PNG_COLOR_TYPE_GRAY, 2, {0x60}}, 8, 0xFF555555, 0xFFAAAAAA);
    ExpectWords({PNG_COLOR_TYPE_GRAY, 4, {0x1E}}, 8, 0xFF111111, 0xFFEEEEEE);
    ExpectWords({PNG_COLOR_TYPE_GRAY, 8, {0x12, 0xFE}}, 8, 0xFF121212, 0xFFFEFEFE);
    ExpectWords({PNG_COLOR_TYPE_GRAY, 16, {0x12, 0x12, 0xFF, 0xFF}}, 8, 0xFF121212, 0xFFFFFFFF);
    ExpectWords({PNG_COLOR_TYPE_GRAY_ALPHA, 8, {0x12, 0x34, 0xFE, 0x00}}, 32, 0x34121212, 0x00FEFEFE);
    ExpectWords({PNG_COLOR_TYPE_RGB, 8, {1, 2, 3, 4, 5, 6}}, 24, 0xFF010203, 0xFF040506);
    ExpectWords({PNG_COLOR_TYPE_RGB, 16, {1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6}}, 24, 0xFF010203, 0xFF040506);
    ExpectWords({PNG_COLOR_TYPE_RGBA, 8, {1, 2, 3, 4, 5, 6, 7, 0}}, 32, 0x04010203, 0x00050607);
    ExpectWords({PNG_COLOR_TYPE_RGBA, 8, {1, 2, 3, 4, 5, 6, 7, 0}, {}, {}, nullptr, PNG_INTERLACE_ADAM7}, 32,
                0x04010203, 0x00050607);
}

TEST(ReadPng, PalettesKeepTheirWordsAndAlphas) {
    const std::vector<png_color> palette{{1, 2, 3}, {250, 128, 4}};
    ExpectWords({PNG_COLOR_TYPE_PALETTE, 1, {0x40}, palette}, 8, 0xFF010203, 0xFFFA8004);
    ExpectWords({PNG_COLOR_TYPE_PALETTE, 2, {0x10}, palette, {0x80}}, 8, 0x80010203, 0xFFFA8004);
    ExpectWords({PNG_COLOR_TYPE_PALETTE, 4, {0x10}, palette, {0x80, 0x40}}, 8, 0x40FA8004, 0x80010203);
    ExpectWords({PNG_COLOR_TYPE_PALETTE, 8, {1, 0}, palette, {0}}, 8, 0xFFFA8004, 0x00010203);
    // An index beyond the palette is a clear pixel.
    ExpectWords({PNG_COLOR_TYPE_PALETTE, 8, {1, 9}, palette}, 8, 0xFFFA8004, 0);
}

TEST(ReadPng, OneClearColourBecomesAlpha) {
    png_color_16 clear{};
    clear.gray = 0x12;
    ExpectWords({PNG_COLOR_TYPE_GRAY, 8, {0x12, 0xFE}, {}, {}, &clear}, 32, 0x00121212, 0xFFFEFEFE);
    clear.red = 4;
    clear.green = 5;
    clear.blue = 6;
    ExpectWords({PNG_COLOR_TYPE_RGB, 8, {1, 2, 3, 4, 5, 6}, {}, {}, &clear}, 32, 0xFF010203, 0x00040506);
}

TEST(ReadPng, DamagedFilesAreRefused) {
    const ScratchFile file;
    EXPECT_THROW(ReadPng(file.path()), std::runtime_error);
    const std::string whole = ReadBytes(AssetPath("check"));
    ASSERT_GT(whole.size(), 100u);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        file.Write(whole.substr(0, length));
        ASSERT_THROW(ReadPng(file.path()), std::runtime_error) << "cut off after " << length << " bytes";
    }
    // Each byte of the header's and the pixels' chunks is guarded by a checksum or by its meaning.
    for (std::size_t i = 0; i < whole.size() - 12; ++i) {
        std::string damaged = whole;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x15);
        file.Write(damaged);
        ASSERT_THROW(ReadPng(file.path()), std::runtime_error) << "byte " << i << " changed";
    }
    file.Write("a text, longer than the signature of a picture");
    EXPECT_THROW(ReadPng(file.path()), std::runtime_error);
}

TEST(WritePng, StraightFilesReadBackAsTheSamePixels) {
    const Canvas canvas = MakeCanvas(256, 3);
    {
        const CanvasPixels pixels(canvas.get());
        for (int y = 0; y < 3; ++y)
            for (std::uint32_t x = 0; x < 256; ++x)
                pixels.words(y)[x] = PremultipliedWord(x << 24 | 0xC86400 | (y == 0 ? x : y == 1 ? 255 - x : 77));
    }
    const ScratchFile file;
    WritePng(file.path(), canvas.get(), PngKind::kStraight);
    const Image image = ReadPng(file.path());
    ASSERT_EQ(image.bitsPerPixel, 32);
    const std::vector<DWORD> expected = PixelsOf(canvas);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 256; ++x) ASSERT_EQ(image.word(x, y), expected[static_cast<std::size_t>(y * 256 + x)]);
    EXPECT_THROW(WritePng("/no/such/folder/a.png", canvas.get(), PngKind::kOpaque), std::runtime_error);
}

}  // namespace
}  // namespace lacquer::examples
