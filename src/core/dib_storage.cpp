// Pixels in a GDI DIB section: making, locking, deleting.

#include "core/dib_storage.h"

#include "core/dib_section_cache.h"
#include "core/surface_view.h"

namespace lacquer {

bool DibStorage::Create(SurfaceView *view, uint16_t) {
    Release();
    bitmap_ = ProcessDibSectionCache().Acquire(view->width, view->height, GetTickCount(), &description_);
    if (!bitmap_) return false;
    *view = ViewOf(description_);
    return true;
}

void DibStorage::Release() {
    if (bitmap_) ProcessDibSectionCache().Release(bitmap_, GetTickCount());
    bitmap_ = nullptr;
    description_ = {};
}

bool DibStorage::Lock(SurfaceView *out, const RECT *rect) {
    if (IsEmpty()) return false;
    // What GDI still holds back must be in the pixels before anyone reads them.
    GdiFlush();
    *out = ViewOf(description_);
    return NarrowView(*out, rect);
}

}  // namespace lacquer
