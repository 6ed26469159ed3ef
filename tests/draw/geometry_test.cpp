// Rectangles, rounded rectangles and focus rings against exact areas; combining, and numbers that are none.

#include <limits>

#include "shape_model.h"

namespace lacquer {
namespace {

constexpr float kInfinity = std::numeric_limits<float>::infinity(), kNaN = std::numeric_limits<float>::quiet_NaN();

float Fraction(Random &random, int low, int high) {
    return static_cast<float>(random.Between(low * 256, high * 256)) / 256;
}

/// Of whole pixels as often as not, whose mirror images share their pixels.
GeoRect AnyRect(Random &random, int size) {
    float edges[] = {Fraction(random, -3, size / 2), Fraction(random, -3, size / 2), Fraction(random, 0, size),
                     Fraction(random, 0, size)};
    const bool isWhole = random.Coin();
    for (float &edge : edges) edge = isWhole ? std::floor(edge) : edge;
    return {edges[0], edges[1], edges[0] + edges[2], edges[1] + edges[3]};
}

/// Radii of every kind: none, small, one only, and too large ones.
GeoStyle AnyStyle(Random &random) {
    GeoStyle style{random.Word(), random.Word(), random.Coin() ? Fraction(random, 0, 4) : 0, {}};
    const int kind = random.Between(0, 4);
    for (float &radius : style.radii) radius = kind == 0 ? 0 : Fraction(random, 0, kind < 3 ? 6 : 24);
    if (kind == 2) style.radii[1] = style.radii[2] = style.radii[3] = style.radii[0];
    if (kind == 4) style.radii[random.Word() % 4] = style.radii[random.Word() % 4] = 0;
    return style;
}

/// The cover of all inside the outer edge, and of what is inside the border.
struct EdgeCovers {
    Picture outer, inner;

    EdgeCovers(LONG width, LONG height, const GeoRect &rect, GeoStyle style)
        : outer(CoversOf(width, height, [&](HGCANVAS canvas, DWORD colour) { Draw(canvas, colour, rect, style, 0); })),
          inner(CoversOf(width, height, [&](HGCANVAS canvas, DWORD colour) {
              Draw(canvas, colour, rect, style, style.borderWidth);
          })) {}

