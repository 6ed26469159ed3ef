// The one model of the combine rules, worked out channel by channel from their formulas, in arithmetic that can't
// overflow.
#pragma once

#include "pipeline/table/kernel_rows.h"
#include "pipeline/words.h"

namespace lacquer {

/// What the sum of a rule does above 255: base kernels carry into the next channel, faster ones stop at 255.
enum class Overflow { Carries, Saturates };

/// What the source word s makes of d. `parameter`: the key, the alpha or the weight of the rules that have one.
uint32_t ModelCombine(CombineKind rule, uint32_t s, uint32_t d, uint32_t parameter = 0,
                      Overflow overflow = Overflow::Saturates);

}  // namespace lacquer
