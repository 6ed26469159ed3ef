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
inline PixelSurface *Find(HGBITMAP bitmap) {
    return FindObject<PixelSurface>(ProcessHandleTable(), HandleType::Bitmap, bitmap.value);
}
inline Texture *Find(HGTEXTURE texture) {
    return FindObject<Texture>(ProcessHandleTable(), HandleType::Texture, texture.value);
}
inline Canvas *Find(HGCANVAS canvas) {
    return FindObject<Canvas>(ProcessHandleTable(), HandleType::Canvas, canvas.value);
}

/// The surface that a texture handle names, else null.
inline PixelSurface *FindSurface(HGTEXTURE texture) {
    Texture *found = Find(texture);
    return found ? &found->Surface() : nullptr;
}

/// The same in a table that is held: as long as it is, no other thread can take the object away.
inline PixelSurface *Find(const HeldTable &table, HGBITMAP bitmap) {
    return FindObject<PixelSurface>(table, HandleType::Bitmap, bitmap.value);
}
inline Canvas *Find(const HeldTable &table, HGCANVAS canvas) {
    return FindObject<Canvas>(table, HandleType::Canvas, canvas.value);
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

/// What a deleted bitmap leaves to destroy: the surface, or, where a canvas owns that, no more than its pixels.
struct BitmapRemains {
    std::unique_ptr<PixelSurface> surface;
    StorageRef pixels;
};

/// Take what a handle names out of a table that is held, so that no call can find it any more and no other call takes
/// it; null, or nothing, unless the handle is current and of this type. To be destroyed when the table is no longer
/// held. Bitmap handles of a canvas's surface stay, whether the canvas or one of them is taken.
BitmapRemains Take(HeldTable &table, HGBITMAP bitmap);
std::unique_ptr<Canvas> Take(HeldTable &table, HGCANVAS canvas);

}  // namespace lacquer
