// Destroying what handles named.

#include "api/objects.h"

namespace lacquer {

void Destroy(PixelSurface *bitmap) {
    if (bitmap->BelongsToCanvas()) {
        bitmap->Destroy();
        return;
    }
    if (bitmap->IsAliased()) ProcessHandleTable().Revoke(bitmap);
    delete bitmap;
}

void Destroy(Texture *texture) { delete texture; }

void Destroy(Canvas *canvas) {
    if (canvas->IsAliased()) ProcessHandleTable().Revoke(canvas);
    delete canvas;
}

}  // namespace lacquer
