// Adding up coverage.

#include "coverage.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace lacquer::vel {
namespace {

uint8_t Sum(uint8_t a, uint8_t b) { return static_cast<uint8_t>(a + std::min(b, static_cast<uint8_t>(255 - a))); }

/// In a form that compilers make a few instructions of.
void AddBlock(uint8_t *to, const uint8_t *from) {
    uint8_t sums[GlyphMask::kBlock];
    for (int i = 0; i < GlyphMask::kBlock; ++i) sums[i] = Sum(to[i], from[i]);
    std::memcpy(to, sums, sizeof sums);
}

/// How much of the pixel that begins at `at` lies between two coordinates.
double Part(int at, double low, double high) {
    return std::clamp(std::min(at + 1.0, high) - std::max(at + 0.0, low), 0.0, 1.0);
}

}  // namespace

bool Coverage::Reserve(int64_t bytes) {
    // The zeros behind a mask's last row may be added behind the last row here.
    rows_.reset(new (std::nothrow) uint8_t[static_cast<size_t>(bytes) + GlyphMask::kBlock]);
    capacity_ = rows_ ? bytes : 0;
    return rows_ != nullptr;
}

void Coverage::Begin(const Clip &box) {
    box_ = box;
    std::memset(rows_.get(), 0, static_cast<size_t>(BytesOf(box)));
}

void Coverage::Add(const GlyphMask &mask, int x, int y) {
    const Clip place = mask.box.MovedBy(x, y), seen = place.Intersected(box_);
    const bool isWhole = seen.left == place.left && seen.right == place.right;
    const int width = isWhole ? mask.stride : seen.right - seen.left;
    const uint8_t *from =
        mask.rows.get() + static_cast<ptrdiff_t>(seen.top - place.top) * mask.stride + (seen.left - place.left);
    uint8_t *to = At(seen.left, seen.top);
    for (int row = seen.top; row < seen.bottom; ++row, from += mask.stride, to += Stride()) {
        int i = 0;
        for (; i + GlyphMask::kBlock <= width; i += GlyphMask::kBlock) AddBlock(to + i, from + i);
        for (; i < width; ++i) to[i] = Sum(to[i], from[i]);
    }
}

void Coverage::Add(const Bounds &bar) {
    const Clip touched = PixelsTouched(bar).Intersected(box_);
    // Between these columns the bar is as wide as the pixels.
    const int inner = std::clamp(Pixel(std::ceil(bar.low.x)), touched.left, touched.right);
    const int outer = std::clamp(Pixel(std::floor(bar.high.x)), inner, touched.right);
    for (int y = touched.top; y < touched.bottom; ++y) {
        const double height = Part(y, bar.low.y, bar.high.y);
        const auto add = [&](int from, int to, double width) {
            const auto value = static_cast<uint8_t>(255 * height * width + 0.5);
            uint8_t *row = At(from, y);
            for (int i = 0; i < to - from; ++i) row[i] = Sum(row[i], value);
        };
        for (int x = touched.left; x < inner; ++x) add(x, x + 1, Part(x, bar.low.x, bar.high.x));
        add(inner, outer, 1);
        for (int x = outer; x < touched.right; ++x) add(x, x + 1, Part(x, bar.low.x, bar.high.x));
    }
}

}  // namespace lacquer::vel
