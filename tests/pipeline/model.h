// What the samplers find in a source, worked out one pixel and one channel at a time.
#pragma once

#include "pipeline/sample/stretch_weights.h"
#include "pipeline/table/kernel_rows.h"
#include "test_image.h"

namespace lacquer {

/// The source word that pixel (x, y) of a full destination rectangle gets.
uint32_t ModelSample(SamplerKind sampler, const TestImage &source, SIZE fullSize, int64_t x, int64_t y,
                     WeightForm form);

}  // namespace lacquer
