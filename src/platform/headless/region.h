// A set of pixels as pixman keeps it, with GDI's kinds of region as results.
#pragma once

#include <lacquer/headless_gdi.h>
#include <pixman.h>

#include <cstdint>

namespace lacquer::headless {

/// A rectangle with its corners in ascending order.
RECT Ordered(RECT rect);

/// A value cut to the 32-bit range.
constexpr LONG Clamped(int64_t value) {
    return static_cast<LONG>(value < INT32_MIN ? INT32_MIN : value > INT32_MAX ? INT32_MAX : value);
}

/// The functions that may need memory return false when there is none; the region then stays as it was, but for
/// SetBoxes, which leaves it empty.
class Region {
public:
    Region() { pixman_region32_init(&pixels_); }
    ~Region() { pixman_region32_fini(&pixels_); }
    Region(const Region &) = delete;
    Region &operator=(const Region &) = delete;
    Region &operator=(Region &&other) noexcept;

    /// Makes the region one rectangle; an inverted one counts as empty.
    void SetRect(const RECT &rect);

    /// Makes the region the union of `count` boxes, inverted and empty ones left out; reorders them.
    bool SetBoxes(pixman_box32_t *boxes, int count);

    bool Copy(const Region &other);

    /// This region := first `mode` second, RGN_AND to RGN_DIFF; any of the three may be the same.
    bool Combine(const Region &first, const Region &second, int mode);

    bool IntersectRect(const RECT &rect);

    /// Moves the region; what leaves the 32-bit range is lost.
    bool Offset(int x, int y);

    /// NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int Kind() const;

    /// The bounding box; all zero when empty.
    RECT Bounds() const;

    bool Contains(int x, int y) const;
    bool Touches(const RECT &rect) const;
    bool Equals(const Region &other) const;

    /// The region's rectangles, from top to bottom and left to right.
    const pixman_box32_t *Boxes(int &count) const;

private:
    /// The region becomes what `make` writes, or stays as it was when that gives 0.
    template <class Make>
    bool Replace(const Make &make);

    pixman_region32_t pixels_;
};

}  // namespace lacquer::headless
