// What the tests of shapes share: covers read back from pixels, the shapes' exact areas in double precision, and what
// holds for every drawing, wherever it is placed.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "painting.h"

namespace lacquer {

/// The numbers of a caller as the library takes them: to 1/256 pixel, halves up.
inline double Rounded(double pixels) { return std::floor(pixels * 256 + 0.5) / 256; }

/// A rectangle with round corners, pixels.
struct ModelShape {
    double left, top, right, bottom;
    std::array<double, 4> radii;

    bool IsEmpty() const { return left >= right || top >= bottom; }

    ModelShape Grown(double by, bool sharpStays = false) const {
        ModelShape grown{left - by, top - by, right + by, bottom + by, radii};
        for (double &radius : grown.radii) radius = radius == 0 && sharpStays ? 0 : std::max(0.0, radius + by);
        return grown;
    }

    /// The part of a horizontal line that lies inside, as a pair; empty when the first is not below the second.
    std::pair<double, double> At(double y) const {
        if (y < top || y > bottom) return {0, 0};
        double from = left, to = right;
        const auto cut = [&](int corner, bool isLeft, bool isTop) {
            const double radius = radii[static_cast<size_t>(corner)];
            const double v = isTop ? top + radius - y : y - (bottom - radius);
            if (v <= 0) return;
            const double reach = std::sqrt(std::max(0.0, radius * radius - v * v));
            if (isLeft) {
                from = std::max(from, left + radius - reach);
            } else {
                to = std::min(to, right - radius + reach);
            }
        };
        cut(0, true, true);
        cut(1, false, true);
        cut(2, false, false);
        cut(3, true, false);
        return {from, to};
    }

    /// The area of a pixel that lies inside, by 256 lines.
    double AreaIn(LONG x, LONG y) const {
        double area = 0;
        for (int i = 0; i < 256; ++i) {
            const auto [from, to] = At(y + (i + 0.5) / 256);
            area += std::max(0.0, std::min(to, x + 1.0) - std::max(from, double(x))) / 256;
        }
        return area;
    }

    /// Whether a corner's circle crosses the pixel's part of that corner's square; in whole numbers of 1/256.
    bool IsCrossed(LONG x, LONG y) const {
        for (int corner = 0; corner < 4; ++corner) {
            const bool isLeft = corner == 0 || corner == 3, isTop = corner < 2;
            const double radius = radii[static_cast<size_t>(corner)];
            const double cx = isLeft ? left + radius : right - radius, cy = isTop ? top + radius : bottom - radius;
            const double x0 = std::max(left, double(x)), x1 = std::min(right, x + 1.0);
            const double y0 = std::max(top, double(y)), y1 = std::min(bottom, y + 1.0);
            const double u0 = std::max(0.0, isLeft ? cx - x1 : x0 - cx), u1 = isLeft ? cx - x0 : x1 - cx;
            const double v0 = std::max(0.0, isTop ? cy - y1 : y0 - cy), v1 = isTop ? cy - y0 : y1 - cy;
            if (u1 <= 0 || v1 <= 0) continue;
            if (u0 * u0 + v0 * v0 < radius * radius && u1 * u1 + v1 * v1 > radius * radius) return true;
        }
        return false;
    }
};

/// The shape that a caller's numbers mean, its radii fitted.
inline ModelShape ShapeOf(const GeoRect &rect, const float (&radii)[4]) {
    ModelShape shape{Rounded(rect.left), Rounded(rect.top), Rounded(rect.right), Rounded(rect.bottom), {}};
    if (shape.IsEmpty()) return shape;
    for (size_t i = 0; i < 4; ++i) shape.radii[i] = Rounded(std::clamp(double(radii[i]), 0.0, 16384.0));
    double scale = 1;
    for (size_t i = 0; i < 4; ++i) {
        const double side = i % 2 == 0 ? shape.right - shape.left : shape.bottom - shape.top;
        const double needed = shape.radii[i] + shape.radii[(i + 1) % 4];
        if (needed > side) scale = std::min(scale, side / needed);
    }
    if (scale < 1) {
        for (double &radius : shape.radii) radius = std::floor(radius * scale * 256 + 1e-7) / 256;
    }
    return shape;
}

/// How much of each pixel, 0..255, an operation covers that draws in an opaque colour: draw(canvas, colour).
template <class Draw>
Picture CoversOf(LONG width, LONG height, const Draw &draw) {
    const TestCanvas light(CanvasKind::Memory, width, height, 0), dark(CanvasKind::Memory, width, height, 0);
    FillWith(light.View(), 0xFFFFFFFF);
    FillWith(dark.View(), 0);
    draw(static_cast<HGCANVAS>(light), 0xFF000000);
    draw(static_cast<HGCANVAS>(dark), 0xFFFFFFFF);
    Picture covers = light.Pixels();
    const Picture whites = dark.Pixels();
    ForEachPixel(covers, [&](LONG x, LONG y) {
        // On white the weight is what is missing; 255 and 256 look alike there, but not on black.
        const uint32_t missing = 255 - (covers.At(x, y) & 255);
        const uint32_t weight = missing == 255 ? whites.At(x, y) == 0xFFFFFFFF ? 256 : 255 : missing;
        covers.At(x, y) = weight > 128 ? weight - 1 : weight;
    });
    return covers;
}

/// Where a drawing goes: mirrored in its canvas, or moved.
struct Place {
    bool isAcross = false, isDown = false;
    int move = 0;