    static void Draw(HGCANVAS canvas, DWORD colour, const GeoRect &rect, GeoStyle style, float borderWidth) {
        style.fill = colour;
        style.border = 0;
        style.borderWidth = borderWidth;
        EXPECT_EQ(1, GeoRoundRectEx(canvas, &rect, &style, kOver));
    }
};

void ExpectCoversOf(const ModelShape &shape, const Picture &covers) {
    ForEachPixel(covers, [&](LONG x, LONG y) {
        const double area = shape.IsEmpty() ? 0 : shape.AreaIn(x, y);
        const double cover = covers.At(x, y);
        if (!shape.IsEmpty() && shape.IsCrossed(x, y)) {
            ASSERT_NEAR(255 * area, cover, 1) << x << ", " << y;
        } else {
            ASSERT_EQ(std::floor(255 * area + 0.5), cover) << x << ", " << y;
        }
    });
}

void ExpectAreas(const GeoRect &rect, const GeoStyle &style, LONG side) {
    SCOPED_TRACE(::testing::Message() << "rectangle " << rect.left << " " << rect.top << " " << rect.right << " "
                                      << rect.bottom << " border " << style.borderWidth << " radii " << style.radii[0]
                                      << " " << style.radii[1] << " " << style.radii[2] << " " << style.radii[3]);
    const EdgeCovers covers(side, side, rect, style);
    const ModelShape shape = ShapeOf(rect, style.radii);
    ExpectCoversOf(shape, covers.outer);
    ExpectCoversOf(shape.Grown(-Rounded(style.borderWidth)), covers.inner);
}

TEST(GeoRectangles, CoverTheirAreas) {
    Random random(1);
    for (int round = 0; round < 100 && !HasFailure(); ++round) ExpectAreas(AnyRect(random, 26), AnyStyle(random), 28);
    // Large circles pass a pixel almost straight, small ones lie within it.
    for (const float radius : {0.004f, 0.25f, 0.5f, 1.0f, 1.75f, 3.0f, 60.0f, 1000.0f, 16384.0f, 1e9f, kInfinity}) {
        for (const auto &[left, top] : {std::pair{0.0f, 0.0f}, std::pair{-1.5f, -0.25f}, std::pair{-290.0f, -290.0f}}) {
            ExpectAreas({left, top, left + 40000, top + 40000}, {0, 0, 0, {radius, 0, 0, 0}}, 20);
        }
    }
}

TEST(GeoRectangles, MixFillAndBorderByTheirCovers) {
    Random random(2);
    constexpr LONG kSide = 24;
    const RECT all{0, 0, kSide, kSide};
    for (int round = 0; round < 120; ++round) {
        const GeoRect rect = AnyRect(random, kSide);
        GeoStyle style = AnyStyle(random);
        style.fill = random.Of<DWORD>({0x00FFFFFFu, 0xFFFFFFFFu, 0xFF102030u, 0x80FF8001u, style.fill});
        style.border = random.Of<DWORD>({0x00123456u, 0xFFFFFFFFu, 0xFF405060u, 0x407F00FFu, style.border});
        const DWORD mode = static_cast<DWORD>(random.Between(0, 8)) << 24 | 0x345678;
        const CanvasKind kind = random.Of({CanvasKind::Memory, CanvasKind::System, CanvasKind::FromDC});
        const EdgeCovers covers(kSide, kSide, rect, style);
        const auto filledWith = [&](DWORD colour) {
            const TestCanvas canvas(CanvasKind::Memory, kSide, kSide, 7);
            if (colour >> 24 != 0) FillSolidRectEx(canvas, colour, &all, mode);
            return canvas.Pixels();
        };
        const Picture fill = filledWith(style.fill), border = filledWith(style.border);
        const TestCanvas canvas(kind, kSide, kSide, 7);
        Picture expected = canvas.Pixels();
        EXPECT_EQ(1, GeoRoundRectEx(canvas, &rect, &style, mode));
        ForEachPixel(expected, [&](LONG x, LONG y) {
            const uint32_t ci = covers.inner.At(x, y), co = covers.outer.At(x, y), cb = co > ci ? co - ci : 0;
            const uint32_t wi = ci + (ci >> 7), wb = cb + (cb >> 7), d = expected.At(x, y);
            expected.At(x, y) = WordOf([&](int i) {
                return (ChannelOf(d, i) * (256 - wi - wb) + ChannelOf(fill.At(x, y), i) * wi +
                        ChannelOf(border.At(x, y), i) * wb) >>
                       8;
            });
        });
        ASSERT_TRUE(Same(expected, canvas.Pixels())) << "round " << round << " mode " << (mode >> 24);
    }
}

TEST(GeoRectangles, OfWholePixelsAreThoseOfFractions) {
    constexpr DWORD kBorder = 0x80C04020, kFill = 0xFF208040;
    const RECT rect{3, 4, 20, 15};
    const GeoRect geoRect{3, 4, 20, 15};
    for (const int width : {0, 2, 6, 1000, -3, INT32_MIN}) {
        const TestCanvas plain(CanvasKind::Memory, 24, 20, 3), sharp(CanvasKind::Memory, 24, 20, 3),
            expected(CanvasKind::Memory, 24, 20, 3), fractions(CanvasKind::Memory, 24, 20, 3);
        GeoStyle style{kBorder, kFill, static_cast<float>(width), {}};
        EXPECT_EQ(1, GeoRoundRectEx(expected, &geoRect, &style, kOver));
        EXPECT_EQ(1, GeoRectangle(plain, &rect, kBorder, kFill, width));
        // The origins are added in 64 bits.
        const RECT distant = Moved(rect, -INT32_MAX, -INT32_MAX);
        SetViewportOrg(sharp, INT32_MAX, INT32_MAX, nullptr);
        EXPECT_EQ(1, GeoRoundRect(sharp, &distant, kBorder, kFill, width, -7));
        style.radii[0] = kNaN;
        style.radii[2] = kInfinity;
        EXPECT_EQ(1, GeoRectangleEx(fractions, &geoRect, &style, kOver)) << "it has no radii, whatever the style says";
        for (const TestCanvas *canvas : {&plain, &sharp, &fractions}) {
            EXPECT_TRUE(Same(expected.Pixels(), canvas->Pixels())) << width;
        }
    }
}

/// The dashes of a ring begin in one corner, so that its mirror images differ.
TEST(GeoRectangles, AreTheSameUnderEveryClipMoveAndMirror) {
    Random random(3);
    constexpr SIZE kSize{40, 36};
    for (int round = 0; round < 160; ++round) {
        SCOPED_TRACE(round);
        const GeoRect rect = AnyRect(random, 36);
        const GeoStyle style = AnyStyle(random);
        const bool isRing = round % 4 == 0;
        const float dash = Fraction(random, 0, 5), gap = Fraction(random, 0, 5);
        ExpectSameWherever(
            random, kSize,
            [&](HGCANVAS canvas, const Place &place) {
                const GeoRect placed = place.Of(rect, kSize);
                GeoStyle mirrored = style;
                place.Mirror(mirrored.radii);
                EXPECT_EQ(1, isRing ? GeoRectFocusEx(canvas, &placed, 0x80FF8040, style.borderWidth, style.radii[0],
                                                     dash, gap)
                                    : GeoRoundRectEx(canvas, &placed, &mirrored, kOver));
            },
            !isRing);
    }
}

TEST(GeoRectangles, RoundHalvesUpAndIgnoreWhatIsNoNumber) {
    for (const auto &[left, cover] : {std::pair{1.0f / 512, 254u}, {-1.0f / 512, 255u}, {0.5f + 1.0f / 512, 127u}}) {
        const GeoRect rect{left, 0, 2, 1};
        const Picture covers = CoversOf(2, 1, [&](HGCANVAS canvas, DWORD colour) {
            const GeoStyle style{0, colour, 0, {}};
            EXPECT_EQ(1, GeoRectangleEx(canvas, &rect, &style, kOver));
        });
        EXPECT_EQ(cover, covers.At(0, 0)) << left;
    }

    const TestCanvas canvas(CanvasKind::Memory, 8, 8, 1);
    const Picture before = canvas.Pixels();
    const auto draw = [&](const GeoRect &rect, const GeoStyle &style, float radius, float dash, float gap) {
        EXPECT_EQ(1, GeoRoundRectEx(canvas, &rect, &style, kOver));
        EXPECT_EQ(1, GeoRectFocusEx(canvas, &rect, ~0u, style.borderWidth, radius, dash, gap));
    };
    const GeoRect whole{0, 0, 8, 8};
    const GeoStyle nothing{0, 0, 1, {}};
    for (const GeoRect &rect : {GeoRect{4, 0, 4.001f, 8}, GeoRect{4, 4, 3, 8}, GeoRect{kNaN, 0, 8, 8},
                                GeoRect{0, 0, 8, kNaN}, GeoRect{kInfinity, 0, kInfinity, 8}, GeoRect{8, -9, 99, 0}}) {
        draw(rect, {~0u, ~0u, 1, {2, 2, 2, 2}}, 1, 1, 1);
    }
    draw(whole, {~0u, ~0u, kNaN, {}}, 1, 1, 1);
    draw(whole, {~0u, ~0u, 0, {0, 0, 0, kNaN}}, kNaN, 1, 1);
    draw(whole, nothing, kNaN, 1, 1);
    draw(whole, nothing, 1, kNaN, 1);
    draw(whole, nothing, 1, 1, kNaN);
    EXPECT_TRUE(Same(before, canvas.Pixels()));

    const GeoRect infinite{-kInfinity, -1e30f, kInfinity, 3e9f};
    const GeoStyle opaque{0, 0xFF123456, 1, {2, 2, 2, 2}};
    EXPECT_EQ(1, GeoRoundRectEx(canvas, &infinite, &opaque, kOver));
    EXPECT_EQ(std::vector<uint32_t>(64, 0xFF123456), canvas.Pixels().pixels);
}

/// The points of a lattice that fills a pixel evenly.
constexpr int kPoints = 4181, kPointStep = 2584;

/// A ring's dashes by the nearest point of its centre line.
class ModelRing {
public:
    ModelRing(const ModelShape &shape, double width, double dash, double gap)
        : shape_(shape), inner_(shape.Grown(-width)) {
        const double radius = std::max(0.0, shape.radii[0] - width / 2);
        line_ = {shape.left + width / 2, shape.top + width / 2, shape.right - width / 2, shape.bottom - width / 2, {}};
        radius_ = radius;
        across_ = line_.right - line_.left - 2 * radius;
        down_ = line_.bottom - line_.top - 2 * radius;
        arc_ = radius * std::acos(0.0);
        length_ = 2 * (across_ + down_) + 4 * arc_;
        const double count = std::max(1.0, std::floor(length_ / (dash + gap) + 0.5));
        period_ = length_ / count;
        dash_ = dash == 0 || gap == 0 ? 2 * period_ : period_ * dash / (dash + gap);
    }

