// Draws one row of a kernel table and compares every pixel with the model.
#pragma once

#include <gtest/gtest.h>

#include "model.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

#if LACQUER_TIERS
inline constexpr bool kHasTiers = true;
#else
inline constexpr bool kHasTiers = false;
#endif

/// The base tier.
const KernelTable &BaseKernels(WeightForm form);

/// The kernel of a row for a depth.
inline auto RowMember(Row row, int bitsPerPixel) {
    const std::size_t slot = static_cast<std::size_t>(DepthSlot(bitsPerPixel));
    return [=](const KernelTable &of) { return of[row].slots[slot]; };
}

/// A table and what its bits mean for the results.
struct TableUnderTest {
    const char *name;
    KernelTable table;
    WeightForm form;
    const TableUnderTest *below;  ///< the one of which it replaces kernels; null for the first

    /// Whether it has a kernel of its own for `member(table)`; what it takes from below is tested there.
    template <class Member>
    bool Replaces(const Member &member) const {
        return !below || member(table) != member(below->table);
    }
    bool Replaces(Row row, int bitsPerPixel) const { return Replaces(RowMember(row, bitsPerPixel)); }

    /// What a kernel's sums do: those of a base kernel carry, the others saturate.
    template <class Member>
    Overflow OverflowOf(const Member &member) const {
        return member(table) == member(BaseKernels(form)) ? Overflow::Carries : Overflow::Saturates;
    }
    Overflow OverflowOf(Row row, int bitsPerPixel) const { return OverflowOf(RowMember(row, bitsPerPixel)); }
};

/// The base tables of both weight forms, and those of processors with MMX, SSE on top, and SSE2 on top.
const std::array<TableUnderTest, 5> &TablesUnderTest();

/// Calls visit(name, member, rule) for each single slot.
template <class Visit>
void ForEachSlot(const Visit &visit) {
#define LACQUER_VISIT_SLOT(name, kind, sampler, rule, tiers) visit(#name, &KernelTable::name, CombineKind::rule);
    LACQUER_KERNEL_SLOTS(LACQUER_VISIT_SLOT)
#undef LACQUER_VISIT_SLOT
}

/// Calls the kernel of a single slot with what it takes of these.
inline int CallSlot(FillKernel kernel, const SurfaceView &dest, const SurfaceView &, DWORD colour, BYTE) {
    return kernel(&dest, colour);
}
inline int CallSlot(MixColorKernel kernel, const SurfaceView &dest, const SurfaceView &, DWORD colour, BYTE weight) {
    return kernel(&dest, colour, weight);
}
inline int CallSlot(ConvertKernel kernel, const SurfaceView &dest, const SurfaceView &source, DWORD, BYTE) {
    return kernel(&dest, &source);
}
inline int CallSlot(MixKernel kernel, const SurfaceView &dest, const SurfaceView &source, DWORD, BYTE weight) {
    return kernel(&dest, &source, weight);
}

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

/// How many times shorter the largest loops are: 1, but under a sanitizer or an emulator.
inline constexpr int kSlice = LACQUER_TEST_SLICE;

}  // namespace lacquer
