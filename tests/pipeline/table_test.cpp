// The table as a whole: which tier replaces what.

#include <numeric>

#include "kernel_check.h"
#include "platform/cpuid.h"

namespace lacquer {
namespace {

CpuFeatures FeaturesOf(unsigned bits) {
    return {.detected = (bits & 1) != 0, .mmx = (bits & 2) != 0, .sse = (bits & 4) != 0, .sse2 = (bits & 8) != 0};
}

/// The kernels in which two tables differ, as indices: three for each row, by depth, and then the single slots.
std::vector<int> Differences(const KernelTable &a, const KernelTable &b) {
    std::vector<int> result;
    for (std::size_t i = 0; i < AllKernels().size(); ++i) {
        if (AllKernels()[i].address(a) != AllKernels()[i].address(b)) result.push_back(static_cast<int>(i));
    }
    return result;
}

std::vector<int> Entries(const std::vector<int> &rows, const std::vector<int> &singles) {
    std::vector<int> result;
    for (const int row : rows) {
        for (int slot = 0; slot < 3; ++slot) result.push_back(row * 3 + slot);
    }
    for (const int single : singles) result.push_back(kRowCount * 3 + single);
    return result;
}

TEST(KernelTable, EachTierReplacesItsEntriesAndNoOthers) {
    if (!kHasTiers) GTEST_SKIP() << "no tiers in this build";
    std::vector<int> allRows(kRowCount);
    std::iota(allRows.begin(), allRows.end(), 0);
    const auto withCopyOfWords = [](std::vector<int> entries) {
        entries.insert(entries.begin(), 2);
        return entries;
    };
    const KernelTable base = BaseKernels(WeightForm::Q8);
    const KernelTable mmx = BuildKernelTable({.mmx = true}), sse = BuildKernelTable({.sse = true});
    const KernelTable sse2 = BuildKernelTable({.sse2 = true});
    EXPECT_EQ(Differences(base, mmx), Entries(allRows, {0, 1, 2, 3, 4, 10, 11, 12}));
    EXPECT_EQ(Differences(base, sse), withCopyOfWords(Entries({}, {0, 4, 7, 9})));
    EXPECT_EQ(Differences(base, sse2), withCopyOfWords(Entries({22, 29}, {})));
    // On top of each other: the tiers share what several of them have.
    const KernelTable mmxSse = BuildKernelTable({.mmx = true, .sse = true});
    const KernelTable all = BuildKernelTable({.mmx = true, .sse = true, .sse2 = true});
    EXPECT_EQ(Differences(mmx, mmxSse), Entries({}, {7, 9}));
    EXPECT_EQ(Differences(mmxSse, all), std::vector<int>());
    if (CachedCpuFeatures().HasAllTiers()) {
        // All but what only moves words: the same-size copy of words, and the nearest copies, also of opaque pixels.
        const int unchanged[] = {2, 18, 19, 20, 22, 36, 37, 38, 40};
        std::vector<int> expected = Entries(allRows, {0, 1, 2, 3, 4, 7, 9, 10, 11, 12});
        for (const int kernel : unchanged) std::erase(expected, kernel);
        EXPECT_EQ(Differences(all, BuildKernelTable(CachedCpuFeatures())), expected);
    }
}

TEST(KernelTable, WithoutTiersTheProcessorDecidesTheBicubicWeightsAlone) {
    const KernelTable base = BaseKernels(WeightForm::Q8), fine = BaseKernels(WeightForm::Q14);
    EXPECT_EQ(Differences(base, fine), Entries({20, 21, 22, 24, 27, 28, 29, 31}, {}));
    for (unsigned bits = 0; bits < 16 && !kHasTiers; ++bits) {
        const bool isFine = FeaturesOf(bits).mmx || !kIsX86;
        EXPECT_EQ(Differences(BuildKernelTable(FeaturesOf(bits)), isFine ? fine : base), std::vector<int>()) << bits;
    }
}

}  // namespace
}  // namespace lacquer
