// Draws one row of a kernel table and compares every pixel with the model.
#pragma once

#include <gtest/gtest.h>

#include "model.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

/// A processor's table and what its bits mean for the results.
struct TableUnderTest {
    const char *name;
    KernelTable table;
    WeightForm form;
    const TableUnderTest *below;  ///< the tier under it; null for the base tier

    /// Whether the tier has a kernel of its own for `member(table)`; what it takes from below is tested there.
    template <class Member>
    bool Replaces(const Member &member) const {
        return !below || member(table) != member(below->table);
    }
    bool Replaces(Row row, int bitsPerPixel) const {
        const std::size_t slot = static_cast<std::size_t>(DepthSlot(bitsPerPixel));
        return Replaces([=](const KernelTable &of) { return of[row].slots[slot]; });
    }
};

/// The tables of processors with no features, MMX, SSE on top, and SSE2 on top.
const std::array<TableUnderTest, 4> &TablesUnderTest();

/// A kernel that a faster tier replaces saturates where the base kernel carries. (A bicubic kernel counts as replaced
/// when its weights have another form; that matters only to pixels that are not premultiplied.)
Overflow OverflowOf(const KernelTable &table, Row row, int bitsPerPixel);

/// Success when drawing `source` by the row gives the model's pixels in a destination of random pixels and leaves the
/// bytes around it alone. `dest` keeps the result. For rows of a whole draw, `fullSize` is the destination's size.
testing::AssertionResult DrawsAsModel(const TableUnderTest &table, Row row, TestImage &dest, const TestImage &source,
                                      const RowArguments &arguments);

/// The random numbers of test case `number`; --gtest_random_seed=N adds N to the number, so that a failing case runs
/// first.
Random CaseRandom(int number);
int CaseNumber(int number);

/// A source of random pixels, row padding and alignment; one 8-bit source in four has a palette that is too short.
TestImage RandomSource(Random &random, int width, int height, int bitsPerPixel, bool premultiplied);

inline constexpr int kDepths[] = {8, 24, 32};

/// A sanitized program runs a slice of the largest loops.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr int kSlice = 5;
#else
inline constexpr int kSlice = 1;
#endif

}  // namespace lacquer
