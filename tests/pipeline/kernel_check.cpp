// See kernel_check.h; a failure names the draw and the first wrong pixel.

#include "kernel_check.h"

#include <cstring>

#include "pipeline/memory/limits.h"
#include "pipeline/table/base_table.h"

namespace lacquer {
namespace {

using Address = void (*)();

Kernel RowKernelOf(Row row, int depth) {
    const RowTraits &traits = TraitsOf(row);
    const std::size_t slot = static_cast<std::size_t>(DepthSlot(depth));
    return {traits.name,
            row,
            depth,
            traits.sampler,
            traits.combine,
            traits.extent,
            false,
            [row](const KernelTable &table, const SurfaceView *dest, const SurfaceView *source,
                  const RowArguments &arguments) { return CallRow(table, row, dest, source, arguments); },
            [=](const KernelTable &table) { return reinterpret_cast<Address>(table[row].slots[slot]); }};
}

/// The first word of a source, whatever its view says.
DWORD FirstWord(const SurfaceView &source) {
    DWORD word = 0;
    std::memcpy(&word, source.bits, sizeof word);
    return word;
}

/// How the four kinds of single slots are called.
int CallSlot(FillKernel kernel, const SurfaceView *dest, const SurfaceView *source, BYTE) {
    return kernel(dest, FirstWord(*source));
}
int CallSlot(MixColorKernel kernel, const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return kernel(dest, FirstWord(*source), weight);
}
int CallSlot(ConvertKernel kernel, const SurfaceView *dest, const SurfaceView *source, BYTE) {
    return kernel(dest, source);
}
int CallSlot(MixKernel kernel, const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return kernel(dest, source, weight);
}

template <class Slot>
Kernel SlotKernelOf(const char *name, Slot KernelTable::*slot, SamplerKind sampler, CombineKind combine) {
    constexpr bool kTakesColour = std::is_same_v<Slot, FillKernel> || std::is_same_v<Slot, MixColorKernel>;
    return {name,
            std::nullopt,
            32,
            sampler,
            combine,
            Extent::Whole,
            kTakesColour,
            [slot](const KernelTable &table, const SurfaceView *dest, const SurfaceView *source,
                   const RowArguments &arguments) {
                return CallSlot(table.*slot, dest, source, static_cast<BYTE>(arguments.parameter));
            },
            [slot](const KernelTable &table) { return reinterpret_cast<Address>(table.*slot); }};
}

/// By the names in the list of single slots.
struct SlotSampler {
    static constexpr SamplerKind OneColour = SamplerKind::SameSize, SameSize = SamplerKind::SameSize,
                                 Nearest = SamplerKind::Nearest;
};

}  // namespace

const std::vector<Kernel> &AllKernels() {
    static const std::vector<Kernel> all = [] {
        std::vector<Kernel> kernels;
        for (int row = 0; row < kRowCount; ++row) {
            for (const int depth : kDepths) kernels.push_back(RowKernelOf(static_cast<Row>(row), depth));
        }
#define LACQUER_ADD_SLOT(name, kind, sampler, rule, tiers) \
    kernels.push_back(SlotKernelOf(#name, &KernelTable::name, SlotSampler::sampler, CombineKind::rule));
        LACQUER_KERNEL_SLOTS(LACQUER_ADD_SLOT)
#undef LACQUER_ADD_SLOT
        return kernels;
    }();
    return all;
}

const KernelTable &BaseKernels(WeightForm form) {
    static constexpr KernelTable kQ8 = BaseTable<WeightsQ8>(), kQ14 = BaseTable<WeightsQ14>();
    return form == WeightForm::Q8 ? kQ8 : kQ14;
}

bool TableUnderTest::Replaces(const Kernel &kernel) const {
    return below < 0 ||
           kernel.address(table) != kernel.address(TablesUnderTest()[static_cast<std::size_t>(below)].table);
}

Overflow TableUnderTest::OverflowOf(const Kernel &kernel) const {
    return kernel.address(table) == kernel.address(BaseKernels(form)) ? Overflow::Carries : Overflow::Saturates;
}

const std::vector<TableUnderTest> &TablesUnderTest() {
    const auto tableOf = [](const char *name, const CpuFeatures &features, int below) {
        return TableUnderTest{name, BuildKernelTable(features), WeightFormOf(features), below};
    };
    static const std::vector<TableUnderTest> tables = [&] {
        std::vector<TableUnderTest> result = {
            TableUnderTest{"Base8", BaseKernels(WeightForm::Q8), WeightForm::Q8, -1},
            TableUnderTest{"Base14", BaseKernels(WeightForm::Q14), WeightForm::Q14, 0},
            tableOf("SSE2Alone", {.sse2 = true}, WeightFormOf({}) == WeightForm::Q8 ? 0 : 1),
            tableOf("MMX", {.mmx = true}, 1),
            tableOf("SSE", {.mmx = true, .sse = true}, 3),
            tableOf("SSE2", {.mmx = true, .sse = true, .sse2 = true}, 4)};
        if (CachedCpuFeatures().HasAllTiers()) result.push_back(tableOf("AVX2", CachedCpuFeatures(), 5));
        return result;
    }();
    return tables;
}

testing::AssertionResult DrawsAs(const Expected &expected, TestImage &dest, const TestImage &source,
                                 const std::function<int(const SurfaceView *, const SurfaceView *)> &draw) {
    const SurfaceView destView = dest.View(), sourceView = source.View();
    const TestImage before = dest;
    TestImage wanted = dest;
    // At equal sizes the common part is drawn.
    const bool hasCommonPart = expected.sampler == SamplerKind::SameSize && !expected.takesColour &&
                               expected.fullSize.cx == dest.width() && expected.fullSize.cy == dest.height();
    for (int y = 0; y < dest.height(); ++y) {
        for (int x = 0; x < dest.width(); ++x) {
            if (hasCommonPart && (x >= source.width() || y >= source.height())) continue;
            const uint32_t s = expected.takesColour ? source.At(0, 0)
                                                    : ModelSample(expected.sampler, source, expected.fullSize,
                                                                  int64_t{expected.visibleOffset.x} + x,
                                                                  int64_t{expected.visibleOffset.y} + y, expected.form);
            wanted.Set(x, y, ModelCombine(expected.combine, s, before.At(x, y), expected.parameter, expected.overflow));
        }
    }
    const int result = draw(&destView, &sourceView);
    if (result == 1 && dest == wanted) return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure();
    failure << sourceView.bitsPerPixel << "-bit source " << source.width() << " x " << source.height()
            << ", destination " << dest.width() << " x " << dest.height() << " at (" << expected.visibleOffset.x << ", "
            << expected.visibleOffset.y << ") of " << expected.fullSize.cx << " x " << expected.fullSize.cy
            << ", parameter 0x" << std::hex << expected.parameter << ": ";
    for (int y = 0; y < dest.height(); ++y) {
        for (int x = 0; x < dest.width(); ++x) {
            if (dest.At(x, y) == wanted.At(x, y)) continue;
            return failure << "pixel (" << std::dec << x << ", " << y << ") is 0x" << std::hex << dest.At(x, y)
                           << ", wanted 0x" << wanted.At(x, y) << ", was 0x" << before.At(x, y);
        }
    }
    return failure << "bytes between the rows changed, or the result is not 1 but " << result;
}

testing::AssertionResult DrawsAsModel(const TableUnderTest &table, const Kernel &kernel, TestImage &dest,
                                      const TestImage &source, const RowArguments &arguments) {
    const bool isPart = kernel.extent == Extent::Part;
    const Expected expected = {kernel.sampler,
                               kernel.combine,
                               table.form,
                               table.OverflowOf(kernel),
                               isPart ? arguments.fullSize : SIZE{dest.width(), dest.height()},
                               isPart ? arguments.visibleOffset : POINT{},
                               arguments.parameter,
                               kernel.takesColour};
    auto result = DrawsAs(expected, dest, source, [&](const SurfaceView *to, const SurfaceView *from) {
        return kernel.call(table.table, to, from, arguments);
    });
    if (!result) result << ", by " << kernel.name << " of table " << table.name;
    return result;
}

Random CaseRandom(int number) { return Random(static_cast<uint32_t>(number + GTEST_FLAG_GET(random_seed)) + 1); }

TestImage RandomGround(Random &random, int width, int height, int bitsPerPixel) {
    const int rest = width * (bitsPerPixel / 8) % 64;
    if (random.Coin()) return TestImage(width, height, bitsPerPixel, (64 - rest) % 64);
    return TestImage(width, height, bitsPerPixel, random.Between(0, 9), random.Between(0, 3));
}

void SetAnyLimits(Random &random) {
    const auto limit = [&random] { return random.Of({1, 1000, 1 << 30}); };
    memoryLimits = {limit(), limit(), limit(), limit()};
}

TestImage RandomSource(Random &random, int width, int height, int bitsPerPixel, bool premultiplied) {
    TestImage source(width, height, bitsPerPixel, random.Between(0, 7), random.Between(0, 3));
    source.Fill(random, premultiplied);
    if (bitsPerPixel == 8 && random.Coin()) {
        std::vector<DWORD> palette(static_cast<std::size_t>(random.Of({0, 1, random.Between(2, 255)})));
        for (DWORD &entry : palette) entry = premultiplied ? random.PremultipliedWord() : random.Word();
        source.SetPalette(std::move(palette));
    }
    return source;
}

uint32_t RandomParameter(Random &random, CombineKind combine, const TestImage &source) {
    if (combine != CombineKind::ColorKey) return random.Word() % 256;
    return source.At(random.Between(0, source.width() - 1), random.Between(0, source.height() - 1));
}

}  // namespace lacquer