    /// A rectangle of a canvas of a size.
    GeoRect Of(GeoRect rect, SIZE size) const {
        const auto width = static_cast<float>(size.cx), height = static_cast<float>(size.cy);
        if (isAcross) rect = {width - rect.right, rect.top, width - rect.left, rect.bottom};
        if (isDown) rect = {rect.left, height - rect.bottom, rect.right, height - rect.top};
        const auto by = static_cast<float>(move);
        return {rect.left + by, rect.top + by, rect.right + by, rect.bottom + by};
    }

    /// The radii of the corners that come to lie top left, top right, bottom right and bottom left.
    void Mirror(float (&radii)[4]) const {
        if (isAcross) std::swap(radii[0], radii[1]), std::swap(radii[3], radii[2]);
        if (isDown) std::swap(radii[0], radii[3]), std::swap(radii[1], radii[2]);
    }
};

using PlacedDraw = std::function<void(HGCANVAS canvas, const Place &place)>;

/// Clips that make up the canvas show the whole drawing, and one clip only its part; origins move it; mirrors mirror
/// it, where it has mirror images.
inline void ExpectSameWherever(Random &random, SIZE size, const PlacedDraw &draw, bool hasMirrors = true) {
    const auto drawn = [&](const std::vector<RECT> &clips, const Place &place = {}) {
        const TestCanvas canvas(CanvasKind::Memory, size.cx, size.cy, 0);
        FillWith(canvas.View(), 0xFF8040C0);
        SetViewportOrg(canvas, 7 - place.move, 7 - place.move, nullptr);
        SetWindowOrg(canvas, 7, 7, nullptr);
        for (const RECT &clip : clips) {
            const RECT logical = Moved(clip, place.move, place.move);
            SetCanvasClipRect(canvas, &logical);
            draw(canvas, place);
        }
        return canvas.Pixels();
    };
    const RECT all{0, 0, size.cx, size.cy};
    const Picture ground = drawn({}), whole = drawn({all});
    const LONG x = random.Between(0, size.cx), y = random.Between(0, size.cy);
    EXPECT_TRUE(Same(whole, drawn({{0, 0, x, y}, {x, 0, size.cx, y}, {0, y, size.cx, size.cy}})));
    EXPECT_TRUE(Same(whole, drawn({all}, {.move = random.Between(-9999, 9999)})));
    ExpectSameOutside({x / 2, y / 2, x, y}, ground, drawn({{x / 2, y / 2, x, y}}));
    for (const bool isAcross : {true, false}) {
        if (!hasMirrors) continue;
        const Picture mirrored = drawn({all}, {.isAcross = isAcross, .isDown = !isAcross});
        Picture back = mirrored;
        ForEachPixel(back, [&](LONG px, LONG py) {
            back.At(px, py) = isAcross ? mirrored.At(size.cx - 1 - px, py) : mirrored.At(px, size.cy - 1 - py);
        });
        EXPECT_TRUE(Same(whole, back)) << (isAcross ? "across" : "down");
    }
}

}  // namespace lacquer
