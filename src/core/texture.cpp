// Textures: slices and construction.

#include "core/texture.h"

#include <algorithm>
#include <new>
#include <utility>

#include "core/geometry.h"
#include "core/registration.h"

namespace lacquer {

bool Texture::SetSlices(DWORD count, const RECT *rects) {
    std::unique_ptr<RECT[]> copies(new (std::nothrow) RECT[count]);
    if (!copies) return false;
    std::copy_n(rects, count, copies.get());
    slices_ = std::move(copies);
    sliceCount_ = count;
    if (count > 0) currentSlice_ = static_cast<int>(count - 1);
    return true;
}

int Texture::SetCurrentSlice(int index) {
    if (index < 0 || static_cast<DWORD>(index) >= sliceCount_) return -1;
    return std::exchange(currentSlice_, index);
}

const RECT *Texture::CurrentSlice() const {
    return currentSlice_ >= 0 && static_cast<DWORD>(currentSlice_) < sliceCount_
               ? &slices_[static_cast<DWORD>(currentSlice_)]
               : nullptr;
}

RECT Texture::ShownPart() const {
    const RECT *slice = CurrentSlice();
    return slice ? *slice : RECT{0, 0, surface_.Width(), surface_.Height()};
}

bool Texture::GetSize(SIZE *out) const {
    if (!slices_) {
        *out = {surface_.Width(), surface_.Height()};
        return true;
    }
    const RECT *slice = CurrentSlice();
    if (slice) *out = SizeOf(*slice);
    return slice != nullptr;
}

std::unique_ptr<Texture> NewTexture() { return std::unique_ptr<Texture>(NewObject<Texture>()); }

std::unique_ptr<Texture> MakeTexture(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount) {
    return MakeTextureOf(MakeSurface(width, height, bitsPerPixel, paletteCount, SurfaceKind::Memory).get());
}

std::unique_ptr<Texture> MakeTextureOf(const PixelSurface *surface) {
    std::unique_ptr<Texture> texture = NewTexture();
    if (texture && !texture->Surface().ShareFrom(surface, false)) texture.reset();
    return texture;
}

std::unique_ptr<Texture> MakeTextureOf(const SurfaceView &pixels) {
    std::unique_ptr<Texture> texture = NewTexture();
    if (texture) texture->Surface().AttachPixels(pixels);
    return texture;
}

}  // namespace lacquer
