// The table as a whole: complete for any processor, and the one of this process.

#include <cstring>
#include <numeric>
#include <vector>

#include "pipeline/pixel/grey_ramp.h"
#include "platform/cpuid.h"
#include "row_check.h"

namespace lacquer {
namespace {

CpuFeatures FeaturesOf(unsigned bits) {
    return {.detected = (bits & 1) != 0, .mmx = (bits & 2) != 0, .sse = (bits & 4) != 0, .sse2 = (bits & 8) != 0};
}

TEST(KernelTable, IsCompleteForEveryProcessor) {
    for (unsigned bits = 0; bits < 16; ++bits) {
        const KernelTable table = BuildKernelTable(FeaturesOf(bits));
        for (const KernelRow &row : table.rows) {
            for (const RowKernel kernel : row.slots) EXPECT_NE(kernel, nullptr) << bits;
        }
        ForEachSlot([&](const char *name, auto member, CombineKind) { EXPECT_NE(table.*member, nullptr) << name; });
        // Building is a pure function.
        const KernelTable again = BuildKernelTable(FeaturesOf(bits));
        EXPECT_EQ(std::memcmp(&table, &again, sizeof table), 0);
    }
}

/// The entries in which two tables differ: rows × slots, then the single slots in their order.
std::vector<int> Differences(const KernelTable &a, const KernelTable &b) {
    std::vector<int> result;
    for (int row = 0; row < kRowCount; ++row) {
        for (std::size_t slot = 0; slot < 4; ++slot) {
            if (a[static_cast<Row>(row)].slots[slot] != b[static_cast<Row>(row)].slots[slot]) {
                result.push_back(row * 4 + static_cast<int>(slot));
            }
        }
    }
    int index = kRowCount * 4;
    ForEachSlot([&](const char *, auto member, CombineKind) {
        if (a.*member != b.*member) result.push_back(index);
        ++index;
    });
    return result;
}

std::vector<int> Entries(const std::vector<int> &rows, const std::vector<int> &singles) {
    std::vector<int> result;
    for (const int row : rows) {
        for (int slot = 0; slot < 3; ++slot) result.push_back(row * 4 + slot);
    }
    for (const int single : singles) result.push_back(kRowCount * 4 + single);
    return result;
}

TEST(KernelTable, EachTierReplacesItsEntriesAndNoOthers) {
    if (!kHasTiers) GTEST_SKIP() << "no tiers in this build";
    std::vector<int> allRows(kRowCount);
    std::iota(allRows.begin(), allRows.end(), 0);
    const KernelTable base = BaseKernels(WeightForm::Q8);
    const KernelTable mmx = BuildKernelTable({.mmx = true}), sse = BuildKernelTable({.sse = true});
    const KernelTable sse2 = BuildKernelTable({.sse2 = true});
    // Without SSE2 as well, the averaging rows enlarge by the finer bicubic weights.
    EXPECT_EQ(Differences(base, mmx), Entries(allRows, {0, 1, 2, 3, 4, 10, 11, 12}));
    std::vector<int> sseEntries = Entries({}, {0, 4, 7, 9});
    sseEntries.insert(sseEntries.begin(), 2);
    EXPECT_EQ(Differences(base, sse), sseEntries);
    std::vector<int> sse2Entries = Entries({22, 29}, {});
    sse2Entries.insert(sse2Entries.begin(), 2);
    EXPECT_EQ(Differences(base, sse2), sse2Entries);
    // On top of each other: the tiers share what several of them have.
    const KernelTable mmxSse = BuildKernelTable({.mmx = true, .sse = true});
    const KernelTable all = BuildKernelTable({.mmx = true, .sse = true, .sse2 = true});
    EXPECT_EQ(Differences(mmx, mmxSse), Entries({}, {7, 9}));
    EXPECT_EQ(Differences(mmxSse, all), std::vector<int>());
}

TEST(KernelTable, WithoutTiersTheProcessorDecidesTheBicubicWeightsAlone) {
    const KernelTable base = BaseKernels(WeightForm::Q8), fine = BaseKernels(WeightForm::Q14);
    EXPECT_EQ(Differences(base, fine), Entries({20, 21, 22, 24, 27, 28, 29, 31}, {}));
    for (unsigned bits = 0; bits < 16 && !kHasTiers; ++bits) {
        const bool isFine = FeaturesOf(bits).mmx || !kIsX86;
        EXPECT_EQ(Differences(BuildKernelTable(FeaturesOf(bits)), isFine ? fine : base), std::vector<int>()) << bits;
    }
}

TEST(KernelTable, ThisProcessHasTheTableOfItsProcessor) {
    const KernelTable table = BuildKernelTable(CachedCpuFeatures());
    EXPECT_EQ(std::memcmp(&table, &Kernels(), sizeof table), 0);
}

TEST(KernelTable, OpaquePixelsShareOneKernelForCopyAndOver) {
    const KernelTable table = BuildKernelTable({});
    for (const auto &[copy, over] :
         {std::pair{Row::CopyRow, Row::OverRow}, std::pair{Row::StretchCopyRow, Row::StretchOverRow},
          std::pair{Row::SubRectCopyRow, Row::SubRectOverRow}}) {
        EXPECT_EQ(table[copy].slots[1], table[over].slots[1]) << TraitsOf(copy).name;
        EXPECT_NE(table[copy].slots[2], table[over].slots[2]) << TraitsOf(copy).name;
    }
}

TEST(KernelTable, DepthsHaveTheirSlots) {
    EXPECT_EQ(DepthSlot(8), 0);
    EXPECT_EQ(DepthSlot(24), 1);
    for (const int other : {0, 1, 4, 16, 32, 64, -1}) EXPECT_EQ(DepthSlot(other), 2);
}

TEST(KernelTable, PairsKeepBothNumbers) {
    for (const LONG first : {INT32_MIN, -1, 0, 7, INT32_MAX}) {
        for (const LONG second : {INT32_MIN, -1, 0, 9, INT32_MAX}) {
            EXPECT_EQ(FirstOfPair(PackPair(first, second)), first);
            EXPECT_EQ(SecondOfPair(PackPair(first, second)), second);
        }
    }
}

TEST(GreyRamp, IsOpaqueGrey) {
    for (DWORD i = 0; i < 256; ++i) EXPECT_EQ(GreyRamp()[i], 0xFF000000u | i << 16 | i << 8 | i);
}

}  // namespace
}  // namespace lacquer
