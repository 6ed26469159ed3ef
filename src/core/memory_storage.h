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

private:
    PixelBlock block_;
};

}  // namespace lacquer
