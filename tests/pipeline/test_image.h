// Pixel memory for tests: an exact heap block (a byte beyond it is a report of the address sanitizer), at any
// alignment, with guard bytes between the rows.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

namespace lacquer {

using Random = std::mt19937;

/// A number from `low` to `high`.
int Between(Random &random, int low, int high);

uint32_t AnyWord(Random &random);

/// A word with colour channels up to its alpha; alpha is biased to 0 and 255.
uint32_t PremultipliedWord(Random &random);

class TestImage {
public:
    /// `padding`: guard bytes between rows. `misalignment`: bytes before the first pixel.
    TestImage(int width, int height, int bitsPerPixel = 32, int padding = 0, int misalignment = 0);

    /// Random pixels; 32-bit ones and palettes are premultiplied words, or any words.
    void Fill(Random &random, bool premultiplied = true);
    void FillWith(uint32_t word);

    /// A view of everything, or of a rectangle inside.
    SurfaceView View() const;
    SurfaceView View(RECT rect) const;

    /// Gives an 8-bit image `count` colours; a pixel beyond them is 0.
    void SetPalette(std::vector<DWORD> palette) { palette_ = std::move(palette); }

    /// The pixel as a 32-bit word, found out byte by byte.
    uint32_t At(int64_t x, int64_t y) const;
    void Set(int64_t x, int64_t y, uint32_t word);
    void SetIndex(int64_t x, int64_t y, BYTE index) { *Address(x, y) = index; }

    bool GuardsAreIntact() const;
    int width() const { return width_; }
    int height() const { return height_; }

    /// Pixels equal, whatever the guards.
    friend bool operator==(const TestImage &a, const TestImage &b);

    /// A second image of the same pixels, palette and layout.
    TestImage Copy() const;

private:
    BYTE *Address(int64_t x, int64_t y) const;
    int64_t RowBytes() const { return int64_t{width_} * (bitsPerPixel_ / 8); }

    int width_, height_, bitsPerPixel_, padding_, misalignment_;
    std::size_t size_;
    std::unique_ptr<BYTE[]> block_;
    std::vector<DWORD> palette_;
};

}  // namespace lacquer
