// Destroying what handles named.

#include "api/objects.h"

namespace lacquer {

void Destroy(PixelSurface *bitmap) {
    if (bitmap->BelongsToCanvas()) {
        bitmap->Destroy();
    } else {
        delete bitmap;
    }
}

void Destroy(Texture *texture) { delete texture; }

void Destroy(Canvas *canvas) { delete canvas; }

}  // namespace lacquer
