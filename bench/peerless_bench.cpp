// Draws that other libraries don't have, each against the nearest one that they do have: no speed of its own is worth
// more than its neighbours'. 1.3 of the neighbour's time is the aim.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>

#include "ratio.h"

namespace {

constexpr BYTE kHalf = 128;

/// Premultiplied noise in runs of clear, translucent and opaque pixels, in bytes of any depth.
void FillWithRuns(const SurfaceView &view) {
    uint32_t state = 12345;
    const auto next = [&] { return (state = state * 1664525u + 1013904223u) >> 8; };
    const int rowBytes = view.width * (view.bitsPerPixel / 8);
    for (LONG y = 0; y < view.height; ++y) {
        auto *row = static_cast<BYTE *>(view.bits) + static_cast<ptrdiff_t>(y) * view.stride;
        uint32_t left = 0, alpha = 0;
        for (int i = 0; i < rowBytes; ++i) {
            if (view.bitsPerPixel != 32) {
                row[i] = static_cast<BYTE>(next());
                continue;
            }
            if (i % 4 == 0 && left-- == 0) {
                left = next() % 24;
                alpha = next() % 3 * 127;
            }
            row[i] = static_cast<BYTE>(i % 4 == 3 ? alpha : alpha == 0 ? 0 : next() % (alpha + 1));
        }
    }
}

class Source {
public:
    Source(LONG width, LONG height, DWORD depth, DWORD mode)
        : bitmap_(CreateMemBitmapEx(static_cast<DWORD>(width), static_cast<DWORD>(height), depth, 256)) {
        SurfaceView view{};
        LockBitmapBitsEx(bitmap_, &view, nullptr);
        FillWithRuns(view);
        for (DWORD i = 0; i < view.paletteCount; ++i) view.palette[i] = 0xFF000000u | i * 0x00010203u;
        UnlockBitmapBits(bitmap_);
        SetBitmapFilter(bitmap_, mode << 24 | 0x00123456);
    }
    ~Source() { DeleteBitmap(bitmap_); }
    Source(const Source &) = delete;
    Source &operator=(const Source &) = delete;
    HGBITMAP Handle() const { return bitmap_; }

private:
    HGBITMAP bitmap_;
};

struct Draw {
    DWORD depth, mode;
    bool stretched;
    DWORD kernelMode;
    BYTE alpha;

    LONG Length(LONG length) const { return stretched ? length * 10 / 17 : length; }
};

constexpr Draw kOver{32, LACQUER_DRAW_OVER, false, LACQUER_NEAREST, 255};
constexpr Draw kModulate{32, LACQUER_DRAW_MODULATE, false, LACQUER_NEAREST, 255};
constexpr Draw kNearest{32, LACQUER_DRAW_COPY, true, LACQUER_NEAREST, 255};
constexpr Draw kBilinear{32, LACQUER_DRAW_COPY, true, LACQUER_BILINEAR, 255};
constexpr Draw kBilinearOver{32, LACQUER_DRAW_OVER, true, LACQUER_BILINEAR, 255};

class Target {
public:
    Target(LONG width, LONG height)
        : canvas(CreateCanvas(static_cast<DWORD>(width), static_cast<DWORD>(height), {})), all{0, 0, width, height} {
        SurfaceView view{};
        LockCanvasBits(canvas, &view, nullptr);
        FillWithRuns(view);
        UnlockCanvasBits(canvas);
    }
    ~Target() { DeleteCanvas(canvas); }
    Target(const Target &) = delete;
    Target &operator=(const Target &) = delete;

    const HGCANVAS canvas;
    const RECT all;
};

void DrawAgainstNeighbour(benchmark::State &state, const Draw &draw, const Draw &neighbour) {
    const auto width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Target target(width, height);
    const Source source(draw.Length(width), draw.Length(height), draw.depth, draw.mode);
    const Source other(neighbour.Length(width), neighbour.Length(height), neighbour.depth, neighbour.mode);
    const auto run = [&](const Draw &what, const Source &from) {
        DrawBitmapEx(target.canvas, &target.all, from.Handle(), what.kernelMode, what.alpha);
    };
    lacquer::bench::MeasureAgainst(
        state, [&] { run(draw, source); }, [&] { run(neighbour, other); }, static_cast<double>(width) * height);
}

/// A panel of twelve nine-grids, four across and three down, that share its area.
void TwelveNineGrids(benchmark::State &state) {
    const auto width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Target target(width, height);
    const Source other(width * 10 / 17, height * 10 / 17, 32, LACQUER_DRAW_OVER);
    const HGTEXTURE skin = CreateTexture(24, 24);
    SurfaceView view{};
    LockTextureBits(skin, &view, nullptr);
    FillWithRuns(view);
    UnlockTextureBits(skin);
    SetTextureFilter(skin, LACQUER_DRAW_OVER << 24);
    const TextureMode grid = {LACQUER_LAYOUT_NINE_GRID, 0, {5, 5, 5, 5}};
    SetTextureMode(skin, &grid);
    lacquer::bench::MeasureAgainst(
        state,
        [&] {
            for (LONG i = 0; i < 12; ++i) {
                const LONG column = i % 4, row = i / 4;
                const RECT cell = {width * column / 4, height * row / 3, width * (column + 1) / 4,
                                   height * (row + 1) / 3};
                DrawTextureEx(target.canvas, &cell, skin, LACQUER_BILINEAR, 255, 1.0f, 0);
            }
        },
        [&] { DrawBitmapEx(target.canvas, &target.all, other.Handle(), LACQUER_BILINEAR, 255); },
        static_cast<double>(width) * height);
    DeleteTexture(skin);
}

void Sizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->Args({64, 64})->Args({256, 256})->Args({1024, 1024})->Args({3840, 2160})->UseManualTime();
}

BENCHMARK_CAPTURE(DrawAgainstNeighbour, behind_of_over, {32, LACQUER_DRAW_BEHIND, false, LACQUER_NEAREST, 255}, kOver)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, color_key_of_over, {32, LACQUER_DRAW_COLOR_KEY, false, LACQUER_NEAREST, 255},
                  kOver)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, stretched_modulate_of_modulate,
                  {32, LACQUER_DRAW_MODULATE, true, LACQUER_NEAREST, 255}, kModulate)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, stretched_const_alpha_of_bilinear_over,
                  {32, LACQUER_DRAW_OVER, true, LACQUER_BILINEAR, kHalf}, kBilinearOver)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, nearest_8bit_of_nearest, {8, LACQUER_DRAW_COPY, true, LACQUER_NEAREST, 255},
                  kNearest)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, nearest_24bit_of_nearest, {24, LACQUER_DRAW_COPY, true, LACQUER_NEAREST, 255},
                  kNearest)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, bilinear_8bit_of_bilinear, {8, LACQUER_DRAW_COPY, true, LACQUER_BILINEAR, 255},
                  kBilinear)
    ->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstNeighbour, bilinear_24bit_of_bilinear,
                  {24, LACQUER_DRAW_COPY, true, LACQUER_BILINEAR, 255}, kBilinear)
    ->Apply(Sizes);
BENCHMARK(TwelveNineGrids)->Name("DrawAgainstNeighbour/twelve_nine_grids_of_bilinear_over")->Apply(Sizes);

}  // namespace
