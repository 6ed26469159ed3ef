/// @file
/// Owners of bitmaps, textures and canvases.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_OBJECTS_HPP
#define LACQUER_OBJECTS_HPP

#include <lacquer/lacquer.h>
#include <lacquer/pixels.hpp>
#include <velgraphic/owner.hpp>

#include <optional>

namespace lq {

class Canvas;

/// @addtogroup cpp
/// @param width pixels, 1 to 32767
/// @param height pixels, 1 to 32767
/// @param bitsPerPixel any; 8, 24 and 32 can be drawn
/// @param paletteCount words of palette for 8 bits and fewer; 0 for a shared, read-only palette of greys
/// @param mode the draw mode LACQUER_DRAW_...
/// @param key the key colour 0xRRGGBB of LACQUER_DRAW_COLOR_KEY
/// @param sampler LACQUER_NEAREST ... LACQUER_AREA, where sizes differ
/// @param code LACQUER_ROTATE_90 ... LACQUER_TRANSVERSE
/// @param dest where, logical pixels
/// @param alpha the strength, 255 being full
/// @return true for done; false for a wrong handle
/// @{

/// A handle that shows a canvas's own pixels without owning them: it is given back, and they stay.
using BitmapAlias = Owner<HGBITMAP, ReleaseBitmap>;
/// A handle that shows a canvas without owning it: it is given back, and the canvas stays.
using CanvasAlias = Owner<HGCANVAS, ReleaseCanvas>;

/// A picture in memory, of 8, 24 or 32 bits per pixel.
class Bitmap : public Owner<HGBITMAP, DeleteBitmap> {
public:
    using Owner::Owner;

    /// CreateMemBitmapEx: a new bitmap in process memory, its pixels not cleared.
    /// @return the bitmap; empty on failure
    static Bitmap Create(DWORD width, DWORD height, DWORD bitsPerPixel = 32, DWORD paletteCount = 0) noexcept {
        return Bitmap(CreateMemBitmapEx(width, height, bitsPerPixel, paletteCount));
    }

    /// CreateSystemBitmap: a new bitmap of 32 bits in a DIB section, all 0.
    /// @return the bitmap; empty on failure
    static Bitmap CreateSystem(DWORD width, DWORD height) noexcept { return Bitmap(CreateSystemBitmap(width, height)); }

    /// CanvasToBitmap: turns a canvas into a bitmap.
    /// @param canvas the canvas, which is an empty owner afterwards
    /// @return the bitmap; empty on failure: CanvasToBitmap says what becomes of the canvas then
    static Bitmap From(Canvas &&canvas) noexcept;

    /// GetBitmapSize: width and height.
    /// @return pixels; none for a wrong handle
    std::optional<SIZE> Size() const noexcept {
        SIZE size{};
        if (!GetBitmapSize(*this, &size)) return std::nullopt;
        return size;
    }

    /// SetBitmapFilter: sets the draw mode.
    bool SetDrawMode(DWORD mode, DWORD key = 0) noexcept {
        return SetBitmapFilter(*this, (mode << 24) | (key & 0xFFFFFF)) != 0;
    }

    /// ResizeBitmap: a new bitmap of another size.
    /// @return the bitmap; empty on failure
    Bitmap Resized(DWORD width, DWORD height, DWORD sampler = LACQUER_BILINEAR) const noexcept {
        return Bitmap(ResizeBitmap(*this, width, height, sampler));
    }

    /// TransformBitmap: a new bitmap, turned or mirrored.
    /// @return the bitmap; empty on failure
    Bitmap Transformed(DWORD code) const noexcept { return Bitmap(TransformBitmap(*this, code)); }
};

/// A picture to draw with: a bitmap with a layout record and slices.
class Texture : public Owner<HGTEXTURE, DeleteTexture> {
public:
    using Owner::Owner;

    /// CreateTextureEx: a new texture in process memory, its pixels not cleared.
    /// @return the texture; empty on failure
    static Texture Create(DWORD width, DWORD height, DWORD bitsPerPixel = 32, DWORD paletteCount = 0) noexcept {
        return Texture(CreateTextureEx(width, height, bitsPerPixel, paletteCount));
    }

