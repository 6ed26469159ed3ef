// Layout: [misalignment][row][guard][row][guard] ... [row]; nothing behind the last row.

#include "test_image.h"

#include <cstring>

#include "pipeline/pixel/grey_ramp.h"

namespace lacquer {
namespace {

constexpr BYTE kGuard = 0xA5;

}  // namespace

int Between(Random &random, int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

uint32_t AnyWord(Random &random) { return static_cast<uint32_t>(random()); }

uint32_t PremultipliedWord(Random &random) {
    const uint32_t kind = AnyWord(random) % 8, alpha = kind == 0 ? 0 : kind < 3 ? 255 : AnyWord(random) & 255;
    uint32_t word = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) word |= AnyWord(random) % (alpha + 1) << shift;
    return word;
}

TestImage::TestImage(int width, int height, int bitsPerPixel, int padding, int misalignment)
    : width_(width),
      height_(height),
      bitsPerPixel_(bitsPerPixel),
      padding_(padding),
      misalignment_(misalignment),
      size_(static_cast<std::size_t>(misalignment + RowBytes() * height + int64_t{padding} * (height - 1))),
      block_(new BYTE[size_]) {
    std::memset(block_.get(), kGuard, size_);
}

BYTE *TestImage::Address(int64_t x, int64_t y) const {
    return block_.get() + misalignment_ + y * (RowBytes() + padding_) + x * (bitsPerPixel_ / 8);
}

void TestImage::Fill(Random &random, bool premultiplied) {
    const auto word = [&]() -> uint32_t { return premultiplied ? PremultipliedWord(random) : AnyWord(random); };
    if (bitsPerPixel_ == 8) {
        palette_.resize(256);
        for (DWORD &entry : palette_) entry = word();
    }
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const uint32_t value = word();
            std::memcpy(Address(x, y), &value, static_cast<std::size_t>(bitsPerPixel_ / 8));
        }
    }
}

void TestImage::FillWith(uint32_t word) {
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) Set(x, y, word);
    }
}

SurfaceView TestImage::View() const { return View({0, 0, width_, height_}); }

SurfaceView TestImage::View(RECT rect) const {
    SurfaceView view = {};
    view.width = rect.right - rect.left;
    view.height = rect.bottom - rect.top;
    view.stride = static_cast<LONG>(RowBytes() + padding_);
    view.planes = 1;
    view.bitsPerPixel = static_cast<WORD>(bitsPerPixel_);
    view.bits = Address(rect.left, rect.top);
    if (!palette_.empty()) {
        view.paletteCount = static_cast<DWORD>(palette_.size());
        view.palette = const_cast<DWORD *>(palette_.data());
    }
    return view;
}

uint32_t TestImage::At(int64_t x, int64_t y) const {
    const BYTE *const pixel = Address(x, y);
    if (bitsPerPixel_ == 8) {
        if (palette_.empty()) return 0xFF000000u + *pixel * 0x10101u;
        return *pixel < palette_.size() ? palette_[*pixel] : 0;
    }
    const uint32_t alpha = bitsPerPixel_ == 24 ? 255 : pixel[3];
    return alpha << 24 | uint32_t{pixel[2]} << 16 | uint32_t{pixel[1]} << 8 | pixel[0];
}

void TestImage::Set(int64_t x, int64_t y, uint32_t word) {
    std::memcpy(Address(x, y), &word, static_cast<std::size_t>(bitsPerPixel_ / 8));
}

bool TestImage::GuardsAreIntact() const {
    for (int i = 0; i < misalignment_; ++i) {
        if (block_[static_cast<std::size_t>(i)] != kGuard) return false;
    }
    for (int y = 0; y + 1 < height_; ++y) {
        for (int i = 0; i < padding_; ++i) {
            if (Address(0, y)[RowBytes() + i] != kGuard) return false;
        }
    }
    return true;
}

bool operator==(const TestImage &a, const TestImage &b) {
    for (int y = 0; y < a.height_; ++y) {
        if (std::memcmp(a.Address(0, y), b.Address(0, y), static_cast<std::size_t>(a.RowBytes())) != 0) return false;
    }
    return true;
}

TestImage TestImage::Copy() const {
    TestImage copy(width_, height_, bitsPerPixel_, padding_, misalignment_);
    std::memcpy(copy.block_.get(), block_.get(), size_);
    copy.palette_ = palette_;
    return copy;
}

}  // namespace lacquer
