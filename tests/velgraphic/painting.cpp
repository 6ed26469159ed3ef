// Making and comparing small pictures.

#include "painting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <tuple>

namespace lacquer {
Painting::Painting(int width, int height, uint32_t background)
    : width_(width),
      height_(height),
      pixels_(static_cast<size_t>(width) * static_cast<size_t>(height), background),
      canvas_(lq::VectorCanvas::Create()) {
    EXPECT_TRUE(canvas_.DrawInto(pixels_.data(), width, height, width * 4));
}

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
            if (At(x, y) == 0) continue;
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

velRectF Path::Bounds() const {
    velRectF bounds{};
    EXPECT_EQ(1, velPathGetBounds(*this, &bounds));
    return bounds;
}

void UseGradient(velCanvas *canvas, velGradient *gradient, std::initializer_list<std::pair<float, DWORD>> stops) {
    EXPECT_EQ(1, velCanvasSetGradient(canvas, gradient));
    for (const auto &[offset, colour] : stops) EXPECT_EQ(1, velGradientAddColorStop(gradient, offset, colour));
    EXPECT_EQ(1, velGradientDestroy(gradient));
}

int Differing(const Painting &a, const Painting &b, int tolerance, uint32_t mask) {
    int count = 0;
    for (size_t i = 0; i < a.Pixels().size(); ++i) {
        int largest = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const auto channel = [&](const Painting &of) {
                return static_cast<int>((of.Pixels()[i] & mask) >> shift & 255);
            };
            largest = std::max(largest, std::abs(channel(a) - channel(b)));
        }
        count += largest > tolerance;
    }
    return count;
}

// The name comes last: it keeps the style and the size.
void SetFont(velCanvas *canvas, const char *family, float size, DWORD style) {
    ASSERT_TRUE(velCanvasSetFontStyle(canvas, style) && velCanvasSetTextSize(canvas, size) &&
                velCanvasSetFontFaceName(canvas, Utf16(family).data()));
}

void ExpectBox(const Painting &painting, const RECT &expected) {
    const RECT box = painting.Box();
    EXPECT_EQ(std::tie(expected.left, expected.top, expected.right, expected.bottom),
              std::tie(box.left, box.top, box.right, box.bottom));
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

std::vector<WCHAR> Utf16(const std::string &ascii) {
    std::vector<WCHAR> name(ascii.begin(), ascii.end());
    name.push_back(0);
    return name;
}

namespace {

double ProcessorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

double SecondsOfAPage() {
    constexpr int kSide = 2000, kGlyphs = 20000, kFigures = 20;
    Painting page(kSide, kSide);
    SetFont(page, kSans, 12);
    std::vector<WORD> glyphs;
    std::vector<velPointF> places;
    for (int i = 0; i < kGlyphs; ++i) {
        glyphs.push_back(static_cast<WORD>(36 + i % 60));
        places.push_back({static_cast<float>(i * 7919 % 8000) / 4, static_cast<float>(i * 10007 % kSide)});
    }
    const double start = ProcessorSeconds();
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(page, glyphs.data(), kGlyphs, places.data()));
    for (int i = 0; i < kFigures; ++i) {
        const float at = static_cast<float>(40 * i);
        EXPECT_EQ(1, velCanvasDrawEllipse(page, at, at, 800, 400));
    }
    return ProcessorSeconds() - start;
}

}  // namespace

PageClock::PageClock() {
    static const double page = SecondsOfAPage();
    page_ = page;
    start_ = ProcessorSeconds();
}

double PageClock::Pages() const { return (ProcessorSeconds() - start_) / page_; }

}  // namespace lacquer
