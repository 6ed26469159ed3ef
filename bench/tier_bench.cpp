// Every kernel of this processor's tables against that of the SSE2 tier: what LACQUER_WIDE gains. A measurement draws
// as often as it takes to be longer than the clock's step.

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "kernel_input.h"
#include "pipeline/filter/gaussian.h"
#include "pipeline/pixel/pixel.h"
#include "pipeline/table/image_table.h"
#include "pipeline/transform/turn.h"
#include "ratio.h"

namespace {

using namespace lacquer;
using namespace lacquer::bench;

constexpr CpuFeatures kSse2{.detected = true, .mmx = true, .sse = true, .sse2 = true};

const KernelTable &Sse2Kernels() {
    static const KernelTable table = BuildKernelTable(kSse2);
    return table;
}
const ImageTable &Sse2ImageKernels() {
    static const ImageTable table = BuildImageTable(kSse2);
    return table;
}

/// `draw(kernels)` draws so many pixels.
template <class Table, class Draw>
void Compare(benchmark::State &state, const Table &ours, const Table &sse2, double pixels, const Draw &draw) {
    const int times = static_cast<int>(1 + 40000 / pixels);
    const auto repeat = [&](const Table &table) {
        for (int i = 0; i < times; ++i) {
            draw(table);
            benchmark::ClobberMemory();
        }
    };
    MeasureAgainst(
        state, [&] { repeat(ours); }, [&] { repeat(sse2); }, pixels * times);
}

void CompareRow(benchmark::State &state, Row row, WORD bitsPerPixel) {
    const RowTraits &traits = TraitsOf(row);
    const LONG width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Pixels source(SourceLength(traits, width), SourceLength(traits, height), bitsPerPixel);
    const Pixels dest(width, height, 32);
    const RowArguments arguments = {.parameter = 128, .fullSize = {width, height}, .visibleOffset = {0, 0}};
    Compare(state, Kernels(), Sse2Kernels(), static_cast<double>(width) * height,
            [&](const KernelTable &table) { CallRow(table, row, dest.View(), source.View(), arguments); });
}

template <class Kernel>
void CompareSlot(benchmark::State &state, Kernel KernelTable::*slot, bool stretches) {
    const LONG width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Pixels source(stretches ? width * 10 / 17 + 1 : width, stretches ? height * 10 / 17 + 1 : height, 32);
    const Pixels dest(width, height, 32);
    const SlotCall call{dest.View(), source.View()};
    Compare(state, Kernels(), Sse2Kernels(), static_cast<double>(width) * height,
            [&](const KernelTable &table) { call(table.*slot); });
}

/// `draw(kernels, dest, source)`; both views are as large.
template <class Draw>
void CompareImages(benchmark::State &state, const Draw &draw) {
    const LONG width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Pixels source(width, height, 32), dest(width, height, 32);
    Compare(state, ImageKernels(), Sse2ImageKernels(), static_cast<double>(width) * height,
            [&](const ImageTable &table) { draw(table, *dest.View(), *source.View()); });
}

/// `change(kernels, words, count)` for each row.
template <class Change>
void CompareRuns(benchmark::State &state, const Change &change) {
    CompareImages(state, [&](const ImageTable &table, const SurfaceView &dest, const SurfaceView &) {
        for (LONG y = 0; y < dest.height; ++y) change(table, RowOf(dest, y), ptrdiff_t{dest.width});
    });
}

void CompareTurns(benchmark::State &state, DWORD code, WORD depth) {
    const LONG width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Pixels source(width, height, depth);
    const Pixels dest = SwapsSides(code) ? Pixels(height, width, depth) : Pixels(width, height, depth);
    Compare(state, ImageKernels(), Sse2ImageKernels(), static_cast<double>(width) * height,
            [&](const ImageTable &table) { TurnView(table, *dest.View(), *source.View(), code); });
}

benchmark::internal::Benchmark *AtAllSizes(benchmark::internal::Benchmark *bench) {
    for (const int64_t width : {3, 7, 15, 16, 64, 256, 1024}) bench->Args({width, width < 64 ? 16 : width});
    return bench->Args({3840, 2160})->UseManualTime();
}

}  // namespace

