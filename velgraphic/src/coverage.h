// The coverage of a rectangle of pixels: masks and bars add up to one shape, which is then painted at once.
#pragma once

#include <cstdint>
#include <memory>

#include "clip.h"
#include "geometry.h"
#include "glyph_cache.h"

namespace lacquer::vel {

class Coverage {
public:
    /// Bytes for the rows of a rectangle.
    static int64_t BytesOf(const Clip &box) { return int64_t{StrideOf(box)} * (box.bottom - box.top); }

    /// Makes room for rectangles of so many bytes. False when memory is short.
    bool Reserve(int64_t bytes);
    int64_t Capacity() const { return capacity_; }
    /// Begins with a rectangle without coverage.
    void Begin(const Clip &box);

    // Both add what lies inside the rectangle. A pixel that is covered twice is covered by the sum, at most wholly:
    // where two pieces meet inside a pixel there is no gap.

    /// A mask whose glyph has its origin in the pixel (x, y).
    void Add(const GlyphMask &mask, int x, int y);
    void Add(const Bounds &bar);

    const Clip &Box() const { return box_; }
    int Stride() const { return StrideOf(box_); }
    uint8_t *Rows() { return rows_.get(); }

private:
    /// As the renderer wants it.
    static int StrideOf(const Clip &box) { return (box.right - box.left + 3) & ~3; }
    uint8_t *At(int x, int y) {
        return rows_.get() + static_cast<ptrdiff_t>(y - box_.top) * Stride() + (x - box_.left);
    }

    Clip box_{0, 0, 0, 0};
    int64_t capacity_ = 0;
    std::unique_ptr<uint8_t[]> rows_;
};

}  // namespace lacquer::vel
