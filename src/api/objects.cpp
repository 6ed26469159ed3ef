// Taking back what handles named.

#include "api/objects.h"

namespace lacquer {

BitmapRemains Take(HeldTable &table, HGBITMAP bitmap) {
    BitmapRemains remains;
    PixelSurface *found = Find(table, bitmap);
    if (found && found->Owner() == SurfaceOwner::Canvas) {
        table.DelHandleEntry(static_cast<uint32_t>(bitmap.value));
        remains.pixels = found->TakeStorage();
    } else {
        remains.surface = TakeObject<PixelSurface>(table, HandleType::Bitmap, bitmap.value);
    }
    return remains;
}

std::unique_ptr<Canvas> Take(HeldTable &table, HGCANVAS canvas) {
    std::unique_ptr<Canvas> taken = TakeObject<Canvas>(table, HandleType::Canvas, canvas.value);
    if (taken) taken->LeaveChildren();
    return taken;
}

}  // namespace lacquer
