// Making and comparing small pictures.

#include "painting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace lacquer {
namespace {

/// Premultiplied channels, red first, in the simplest format with four channels.
void WritePicture(const Painting &painting, const std::string &path) {
    std::ofstream file(path, std::ios::binary);
    file << "P7\nWIDTH " << painting.Width() << "\nHEIGHT " << painting.Height()
         << "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
    for (const uint32_t pixel : painting.Pixels()) {
        for (const int shift : {16, 8, 0, 24}) file.put(static_cast<char>(pixel >> shift & 0xFF));
    }
}

std::vector<uint32_t> ReadPicture(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    std::string line;
    while (std::getline(file, line) && line != "ENDHDR") {
    }
    std::vector<uint32_t> pixels;
    char bytes[4];
    while (file.read(bytes, 4)) {
        uint32_t pixel = 0;
        for (int i = 0; i < 4; ++i) {
            constexpr int kShifts[] = {16, 8, 0, 24};
            pixel |= uint32_t{static_cast<uint8_t>(bytes[i])} << kShifts[i];
        }
        pixels.push_back(pixel);
    }
    return pixels;
}

/// FNV-1a over the words.
uint64_t Digest(const std::vector<uint32_t> &pixels) {
    uint64_t digest = 0xcbf29ce484222325u;
    for (const uint32_t pixel : pixels) {
        for (int shift = 0; shift < 32; shift += 8) digest = (digest ^ (pixel >> shift & 0xFF)) * 0x100000001b3u;
    }
    return digest;
}

}  // namespace

Painting::Painting(int width, int height, uint32_t background)
    : width_(width),
      height_(height),
      pixels_(static_cast<size_t>(width) * static_cast<size_t>(height), background),
      canvas_(velCanvasCreate()) {
    velBitmap *bitmap = velBitmapCreateFromData(pixels_.data(), width, height, width * 4);
    EXPECT_EQ(1, velCanvasSetBitmap(canvas_, bitmap));
    EXPECT_EQ(1, velBitmapDestroy(bitmap));
}

Painting::~Painting() { velCanvasDestroy(canvas_); }

void Painting::Fill(uint32_t pixel) { std::ranges::fill(pixels_, pixel); }

double Painting::Area() const {
    double sum = 0;
    for (const uint32_t pixel : pixels_) sum += pixel >> 24;
    return sum / 255;
}

RECT Painting::Box() const {
    RECT box{width_, height_, 0, 0};
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            if (pixels_[static_cast<size_t>(y * width_ + x)] == 0) continue;
            box.left = std::min<LONG>(box.left, x);
            box.top = std::min<LONG>(box.top, y);
            box.right = std::max<LONG>(box.right, x + 1);
            box.bottom = std::max<LONG>(box.bottom, y + 1);
        }
    }
    return box.right > 0 ? box : RECT{};
}

bool Painting::IsEmpty() const {
    return std::ranges::all_of(pixels_, [](uint32_t pixel) { return pixel == 0; });
}

void ExpectRefused(const std::string &what, const std::function<int(velCanvas *)> &attempt) {
    SCOPED_TRACE(what);
    Painting painting, fresh;
    EXPECT_EQ(0, attempt(painting));
    EXPECT_TRUE(painting.IsEmpty());
    for (const Painting *each : {&painting, &fresh}) {
        EXPECT_EQ(1, velCanvasDrawCircle(*each, 16, 16, 9.5f));
        EXPECT_EQ(1, velCanvasDrawLine(*each, 1, 2, 30, 4));
        EXPECT_EQ(1, velCanvasSetDrawStyle(*each, VEL_STYLE_STROKE));
        EXPECT_EQ(1, velCanvasDrawRectangle(*each, 4, 20, 24, 6));
    }
    EXPECT_EQ(fresh.Pixels(), painting.Pixels()) << "later drawing is different";
}

std::vector<WCHAR> Utf16(const char *ascii) {
    std::vector<WCHAR> name;
    for (; *ascii; ++ascii) name.push_back(static_cast<WCHAR>(*ascii));
    name.push_back(0);
    return name;
}

int LargestDifference(const std::vector<uint32_t> &a, const std::vector<uint32_t> &b) {
    if (a.size() != b.size()) return 256;
    int largest = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        for (int shift = 0; shift < 32; shift += 8) {
            largest = std::max(
                largest, std::abs(static_cast<int>(a[i] >> shift & 0xFF) - static_cast<int>(b[i] >> shift & 0xFF)));
        }
    }
    return largest;
}

void ExpectLikeReference(const Painting &painting, const std::string &name, int tolerance) {
    const int difference = LargestDifference(ReadPicture(VELGRAPHIC_TEST_DATA "/" + name + ".pam"), painting.Pixels());
    EXPECT_LE(difference, tolerance) << name;
    if (difference > tolerance) WritePicture(painting, name + ".pam");
}

void ExpectDigest(const Painting &painting, const std::string &name) {
    std::ifstream file(VELGRAPHIC_TEST_DATA "/digests.txt");
    std::string wanted, line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        std::string first, second;
        words >> first >> second;
        if (first == name) wanted = second;
    }
    std::ostringstream actual;
    actual << std::hex << Digest(painting.Pixels());
    EXPECT_EQ(wanted, actual.str()) << name;
    if (wanted != actual.str()) WritePicture(painting, name + ".pam");
}

}  // namespace lacquer
