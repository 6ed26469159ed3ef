// Pixels in process memory.
#pragma once

#include "core/surface_storage.h"
#include "platform/pixel_block.h"

namespace lacquer {

/// One block that holds the palette (8 bits per pixel and fewer) followed by the rows, each padded to 4 bytes.
class MemoryStorage final : public SurfaceStorage {
public:
    bool Create(SurfaceView *view, uint16_t paletteCount) override;
    void Release() override;
    bool IsEmpty() const override { return !block_; }
    int GetWidth() const override { return width_; }
    int GetHeight() const override { return height_; }
    int GetBitsPixel() const override { return bitsPerPixel_; }
    int GetPaletteCount() const override { return paletteCount_; }
    bool Lock(SurfaceView *out, const RECT *rect) override;
    bool LockEx(SurfaceView *out, const RECT *rect) override;

private:
    LONG Stride() const;

    uint16_t width_ = 0, height_ = 0, bitsPerPixel_ = 0, paletteCount_ = 0;
    PixelBlock block_;
};

}  // namespace lacquer
