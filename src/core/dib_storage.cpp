// Pixels in a GDI DIB section: making, locking, deleting.

#include "core/dib_storage.h"

#include "core/dib_section_cache.h"

namespace lacquer {

bool DibStorage::Create(SurfaceView *view, uint16_t) {
    Release();
    BITMAP description{};
    bitmap_ = ProcessDibSectionCache().Acquire(view->width, view->height, GetTickCount(), &description);
    if (!bitmap_) return false;
    *view = whole_ = ViewOf(description);
    return true;
}

void DibStorage::Release() {
    if (bitmap_) ProcessDibSectionCache().Release(bitmap_, GetTickCount());
    bitmap_ = nullptr;
    whole_ = {};
}

/// What GDI still holds back must be in the pixels before anyone reads them.
void DibStorage::PrepareLock() { GdiFlush(); }

}  // namespace lacquer