    /// BitmapToTexture: turns a bitmap into a texture.
    /// @param bitmap the bitmap, which is an empty owner afterwards
    /// @return the texture; empty on failure: BitmapToTexture says what becomes of the bitmap then
    static Texture From(Bitmap &&bitmap) noexcept {
        Texture texture(BitmapToTexture(bitmap));
        if (texture) static_cast<void>(bitmap.Release());
        return texture;
    }

    /// CanvasToTexture: turns a canvas into a texture.
    /// @param canvas the canvas, which is an empty owner afterwards
    /// @return the texture; empty on failure: CanvasToTexture says what becomes of the canvas then
    static Texture From(Canvas &&canvas) noexcept;

    /// GetTextureSize: width and height of the current slice, or of everything without slices.
    /// @return pixels; none for a wrong handle and where the current slice is not in the list
    std::optional<SIZE> Size() const noexcept {
        SIZE size{};
        if (!GetTextureSize(*this, &size)) return std::nullopt;
        return size;
    }

    /// SetTextureFilter: sets the draw mode.
    bool SetDrawMode(DWORD mode, DWORD key = 0) noexcept {
        return SetTextureFilter(*this, (mode << 24) | (key & 0xFFFFFF)) != 0;
    }

    /// SetTextureMode: sets how DrawTexture lays it out.
    /// @param mode the layout record, which is copied
    bool SetLayout(const TextureMode &mode) noexcept { return SetTextureMode(*this, &mode) != 0; }

    /// SetTextureSlice: replaces the list of slices and makes the last one current.
    /// @param slices rectangles in pixels of the texture, which are copied
    /// @return true for done; false, with nothing changed, for a wrong handle, an empty list and when memory is short
    bool SetSlices(Span<const RECT> slices) noexcept {
        return !slices.empty() && slices.size() <= 0xFFFFFFFF &&
               SetTextureSlice(*this, static_cast<DWORD>(slices.size()), slices.data()) != 0;
    }

    /// SetTextureCurSlice: makes a slice current.
    /// @param index its place in the list, from 0
    /// @return true for done; false, with nothing changed, for a wrong handle and when there is no such slice
    bool SelectSlice(int index) noexcept {
        const DWORD count = GetTextureSliceCount(*this);
        if (count == 0xFFFFFFFF || index < 0 || static_cast<DWORD>(index) >= count) return false;
        SetTextureCurSlice(*this, index);
        return true;
    }

    /// GetTextureCurSlice: the rectangle of the current slice, or of the whole texture.
    /// @return pixels; none for a wrong handle
    std::optional<RECT> Slice() const noexcept {
        RECT slice{};
        if (!GetTextureCurSlice(*this, &slice)) return std::nullopt;
        return slice;
    }

    /// ResizeTexture: a new texture of another size, without slices and with the layout record 0.
    /// @return the texture; empty on failure
    Texture Resized(DWORD width, DWORD height, DWORD sampler = LACQUER_BILINEAR) const noexcept {
        return Texture(ResizeTexture(*this, width, height, sampler));
    }

    /// TransformTexture: a new texture, turned or mirrored, without slices and with the layout record 0.
    /// @return the texture; empty on failure
    Texture Transformed(DWORD code) const noexcept { return Texture(TransformTexture(*this, code)); }
};

/// What is drawn on.
class Canvas : public Owner<HGCANVAS, DeleteCanvas> {
public:
    using Owner::Owner;

    /// CreateCanvas: a new canvas in process memory, transparent black.
    /// @return the canvas; empty on failure
    static Canvas Create(DWORD width, DWORD height) noexcept { return Canvas(CreateCanvas(width, height, HGCANVAS{})); }

    /// CreateSystemCanvas: a new canvas in a DIB section with a device context, transparent black.
    /// @return the canvas; empty on failure
    static Canvas CreateSystem(DWORD width, DWORD height) noexcept {
        return Canvas(CreateSystemCanvas(width, height, HGCANVAS{}));
    }

