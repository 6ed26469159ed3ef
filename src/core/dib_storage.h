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
    bool IsEmpty() const override { return !bitmap_; }
    int GetWidth() const override { return description_.bmWidth; }
    int GetHeight() const override { return description_.bmHeight; }
    int GetBitsPixel() const override { return description_.bmBitsPixel; }
    int GetPaletteCount() const override { return 0; }
    bool Lock(SurfaceView *out, const RECT *rect) override;
    bool LockEx(SurfaceView *out, const RECT *rect) override { return Lock(out, rect); }

    HBITMAP GetBitmap() const { return bitmap_; }

private:
    HBITMAP bitmap_ = nullptr;
    BITMAP description_{};
};

}  // namespace lacquer
