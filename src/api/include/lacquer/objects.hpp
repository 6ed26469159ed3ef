// Owners of bitmaps, textures and canvases.
#ifndef LACQUER_OBJECTS_HPP
#define LACQUER_OBJECTS_HPP

#include <lacquer/lacquer.h>
#include <lacquer/pixels.hpp>
#include <velgraphic/owner.hpp>

#include <optional>

namespace lq {

class Canvas;

// Handles that show a canvas's own pixels, or another canvas, without owning it: given back, not deleted.
using BitmapAlias = Owner<HGBITMAP, ReleaseBitmap>;
using CanvasAlias = Owner<HGCANVAS, ReleaseCanvas>;

// A picture in memory, of 8, 24 or 32 bits per pixel.
class Bitmap : public Owner<HGBITMAP, DeleteBitmap> {
public:
    using Owner::Owner;

    // CreateMemBitmapEx: `width` x `height` pixels, not cleared, with `paletteCount` words of palette (0: greys) for 8
    // bits. Empty owner on failure.
    static Bitmap Create(DWORD width, DWORD height, DWORD bitsPerPixel = 32, DWORD paletteCount = 0) noexcept {
        return Bitmap(CreateMemBitmapEx(width, height, bitsPerPixel, paletteCount));
    }

    // CreateSystemBitmap: 32 bits in a DIB section, all 0, 1..32767 pixels on a side. Empty owner on failure.
    static Bitmap CreateSystem(DWORD width, DWORD height) noexcept { return Bitmap(CreateSystemBitmap(width, height)); }

    // CanvasToBitmap: the pixels of a canvas, which is empty afterwards. Empty owner on failure; see there what becomes
    // of the canvas then.
    static Bitmap From(Canvas &&canvas) noexcept;

    // Width and height, pixels; none for a wrong handle.
    std::optional<SIZE> Size() const noexcept {
        SIZE size{};
        if (!GetBitmapSize(*this, &size)) return std::nullopt;
        return size;
    }

    // The draw mode LACQUER_DRAW_..., with the key colour 0xRRGGBB of LACQUER_DRAW_COLOR_KEY. False for a wrong handle.
    bool SetDrawMode(DWORD mode, DWORD key = 0) noexcept {
        return SetBitmapFilter(*this, (mode << 24) | (key & 0xFFFFFF)) != 0;
    }

    // ResizeBitmap, TransformBitmap: a new bitmap of another size, sampled by LACQUER_NEAREST ... LACQUER_AREA; turned
    // or mirrored by LACQUER_ROTATE_90 ... LACQUER_TRANSVERSE. Empty owner on failure.
    Bitmap Resized(DWORD width, DWORD height, DWORD sampler = LACQUER_BILINEAR) const noexcept {
        return Bitmap(ResizeBitmap(*this, width, height, sampler));
    }
    Bitmap Transformed(DWORD code) const noexcept { return Bitmap(TransformBitmap(*this, code)); }
};

// A picture to draw with: a bitmap with a layout record and slices.
class Texture : public Owner<HGTEXTURE, DeleteTexture> {
public:
    using Owner::Owner;

    // CreateTextureEx: as Bitmap::Create. Empty owner on failure.
    static Texture Create(DWORD width, DWORD height, DWORD bitsPerPixel = 32, DWORD paletteCount = 0) noexcept {
        return Texture(CreateTextureEx(width, height, bitsPerPixel, paletteCount));
    }

    // BitmapToTexture, CanvasToTexture: the pixels of a bitmap or canvas, which is empty afterwards. Empty owner on
    // failure; see there what becomes of the source then.
    static Texture From(Bitmap &&bitmap) noexcept {
        Texture texture(BitmapToTexture(bitmap));
        if (texture) static_cast<void>(bitmap.Release());
        return texture;
    }
    static Texture From(Canvas &&canvas) noexcept;

    // Width and height, pixels, of the current slice, or of everything without slices. None for a wrong handle and
    // where the current slice is not in the list.
    std::optional<SIZE> Size() const noexcept {
        SIZE size{};
        if (!GetTextureSize(*this, &size)) return std::nullopt;
        return size;
    }

    // As Bitmap::SetDrawMode.
    bool SetDrawMode(DWORD mode, DWORD key = 0) noexcept {
        return SetTextureFilter(*this, (mode << 24) | (key & 0xFFFFFF)) != 0;
    }

    // SetTextureMode: how DrawTexture lays it out. False for a wrong handle.
    bool SetLayout(const TextureMode &mode) noexcept { return SetTextureMode(*this, &mode) != 0; }

    // SetTextureSlice: replaces the list of slices, rectangles in pixels of the texture, and makes the last one
    // current. False, with nothing changed, for a wrong handle, an empty list and when memory is short.
    bool SetSlices(Span<const RECT> slices) noexcept {
        return !slices.empty() && slices.size() <= 0xFFFFFFFF &&
               SetTextureSlice(*this, static_cast<DWORD>(slices.size()), slices.data()) != 0;
    }

    // Makes slice `index` current. False, with nothing changed, when there is none.
    bool SelectSlice(int index) noexcept {
        const DWORD count = GetTextureSliceCount(*this);
        if (count == 0xFFFFFFFF || index < 0 || static_cast<DWORD>(index) >= count) return false;
        SetTextureCurSlice(*this, index);
        return true;
    }

