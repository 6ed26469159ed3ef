// Pixel memory for tests: an exact heap block (a byte beyond it is a report of the address sanitizer), at any
// alignment, with guard bytes between the rows.
#pragma once

#include <cstring>
#include <new>
#include <vector>

#include "pipeline/words.h"

namespace lacquer {

/// Blocks that begin with a line of the cache.
template <class T>
struct LineAllocator {
    using value_type = T;
    static constexpr std::align_val_t kLine{64};

    T *allocate(std::size_t count) { return static_cast<T *>(::operator new(count * sizeof(T), kLine)); }
    void deallocate(T *block, std::size_t) { ::operator delete(block, kLine); }
    bool operator==(const LineAllocator &) const { return true; }
};

class TestImage {
public:
    /// `padding`: guard bytes between rows. `misalignment`: bytes before the first pixel.
    TestImage(int width, int height, int bitsPerPixel = 32, int padding = 0, int misalignment = 0);

    /// Random pixels; 32-bit ones and palettes are premultiplied words, or any words.
    void Fill(Random &random, bool premultiplied = true);
    void FillWith(uint32_t word) { lacquer::FillWith(View(), word); }

    /// Pixel (x, y) becomes word(x, y), in the depth of the image.
    template <class Word>
    void FillBy(const Word &word) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) Set(x, y, word(x, y));
        }
    }

    /// A view of everything, or of a rectangle inside.
    SurfaceView View() const { return View({0, 0, width_, height_}); }
    SurfaceView View(RECT rect) const;

    /// Gives an 8-bit image colours. A pixel beyond them is 0; without any, pixels are greys.
    void SetPalette(std::vector<DWORD> palette) { palette_ = std::move(palette); }

    /// The pixel as a 32-bit word.
    uint32_t At(int64_t x, int64_t y) const { return bitsPerPixel_ == 32 ? WordAt(PlaceOf(x, y)) : ShallowAt(x, y); }

    /// The pixel as stored.
    void Set(int64_t x, int64_t y, uint32_t pixel) {
        BYTE *const out = block_.data() + PlaceOf(x, y);
        if (bitsPerPixel_ == 32) {
            std::memcpy(out, &pixel, 4);
        } else {
            std::memcpy(out, &pixel, bitsPerPixel_ == 24 ? 3 : 1);
        }
    }

    int width() const { return width_; }
    int height() const { return height_; }

    /// Pixels and guards are equal.
    friend bool operator==(const TestImage &a, const TestImage &b) { return a.block_ == b.block_; }

private:
    uint32_t ShallowAt(int64_t x, int64_t y) const;

    uint32_t WordAt(std::size_t place) const {
        uint32_t word;
        std::memcpy(&word, block_.data() + place, sizeof word);
        return word;
    }
    std::size_t PlaceOf(int64_t x, int64_t y) const {
        return static_cast<std::size_t>(misalignment_ + y * stride_ + x * (bitsPerPixel_ / 8));
    }

    int width_, height_, bitsPerPixel_, stride_, misalignment_;
    std::vector<BYTE, LineAllocator<BYTE>> block_;
    std::vector<DWORD> palette_;
};

}  // namespace lacquer