    /// CreateCanvasFromDC: a canvas that draws on the caller's device context.
    /// @param dc the device context, which must outlive the canvas; null makes a canvas that can't be drawn on
    /// @return the canvas; empty on failure
    static Canvas FromContext(HDC dc) noexcept { return Canvas(CreateCanvasFromDC(dc)); }

    /// GetCanvasSize: width and height.
    /// @return pixels; none for a wrong handle and a canvas made from a device context
    std::optional<SIZE> Size() const noexcept {
        SIZE size{};
        if (!GetCanvasSize(*this, &size)) return std::nullopt;
        return size;
    }

    /// GetCanvasClipRect: the clip's bounding box.
    /// @return logical pixels; none for a wrong handle
    std::optional<RECT> Clip() const noexcept {
        RECT clip{};
        if (!GetCanvasClipRect(*this, &clip)) return std::nullopt;
        return clip;
    }

    /// SetCanvasFilter: sets the draw mode with which the canvas's pixels are drawn.
    /// @return true for done; false for a wrong handle and a canvas made from a device context
    bool SetDrawMode(DWORD mode, DWORD key = 0) noexcept {
        return SetCanvasFilter(*this, (mode << 24) | (key & 0xFFFFFF)) != 0;
    }

    /// GetBitmap: the canvas's own pixels as a bitmap.
    /// @return the handle; empty on failure and for a canvas made from a device context
    BitmapAlias AsBitmap() const noexcept { return BitmapAlias(GetBitmap(*this)); }

    /// GetTexture: the canvas's own pixels as a texture.
    /// @return the texture; empty on failure and for a canvas made from a device context
    Texture AsTexture() const noexcept { return Texture(GetTexture(*this)); }

    /// GetCanvasParent: the parent that the canvas remembers.
    /// @return a handle of it; empty when there is none and for a wrong handle
    CanvasAlias Parent() const noexcept { return CanvasAlias(GetCanvasParent(*this)); }

    /// FillSolidRectEx: fills a rectangle with a colour.
    /// @param rect where, logical pixels
    /// @param colour straight 0xAARRGGBB
    bool Fill(const RECT &rect, DWORD colour, DWORD mode = LACQUER_DRAW_OVER) noexcept {
        return FillSolidRectEx(*this, colour, &rect, mode << 24) != 0;
    }

    /// DrawBitmapRectEx: draws a bitmap into a rectangle.
    /// @param bitmap the bitmap; a wrong handle is refused
    /// @param source the part that is drawn, pixels of the bitmap; null for everything
    bool Draw(HGBITMAP bitmap, const RECT &dest, DWORD sampler = LACQUER_BILINEAR, BYTE alpha = 255,
              const RECT *source = nullptr) noexcept {
        return DrawBitmapRectEx(*this, &dest, bitmap, source, sampler, alpha) != 0;
    }

    /// DrawTextureEx: draws the current slice into a rectangle as the texture's layout says.
    /// @param texture the texture; a wrong handle is refused
    /// @param scale factor on the parts that the layout record names
    /// @return true for done; false for a wrong handle, a slice that is empty or not inside the texture, and always for
    /// a tile or a top-tile
    bool Draw(HGTEXTURE texture, const RECT &dest, DWORD sampler = LACQUER_BILINEAR, BYTE alpha = 255,
              float scale = 1) noexcept {
        return DrawTextureEx(*this, &dest, texture, sampler, alpha, scale, 0) != 0;
    }

    /// BlendCanvas: draws a rectangle of another canvas into a rectangle.
    /// @param source the other canvas; a wrong handle is refused
    /// @param sourceRect logical pixels of it
    /// @return true for done; false for a wrong handle, and where GDI draws and refuses
    bool Blend(const RECT &dest, HGCANVAS source, const RECT &sourceRect, BYTE alpha = 255) noexcept {
        return BlendCanvas(*this, &dest, source, &sourceRect, alpha) != 0;
    }

    /// SetFontFaceName, SetTextSize, SetFontStyle: sets the font of text that follows.
    /// @param family a family's name; null for the font of the system's user interface
    /// @param pixels the size of the em square
    /// @param style VEL_FONT_..., added up
    /// @return true for done; false for what one of the three refuses: what those before it set stays
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

/// @}

}  // namespace lq

#endif
