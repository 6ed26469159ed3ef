// Draws at 1:1 against plain memory traffic over the same bytes.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <cstring>

#include "ratio.h"

namespace {

using lacquer::bench::MeasureAgainst;

/// A canvas and a bitmap of one size, the bitmap half transparent and premultiplied.
class Scene {
public:
    Scene(DWORD width, DWORD height, DWORD drawMode)
        : canvas(CreateCanvas(width, height, {})),
          bitmap(CreateMemBitmap(width, height)),
          place{0, 0, static_cast<LONG>(width), static_cast<LONG>(height)} {
        LockBitmapBits(bitmap, &source, nullptr);
        LockCanvasBits(canvas, &dest, nullptr);
        auto *pixels = static_cast<DWORD *>(source.bits);
        for (size_t i = 0; i < Bytes() / sizeof(DWORD); ++i) pixels[i] = 0x80402010;
        SetBitmapFilter(bitmap, drawMode << 24);
    }
    ~Scene() {
        DeleteBitmap(bitmap);
        DeleteCanvas(canvas);
    }
    Scene(const Scene &) = delete;
    Scene &operator=(const Scene &) = delete;

    size_t Bytes() const { return static_cast<size_t>(source.stride) * static_cast<size_t>(source.height); }

    HGCANVAS canvas;
    HGBITMAP bitmap;
    RECT place;
    SurfaceView source{}, dest{};
};

void DrawAgainstMemcpy(benchmark::State &state, DWORD drawMode) {
    const Scene scene(static_cast<DWORD>(state.range(0)), static_cast<DWORD>(state.range(1)), drawMode);
    MeasureAgainst(
        state, [&] { DrawBitmap(scene.canvas, &scene.place, scene.bitmap, LACQUER_NEAREST); },
        [&] {
            std::memcpy(scene.dest.bits, scene.source.bits, scene.Bytes());
            benchmark::ClobberMemory();
        });
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}

void Sizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->Args({64, 64})->Args({256, 256})->Args({1024, 1024})->Args({3840, 2160})->UseManualTime();
}

BENCHMARK_CAPTURE(DrawAgainstMemcpy, copy, LACQUER_DRAW_COPY)->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstMemcpy, over, LACQUER_DRAW_OVER)->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstMemcpy, color_key, LACQUER_DRAW_COLOR_KEY)->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstMemcpy, modulate, LACQUER_DRAW_MODULATE)->Apply(Sizes);
BENCHMARK_CAPTURE(DrawAgainstMemcpy, behind, LACQUER_DRAW_BEHIND)->Apply(Sizes);

/// What a draw costs beside its pixels: one pixel, clipped and dispatched.
void DrawOnePixel(benchmark::State &state) {
    const Scene scene(1, 1, LACQUER_DRAW_OVER);
    for ([[maybe_unused]] auto _ : state) DrawBitmap(scene.canvas, &scene.place, scene.bitmap, LACQUER_NEAREST);
}
BENCHMARK(DrawOnePixel);

/// Layouts of many pieces, on a canvas in process memory and where locks cost more: on a system canvas, and on a device
/// context whose clip has a hole, so that what is drawn on is copied in and written back.
enum Target { kMemory, kSystem, kCopied };

void DrawLayout(benchmark::State &state, Target target, DWORD layout, const RECT &dest) {
    constexpr int kWidth = 800, kHeight = 600;
    const HGCANVAS pixels = (target == kMemory ? CreateCanvas : CreateSystemCanvas)(kWidth, kHeight, {});
    HDC dc = target == kCopied ? GetCanvasHandle(pixels) : nullptr;
    if (dc) ExcludeClipRect(dc, 10, 10, 20, 20);
    const HGCANVAS canvas = dc ? CreateCanvasFromDC(dc) : pixels;
    const HGTEXTURE texture = CreateTexture(8, 8);
    const TextureMode mode = {layout, 0, {3, 3, 3, 3}};
    SetTextureMode(texture, &mode);
    SetTextureFilter(texture, LACQUER_DRAW_OVER << 24);
    for ([[maybe_unused]] auto _ : state) DrawTexture(canvas, &dest, texture, LACQUER_BILINEAR);
    DeleteTexture(texture);
    if (dc) DeleteCanvas(canvas);
    DeleteCanvas(pixels);
}

constexpr RECT kWindow{0, 0, 800, 600}, kButton{30, 30, 110, 60};
BENCHMARK_CAPTURE(DrawLayout, tile_memory, kMemory, LACQUER_LAYOUT_TILE, kWindow);
BENCHMARK_CAPTURE(DrawLayout, tile_system, kSystem, LACQUER_LAYOUT_TILE, kWindow);
BENCHMARK_CAPTURE(DrawLayout, tile_copied, kCopied, LACQUER_LAYOUT_TILE, kWindow);
BENCHMARK_CAPTURE(DrawLayout, nine_grid_memory, kMemory, LACQUER_LAYOUT_NINE_GRID, kButton);
BENCHMARK_CAPTURE(DrawLayout, nine_grid_system, kSystem, LACQUER_LAYOUT_NINE_GRID, kButton);
BENCHMARK_CAPTURE(DrawLayout, nine_grid_copied, kCopied, LACQUER_LAYOUT_NINE_GRID, kButton);

}  // namespace
