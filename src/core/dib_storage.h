// Pixels in a GDI DIB section.
#pragma once

#include "core/surface_storage.h"
#include "platform/platform.h"

namespace lacquer {

/// Always a 32-bit, top-down DIB section, whatever depth is asked for.
class DibStorage final : public SurfaceStorage {
public:
    ~DibStorage() override { Release(); }
    bool Create(SurfaceView *view, uint16_t paletteCount) override;
    void Release() override;

    HBITMAP Bitmap() const { return bitmap_; }

private:
    void PrepareLock() override;

    HBITMAP bitmap_ = nullptr;
};

}  // namespace lacquer
