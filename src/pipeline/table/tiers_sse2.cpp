// The SSE and SSE2 tiers: what they replace beyond the MMX tier.

#include "pipeline/fill_mix/fill_sse2.h"
#include "pipeline/fill_mix/mix_sse2.h"
#include "pipeline/table/kit_sse2.h"
#include "pipeline/table/make_row.h"
#include "pipeline/table/tiers.h"

namespace lacquer {
namespace {

template <class Source>
using BaseBicubicFetch = BicubicFetch<Source, WeightsQ8>;

/// Large copies as one move of all rows; the platform's own is the fastest there is.
int MoveWords(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth, uint64_t fifth) {
    return DrawByRow<SameSize<WordPixels>, CopyCombine, Extent::Whole>(dest, source, third, fourth, fifth);
}

KernelRow &At(KernelTable &table, Row row) { return table.rows[static_cast<std::size_t>(row)]; }

template <class Kit>
void SetAreaRows(KernelTable &table) {
    At(table, Row::AreaCopyRow) = MakeRow<Kit, Kit::template Area, CopyCombine, Extent::Whole>();
    At(table, Row::SubRectAreaCopyRow) = MakeRow<Kit, Kit::template Area, CopyCombine, Extent::Part>();
}

}  // namespace

void ApplySseTier(KernelTable &table) {
    At(table, Row::CopyRow).slots[DepthSlot(32)] = MoveWords;
    table.fillCopy = StringFillCopy;
    table.fillOr = VectorFillOr;
    table.blendSame = VectorBlendSame;
    table.blendStretch = VectorBlendStretch;
}

void ApplySse2Tier(KernelTable &table, bool hasMmx) {
    At(table, Row::CopyRow).slots[DepthSlot(32)] = MoveWords;
    if (hasMmx) {
        SetAreaRows<Sse2Kit<VectorBicubicFetch>>(table);
    } else {
        SetAreaRows<Sse2Kit<BaseBicubicFetch>>(table);
    }
}

}  // namespace lacquer
