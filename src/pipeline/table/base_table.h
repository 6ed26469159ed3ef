// The base tier as a table, for both forms of the bicubic weights.
#pragma once

#include "pipeline/table/kit.h"
#include "pipeline/table/make_kernels.h"

namespace lacquer {

template <class Weights>
constexpr KernelTable BaseTable() {
    using Kit = BaseRowKit<Weights>;
    return {.rows =
                {
#define LACQUER_BASE_ROW(name, sampler, combine, extent) \
    MakeRow<Kit, Kit::template sampler, typename Kit::combine, Extent::extent>(),
                    LACQUER_KERNEL_ROWS(LACQUER_BASE_ROW)
#undef LACQUER_BASE_ROW
                },
#define LACQUER_BASE_SLOT(name, kind, sampler, rule, tiers) \
    .name = SlotKernels<BaseKit, BaseKit::sampler, BaseKit::rule>::kind,
            LACQUER_KERNEL_SLOTS(LACQUER_BASE_SLOT)
#undef LACQUER_BASE_SLOT
    };
}

}  // namespace lacquer