    // The rectangle of the current slice, or of the whole texture; none for a wrong handle.
    std::optional<RECT> Slice() const noexcept {
        RECT slice{};
        if (!GetTextureCurSlice(*this, &slice)) return std::nullopt;
        return slice;
    }

    // As for bitmaps. New textures have no slices and the layout record 0.
    Texture Resized(DWORD width, DWORD height, DWORD sampler = LACQUER_BILINEAR) const noexcept {
        return Texture(ResizeTexture(*this, width, height, sampler));
    }
    Texture Transformed(DWORD code) const noexcept { return Texture(TransformTexture(*this, code)); }
};

// What is drawn on.
class Canvas : public Owner<HGCANVAS, DeleteCanvas> {
public:
    using Owner::Owner;

    // CreateCanvas, CreateSystemCanvas: transparent black in process memory, or in a DIB section with a device context;
    // 1..32767 pixels on a side. Empty owner on failure.
    static Canvas Create(DWORD width, DWORD height) noexcept { return Canvas(CreateCanvas(width, height, HGCANVAS{})); }
    static Canvas CreateSystem(DWORD width, DWORD height) noexcept {
        return Canvas(CreateSystemCanvas(width, height, HGCANVAS{}));
    }

    // CreateCanvasFromDC: draws on the caller's device context, which must outlive the canvas. Empty owner on failure.
    static Canvas FromContext(HDC dc) noexcept { return Canvas(CreateCanvasFromDC(dc)); }

    // Width and height, pixels; none for a wrong handle and a canvas made from a device context.
    std::optional<SIZE> Size() const noexcept {
        SIZE size{};
        if (!GetCanvasSize(*this, &size)) return std::nullopt;
        return size;
    }

    // The clip's bounding box, logical; none for a wrong handle.
    std::optional<RECT> Clip() const noexcept {
        RECT clip{};
        if (!GetCanvasClipRect(*this, &clip)) return std::nullopt;
        return clip;
    }

    // As Bitmap::SetDrawMode; refused by a canvas made from a device context.
    bool SetDrawMode(DWORD mode, DWORD key = 0) noexcept {
        return SetCanvasFilter(*this, (mode << 24) | (key & 0xFFFFFF)) != 0;
    }

    // GetBitmap, GetTexture: the canvas's own pixels as a bitmap or texture. Empty owner on failure and for a canvas
    // made from a device context.
    BitmapAlias AsBitmap() const noexcept { return BitmapAlias(GetBitmap(*this)); }
    Texture AsTexture() const noexcept { return Texture(GetTexture(*this)); }

    // GetCanvasParent: the parent that the canvas remembers; empty owner when there is none.
    CanvasAlias Parent() const noexcept { return CanvasAlias(GetCanvasParent(*this)); }

    // FillSolidRectEx: fills a logical rectangle with a straight colour 0xAARRGGBB by a draw mode LACQUER_DRAW_....
    bool Fill(const RECT &rect, DWORD colour, DWORD mode = LACQUER_DRAW_OVER) noexcept {
        return FillSolidRectEx(*this, colour, &rect, mode << 24) != 0;
    }

    // DrawBitmapRectEx: draws `source`, or everything, into the logical rectangle `dest`, sampled when the sizes
    // differ, at a strength of `alpha` / 255.
    bool Draw(HGBITMAP bitmap, const RECT &dest, DWORD sampler = LACQUER_BILINEAR, BYTE alpha = 255,
              const RECT *source = nullptr) noexcept {
        return DrawBitmapRectEx(*this, &dest, bitmap, source, sampler, alpha) != 0;
    }

    // DrawTextureEx: draws the current slice into `dest` as the texture's layout says. `scale` is that of the parts
    // that the layout record names. Always false for a tile or a top-tile.
    bool Draw(HGTEXTURE texture, const RECT &dest, DWORD sampler = LACQUER_BILINEAR, BYTE alpha = 255,
              float scale = 1) noexcept {
        return DrawTextureEx(*this, &dest, texture, sampler, alpha, scale, 0) != 0;
    }

    // BlendCanvas: draws the rectangle `sourceRect` of another canvas into `dest`.
    bool Blend(const RECT &dest, HGCANVAS source, const RECT &sourceRect, BYTE alpha = 255) noexcept {
        return BlendCanvas(*this, &dest, source, &sourceRect, alpha) != 0;
    }

    // The font of text that follows: a family's name (null: that of the system's user interface), the size of the em
    // square in pixels, bits VEL_FONT_.... False for what SetFontFaceName and its siblings refuse; those set before
    // stay.
    bool SetFont(const WCHAR *family, float pixels, DWORD style = 0) noexcept {
        return SetFontFaceName(*this, family) && SetTextSize(*this, pixels) && SetFontStyle(*this, style);
    }
};

inline Bitmap Bitmap::From(Canvas &&canvas) noexcept {
    Bitmap bitmap(CanvasToBitmap(canvas));
    if (bitmap) static_cast<void>(canvas.Release());
    return bitmap;
}

inline Texture Texture::From(Canvas &&canvas) noexcept {
    Texture texture(CanvasToTexture(canvas));
    if (texture) static_cast<void>(canvas.Release());
    return texture;
}

}  // namespace lq

#endif
