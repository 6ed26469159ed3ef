// The table as a whole: complete for any processor, and the one of this process.

#include <gtest/gtest.h>

#include <cstring>

#include "pipeline/grey_ramp.h"
#include "pipeline/kernel_table.h"

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
        EXPECT_TRUE(table.fillCopy && table.fillOver && table.fillBehind && table.fillModulate && table.fillOr &&
                    table.fillGreyTint && table.forceOpaque && table.blendSame && table.stretchOpaque &&
                    table.blendStretch && table.mixSame && table.mixStretch && table.mixColor)
            << bits;
        // Building is a pure function.
        const KernelTable again = BuildKernelTable(FeaturesOf(bits));
        EXPECT_EQ(std::memcmp(&table, &again, sizeof table), 0);
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
