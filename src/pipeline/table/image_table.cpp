// Building the second table: the base tier, the faster one over it; and the table of this process.

#include "pipeline/table/image_table.h"

#include "pipeline/filter/box_blur.h"
#include "pipeline/filter/gaussian.h"
#include "pipeline/filter/pixel_rules.h"
#include "pipeline/memory/copy_rows.h"
#include "pipeline/shape/cover.h"
#include "pipeline/shape/shadow.h"
#include "pipeline/table/tiers.h"
#include "pipeline/transform/turn.h"

namespace lacquer {

ImageTable BuildImageTable(const CpuFeatures &features) {
    ImageTable table = {
#define LACQUER_BASE_KERNEL(type, name, function) .name = function,
        LACQUER_IMAGE_KERNELS(LACQUER_BASE_KERNEL)
#undef LACQUER_BASE_KERNEL
    };
    ApplyTiers(table, features);
    return table;
}

const ImageTable &ImageKernels() {
    static const ImageTable table = BuildImageTable(CachedCpuFeatures());
    return table;
}

}  // namespace lacquer
