// Regions over pixman's region algebra.
#include "platform/headless/region.h"

#include <algorithm>
#include <utility>

namespace lacquer::headless {
namespace {

// pixman's queries take a non-const region but do not write to it.
pixman_region32_t *Mutable(const pixman_region32_t &region) { return const_cast<pixman_region32_t *>(&region); }

}  // namespace

RECT Ordered(RECT rect) {
    if (rect.left > rect.right) std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom) std::swap(rect.top, rect.bottom);
    return rect;
}

Region &Region::operator=(Region &&other) noexcept {
    std::swap(pixels_, other.pixels_);
    return *this;
}

void Region::SetRect(const RECT &rect) {
    if (rect.left >= rect.right || rect.top >= rect.bottom) {
        pixman_region32_clear(&pixels_);
        return;
    }
    pixman_box32_t box{rect.left, rect.top, rect.right, rect.bottom};
    pixman_region32_reset(&pixels_, &box);
}

bool Region::SetBoxes(pixman_box32_t *boxes, int count) {
    // pixman prints a complaint about an inverted box that comes alone.
    const auto isEmpty = [](const pixman_box32_t &box) { return box.x1 >= box.x2 || box.y1 >= box.y2; };
    const auto kept = static_cast<int>(std::remove_if(boxes, boxes + count, isEmpty) - boxes);
    pixman_region32_fini(&pixels_);
    if (pixman_region32_init_rects(&pixels_, boxes, kept)) return true;
    pixman_region32_init(&pixels_);
    return false;
}

bool Region::Copy(const Region &other) {
    return Replace([&](pixman_region32_t *result) { return pixman_region32_copy(result, Mutable(other.pixels_)); });
}

bool Region::Combine(const Region &first, const Region &second, int mode) {
    pixman_region32_t *a = Mutable(first.pixels_);
    pixman_region32_t *b = Mutable(second.pixels_);
    switch (mode) {
        case RGN_AND:
            return Replace([=](pixman_region32_t *result) { return pixman_region32_intersect(result, a, b); });
        case RGN_OR: return Replace([=](pixman_region32_t *result) { return pixman_region32_union(result, a, b); });
        case RGN_DIFF:
            return Replace([=](pixman_region32_t *result) { return pixman_region32_subtract(result, a, b); });
        case RGN_XOR: {
            Region onlyFirst;
            Region onlySecond;
            return onlyFirst.Combine(first, second, RGN_DIFF) && onlySecond.Combine(second, first, RGN_DIFF) &&
                   Combine(onlyFirst, onlySecond, RGN_OR);
        }
        default: return false;
    }
}

template <class Make>
bool Region::Replace(const Make &make) {
    // Where memory is short, pixman leaves a region with which nothing can be done any more.
    pixman_region32_t result;
    pixman_region32_init(&result);
    const bool made = make(&result) != 0;
    if (made) std::swap(pixels_, result);
    pixman_region32_fini(&result);
    return made;
}

bool Region::IntersectRect(const RECT &rect) {
    Region other;
    other.SetRect(rect);
    return Combine(*this, other, RGN_AND);
}

bool Region::Offset(int x, int y) {
    // pixman lets sums wrap around, and later complains about the boxes that this turns inside out.
    const RECT staying{Clamped(int64_t{INT32_MIN} - x), Clamped(int64_t{INT32_MIN} - y),
                       Clamped(int64_t{INT32_MAX} - x), Clamped(int64_t{INT32_MAX} - y)};
    if (!IntersectRect(staying)) return false;
    if (Kind() != NULLREGION) pixman_region32_translate(&pixels_, x, y);
    return true;
}

int Region::Kind() const {
    const int count = pixman_region32_n_rects(Mutable(pixels_));
    return count == 0 ? NULLREGION : count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

RECT Region::Bounds() const {
    if (Kind() == NULLREGION) return RECT{};
    const pixman_box32_t *box = pixman_region32_extents(Mutable(pixels_));
    return RECT{box->x1, box->y1, box->x2, box->y2};
}

bool Region::Contains(int x, int y) const {
    return pixman_region32_contains_point(Mutable(pixels_), x, y, nullptr) != 0;
}

bool Region::Touches(const RECT &rect) const {
    if (rect.left >= rect.right || rect.top >= rect.bottom) return false;
    pixman_box32_t box{rect.left, rect.top, rect.right, rect.bottom};
    return pixman_region32_contains_rectangle(Mutable(pixels_), &box) != PIXMAN_REGION_OUT;
}

bool Region::Equals(const Region &other) const {
    if (Kind() == NULLREGION || other.Kind() == NULLREGION) return Kind() == other.Kind();
    return pixman_region32_equal(Mutable(pixels_), Mutable(other.pixels_)) != 0;
}

const pixman_box32_t *Region::Boxes(int &count) const { return pixman_region32_rectangles(Mutable(pixels_), &count); }

}  // namespace lacquer::headless
