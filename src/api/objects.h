// From the handles of the interface to objects and back. Every exported function that takes a handle starts here.
#pragma once

#include <lacquer/lacquer.h>

#include <memory>

#include "core/canvas.h"
#include "core/pixel_surface.h"
#include "core/registration.h"
#include "core/texture.h"

namespace lacquer {

/// Result: null unless the handle is current and of this type.
inline PixelSurface *Find(HGBITMAP bitmap) { return FindObject<PixelSurface>(HandleType::Bitmap, bitmap.value); }
inline Texture *Find(HGTEXTURE texture) { return FindObject<Texture>(HandleType::Texture, texture.value); }
inline Canvas *Find(HGCANVAS canvas) { return FindObject<Canvas>(HandleType::Canvas, canvas.value); }

/// The surface that a texture handle names, else null.
inline PixelSurface *FindSurface(HGTEXTURE texture) {
    Texture *found = Find(texture);
    return found ? &found->Surface() : nullptr;
}

/// Result: the new object's handle, 0 when there is none or no slot is free; the object is destroyed then.
inline HGBITMAP Register(std::unique_ptr<PixelSurface> bitmap) {
    return {RegisterObject(HandleType::Bitmap, std::move(bitmap))};
}
inline HGTEXTURE Register(std::unique_ptr<Texture> texture) {
    return {RegisterObject(HandleType::Texture, std::move(texture))};
}
inline HGCANVAS Register(std::unique_ptr<Canvas> canvas) {
    return {RegisterObject(HandleType::Canvas, std::move(canvas))};
}

/// Destroys what a handle named, whose slot is already free, and with it every other handle that names it. A surface
/// that belongs to a canvas is only emptied.
void Destroy(PixelSurface *bitmap);
void Destroy(Texture *texture);
void Destroy(Canvas *canvas);

}  // namespace lacquer
