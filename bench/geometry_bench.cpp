// Geometric rectangles and shadows: rectangles against cairo's and plain memory, shadows against blurs of a mask, where
// these are installed, and large shadows and rings against a fill of the whole canvas.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>

#include <cstring>
#include <vector>

#include "ratio.h"
#ifdef LACQUER_BENCH_CAIRO
#include <cairo.h>
#endif
#ifdef LACQUER_BENCH_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

using lacquer::bench::MeasureAgainst;

/// A canvas full of one light grey.
class Ground {
public:
    Ground(LONG width, LONG height)
        : canvas(CreateCanvas(static_cast<DWORD>(width), static_cast<DWORD>(height), {})), all{0, 0, width, height} {
        FillSolidRect(canvas, 0xFFF0F0F0, &all);
    }
    ~Ground() { DeleteCanvas(canvas); }
    Ground(const Ground &) = delete;
    Ground &operator=(const Ground &) = delete;

    HGCANVAS canvas;
    RECT all;
};

ShadowStyle MakeShadow(float blur, float radius, DWORD flags) {
    return {0x60000000, 0, 0, blur, 0, {radius, radius, radius, radius}, 1, flags};
}

/// An opaque rectangle beside a memset of its rows: no fill of so much memory takes less.
void LargeRoundRectAgainstMemory(benchmark::State &state) {
    constexpr LONG kWidth = 1024, kHeight = 768, kStride = kWidth + 20;
    const Ground ground(kStride, kHeight + 20);
    const RECT rect = {10, 10, 10 + kWidth, 10 + kHeight};
    std::vector<DWORD> memory(static_cast<size_t>(kStride) * (kHeight + 20));
    MeasureAgainst(
        state, [&] { GeoRoundRect(ground.canvas, &rect, 0xFF000000, 0xFF3060C0, 1, 8); },
        [&] {
            for (LONG y = rect.top; y < rect.bottom; ++y)
                std::memset(&memory[static_cast<size_t>(y) * kStride + 10], 1, size_t{kWidth} * 4);
        });
}
BENCHMARK(LargeRoundRectAgainstMemory)->UseManualTime();

#ifdef LACQUER_BENCH_CAIRO

/// With a border and a radius of 8, beside the peer's fill alone. The third argument is the fill's alpha.
void RoundRectAgainstCairo(benchmark::State &state) {
    const auto width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const auto alpha = static_cast<DWORD>(state.range(2));
    const Ground ground(width + 20, height + 20);
    const RECT rect = {10, 10, 10 + width, 10 + height};
    cairo_surface_t *surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width + 20, height + 20);
    cairo_t *cairo = cairo_create(surface);
    MeasureAgainst(
        state,
        [&] {
            for (int i = 0; i < 16; ++i) GeoRoundRect(ground.canvas, &rect, 0xFF000000, alpha << 24 | 0x3060C0, 1, 8);
        },
        [&] {
            constexpr double kQuarter = 1.57079632679;
            const double x0 = 18, y0 = 18, x1 = 2.0 + static_cast<double>(width),
                         y1 = 2.0 + static_cast<double>(height);
            for (int i = 0; i < 16; ++i) {
                cairo_set_source_rgba(cairo, 0.2, 0.4, 0.75, alpha / 255.0);
                cairo_new_path(cairo);
                cairo_arc(cairo, x1, y0, 8, -kQuarter, 0);
                cairo_arc(cairo, x1, y1, 8, 0, kQuarter);
                cairo_arc(cairo, x0, y1, 8, kQuarter, 2 * kQuarter);
                cairo_arc(cairo, x0, y0, 8, 2 * kQuarter, 3 * kQuarter);
                cairo_close_path(cairo);
                cairo_fill(cairo);
            }
        });
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}
BENCHMARK(RoundRectAgainstCairo)
    ->Args({200, 40, 255})
    ->Args({200, 40, 128})
    ->Args({1024, 768, 255})
    ->Args({1024, 768, 128})
    ->UseManualTime();

#endif

#ifdef LACQUER_BENCH_OPENCV

/// A shadow of 400 x 300 pixels with a blur of 24; the peer's time is that of its blur alone, without a composition.
/// The argument is the shadow's flags.
template <class Blur>
void ShadowAgainst(benchmark::State &state, Blur blur) {
    const Ground ground(640, 480);
    const RECT rect = {100, 80, 500, 380};
    const ShadowStyle shadow = MakeShadow(24, 8, static_cast<DWORD>(state.range(0)));
    constexpr int kReach = 36;
    cv::setNumThreads(1);
    cv::Mat mask(300 + 2 * kReach, 400 + 2 * kReach, CV_8U, cv::Scalar(0)), blurred, other;
    mask(cv::Rect(kReach, kReach, 400, 300)).setTo(255);
    MeasureAgainst(
        state, [&] { DrawShadows(ground.canvas, &rect, &shadow, 1); }, [&] { blur(mask, blurred, other); });
}

BENCHMARK_CAPTURE(ShadowAgainst, gaussian,
                  [](const cv::Mat &mask, cv::Mat &blurred, cv::Mat &) {
                      cv::GaussianBlur(mask, blurred, cv::Size(), 12);
                  })
    ->DenseRange(0, 2)
    ->UseManualTime();
BENCHMARK_CAPTURE(ShadowAgainst, three_boxes,
                  [](const cv::Mat &mask, cv::Mat &blurred, cv::Mat &other) {
                      const cv::Size box(23, 23);
                      cv::blur(mask, blurred, box);
                      cv::blur(blurred, other, box);
                      cv::blur(other, blurred, box);
                  })
    ->DenseRange(0, 2)
    ->UseManualTime();

#endif

/// A blur of 200 around a shape that nearly fills the canvas. The argument is the radius of its corners.
void LargeShadowAgainstFill(benchmark::State &state) {
    const Ground ground(3840, 2160);
    const RECT rect = {200, 200, 3640, 1960};
    const ShadowStyle shadow = MakeShadow(200, static_cast<float>(state.range(0)), 0);
    MeasureAgainst(
        state, [&] { DrawShadows(ground.canvas, &rect, &shadow, 1); },
        [&] { FillSolidRect(ground.canvas, 0x60000000, &ground.all); });
}
BENCHMARK(LargeShadowAgainstFill)->Arg(0)->Arg(12)->Arg(40)->Arg(100)->Arg(300)->Arg(880)->UseManualTime();

/// A ring that nearly fills the canvas. The arguments are its width and its radius.
void LargeRingAgainstFill(benchmark::State &state) {
    const Ground ground(3840, 2160);
    const GeoRect rect = {10, 10, 3800, 2100};
    MeasureAgainst(
        state,
        [&] {
            GeoRectFocusEx(ground.canvas, &rect, 0xFF000000, static_cast<float>(state.range(0)),
                           static_cast<float>(state.range(1)), 3, 2);
        },
        [&] { FillSolidRect(ground.canvas, 0x60000000, &ground.all); });
}
BENCHMARK(LargeRingAgainstFill)->Args({2, 8})->Args({1000, 0})->Args({1000, 900})->UseManualTime();

}  // namespace
