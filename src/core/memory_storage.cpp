// Pixels in process memory: layout, allocation, locking.

#include "core/memory_storage.h"

#include <algorithm>
#include <cstdint>

#include "core/surface_view.h"
#include "pipeline/grey_ramp.h"

namespace lacquer {

namespace {

constexpr int kDeepestIndexed = 8;
constexpr uintptr_t kPageSize = 4096;

}  // namespace

LONG MemoryStorage::Stride() const {
    return static_cast<LONG>((static_cast<int64_t>(width_) * bitsPerPixel_ + 31) >> 3 & ~INT64_C(3));
}

bool MemoryStorage::Create(SurfaceView *view, uint16_t paletteCount) {
    Release();
    width_ = static_cast<uint16_t>(view->width);
    height_ = static_cast<uint16_t>(view->height);
    bitsPerPixel_ = view->bitsPerPixel;
    if (bitsPerPixel_ <= kDeepestIndexed) {
        paletteCount_ = static_cast<uint16_t>(std::min<int>(paletteCount, 1 << bitsPerPixel_));
    }
    // At most 16 + 15 + 13 bits: no overflow in 64.
    const uint64_t size = static_cast<uint64_t>(Stride()) * height_ + paletteCount_ * sizeof(DWORD);
    block_ = AllocatePixels(std::max<uint64_t>(size, 1));
    if (!block_) {
        Release();
        return false;
    }
    if (reinterpret_cast<uintptr_t>(block_.get()) % kPageSize == 0) block_[0] = std::byte{0};
    view->stride = Stride();
    return true;
}

void MemoryStorage::Release() {
    block_.reset();
    width_ = height_ = bitsPerPixel_ = paletteCount_ = 0;
}

bool MemoryStorage::Lock(SurfaceView *out, const RECT *rect) {
    if (IsEmpty() || bitsPerPixel_ < 8) return false;
    *out = {};
    out->width = width_;
    out->height = height_;
    out->stride = Stride();
    out->planes = 1;
    out->bitsPerPixel = bitsPerPixel_;
    out->bits = block_.get() + paletteCount_ * sizeof(DWORD);
    return NarrowView(*out, rect);
}

bool MemoryStorage::LockEx(SurfaceView *out, const RECT *rect) {
    if (!Lock(out, rect)) return false;
    if (bitsPerPixel_ > kDeepestIndexed) return true;
    if (paletteCount_ > 0) {
        out->paletteCount = paletteCount_;
        out->palette = reinterpret_cast<DWORD *>(block_.get());
    } else {
        out->paletteCount = kGreyRampSize;
        out->palette = const_cast<DWORD *>(GreyRamp());
    }
    return true;
}

}  // namespace lacquer
