// See row_check.h; a failure names the row, the geometry and the first wrong pixel.

#include "row_check.h"

#include <sstream>

#include "pipeline/table/base_table.h"

namespace lacquer {

const KernelTable &BaseKernels(WeightForm form) {
    static constexpr KernelTable kQ8 = BaseTable<WeightsQ8>(), kQ14 = BaseTable<WeightsQ14>();
    return form == WeightForm::Q8 ? kQ8 : kQ14;
}

const std::array<TableUnderTest, 5> &TablesUnderTest() {
    static const TableUnderTest base8{"Base8", BaseKernels(WeightForm::Q8), WeightForm::Q8, nullptr},
        base14{"Base14", BaseKernels(WeightForm::Q14), WeightForm::Q14, &base8},
        mmx{"MMX", BuildKernelTable({.mmx = true}), WeightForm::Q14, &base14},
        sse{"SSE", BuildKernelTable({.mmx = true, .sse = true}), WeightForm::Q14, &mmx},
        sse2{"SSE2", BuildKernelTable({.mmx = true, .sse = true, .sse2 = true}), WeightForm::Q14, &sse};
    static const std::array<TableUnderTest, 5> tables = {base8, base14, mmx, sse, sse2};
    return tables;
}

testing::AssertionResult DrawsAsModel(const TableUnderTest &table, Row row, TestImage &dest, const TestImage &source,
                                      const RowArguments &arguments) {
    const RowTraits &traits = TraitsOf(row);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    const bool whole = traits.extent == Extent::Whole;
    const SIZE full = whole ? SIZE{dest.width(), dest.height()} : arguments.fullSize;
    const POINT offset = whole ? POINT{0, 0} : arguments.visibleOffset;
    const TestImage before = dest.Copy();
    const auto where = [&] {
        std::ostringstream text;
        text << traits.name << " of table \"" << table.name << "\", " << sourceView.bitsPerPixel << "-bit source "
             << source.width() << " x " << source.height() << ", destination " << dest.width() << " x " << dest.height()
             << " at (" << offset.x << ", " << offset.y << ") of " << full.cx << " x " << full.cy << ", parameter 0x"
             << std::hex << arguments.parameter;
        return text.str();
    };
    if (CallRow(table.table, row, &destView, &sourceView, arguments) != 1) {
        return testing::AssertionFailure() << where() << ": result is not 1";
    }
    const Overflow overflow = table.OverflowOf(row, sourceView.bitsPerPixel);
    for (int y = 0; y < dest.height(); ++y) {
        for (int x = 0; x < dest.width(); ++x) {
            const uint32_t s =
                ModelSample(traits.sampler, source, full, int64_t{offset.x} + x, int64_t{offset.y} + y, table.form);
            const uint32_t wanted = ModelCombine(traits.combine, s, before.At(x, y), arguments.parameter, overflow);
            if (dest.At(x, y) != wanted) {
                return testing::AssertionFailure()
                       << where() << ": pixel (" << std::dec << x << ", " << y << ") is 0x" << std::hex << dest.At(x, y)
                       << ", wanted 0x" << wanted << " from s 0x" << s << ", d 0x" << before.At(x, y);
            }
        }
    }
    if (!dest.GuardsAreIntact()) return testing::AssertionFailure() << where() << ": bytes between the rows changed";
    return testing::AssertionSuccess();
}

int CaseNumber(int number) { return number + GTEST_FLAG_GET(random_seed); }

Random CaseRandom(int number) { return Random(static_cast<Random::result_type>(CaseNumber(number)) * 2654435761u + 1); }

TestImage RandomSource(Random &random, int width, int height, int bitsPerPixel, bool premultiplied) {
    TestImage source(width, height, bitsPerPixel, Between(random, 0, 7), Between(random, 0, 3));
    source.Fill(random, premultiplied);
    if (bitsPerPixel == 8) {
        const int count = Between(random, 0, 3) == 0 ? Between(random, 0, 255) : 256;
        std::vector<DWORD> palette(static_cast<std::size_t>(count));
        for (DWORD &entry : palette) entry = premultiplied ? PremultipliedWord(random) : AnyWord(random);
        source.SetPalette(std::move(palette));
    }
    return source;
}

}  // namespace lacquer
