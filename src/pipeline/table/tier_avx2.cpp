// The faster tiers' files once more, in registers of 32 bytes.

#define LACQUER_TIER avx2

// What all tiers share comes first, so that none of it is compiled for AVX2.
#include <immintrin.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "pipeline/filter/box_blur.h"
#include "pipeline/filter/gaussian.h"
#include "pipeline/memory/copy_rows.h"
#include "pipeline/shape/cover.h"
#include "pipeline/shape/shadow.h"
#include "pipeline/table/base_table.h"
#include "pipeline/table/image_table.h"
#include "pipeline/table/make_kernels.h"
#include "pipeline/table/tier_avx2.h"
#include "pipeline/transform/turn_tiles.h"
#include "platform/fill_words.h"
//
#include "platform/avx2_begin.h"
//
#include "pipeline/table/tier_simd.h"
//
#include "platform/avx2_end.h"

namespace lacquer::avx2 {
namespace {

constexpr KernelTable WideTable() {
    KernelTable table = BaseTable<WeightsQ14>();
    SetRows<Kit, false>(table);
    SetSlots<Kit, kMmxTier | kSseTier>(table);
    return table;
}
constexpr KernelTable kWideKernels = WideTable();

/// Narrow stretches take less time in registers of 16 bytes: more of a draw is spent on what leads to its pixels than
/// on these. Result: the table that has the kernel for a destination.
template <SamplerKind sampler>
const KernelTable &TableFor(const SurfaceView &dest) {
    constexpr LONG kFewColumns = sampler == SamplerKind::Nearest ? 32 : 16;
    return dest.width < kFewColumns ? kSse2Kernels : kWideKernels;
}

template <Row row, int kSlot>
int DrawByWidth(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth, uint64_t fifth) {
    return TableFor<TraitsOf(row).sampler>(*dest)[row].slots[kSlot](dest, source, third, fourth, fifth);
}

template <MixKernel KernelTable::*slot>
int MixByWidth(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return (TableFor<SamplerKind::Nearest>(*dest).*slot)(dest, source, weight);
}

/// Rows that draw opaque pixels without any work on them gain nothing; 24-bit pixels are opaque.
template <Row row, int kSlot>
constexpr bool OnlyMovesWords() {
    constexpr RowTraits kTraits = TraitsOf(row);
    constexpr bool kCopies = kTraits.combine == CombineKind::Copy;
    if (kTraits.sampler == SamplerKind::SameSize) return kCopies && kSlot == DepthSlot(32);
    const bool copiesOpaque = kTraits.combine == CombineKind::Over && kSlot == DepthSlot(24);
    return kTraits.sampler == SamplerKind::Nearest && (kCopies || copiesOpaque);
}

template <Row row, int kSlot>
void SetKernel(KernelTable &table) {
    if (OnlyMovesWords<row, kSlot>()) return;
    constexpr bool kStretches = TraitsOf(row).sampler != SamplerKind::SameSize;
    table[row].slots[kSlot] = kStretches ? DrawByWidth<row, kSlot> : kWideKernels[row].slots[kSlot];
}

template <Row row>
void SetRow(KernelTable &table) {
    SetKernel<row, 0>(table);
    SetKernel<row, 1>(table);
    SetKernel<row, 2>(table);
}

}  // namespace

void ApplyTier(KernelTable &table) {
    SetSlots<Kit, kMmxTier | kSseTier>(table);
    table.blendStretch = MixByWidth<&KernelTable::blendStretch>;
    table.mixStretch = MixByWidth<&KernelTable::mixStretch>;
#define LACQUER_SET_ROW(name, sampler, combine, extent) SetRow<Row::name>(table);
    LACQUER_KERNEL_ROWS(LACQUER_SET_ROW)
#undef LACQUER_SET_ROW
}

void ApplyTier(ImageTable &table) { SetImageKernels(table); }

}  // namespace lacquer::avx2
