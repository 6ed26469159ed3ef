// Filters of single pixels against plain memory traffic, blurs against other ways of the same result.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "ratio.h"
#ifdef LACQUER_BENCH_OPENCV
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#endif

namespace {

using lacquer::bench::MeasureAgainst;

/// Two textures of one size, the first full of translucent colours.
class Textures {
public:
    Textures(DWORD width, DWORD height) : first(CreateTexture(width, height)), second(CreateTexture(width, height)) {
        LockTextureBits(first, &view, nullptr);
        LockTextureBits(second, &secondView, nullptr);
        auto *pixels = static_cast<DWORD *>(view.bits);
        for (size_t i = 0; i < Bytes() / sizeof(DWORD); ++i) pixels[i] = static_cast<DWORD>(i * 0x9E3779B1u);
        std::memset(secondView.bits, 0, Bytes());
    }
    ~Textures() {
        DeleteTexture(first);
        DeleteTexture(second);
    }
    Textures(const Textures &) = delete;
    Textures &operator=(const Textures &) = delete;

    size_t Bytes() const { return static_cast<size_t>(view.stride) * static_cast<size_t>(view.height); }

    HGTEXTURE first, second;
    SurfaceView view{}, secondView{};
};

void Sizes(benchmark::internal::Benchmark *benchmark) {
    benchmark->Args({64, 64})->Args({256, 256})->Args({1024, 1024})->UseManualTime();
}

// ---- Filters of single pixels: 2 is half of memcpy's bytes per second -----------------------------------------------

template <class Filter>
void FilterAgainstMemcpy(benchmark::State &state, Filter filter) {
    const Textures textures(static_cast<DWORD>(state.range(0)), static_cast<DWORD>(state.range(1)));
    std::vector<char> from(textures.Bytes(), 1), to(textures.Bytes(), 2);
    MeasureAgainst(
        state, [&] { filter(textures.first); },
        [&] {
            std::memcpy(to.data(), from.data(), textures.Bytes());
            benchmark::ClobberMemory();
        });
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}

BENCHMARK_CAPTURE(FilterAgainstMemcpy, grey, GrayTexture)->Apply(Sizes);
BENCHMARK_CAPTURE(FilterAgainstMemcpy, normalize, NormalizeTexture)->Apply(Sizes);
BENCHMARK_CAPTURE(FilterAgainstMemcpy, invert, InvertTexture)->Apply(Sizes);
BENCHMARK_CAPTURE(FilterAgainstMemcpy, translate, [](HGTEXTURE texture) {
    TranslateTexture(texture, 0x9E3779B1, 0x9E3779B1);
})->Apply(Sizes);
BENCHMARK_CAPTURE(FilterAgainstMemcpy, alpha_to_colour, [](HGTEXTURE texture) {
    ShuffleTexture(texture, 1);
})->Apply(Sizes);
BENCHMARK_CAPTURE(FilterAgainstMemcpy, colour_to_alpha, [](HGTEXTURE texture) {
    ShuffleTexture(texture, 6);
})->Apply(Sizes);

// ---- Blurs ----------------------------------------------------------------------------------------------------------

void BoxBlurAgainstMemcpy(benchmark::State &state) {
    const Textures textures(static_cast<DWORD>(state.range(0)), static_cast<DWORD>(state.range(1)));
    MeasureAgainst(
        state, [&] { BlurTexture(textures.second, textures.first); },
        [&] {
            std::memcpy(textures.secondView.bits, textures.view.bits, textures.Bytes());
            benchmark::ClobberMemory();
        });
}
BENCHMARK(BoxBlurAgainstMemcpy)->Apply(Sizes);

#ifdef LACQUER_BENCH_OPENCV

/// The same size and border; the peer rounds to the nearest integer where the blur truncates.
void BoxBlurAgainstOpenCv(benchmark::State &state) {
    cv::setNumThreads(1);
    const Textures textures(static_cast<DWORD>(state.range(0)), static_cast<DWORD>(state.range(1)));
    const cv::Mat source(textures.view.height, textures.view.width, CV_8UC4, textures.view.bits,
                         static_cast<size_t>(textures.view.stride));
    cv::Mat dest(source.size(), CV_8UC4);
    MeasureAgainst(
        state, [&] { BlurTexture(textures.second, textures.first); },
        [&] {
            cv::boxFilter(source, dest, -1, {3, 3}, {-1, -1}, true, cv::BORDER_REPLICATE);
        });
}
BENCHMARK(BoxBlurAgainstOpenCv)->Apply(Sizes);

#endif

/// One step of the Gaussian blur in one direction, pixel by pixel and tap by tap.
void PlainStep(const SurfaceView &dest, const SurfaceView &source, LONG dx, LONG dy) {
    constexpr float kWeights[] = {0.16656f, 0.1599f, 0.14147f, 0.11535f};
    for (LONG y = 0; y < source.height; ++y) {
        auto *out = static_cast<BYTE *>(dest.bits) + static_cast<ptrdiff_t>(y) * dest.stride;
        for (LONG x = 0; x < source.width; ++x, out += 4) {
            float sums[4] = {};
            for (LONG k = -3; k <= 3; ++k) {
                const LONG column = std::clamp(x + k * dx, LONG{0}, source.width - 1);
                const LONG row = std::clamp(y + k * dy, LONG{0}, source.height - 1);
                const BYTE *pixel = static_cast<const BYTE *>(source.bits) +
                                    static_cast<ptrdiff_t>(row) * source.stride + static_cast<ptrdiff_t>(column) * 4;
                const float weight = kWeights[k < 0 ? -k : k];
                for (int i = 0; i < 4; ++i) sums[i] += weight * static_cast<float>(pixel[i]);
            }
            for (int i = 0; i < 4; ++i) out[i] = static_cast<BYTE>(std::clamp(static_cast<int>(sums[i]), 0, 255));
        }
    }
}

/// 0.25 is four times the plain loop's speed.
void GaussianBlurAgainstPlainLoop(benchmark::State &state) {
    const auto width = static_cast<DWORD>(state.range(0)), height = static_cast<DWORD>(state.range(1));
    const Textures textures(width, height), plain(width, height);
    MeasureAgainst(
        state, [&] { GaussianBlurTexture(textures.first, textures.second); },
        [&] {
            for (int pass = 0; pass < 2; ++pass) {
                PlainStep(plain.secondView, plain.view, 1, 0);
                PlainStep(plain.view, plain.secondView, 0, 1);
            }
            benchmark::ClobberMemory();
        });
}
BENCHMARK(GaussianBlurAgainstPlainLoop)->Apply(Sizes);

void ColorizeTextureTime(benchmark::State &state) {
    const Textures textures(256, 256);
    for ([[maybe_unused]] auto _ : state) ColorizeTexture(textures.first, 0.1f, 0.2f, -0.1f);
    state.SetItemsProcessed(state.iterations() * 256 * 256);
}
BENCHMARK(ColorizeTextureTime);

}  // namespace