int main(int argc, char **argv) {
    for (int index = 0; index < kRowCount; ++index) {
        const Row row = static_cast<Row>(index);
        for (const WORD depth : {WORD{8}, WORD{24}, WORD{32}}) {
            const std::string name = std::string(TraitsOf(row).name) + "/" + std::to_string(depth) + "bit";
            AtAllSizes(benchmark::RegisterBenchmark(name.c_str(), CompareRow, row, depth));
        }
    }
#define LACQUER_REGISTER_SLOT(name, kind, sampler, rule, tiers)                                                  \
    AtAllSizes(benchmark::RegisterBenchmark(#name, CompareSlot<decltype(KernelTable::name)>, &KernelTable::name, \
                                            std::string_view(#sampler) == "Nearest"));
    LACQUER_KERNEL_SLOTS(LACQUER_REGISTER_SLOT)
#undef LACQUER_REGISTER_SLOT
    const auto images = [](const char *name, auto draw) {
        AtAllSizes(benchmark::RegisterBenchmark(name, [draw](benchmark::State &state) { CompareImages(state, draw); }));
    };
    const auto runs = [](const char *name, auto change) {
        AtAllSizes(
            benchmark::RegisterBenchmark(name, [change](benchmark::State &state) { CompareRuns(state, change); }));
    };
    images("boxBlur", [](const ImageTable &t, const SurfaceView &to, const SurfaceView &from) { t.boxBlur(to, from); });
    for (const WORD depth : {WORD{8}, WORD{32}}) {
        const std::string suffix = depth == 8 ? "/8bit" : "/32bit";
        const std::pair<const char *, DWORD> turns[] = {
            {"mirror", LACQUER_FLIP_HORIZONTAL}, {"rotate90", LACQUER_ROTATE_90}, {"rotate180", LACQUER_ROTATE_180}};
        for (const auto &[name, code] : turns)
            AtAllSizes(benchmark::RegisterBenchmark((std::string(name) + suffix).c_str(), CompareTurns, code, depth));
    }
    images("gaussian", [](const ImageTable &t, const SurfaceView &to, const SurfaceView &from) {
        // One row's sums, with its seven taps in one place.
        static float floats[16384];
        const float *taps[kGaussianTaps];
        for (int k = 0; k < kGaussianTaps; ++k) taps[k] = floats + 4 * k;
        for (LONG y = 0; y < to.height; ++y) {
            const ptrdiff_t bytes = ptrdiff_t{to.width} * kPixelBytes;
            t.widenBytes(floats, RowOf(from, y), bytes);
            t.sumTaps(RowOf(to, y), taps, bytes);
        }
    });
    runs("makeGrey", [](const ImageTable &t, BYTE *words, ptrdiff_t count) { t.makeGrey(words, count); });
    runs("premultiply", [](const ImageTable &t, BYTE *words, ptrdiff_t count) { t.premultiply(words, count); });
    runs("invert", [](const ImageTable &t, BYTE *words, ptrdiff_t count) { t.invert(words, count); });
    runs("colourToAlpha", [](const ImageTable &t, BYTE *words, ptrdiff_t count) { t.colourToAlpha(words, count); });
    static const std::vector<BYTE> covers(8192, BYTE{100});
    runs("drawCovered", [](const ImageTable &t, BYTE *words, ptrdiff_t count) {
        t.drawCovered(words, 0x80402010, covers.data(), count);
    });
    runs("drawParts", [](const ImageTable &t, BYTE *words, ptrdiff_t count) {
        t.drawParts(words, 0x80402010, 0x80102010, covers.data(), covers.data(), count);
    });
    runs("drawEvenly",
         [](const ImageTable &t, BYTE *words, ptrdiff_t count) { t.drawEvenly(words, 0x80402010, 100, count); });
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