    double AreaIn(LONG x, LONG y) const {
        if (shape_.AreaIn(x, y) <= (inner_.IsEmpty() ? 0 : inner_.AreaIn(x, y))) return 0;
        int hits = 0;
        for (int i = 0; i < kPoints; ++i) {
            hits += IsPainted(x + (i + 0.5) / kPoints, y + (i * kPointStep % kPoints + 0.5) / kPoints);
        }
        return hits / static_cast<double>(kPoints);
    }

private:
    static bool IsIn(const ModelShape &shape, double x, double y) {
        if (shape.IsEmpty()) return false;
        const auto [from, to] = shape.At(y);
        return y > shape.top && y < shape.bottom && x > from && x < to;
    }

    bool IsPainted(double x, double y) const {
        if (!IsIn(shape_, x, y) || IsIn(inner_, x, y)) return false;
        const double into = PlaceOf(x, y) + dash_ / 2;
        return into - period_ * std::floor(into / period_) < dash_;
    }

    /// The place of the nearest point, from the middle of the top left arc, clockwise.
    double PlaceOf(double x, double y) const {
        const double left = line_.left + radius_, top = line_.top + radius_;
        const double right = line_.right - radius_, bottom = line_.bottom - radius_;
        const double starts[] = {arc_ / 2, arc_ * 1.5 + across_, arc_ * 2.5 + across_ + down_,
                                 arc_ * 3.5 + 2 * across_ + down_};
        if (x < left && y < top) return std::atan2(top - y, left - x) * radius_ - arc_ / 2;
        if (x > right && y < top) return starts[1] - arc_ + std::atan2(x - right, top - y) * radius_;
        if (x > right && y > bottom) return starts[2] - arc_ + std::atan2(y - bottom, x - right) * radius_;
        if (x < left && y > bottom) return starts[3] - arc_ + std::atan2(left - x, y - bottom) * radius_;
        const double along[] = {x - left, y - top, right - x, bottom - y};
        const double across[] = {y - line_.top, x - line_.right, y - line_.bottom, x - line_.left};
        double place = 0, nearest = 1e9;
        for (int side = 0; side < 4; ++side) {
            const double foot = std::clamp(along[side], 0.0, side % 2 == 0 ? across_ : down_);
            const double distance = std::hypot(across[side], along[side] - foot);
            if (distance < nearest) {
                nearest = distance;
                place = starts[side] + foot;
            }
        }
        return place;
    }

