// The kernels' results, worked out one pixel and one channel at a time from the formulas, in arithmetic that can't
// overflow.
#pragma once

#include <cstdint>

#include "pipeline/sample/stretch_weights.h"
#include "pipeline/table/kernel_rows.h"
#include "test_image.h"

namespace lacquer {

/// What the sum of a rule does above 255: base kernels carry into the next channel, faster ones stop at 255.
enum class Overflow { Carries, Saturates };

/// Channel 0 blue, 1 green, 2 red, 3 alpha.
constexpr uint32_t ChannelOf(uint32_t word, int channel) { return word >> 8 * channel & 255; }

/// The word of whose channel i `value(i)` is; bits above a channel's eight carry into the next.
template <class Value>
uint32_t WordOf(const Value &value) {
    uint32_t word = 0;
    for (int i = 0; i < 4; ++i) word += static_cast<uint32_t>(value(i)) << 8 * i;
    return word;
}

uint32_t ModelCombine(CombineKind rule, uint32_t s, uint32_t d, uint32_t parameter, Overflow overflow);

/// The source word that pixel (x, y) of a full destination rectangle gets.
uint32_t ModelSample(SamplerKind sampler, const TestImage &source, SIZE fullSize, int64_t x, int64_t y,
                     WeightForm form);

/// One channel of the bicubic sampler as the exact sum of byte × weight × weight, not scaled down.
int64_t ExactBicubicSum(const TestImage &source, SIZE fullSize, int64_t x, int64_t y, WeightForm form, int channel);

}  // namespace lacquer
