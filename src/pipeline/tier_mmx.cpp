// The MMX tier: the rows and single slots that a processor with MMX gets.

#include "pipeline/make_row.h"
#include "pipeline/tiers.h"
#include "pipeline/vector_fill.h"
#include "pipeline/vector_kit.h"
#include "pipeline/vector_mix.h"

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
