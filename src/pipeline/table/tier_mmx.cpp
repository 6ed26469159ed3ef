// The MMX tier: the rows and single slots that a processor with MMX gets.

#include "pipeline/fill_mix/fill_sse2.h"
#include "pipeline/fill_mix/mix_sse2.h"
#include "pipeline/table/kit_sse2.h"
#include "pipeline/table/make_row.h"
#include "pipeline/table/tiers.h"

namespace lacquer {

void ApplyMmxTier(KernelTable &table) {
    static constexpr KernelRow kRows[] = {
#define LACQUER_MAKE_ROW(name, sampler, combine, extent) \
    MakeRow<MmxKit, MmxKit::sampler, MmxKit::combine, Extent::extent>(),
        LACQUER_KERNEL_ROWS(LACQUER_MAKE_ROW)
#undef LACQUER_MAKE_ROW
    };
    for (int i = 0; i < kRowCount; ++i) table.rows[i] = kRows[i];
    table.fillCopy = VectorFillCopy;
    table.fillOver = VectorFillOver;
    table.fillBehind = VectorFillBehind;
    table.fillModulate = VectorFillModulate;
    table.fillOr = VectorFillOr;
    table.mixSame = VectorMixSame;
    table.mixStretch = VectorMixStretch;
    table.mixColor = VectorMixColor;
}

}  // namespace lacquer
