// Every row of the kernel table for every source depth, against memcpy of the destination's bytes. Stretching rows
// enlarge by 1.7; averages reduce by 4. Rows that draw a visible part show all but a border. Then the single slots, and
// nearest samples that lie far apart, against the base tier.

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <string_view>

#include "kernel_input.h"
#include "ratio.h"

namespace {

using namespace lacquer;
using namespace lacquer::bench;

void DrawRow(benchmark::State &state, Row row, WORD bitsPerPixel) {
    const RowTraits &traits = TraitsOf(row);
    const LONG width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const Pixels source(SourceLength(traits, width), SourceLength(traits, height), bitsPerPixel);
    const Pixels dest(width, height, 32), from(width, height, 32), to(width, height, 32);
    const LONG border = traits.extent == Extent::Part ? 8 : 0;
    const RowArguments arguments = {
        .parameter = 128, .fullSize = {width + border, height + border}, .visibleOffset = {border / 2, border / 2}};
    bench::MeasureAgainst(
        state, [&] { CallRow(Kernels(), row, dest.View(), source.View(), arguments); },
        [&] {
            std::memcpy(to.View()->bits, from.View()->bits, to.Size());
            benchmark::ClobberMemory();
        },
        static_cast<double>(width) * height);
}

template <class Kernel>
void DrawSlot(benchmark::State &state, Kernel kernel, bool stretches) {
    const LONG side = static_cast<LONG>(state.range(0));
    const LONG sourceSide = stretches ? side * 10 / 17 : side;
    const Pixels source(sourceSide, sourceSide, 32), dest(side, side, 32), from(side, side, 32), to(side, side, 32);
    const SlotCall call{dest.View(), source.View()};
    bench::MeasureAgainst(
        state, [&] { call(kernel); },
        [&] {
            std::memcpy(to.View()->bits, from.View()->bits, to.Size());
            benchmark::ClobberMemory();
        },
        static_cast<double>(side) * side);
}

void ShrinkStrongly(benchmark::State &state, WORD bitsPerPixel) {
    static const KernelTable base = BuildKernelTable({});
    constexpr LONG kRows = 256;
    const Pixels source(static_cast<LONG>(state.range(0)), kRows, bitsPerPixel);
    const Pixels dest(static_cast<LONG>(state.range(1)), kRows, 32);
    const auto draw = [&](const KernelTable &table) {
        CallRow(table, Row::StretchCopyRow, dest.View(), source.View(), {});
    };
    bench::MeasureAgainst(
        state, [&] { draw(Kernels()); }, [&] { draw(base); });
}

}  // namespace

int main(int argc, char **argv) {
    for (int index = 0; index < kRowCount; ++index) {
        const Row row = static_cast<Row>(index);
        for (const WORD depth : {WORD{8}, WORD{24}, WORD{32}}) {
            const std::string name = std::string(TraitsOf(row).name) + "/" + std::to_string(depth) + "bit";
            benchmark::RegisterBenchmark(name.c_str(), DrawRow, row, depth)
                ->Args({16, 16})
                ->Args({64, 64})
                ->Args({256, 256})
                ->Args({1024, 1024})
                ->Args({3840, 2160})
                ->UseManualTime();
        }
    }
    const auto registerSlot = [](const char *name, auto kernel, std::string_view sampler) {
        benchmark::RegisterBenchmark(name, DrawSlot<decltype(kernel)>, kernel, sampler == "Nearest")
            ->Arg(64)
            ->Arg(1024)
            ->UseManualTime();
    };
#define LACQUER_REGISTER_SLOT(name, kind, sampler, rule, tiers) registerSlot(#name, Kernels().name, #sampler);
    LACQUER_KERNEL_SLOTS(LACQUER_REGISTER_SLOT)
#undef LACQUER_REGISTER_SLOT
    for (const WORD depth : {WORD{8}, WORD{24}, WORD{32}}) {
        const std::string name = "ShrinkStrongly/" + std::to_string(depth) + "bit";
        benchmark::RegisterBenchmark(name.c_str(), ShrinkStrongly, depth)
            ->ArgsProduct({{4096, 8192, 16384, 32767}, {64, 256}})
            ->UseManualTime();
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
