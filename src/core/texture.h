// A surface with drawing attributes: a layout record and a list of slices, one of which stands for the texture.
#pragma once

#include <lacquer/lacquer.h>

#include <memory>

#include "core/pixel_surface.h"

namespace lacquer {

class Texture {
public:
    PixelSurface &Surface() { return surface_; }

    const TextureMode &Mode() const { return mode_; }
    void SetMode(const TextureMode &mode) { mode_ = mode; }

    /// Replaces the list; the last slice becomes current, and an empty list leaves the index as it is. Result: false,
    /// with nothing changed, without memory.
    bool SetSlices(DWORD count, const RECT *rects);

    /// Makes a slice current. Result: the previous index, -1 for none; also -1, with nothing changed, outside the list.
    int SetCurrentSlice(int index);

    DWORD SliceCount() const { return sliceCount_; }

    /// The current slice, or null: without a list, or when the index is not in it.
    const RECT *CurrentSlice() const;

    /// The current slice, else the whole surface.
    RECT ShownPart() const;

    /// The current slice's size, or the surface's when no list was ever set. Result: false when there is a list but no
    /// current slice.
    bool GetSize(SIZE *out) const;

private:
    PixelSurface surface_;
    TextureMode mode_{};
    std::unique_ptr<RECT[]> slices_;  ///< null until the first list, which may be empty
    DWORD sliceCount_ = 0;
    int currentSlice_ = -1;
};

/// A new texture without pixels, or null.
std::unique_ptr<Texture> NewTexture();

/// A new texture in process memory, or null.
std::unique_ptr<Texture> MakeTexture(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount);

/// A new texture with the filter word and the storage of a surface, which is then to be dropped. Result: null when the
/// surface is null or has no pixels.
std::unique_ptr<Texture> MakeTextureOf(const PixelSurface *surface);

/// A new texture that describes 32-bit pixels of someone else's, or null.
std::unique_ptr<Texture> MakeTextureOf(const SurfaceView &pixels);

}  // namespace lacquer
