// The faster tiers' files once more, in registers of 32 bytes.

#define LACQUER_TIER avx2

// What all tiers share comes first, so that none of it is compiled for AVX2.
#include <immintrin.h>

#include <algorithm>
#include <cstring>

#include "pipeline/filter/box_blur.h"
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

void ApplyTier(KernelTable &table) {
    SetRows<Kit, false>(table);
    SetSlots<Kit, kMmxTier | kSseTier>(table);
}

void ApplyTier(ImageTable &table) { SetImageKernels(table); }

}  // namespace lacquer::avx2