    ModelShape shape_, inner_, line_{};
    double radius_, across_, down_, arc_, length_, period_, dash_;
};

TEST(FocusRings, CoverTheirDashes) {
    struct Case {
        GeoRect rect;
        float width, radius, dash, gap;
    };
    const Case cases[] = {{{1, 1, 23, 19}, 2, 4, 3, 2},          {{1.5f, 2.25f, 22.75f, 18.5f}, 1.5f, 0, 2, 2},
                          {{2, 2, 22, 20}, 5, 3, 4, 3},          {{1, 1, 19, 23}, 6, 1, 2.5f, 1.5f},
                          {{2, 1, 20, 19}, 9, 100, 0.3f, 0.2f},  {{1, 1, 23, 19}, 2, 5, 1000, 1},
                          {{1.25f, 1, 21, 20}, 3, 9, 5, 1},      {{-30.5f, 1, 23, 90}, 9, 30, 7, 4},
                          {{1, 2, 10, 8}, 1, 0, 2, 2},           {{1, 1, 9, 9}, 1, 0, 40, 20},
                          {{-42, -40, 400, 400}, 60, 150, 7, 4}, {{-140, 1, 400, 300}, 60, 150, 0.3f, 0.2f},
                          {{1, 1, 400, 300}, 20, 24, 60, 10},    {{-300, -200, 22.5f, 22}, 2, 90, 7, 4},
                          {{1, 1, 23, 19}, 2, 4, 0, 2},          {{1.5f, 2.25f, 22.75f, 18.5f}, 1.5f, 3, 3, 0}};
    for (const Case &c : cases) {
        SCOPED_TRACE(&c - cases);
        const Picture covers = CoversOf(24, 24, [&](HGCANVAS canvas, DWORD colour) {
            EXPECT_EQ(1, GeoRectFocusEx(canvas, &c.rect, colour, c.width, c.radius, c.dash, c.gap));
        });
        const ModelShape shape = ShapeOf(c.rect, {c.radius, c.radius, c.radius, c.radius});
        const double width =
            std::min(Rounded(c.width), std::min(shape.right - shape.left, shape.bottom - shape.top) / 2);
        const ModelRing ring(shape, width, Rounded(c.dash), Rounded(c.gap));
        ForEachPixel(covers, [&](LONG x, LONG y) {
            EXPECT_NEAR(255 * ring.AreaIn(x, y), covers.At(x, y), 4) << x << ", " << y;
        });
    }
    // Of one pixel they are crisp dots. This ring is 26 pixels long, so that they close.
    const GeoRect rect{1, 2, 10, 8};
    const Picture covers = CoversOf(12, 10, [&](HGCANVAS canvas, DWORD colour) {
        EXPECT_EQ(1, GeoRectFocusEx(canvas, &rect, colour, 1, 0, 1, 1));
    });
    ForEachPixel(covers, [&](LONG x, LONG y) {
        const bool isEdge = Contains({1, 2, 10, 8}, x, y) && !Contains({2, 3, 9, 7}, x, y);
        EXPECT_EQ(isEdge && (x + y) % 2 == 1 ? 255u : 0u, covers.At(x, y)) << x << ", " << y;
    });
}

TEST(FocusRings, TooLongForDashesAreBorders) {
    const GeoRect rect{1.5f, 2, 1e9f, 1e9f};
    const GeoStyle style{0xC0FF8040, 0, 2.25f, {5, 5, 5, 5}};
    const TestCanvas ring(CanvasKind::Memory, 32, 32, 1), border(CanvasKind::Memory, 32, 32, 1);
    EXPECT_EQ(1, GeoRectFocusEx(ring, &rect, style.border, style.borderWidth, 5, 3, 3));
    EXPECT_EQ(1, GeoRoundRectEx(border, &rect, &style, kOver));
    EXPECT_TRUE(Same(border.Pixels(), ring.Pixels()));
}

}  // namespace
}  // namespace lacquer
