// Pixels in process memory: layout and allocation.

#include "core/memory_storage.h"

#include <algorithm>
#include <cstdint>

#include "pipeline/pixel/grey_ramp.h"

namespace lacquer {
namespace {

constexpr int kDeepestIndexed = 8;
constexpr uintptr_t kPageSize = 4096;

/// Of a row of whole words.
LONG StrideOf(int width, int bitsPerPixel) {
    return static_cast<LONG>((static_cast<int64_t>(width) * bitsPerPixel + 31) >> 3 & ~INT64_C(3));
}

}  // namespace

bool MemoryStorage::Create(SurfaceView *view, uint16_t paletteCount) {
    Release();
    const bool isIndexed = view->bitsPerPixel <= kDeepestIndexed;
    const auto entries = static_cast<uint16_t>(isIndexed ? std::min<int>(paletteCount, 1 << view->bitsPerPixel) : 0);
    view->stride = StrideOf(view->width, view->bitsPerPixel);
    // At most 16 + 15 + 13 bits: no overflow in 64.
    const uint64_t size =
        static_cast<uint64_t>(view->stride) * static_cast<uint16_t>(view->height) + entries * sizeof(DWORD);
    block_ = AllocatePixels(std::max<uint64_t>(size, 1));
    if (!block_) return false;
    if (reinterpret_cast<uintptr_t>(block_.get()) % kPageSize == 0) block_[0] = std::byte{0};

    paletteCount_ = entries;
    whole_.width = view->width;
    whole_.height = view->height;
    whole_.stride = view->stride;
    whole_.planes = 1;
    whole_.bitsPerPixel = view->bitsPerPixel;
    whole_.bits = block_.get() + entries * sizeof(DWORD);
    if (entries > 0) {
        whole_.paletteCount = entries;
        whole_.palette = reinterpret_cast<DWORD *>(block_.get());
    } else if (isIndexed) {
        whole_.paletteCount = kGreyRampSize;
        whole_.palette = const_cast<DWORD *>(GreyRamp());
    }
    return true;
}

void MemoryStorage::Release() {
    block_.reset();
    whole_ = {};
    paletteCount_ = 0;
}

}  // namespace lacquer
