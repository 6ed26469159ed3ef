/** @file
 * Lacquer: a 2D software raster library for user interfaces that paint their own windows.
 *
 * Three kinds of pixel object, each behind a handle: bitmaps, textures (images with a draw mode record and slices) and
 * canvases (drawing targets). Conventions, unless a declaration says otherwise:
 *
 * - Results: 1 for done and 0 for refused, or a handle that is 0 on failure. A wrong handle (zero, of another type,
 *   freed, from another slot generation) is refused: the result is 0 and nothing changes. A null pointer where a record
 *   or a rectangle is required is refused after the handle tests. Nothing is thrown, printed or aborted.
 *
 * - Rectangles: right and bottom are exclusive; coordinates may have any value. On a canvas they are logical:
 *   device = logical + viewport origin - window origin.
 *
 * - Pixels: 32-bit words 0xAARRGGBB, in memory blue, green, red, alpha; colour channels are premultiplied by alpha
 *   wherever alpha is honoured. 24-bit pixels are the bytes blue, green, red; 8-bit pixels index a palette of such
 *   words. Rows run top-down; strides are bytes.
 *
 * - Overlap: source and destination may share pixels. A plain copy at 1:1 within one surface has the result of a copied
 *   source, whatever the direction. Any other draw or filter then gives unspecified colours inside its destination, on
 *   another processor perhaps others, and does no other harm.
 *
 * How the comments are to be read: one comment stands for all functions up to the next empty line. What it leaves out,
 * the head of its section says for all its functions (parameters, result), and else the end of this comment.
 *
 * The header compiles as C11 and as C++17. On Windows the types come from <windows.h>.
 *
 * @par Threads
 * Any thread may call it; one thread at a time works on an object. Drawing works on its source and its canvas.
 * @since 0.1.0
 */
#ifndef LACQUER_LACQUER_H
#define LACQUER_LACQUER_H

#ifdef _WIN32
#include <windows.h>
#undef DeleteBitmap /* <windowsx.h> has a macro of this name: include it before this header, not after it */
#else
#include <lacquer/win32_types.h>
#endif
#include <lacquer/version.h>
#include <stdint.h>
#include <velgraphic/velgraphic.h>

#if defined(_WIN32)
#define LACQUER_API
#else
/** Stands before what the library exports. */
#define LACQUER_API __attribute__((visibility("default")))
#endif

/** @defgroup lacquer Lacquer
 * The raster library: bitmaps, textures and canvases, and what is drawn with them. */

/** @defgroup handles Handles and locked pixels
 * The low 32 bits of a handle count on the way in; the upper 32 bits are zero on the way out. Bits 0-15 are a slot
 * index, 16-23 the type (1 canvas, 2 bitmap, 3 texture), 24-31 the slot's generation. The generation has eight bits:
 * after 256 deletions in one slot an old handle matches again, so forget a handle when you delete its object. In the
 * calling conventions of both targets these structs travel like a pointer-sized integer.
 *
 * There is one handle table, inside the library, with 32767 usable slots.
 * @ingroup lacquer */

#ifdef __cplusplus
/** The operators of a handle in C++; known to this header only. @ingroup handles */
#define LACQUER_HANDLE_OPERATORS(Handle)                                      \
    explicit operator bool() const { return value != 0; }                     \
    friend bool operator==(Handle a, Handle b) { return a.value == b.value; } \
    friend bool operator!=(Handle a, Handle b) { return a.value != b.value; }
#else
#define LACQUER_HANDLE_OPERATORS(Handle)
#endif
/** The handle of a bitmap. In C++ it can be tested for 0 and compared. @ingroup handles */
typedef struct HGBITMAP {
    uintptr_t value; /**< 0 for no bitmap */
    LACQUER_HANDLE_OPERATORS(HGBITMAP)
} HGBITMAP;
/** The handle of a texture. In C++ it can be tested for 0 and compared. @ingroup handles */
typedef struct HGTEXTURE {
    uintptr_t value; /**< 0 for no texture */
    LACQUER_HANDLE_OPERATORS(HGTEXTURE)
} HGTEXTURE;
/** The handle of a canvas. In C++ it can be tested for 0 and compared. @ingroup handles */
typedef struct HGCANVAS {
    uintptr_t value; /**< 0 for no canvas */
    LACQUER_HANDLE_OPERATORS(HGCANVAS)
} HGCANVAS;
#undef LACQUER_HANDLE_OPERATORS

/** Locked pixels. The first seven fields, 32 bytes, are laid out as the Win32 BITMAP. @ingroup handles */
typedef struct SurfaceView {
    LONG type;          /**< always 0 */
    LONG width;         /**< of the locked rectangle, pixels */
    LONG height;        /**< of the locked rectangle, pixels */
    LONG stride;        /**< bytes from one row to the next of the whole surface, positive */
    WORD planes;        /**< always 1 */
    WORD bitsPerPixel;  /**< 8, 24 or 32 for surfaces that can be drawn */
    void *bits;         /**< the first byte of the top-left pixel */
    DWORD paletteCount; /**< how many colours the palette has; written by the ...Ex locks only */
    DWORD *palette;     /**< as many words 0xAARRGGBB, or null; written by the ...Ex locks only */
} SurfaceView;

/** A straight colour in 24 bits. @ingroup colour */
typedef struct RGBRecord {
    BYTE b; /**< blue, 0 to 255 */
    BYTE g; /**< green, 0 to 255 */
    BYTE r; /**< red, 0 to 255 */
} RGBRecord;
/** A straight colour as hue, saturation and lightness. @ingroup colour */
typedef struct HSLRecord {
    BYTE l; /**< lightness: 0 black, 255 white */
    BYTE s; /**< saturation: 0 grey, 255 pure */
    BYTE h; /**< hue, 0 to 255 for the whole circle: 0 red, 85 green, 170 blue */
} HSLRecord;

/** The layouts of DrawTextureEx. @ingroup textures */
enum {
    LACQUER_LAYOUT_STRETCH = 0,          /**< the whole slice into the whole rectangle */
    LACQUER_LAYOUT_NINE_GRID = 1,        /**< DrawTexture9Grid: corners keep their size */
    LACQUER_LAYOUT_TILE = 2,             /**< DrawTextureTile: repeated in both directions */
    LACQUER_LAYOUT_CENTER = 3,           /**< DrawTextureCenter: with its aspect kept, centred */
    LACQUER_LAYOUT_HOLLOW_NINE_GRID = 4, /**< DrawTexture9Grid with a centre of one colour */
    LACQUER_LAYOUT_TOP_TILE = 5          /**< DrawTextureTopTile: repeated from left to right */
};

/** What follows the scale argument of a draw, added up. @ingroup textures */
enum {
    LACQUER_SCALE_LEFT = 0x1,   /**< the left margin of a nine-grid */
    LACQUER_SCALE_TOP = 0x2,    /**< its top margin */
    LACQUER_SCALE_RIGHT = 0x4,  /**< its right margin */
    LACQUER_SCALE_BOTTOM = 0x8, /**< its bottom margin */
    LACQUER_SCALE_CELL = 0x10   /**< the cells of a tile */
};

/** How DrawTextureEx lays a texture out. @ingroup textures */
typedef struct TextureMode {
    DWORD mode;       /**< LACQUER_LAYOUT_...; any other value stretches */
    DWORD scaleFlags; /**< LACQUER_SCALE_..., added up */
    RECT margins;     /**< the widths of left column, top row, right column and bottom row, source pixels */
} TextureMode;

/** A rectangle in logical coordinates; fractions of a pixel count, to the nearest 1/256. @ingroup geometry */
typedef struct GeoRect {
    float left;   /**< the left edge, pixels */
    float top;    /**< the top edge, pixels */
    float right;  /**< the right edge, pixels */
    float bottom; /**< the bottom edge, pixels */
} GeoRect;

/** How a geometric rectangle is painted. 28 bytes. @ingroup geometry */
typedef struct GeoStyle {
    DWORD border;      /**< straight colour 0xAARRGGBB; alpha 0 leaves the border unpainted, in every mode */
    DWORD fill;        /**< straight colour 0xAARRGGBB; alpha 0 leaves the inside unpainted, in every mode */
    float borderWidth; /**< pixels, inside the rectangle's edge; 0 to 16384 */
    float radii[4];    /**< pixels, 0 to 16384: top left, top right, bottom right, bottom left corner */
} GeoStyle;

/** One shadow of a rectangle. 44 bytes. @ingroup geometry */
typedef struct ShadowStyle {
    DWORD colour;    /**< straight, 0xAARRGGBB */
    LONG offsetX;    /**< pixels by which the shadow is moved to the right */
    LONG offsetY;    /**< pixels by which it is moved down */
    float blur;      /**< pixels, 0 to 1024: twice the standard deviation of the Gaussian, as in CSS */
    float spread;    /**< pixels, -16384 to 16384, by which the shadow grows before it is blurred */
    float radii[4];  /**< pixels, of the rectangle's corners before the spread; order as in GeoStyle */
    float lightness; /**< factor on the colour's lightness, 0 to 255; exactly 1 leaves the colour alone */
    DWORD flags;     /**< LACQUER_SHADOW_..., added up */
} ShadowStyle;

/** Where a shadow falls. Without a flag: around the rectangle, not under it. @ingroup geometry */
enum {
    LACQUER_SHADOW_INNER = 1, /**< into the rectangle, from its edge inwards */
    LACQUER_SHADOW_FILLED = 2 /**< also under the rectangle; ignored with LACQUER_SHADOW_INNER */
};

/** The draw mode: the top byte of an object's filter word, with which the object is drawn as a source (s); other
 * values, and LACQUER_DRAW_OR and LACQUER_DRAW_GREY_TINT, copy. Also the top byte of a fill's mode word, with the
 * colour as s; there LACQUER_DRAW_COLOR_KEY and other values act as LACQUER_DRAW_OVER. d is the destination.
 *
 * The key of LACQUER_DRAW_COLOR_KEY is the low 24 bits of the filter word, 0xRRGGBB. In a 24-bit source it leaves out
 * the pixels of that colour. In an 8-bit source (by the palette's word) and in a 32-bit one it leaves out only the
 * pixels that have that colour and alpha 0. A stretch of an 8- or 32-bit source by any sampler but LACQUER_NEAREST
 * ignores the key and draws over; a stretch of a 24-bit source keeps the key and samples nearest. A constant alpha of 1
 * to 254 ignores the key, too. @ingroup drawing */
enum {
    LACQUER_DRAW_COPY = 0,      /**< d = s */
    LACQUER_DRAW_OVER = 1,      /**< d = s + d * (256 - sA) / 256 */
    LACQUER_DRAW_COLOR_KEY = 2, /**< d = s, unless s is the key; see above */
    LACQUER_DRAW_MODULATE = 3,  /**< d = d * (s + 1) / 256 per channel */
    LACQUER_DRAW_OR = 4,        /**< d = d | s */
    LACQUER_DRAW_GREY_TINT = 5, /**< d = d * (256 - dA) / 256 + (dB + 2 dG + dR) / 4 * sA / 256 per colour channel */
    LACQUER_DRAW_BEHIND = 6     /**< d = d + s * (256 - dA) / 256 */
};

/** The kernel mode of one draw: the sampler when sizes differ. Any other value is bilinear. @ingroup drawing */
enum {
    LACQUER_NEAREST = 0,  /**< the nearest pixel */
    LACQUER_BILINEAR = 1, /**< between the four nearest pixels */
    LACQUER_BICUBIC = 4,  /**< between the sixteen nearest pixels, by the weights of SetStretchKernelMode */
    LACQUER_AREA = 5      /**< the mean, for opaque copies that shrink; bicubic for other copies, bilinear for blends */
};

/** Codes of the Transform..., Rotate... (1 to 3) and Flip... (4 and 5) functions. @ingroup bitmaps */
enum {
    LACQUER_ROTATE_90 = 1,       /**< a quarter turn clockwise */
    LACQUER_ROTATE_180 = 2,      /**< a half turn */
    LACQUER_ROTATE_270 = 3,      /**< clockwise, that is 90 degrees counter-clockwise */
    LACQUER_FLIP_VERTICAL = 4,   /**< upside down */
    LACQUER_FLIP_HORIZONTAL = 5, /**< mirrored */
    LACQUER_TRANSPOSE = 6,       /**< columns become rows */
    LACQUER_TRANSVERSE = 7       /**< transposed across the other diagonal */
};

#ifdef __cplusplus
extern "C" {
#endif

/** @addtogroup handles
 * @param table not used; null
 * @{ */

/** The handle table, which only the library knows. */
typedef struct HandleTable HandleTable;

/** Registers an object of the caller's. The table never owns it.
 * @param type its low 8 bits are stored; with 0 the handle is never current
 * @param object what the handle stands for; null is not kept: its slot counts as free
 * @return the handle; 0 when no slot is free
 * @see e_DelHandleEntry */
LACQUER_API DWORD e_NewHandleEntry(HandleTable *table, int type, void *object);

/** Frees the slot of a current handle without touching the object. Not for handles of Lacquer's own objects, which
 * would never be deleted.
 * @param handle the handle, of any type
 * @return 1; 0 when the handle is not current */
LACQUER_API int e_DelHandleEntry(HandleTable *table, DWORD handle);

/** @} */

/** @defgroup bitmaps Bitmaps
 * Pixels in memory: what is drawn, masks, and scratch for filters.
 *
 * @param bitmap the bitmap; a wrong handle is refused
 * @param width pixels, 1 to 32767
 * @param height pixels, 1 to 32767
 * @param bitsPerPixel any; 8, 24 and 32 can be drawn; its low 16 bits count
 * @param paletteCount colours of a palette of its own, for 8 bits and fewer: its low 16 bits, cut to 2^bitsPerPixel; 0
 * for a shared, read-only palette of 256 greys
 * @return 1; 0 for a wrong handle
 * @ingroup lacquer
 * @{ */

/** A new 32-bit bitmap in a DIB section, zero-filled.
 * @return the bitmap, which DeleteBitmap deletes; 0 for another size, when memory is short and when no slot is free */
LACQUER_API HGBITMAP CreateSystemBitmap(DWORD width, DWORD height);

/** A new bitmap in process memory, its pixels and palette not cleared: CreateMemBitmap with 32 bits per pixel,
 * CreateMemBitmapEx with any depth.
 * @return the bitmap, which DeleteBitmap deletes; 0 for another size, when memory is short and when no slot is free */
LACQUER_API HGBITMAP CreateMemBitmap(DWORD width, DWORD height);
LACQUER_API HGBITMAP CreateMemBitmapEx(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount);

/** Deletes a bitmap; nothing for a wrong handle. Not for handles that came from GetBitmap: these empty their canvas.
 * @see ReleaseBitmap */
LACQUER_API void DeleteBitmap(HGBITMAP bitmap);

/** The GDI bitmap of a bitmap's pixels. A bitmap in process memory moves into a DIB section for good: it has 32 bits
 * per pixel and no palette afterwards, and views locked before are invalid.
 * @return the GDI bitmap, owned by the library; null for a wrong handle, for depths other than 8, 24 and 32, and when
 * no DIB section can be made */
LACQUER_API HBITMAP GetBitmapHandle(HGBITMAP bitmap);

/** Writes width and height.
 * @param out where they are written, pixels; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetBitmapSize(HGBITMAP bitmap, SIZE *out);

/** Describes the pixels of a rectangle. The view is valid until the bitmap is deleted or converted; locks are not
 * counted. LockBitmapBitsEx also describes the palette.
 * @param out where the description is written, by LockBitmapBits only the fields up to `bits`; null is refused
 * @param rect pixels of the bitmap; it must not be empty and must lie inside; null for everything
 * @return 1; 0, with these fields cleared, for another rectangle and below 8 bits per pixel; 0, with nothing written,
 * for a wrong handle or a null `out`
 * @see UnlockBitmapBits */
LACQUER_API int LockBitmapBits(HGBITMAP bitmap, SurfaceView *out, const RECT *rect);
LACQUER_API int LockBitmapBitsEx(HGBITMAP bitmap, SurfaceView *out, const RECT *rect);

/** Ends a lock. */
LACQUER_API int UnlockBitmapBits(HGBITMAP bitmap);

/** Writes the filter word, which is 0 at first.
 * @param out where it is written: the draw mode LACQUER_DRAW_... in its top byte, in the low 24 bits the key colour
 * 0xRRGGBB of LACQUER_DRAW_COLOR_KEY; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetBitmapFilter(HGBITMAP bitmap, DWORD *out);

/** Sets the filter word, with which a bitmap is drawn.
 * @param filter the draw mode LACQUER_DRAW_... in its top byte, in the low 24 bits the key colour 0xRRGGBB of
 * LACQUER_DRAW_COLOR_KEY */
LACQUER_API int SetBitmapFilter(HGBITMAP bitmap, DWORD filter);

/** Writes the bits per pixel.
 * @param out where they are written; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetBitmapBitsPixel(HGBITMAP bitmap, BYTE *out);

/** Copies pixels, palette and filter word of one rectangle to another. Nothing is stretched: the common top-left part
 * is copied. Equal depths with palettes of equal size are copied as they are; otherwise a 32-bit destination receives
 * converted pixels, and any other stays as it is.
 * @param dest the bitmap that is written; a wrong handle is refused
 * @param destRect pixels of `dest`; null for everything
 * @param source the bitmap that is read; a wrong handle is refused
 * @param sourceRect pixels of `source`; null for everything
 * @return 1, also when nothing is copied because a rectangle is empty or not inside; 0 for a wrong handle */
LACQUER_API int CopyBitmap(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect);

/** A new 32-bit bitmap of another size, in the same kind of storage and with the same filter word. From other depths
 * than 8, 24 and 32 bits no pixels come: those of the new bitmap are not set.
 * @param kernelMode the sampler, LACQUER_NEAREST ... LACQUER_AREA
 * @return the bitmap, which DeleteBitmap deletes; 0 for a wrong handle, another size, when memory is short and when no
 * slot is free */
LACQUER_API HGBITMAP ResizeBitmap(HGBITMAP bitmap, DWORD width, DWORD height, DWORD kernelMode);

/** A new bitmap of the same depth, in the same kind of storage and with the same filter word, turned or mirrored. At
 * other depths than 8, 24 and 32 bits its pixels are not set.
 * @param code LACQUER_ROTATE_90 ... LACQUER_TRANSVERSE; of RotateBitmap one of the three rotations, of FlipBitmap one
 * of the two flips
 * @return the bitmap, which DeleteBitmap deletes; 0 for a wrong handle, another code, when memory is short and when no
 * slot is free */
LACQUER_API HGBITMAP TransformBitmap(HGBITMAP bitmap, DWORD code);
LACQUER_API HGBITMAP RotateBitmap(HGBITMAP bitmap, int code);
LACQUER_API HGBITMAP FlipBitmap(HGBITMAP bitmap, DWORD code);

/** Turns a canvas into a bitmap; the canvas handle is invalid afterwards. Unless the canvas's draw mode is
 * LACQUER_DRAW_OVER every alpha becomes 255.
 * @param canvas the canvas; a wrong handle is refused
 * @return the bitmap, which DeleteBitmap deletes; 0, with nothing changed, for a wrong handle and a canvas made from a
 * device context; 0, and the canvas is gone, when no slot is free
 * @see GetBitmap, for a bitmap of the canvas's pixels beside the canvas */
LACQUER_API HGBITMAP CanvasToBitmap(HGCANVAS canvas);

/** @} */

/** @defgroup textures Textures
 * Images to draw with: a bitmap with a layout record (TextureMode) and a list of slices, rectangles of which the
 * current one is drawn. Rectangles are in the whole texture's coordinates, not in a slice's.
 *
 * @param texture the texture; a wrong handle is refused
 * @param width pixels, 1 to 32767
 * @param height pixels, 1 to 32767
 * @param bitsPerPixel any; 8, 24 and 32 can be drawn; its low 16 bits count
 * @param paletteCount colours of a palette of its own, for 8 bits and fewer: its low 16 bits, cut to 2^bitsPerPixel; 0
 * for a shared, read-only palette of 256 greys
 * @return 1; 0 for a wrong handle
 * @ingroup lacquer
 * @{ */

/** A new texture in process memory, its pixels and palette not cleared, without slices and with the layout record 0:
 * CreateTexture with 32 bits per pixel, CreateTextureEx with any depth.
 * @return the texture, which DeleteTexture deletes; 0 for another size, when memory is short and when no slot is free
 */
LACQUER_API HGTEXTURE CreateTexture(DWORD width, DWORD height);
LACQUER_API HGTEXTURE CreateTextureEx(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount);

/** Deletes a texture; nothing for a wrong handle. Pixels borrowed from a canvas stay the canvas's. Both are the same
 * function. */
LACQUER_API void DeleteTexture(HGTEXTURE texture);
LACQUER_API void ReleaseTexture(HGTEXTURE texture);

/** A texture that borrows a canvas's pixels: what is drawn on the canvas shows in the texture. It keeps the pixels that
 * it has when the canvas is deleted, or when GetCanvasHandle moves the canvas's pixels.
 * @param canvas the canvas; a wrong handle is refused
 * @return the texture, which ReleaseTexture gives back; 0 for a wrong handle, a canvas made from a device context, when
 * memory is short and when no slot is free
 * @see CanvasToTexture */
LACQUER_API HGTEXTURE GetTexture(HGCANVAS canvas);

/** A texture that describes the pixels of a companion canvas's bitmap. It is valid as long as these pixels are.
 * @param canvas the companion's canvas; null is refused
 * @return the texture, which ReleaseTexture gives back; 0 for a null canvas or one without a bitmap, when memory is
 * short and when no slot is free */
LACQUER_API HGTEXTURE GetTextureFromVelCanvas(velCanvas *canvas);

/** The GDI bitmap of a texture's pixels. A texture in process memory moves into a DIB section for good: it has 32 bits
 * per pixel and no palette afterwards, and views locked before are invalid.
 * @return the GDI bitmap, owned by the library; null for a wrong handle, for pixels that the texture borrows from a
 * canvas in process memory or from a companion canvas, for depths other than 8, 24 and 32, and when no DIB section can
 * be made */
LACQUER_API HBITMAP GetTextureHandle(HGTEXTURE texture);

/** Writes the size of the current slice when the texture has a list of slices, else of the whole texture.
 * @param out where it is written, pixels; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null, and when there is a list of slices but the current
 * index is not in it */
LACQUER_API int GetTextureSize(HGTEXTURE texture, SIZE *out);

/** Describes the pixels of a rectangle. The view is valid until the texture is deleted or converted; locks are not
 * counted. LockTextureBitsEx also describes the palette.
 * @param out where the description is written, by LockTextureBits only the fields up to `bits`; null is refused
 * @param rect pixels of the whole texture; it must not be empty and must lie inside; null for everything
 * @return 1; 0, with these fields cleared, for another rectangle and below 8 bits per pixel; 0, with nothing written,
 * for a wrong handle or a null `out`
 * @see UnlockTextureBits */
LACQUER_API int LockTextureBits(HGTEXTURE texture, SurfaceView *out, const RECT *rect);
LACQUER_API int LockTextureBitsEx(HGTEXTURE texture, SurfaceView *out, const RECT *rect);

/** Ends a lock. */
LACQUER_API int UnlockTextureBits(HGTEXTURE texture);

/** Writes the filter word of a texture. @like GetBitmapFilter */
LACQUER_API int GetTextureFilter(HGTEXTURE texture, DWORD *out);

/** Sets the filter word, with which a texture is drawn. @like SetBitmapFilter */
LACQUER_API int SetTextureFilter(HGTEXTURE texture, DWORD filter);

/** Writes the bits per pixel of a texture. @like GetBitmapBitsPixel */
LACQUER_API int GetTextureBitsPixel(HGTEXTURE texture, BYTE *out);

/** Sets the layout record, which is stored as it is.
 * @param mode the record, which is copied; null is refused
 * @return 1; 0 for a wrong handle or null
 * @see DrawTextureEx */
LACQUER_API int SetTextureMode(HGTEXTURE texture, const TextureMode *mode);

/** Writes the layout record as it was set.
 * @param out where it is written; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetTextureMode(HGTEXTURE texture, TextureMode *out);

/** Replaces the list of slices and makes the last one current.
 * @param count how many slices there are; with 0 the list is empty and the current index stays
 * @param rects the slices, pixels of the texture, which are copied; null is refused
 * @return the count; 0, with nothing changed, for a wrong handle or null and when memory is short */
LACQUER_API DWORD SetTextureSlice(HGTEXTURE texture, DWORD count, const RECT *rects);

/** Makes a slice current.
 * @param index its place in the list, from 0
 * @return the previous index, -1 for none; -1, with nothing changed, for a wrong handle, without a list and outside of
 * it */
LACQUER_API int SetTextureCurSlice(HGTEXTURE texture, int index);

/** Writes the current slice, or (0, 0, width, height) when there is none.
 * @param out where it is written, pixels; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetTextureCurSlice(HGTEXTURE texture, RECT *out);

/** The number of slices.
 * @return how many there are; 0xFFFFFFFF for a wrong handle */
LACQUER_API DWORD GetTextureSliceCount(HGTEXTURE texture);

/** Turns a canvas into a texture; the canvas handle is invalid afterwards. Unless the canvas's draw mode is
 * LACQUER_DRAW_OVER every alpha becomes 255.
 * @param canvas the canvas; a wrong handle is refused
 * @return the texture, which DeleteTexture deletes; 0, with nothing changed, for a wrong handle, a canvas made from a
 * device context and when memory is short; 0, and the canvas is gone, when no slot is free
 * @see GetTexture, for a texture of the canvas's pixels beside the canvas */
LACQUER_API HGTEXTURE CanvasToTexture(HGCANVAS canvas);

/** Turns a bitmap into a texture; the bitmap handle is invalid afterwards. One from GetBitmap leaves its canvas empty.
 * @param bitmap the bitmap; a wrong handle is refused
 * @return the texture, which DeleteTexture deletes; 0, with nothing changed, for a wrong handle and when memory is
 * short; 0, and the bitmap is gone, when no slot is free */
LACQUER_API HGTEXTURE BitmapToTexture(HGBITMAP bitmap);

/** Copies pixels, palette and filter word of one texture's rectangle to another's. @like CopyBitmap
 * @param dest the texture that is written; a wrong handle is refused
 * @param source the texture that is read; a wrong handle is refused
 * @return 1, also when nothing is copied because a rectangle is empty or not inside; 0 for a wrong handle */
LACQUER_API int CopyTexture(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect);

/** A new 32-bit texture of another size, in process memory and with the same filter word, without slices and with the
 * layout record 0. From other depths than 8, 24 and 32 bits no pixels come: those of the new texture are not set.
 * @param kernelMode the sampler, LACQUER_NEAREST ... LACQUER_AREA
 * @return the texture, which DeleteTexture deletes; 0 for a wrong handle, another size, when memory is short and when
 * no slot is free */
LACQUER_API HGTEXTURE ResizeTexture(HGTEXTURE texture, DWORD width, DWORD height, DWORD kernelMode);

/** A new texture of the same depth, turned or mirrored, in process memory and with the same filter word, without slices
 * and with the layout record 0. At other depths than 8, 24 and 32 bits its pixels are not set.
 * @param code LACQUER_ROTATE_90 ... LACQUER_TRANSVERSE; of RotateTexture one of the three rotations, of FlipTexture one
 * of the two flips
 * @return the texture, which DeleteTexture deletes; 0 for a wrong handle, another code, when memory is short and when
 * no slot is free */
LACQUER_API HGTEXTURE TransformTexture(HGTEXTURE texture, DWORD code);
LACQUER_API HGTEXTURE RotateTexture(HGTEXTURE texture, int code);
LACQUER_API HGTEXTURE FlipTexture(HGTEXTURE texture, DWORD code);

/** @} */

/** @defgroup canvases Canvases
 * What is drawn on. A canvas has pixels of its own, in process memory or in a DIB section, or it was made from a device
 * context of the caller's.
 *
 * @param canvas the canvas; a wrong handle is refused
 * @param rect logical pixels; null is refused
 * @return 1; 0 for a wrong handle
 * @ingroup lacquer
 * @{ */

/** A new canvas, transparent black: CreateCanvas in process memory, CreateSystemCanvas in a DIB section with its device
 * context.
 * @param width pixels, 1 to 32767
 * @param height pixels, 1 to 32767
 * @param template_ a canvas whose filter word is taken over; 0, and any wrong handle, for none
 * @return the canvas, which DeleteCanvas deletes; 0 for another size, when memory is short, when no slot is free and
 * when no device context can be made */
LACQUER_API HGCANVAS CreateCanvas(DWORD width, DWORD height, HGCANVAS template_);
LACQUER_API HGCANVAS CreateSystemCanvas(DWORD width, DWORD height, HGCANVAS template_);

/** A canvas that draws on the caller's device context, with the context's origins and clip. The context is never
 * deleted and must outlive the canvas.
 * @param dc the device context; null is accepted, and makes a canvas that can't be drawn on
 * @return the canvas, which DeleteCanvas deletes; 0 when memory is short and when no slot is free */
LACQUER_API HGCANVAS CreateCanvasFromDC(HDC dc);

/** Deletes a canvas with its own device context and its pixels; nothing for a wrong handle. Handles from GetBitmap
 * become invalid, and children forget the canvas; a device context of the caller's stays. */
LACQUER_API void DeleteCanvas(HGCANVAS canvas);

/** Gives a handle from GetCanvasParent back; the canvas stays.
 * @param canvas the handle
 * @return 1; 0 for a stale canvas handle; the type bits (handle & 0xFF0000) for a handle of another type */
LACQUER_API DWORD ReleaseCanvas(HGCANVAS canvas);

/** Describes the pixels of a rectangle. The view is valid until the canvas is deleted or its pixels move (see
 * GetCanvasHandle); such locks are not counted. LockCanvasBitsEx also clears the palette fields.
 *
 * On a canvas made from a device context, pixels that can't be reached directly are copied (transparent black where the
 * context can't be read), and UnlockCanvasBits writes them back. There is one copy at a time, and any number of direct
 * locks beside it; each unlock ends the last lock. LockCanvasBitsEx refuses such canvases.
 * @param out where the description is written, by LockCanvasBits only the fields up to `bits`; null is refused
 * @param rect logical pixels; it must not be empty and must lie inside; null for everything, which a canvas made from a
 * device context refuses
 * @return 1; 0, with these fields cleared, for another rectangle or canvas, beside a copy and when none can be made; 0,
 * with nothing written, for a wrong handle or a null `out` */
LACQUER_API int LockCanvasBits(HGCANVAS canvas, SurfaceView *out, const RECT *rect);
LACQUER_API int LockCanvasBitsEx(HGCANVAS canvas, SurfaceView *out, const RECT *rect);

/** Ends the last lock of LockCanvasBits, and writes a copy back. */
LACQUER_API int UnlockCanvasBits(HGCANVAS canvas);

/** The canvas's device context, with its clip and origins. The first call moves the pixels of a canvas in process
 * memory into a DIB section: views locked before are invalid. GDI writes 0 into the alpha of what it draws; call
 * GdiFlush between GDI drawing and reading pixels.
 * @return the device context, owned by the canvas (or the caller's own, of a canvas made from one); null for a wrong
 * handle, when none can be made, and when the canvas's GDI bitmap is selected elsewhere */
LACQUER_API HDC GetCanvasHandle(HGCANVAS canvas);

/** Writes width and height.
 * @param out where they are written, pixels; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null and for a canvas made from a device context */
LACQUER_API int GetCanvasSize(HGCANVAS canvas, SIZE *out);

/** Sets an origin, both being (0, 0) at first: device = logical + viewport origin - window origin.
 * @param x pixels
 * @param y pixels
 * @param previous where the old origin is written; null when it is not wanted
 * @return 1; 0 for a wrong handle, and when the canvas's device context refuses */
LACQUER_API int SetViewportOrg(HGCANVAS canvas, int x, int y, POINT *previous);
LACQUER_API int SetWindowOrg(HGCANVAS canvas, int x, int y, POINT *previous);

/** Writes an origin.
 * @param out where it is written, pixels; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetViewportOrg(HGCANVAS canvas, POINT *out);
LACQUER_API int GetWindowOrg(HGCANVAS canvas, POINT *out);

/** Sets the window handle that the canvas remembers; it has no effect on drawing.
 * @param window any value; null for none
 * @return the previous one; null for none and for a wrong handle */
LACQUER_API HWND SetCanvasWindow(HGCANVAS canvas, HWND window);

/** The window handle that the canvas remembers: at first that of its device context, if it was made from one.
 * @return the window handle; null for none and for a wrong handle */
LACQUER_API HWND GetCanvasWindow(HGCANVAS canvas);

/** Sets the parent that the canvas remembers; it has no effect on drawing. A parent is forgotten when it is deleted.
 * @param parent a canvas; a wrong handle is refused: a parent can't be taken away
 * @return 1; 0 for a wrong handle and when memory is short */
LACQUER_API int SetCanvasParent(HGCANVAS canvas, HGCANVAS parent);

/** A new handle for the parent that the canvas remembers.
 * @return the handle, which ReleaseCanvas gives back; 0 for a wrong handle, without a parent, when it was deleted and
 * when no slot is free */
LACQUER_API HGCANVAS GetCanvasParent(HGCANVAS canvas);

/** Writes the filter word of a canvas, 0 at first, with which its pixels are drawn as a source. @like GetBitmapFilter
 * @see BlendCanvas */
LACQUER_API int GetCanvasFilter(HGCANVAS canvas, DWORD *out);

/** Sets the filter word of a canvas, with which its pixels are drawn as a source. @like SetBitmapFilter
 * @return 1; 0 for a wrong handle and a canvas made from a device context
 * @see BlendCanvas */
LACQUER_API int SetCanvasFilter(HGCANVAS canvas, DWORD filter);

/** Sets a colour that the canvas remembers, 0 at first; it has no effect on drawing.
 * @param colour any value
 * @param previous where the old colour is written; null when it is not wanted */
LACQUER_API int SetCanvasBkColor(HGCANVAS canvas, DWORD colour, DWORD *previous);

/** Writes the colour that the canvas remembers.
 * @param out where it is written; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetCanvasBkColor(HGCANVAS canvas, DWORD *out);

/** Changes the clip, which is the whole canvas at first: SetCanvasClipRect replaces it by the rectangle, cut to the
 * canvas; IntersectCanvasClipRect narrows it by the rectangle. An empty or inverted result is empty: nothing is drawn.
 * On a canvas made from a device context they set the context's clip, which is not cut: it lasts when the visible part
 * changes.
 * @return 1, whatever the rectangle and a device context's answer; 0 for a wrong handle or null */
LACQUER_API int SetCanvasClipRect(HGCANVAS canvas, const RECT *rect);
LACQUER_API int IntersectCanvasClipRect(HGCANVAS canvas, const RECT *rect);

/** Writes the clip's bounding box; of a device context's clip what is visible of it.
 * @param out where it is written, logical pixels; null is refused
 * @return 1; 0, with nothing written, for a wrong handle or null */
LACQUER_API int GetCanvasClipRect(HGCANVAS canvas, RECT *out);

/** A bitmap handle for a canvas's own pixels; they stay the canvas's.
 * @return the handle, which ReleaseBitmap gives back; 0 for a wrong handle, a canvas made from a device context and
 * when no slot is free
 * @see CanvasToBitmap */
LACQUER_API HGBITMAP GetBitmap(HGCANVAS canvas);

/** Gives a handle from GetBitmap back; the pixels stay. Nothing for a wrong handle.
 * @param bitmap the handle */
LACQUER_API void ReleaseBitmap(HGBITMAP bitmap);

/** @} */

/** @defgroup stretching Bicubic weights
 * The process-wide setting of the bicubic weights. It does not choose a sampler: the kernel mode of a draw does.
 *
 * @par Threads
 * Any thread may call it. Set it while no draw runs on any thread.
 * @ingroup lacquer
 * @{ */

/** Chooses the bicubic weights of the process.
 * @param mode 1, as at load, for the cubic B-spline (soft); any other value for the cubic convolution with a = -1
 * (sharp)
 * @return 1; 0 when `mode` is set already */
LACQUER_API int SetStretchKernelMode(DWORD mode);

/** The value that chose the bicubic weights.
 * @return what was set; 1 at load; never fails */
LACQUER_API DWORD GetStretchKernelMode(void);

/** @} */

/** @defgroup drawing Drawing bitmaps and textures
 * The draw mode is the top byte of the source's filter word. What lies outside the canvas's clip is not drawn.
 *
 * @param canvas the canvas that is drawn on; a wrong handle is refused
 * @param dest where, logical pixels; an empty or inverted rectangle draws nothing; null is refused
 * @param bitmap what is drawn; a wrong handle is refused
 * @param texture what is drawn; a wrong handle is refused
 * @param slice the part that is drawn, pixels of the texture; exchanged edges are put right; null for the whole texture
 * @param kernelMode the sampler where sizes differ, LACQUER_NEAREST ... LACQUER_AREA
 * @param alpha 255 draws at full strength, 0 nothing, and other values draw over the canvas with the source's channels
 * scaled by (alpha + 1) / 256; LACQUER_DRAW_MODULATE and LACQUER_DRAW_BEHIND ignore it
 * @param source the part that is drawn, pixels of the bitmap; null for everything
 * @param scale factor on the margins or cells that the layout record's scale flags name; 1 without such flags, as what
 * a cut cell of a tile shows follows it in any case
 * @param halfScale 0; otherwise the margins of a nine-grid are half as wide on the canvas as in the texture
 * @ingroup lacquer
 * @{ */

/** Draws a bitmap into a rectangle: DrawBitmapRectEx a part of it, the others all of it; DrawBitmap at full strength.
 * @return 1, also when nothing is visible or the source rectangle is empty or not inside the bitmap; 0 for a wrong
 * handle or null */
LACQUER_API int DrawBitmap(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, DWORD kernelMode);
LACQUER_API int DrawBitmapEx(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, DWORD kernelMode, BYTE alpha);
LACQUER_API int DrawBitmapRectEx(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, const RECT *source,
                                 DWORD kernelMode, BYTE alpha);

/** Draws a texture's current slice, or the whole texture without one, laid out as its TextureMode says. DrawTexture
 * draws at full strength, with scale 1 and no half scale.
 * @return 1, also when nothing is visible; 0 for a wrong handle or null, when the slice is empty or not inside the
 * texture, and always for the tile and the top-tile
 * @see SetTextureMode, SetTextureCurSlice */
LACQUER_API int DrawTexture(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode);
LACQUER_API int DrawTextureEx(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode, BYTE alpha,
                              float scale, int halfScale);

/** @} */

/** @defgroup fills Fills
 * Rectangles of one colour or of a gradient. What lies outside the canvas's clip is not filled.
 *
 * @param canvas the canvas that is drawn on; a wrong handle is refused
 * @param rect where, logical pixels; an empty or inverted rectangle fills nothing; null is refused
 * @param modeWord the draw mode LACQUER_DRAW_... in its top byte
 * @ingroup lacquer
 * @{ */

/** Fills a rectangle with a colour. That of FillSolidRect (drawn over) and FillSolidRectEx is straight and is
 * premultiplied first, c * (A + 1) / 256 per channel; that of FillPreMulColorRectEx is premultiplied already. Under
 * LACQUER_DRAW_MODULATE and LACQUER_DRAW_OR alike, the colour 0xFFFFFFFF does nothing and 0 clears.
 * @param colour 0xAARRGGBB
 * @return 1; 0 for a wrong handle or null. A fill that does nothing by its colour and mode alone (a transparent colour
 * over or keyed, 0xFFFFFFFF in those two) gives 1 on any handle. */
LACQUER_API int FillSolidRect(HGCANVAS canvas, DWORD colour, const RECT *rect);
LACQUER_API int FillSolidRectEx(HGCANVAS canvas, DWORD colour, const RECT *rect, DWORD modeWord);
LACQUER_API int FillPreMulColorRectEx(HGCANVAS canvas, DWORD colour, const RECT *rect, DWORD modeWord);

/** Fills a rectangle with a gradient between two colours. The gradient is a vector drawing: it follows the canvas's
 * blend mode and blend value, leaves the vector state as it was, and draws nothing on a canvas made from a device
 * context and when memory is short.
 * @param from straight 0xAARRGGBB, at the top or at the left
 * @param to straight 0xAARRGGBB, at the bottom or at the right
 * @param direction 1 from top to bottom, 2 from left to right; any other value, and two colours that are equal once
 * premultiplied, fill with the first
 * @return 1, also when nothing is drawn; 0 for a wrong handle or null, unless both colours are transparent */
LACQUER_API int FillGradualRect(HGCANVAS canvas, DWORD from, DWORD to, const RECT *rect, int direction);

/** @} */

/** @defgroup geometry Geometric rectangles and shadows
 * Rectangles, rounded rectangles, focus rings and shadows with smooth edges; the same pixels on every machine. For all
 * of them: coordinates are clamped to 2^31 pixels on either side of 0 and rounded to 1/256 pixel, lengths likewise and
 * clamped to their ranges. A rectangle that is empty or inverted then, and a number that is none (NaN) in a field that
 * the function uses, draws nothing, with the result 1; a shadow with such a field is left out of its list. Only 32-bit
 * pixels are drawn on.
 *
 * Each part of a shape is drawn as FillSolidRectEx draws its colour, to the extent that the part covers a pixel; whole
 * pixels are those of FillSolidRectEx. Radii that do not fit into a side are made smaller together. The inner edge of a
 * border keeps the circles' centres; a border that leaves nothing inside is all there is.
 *
 * @param canvas the canvas that is drawn on, inside its clip; a wrong handle is refused
 * @param rect where, logical pixels; null is refused
 * @param radius of all corners, pixels, 0 to 16384
 * @return 1, also when nothing is visible; 0 for a wrong handle or null
 * @ingroup lacquer
 * @{ */

/** Draws a rectangle, GeoRoundRect one with four equal corners.
 * @param border the colour of the border, straight 0xAARRGGBB, drawn over; alpha 0 leaves it out
 * @param fill the colour inside it, straight 0xAARRGGBB, drawn over; alpha 0 leaves it out
 * @param borderWidth pixels, inside the rectangle's edge; 0 to 16384 */
LACQUER_API int GeoRectangle(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth);
LACQUER_API int GeoRoundRect(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth, int radius);

/** Draws a rectangle, GeoRoundRectEx one with the style's corners.
 * @param style colours and lengths; GeoRectangleEx ignores the radii; null is refused
 * @param modeWord the draw mode LACQUER_DRAW_... in its top byte */
LACQUER_API int GeoRectangleEx(HGCANVAS canvas, const GeoRect *rect, const GeoStyle *style, DWORD modeWord);
LACQUER_API int GeoRoundRectEx(HGCANVAS canvas, const GeoRect *rect, const GeoStyle *style, DWORD modeWord);

/** Draws a focus ring: a border of dashes that close, as many as fit best, the first in the middle of the top left
 * corner. A dash or a gap of 0, or a ring of more than 65536 pixels, is drawn without gaps. Around a rectangle of whole
 * pixels a width, dash and gap of 1 with sharp corners paint every other pixel of the edge.
 * @param colour straight 0xAARRGGBB, drawn over
 * @param width of the border, pixels, 0 to 16384, at most half the smaller side
 * @param dash the length of a dash, pixels, 0 to 16384
 * @param gap the length between two dashes, pixels, 0 to 16384 */
LACQUER_API int GeoRectFocusEx(HGCANVAS canvas, const GeoRect *rect, DWORD colour, float width, float radius,
                               float dash, float gap);

/** Draws shadows of a rectangle over the canvas, the last one first, so that the first one lies on top. A shadow ends
 * 3/2 of its blur beyond its edge.
 * @param rect the rectangle that casts them, logical pixels; null is refused
 * @param shadows the shadows; null is refused unless `count` is 0
 * @param count how many there are; a negative count is refused
 * @return 1, also when nothing is visible; 0 for a wrong handle, null or a negative count */
LACQUER_API int DrawShadows(HGCANVAS canvas, const RECT *rect, const ShadowStyle *shadows, int count);

/** @} */

/** @defgroup compositing Compositing canvases
 * One canvas onto another, and what works on a whole canvas.
 *
 * @param canvas the canvas that is changed; a wrong handle is refused
 * @param dest the canvas that is drawn on; a wrong handle is refused
 * @param destRect where, logical pixels of `dest`; null is refused
 * @param source the canvas that is drawn; a wrong handle is refused
 * @param sourceRect what, logical pixels of `source`; null is refused
 * @ingroup lacquer
 * @{ */

/** Mixes a canvas into another, every channel, alpha included, sampled nearest where sizes differ: d * (255 - value) /
 * 256 + s * (value + 1) / 256, truncated once. The clip plays no part.
 * @param destRect logical pixels of `dest`, inside it; null for the whole canvas
 * @param sourceRect logical pixels of `source`, inside it; null for the whole canvas
 * @param value 0 does nothing, 255 replaces
 * @return 1, also when a rectangle is not inside its canvas and nothing is mixed; 0 for a wrong handle */
LACQUER_API int MixCanvas(HGCANVAS dest, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE value);

/** Mixes a colour into a canvas, every channel, alpha included: d * (255 - value) / 256 + c. The clip plays no part.
 * @param rect logical pixels, inside the canvas; null for the whole canvas
 * @param colour 0xAARRGGBB, its channels scaled by their weight already
 * @param value 0 does nothing, 255 replaces; only the low byte counts
 * @return 1, also when the rectangle is not inside the canvas and nothing is mixed; 0 for a wrong handle */
LACQUER_API int MixCanvasWithColor(HGCANVAS canvas, const RECT *rect, DWORD colour, DWORD value);

/** Draws a rectangle of a canvas into a rectangle of another, inside the other's clip, sampled nearest where sizes
 * differ. A source whose draw mode is LACQUER_DRAW_OVER is drawn over, whatever `alpha`. Any other counts as opaque: it
 * is copied, or faded in by an `alpha` below 255, or onto a destination whose draw mode is LACQUER_DRAW_OVER; a faded
 * draw that is both stretched and partly clipped copies. When one of the canvases was made from a device context, GDI
 * draws, and copies opaque sources whatever `alpha`.
 * @param alpha 0 to 255, the strength of an opaque source
 * @return 1, also when nothing is visible or the source rectangle is not inside its canvas; where GDI draws, its
 * result; 0 for a wrong handle or null */
LACQUER_API int BlendCanvas(HGCANVAS dest, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE alpha);

/** Draws a rectangle of a canvas onto a device context through GDI: with the pixels' alpha when the canvas's draw mode
 * is LACQUER_DRAW_OVER. As by GetCanvasHandle, the canvas's pixels move into a DIB section.
 * @param dc the device context that is drawn on; null is refused by GDI
 * @param destRect where, logical coordinates of `dc`; null is refused
 * @param alpha 0 to 255, the strength of all of it
 * @return GDI's: not 0 when it was drawn; 0 for a wrong handle or null and when GDI refuses */
LACQUER_API int GdiTransCanvas(HDC dc, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE alpha);

/** Moves a canvas's rows; clip and origins play no part. The rows left behind keep their pixels.
 * @param dx must be 0
 * @param dy pixels down, negative for up; less than the height
 * @return 1; 0, with nothing moved, for a wrong handle, other distances and a canvas made from a device context */
LACQUER_API int CanvasScroll(HGCANVAS canvas, int dx, int dy);

/** Paints a colour through a mask, inside the canvas's clip. With an opaque colour the mask's blue, green and red are
 * three coverages, as of sub-pixel text; with a translucent one, the mask's bytes scale the colour's and the result is
 * drawn over.
 * @param x where the left edge of the mask's rectangle comes, logical pixels
 * @param y where its top edge comes, logical pixels
 * @param mask a 32-bit bitmap; a wrong handle is refused
 * @param source the part of the mask, pixels; what is visible of it must lie inside; null for all of it
 * @param colour 0xAARRGGBB, premultiplied
 * @return 1, also when nothing is visible or the rectangle is not inside the mask; 0 for a wrong handle */
LACQUER_API int DrawModulation(HGCANVAS canvas, int x, int y, HGBITMAP mask, const RECT *source, DWORD colour);

/** @} */

/** @defgroup colour Colour
 * Straight colours: 0xAARRGGBB, and 0xAAHHSSLL as of HSLRecord. A grey has saturation 0 and hue 170. Both directions
 * round, so that a round trip may be off by a little.
 *
 * @param argb straight 0xAARRGGBB
 * @param ahsl straight 0xAAHHSSLL
 * @param out where the colour is written; it may be the same memory as `in`; null is refused
 * @param in the colour; null is refused
 * @param dh by which the hue is shifted, 1 being half the circle
 * @param ds by which the saturation is shifted, -1 to 1: a fraction of the way to the least or the greatest value
 * @param dl by which the lightness is shifted, -1 to 1: a fraction of the way to the least or the greatest value
 * @ingroup lacquer
 * @{ */

/** Converts a colour to hue, saturation and lightness.
 * @return 0xAAHHSSLL, alpha as it was; never fails */
LACQUER_API DWORD ARGBtoAHSL(DWORD argb);

/** Converts a colour from hue, saturation and lightness.
 * @return 0xAARRGGBB, alpha as it was; never fails */
LACQUER_API DWORD AHSLtoARGB(DWORD ahsl);

/** Converts a colour record to hue, saturation and lightness.
 * @return `out`; null, with nothing written, when a pointer is refused */
LACQUER_API HSLRecord *RGBtoHSL(HSLRecord *out, const RGBRecord *in);

/** Converts a colour record from hue, saturation and lightness.
 * @return `out`; null, with nothing written, when a pointer is refused */
LACQUER_API RGBRecord *HSLtoRGB(RGBRecord *out, const HSLRecord *in);

/** Shifts hue, saturation and lightness of a colour. Larger shifts wrap around. The saturation ends above 0, so even a
 * grey takes on a trace of colour; with all three shifts nearer to 0 than 0.000001 the colour stays exactly as it is.
 * Alpha stays.
 * @return the colour, in the form in which it came; never fails */
LACQUER_API DWORD ARGBColorize(DWORD argb, float dh, float ds, float dl);
LACQUER_API DWORD AHSLColorize(DWORD ahsl, float dh, float ds, float dl);

/** Shifts hue, saturation and lightness of a colour record. @like ARGBColorize
 * @return `out`; null, with nothing written, when a pointer is refused */
LACQUER_API RGBRecord *RGBColorize(RGBRecord *out, const RGBRecord *in, float dh, float ds, float dl);
LACQUER_API HSLRecord *HSLColorize(HSLRecord *out, const HSLRecord *in, float dh, float ds, float dl);

/** Shifts every pixel, or, with 8 bits per pixel, every palette entry of a texture, by ARGBColorize; the shared grey
 * palette and depths but 8, 24 and 32 stay as they are. The channels count as straight.
 * @param texture the texture; a wrong handle is refused
 * @return 1; 0 for a wrong handle and for a texture without pixels or below 8 bits per pixel; 1 on any handle when all
 * three shifts are nearer to 0 than 0.000001 */
LACQUER_API int ColorizeTexture(HGTEXTURE texture, float dh, float ds, float dl);

/** @} */

/** @defgroup filters Filters
 * What changes the pixels of an object. Depths that a filter does not name stay as they are. With 8 bits per pixel it
 * is the palette that changes, unless it is the shared grey one.
 *
 * @param bitmap the bitmap that is changed; a wrong handle is refused
 * @param texture the texture that is changed; a wrong handle is refused
 * @param rect what is changed, pixels of the object; null for everything
 * @param destRect pixels of `dest`; null for everything
 * @param sourceRect pixels of `source`; null for everything
 * @param targetRect logical pixels of `target`, inside it; null for everything
 * @param scratchRect logical pixels of `scratch`, inside it; null for everything
 * @return 1, also at a depth that stays as it is; 0 for a wrong handle and an object without pixels or below 8 bits per
 * pixel
 * @ingroup lacquer
 * @{ */

/** Blurs a source into a destination: each channel becomes the mean, rounded down, of 3 x 3 pixels, edge pixels
 * standing for those outside. Where sizes differ the common part is written. 32 bits, both.
 * @param dest the object that is written; a wrong handle is refused
 * @param source the object that is read, another one; a wrong handle is refused
 * @return 1, also when nothing is done because a rectangle is empty or not inside, or because of the depth; 0 for a
 * wrong handle */
LACQUER_API int BlurBitmap(HGBITMAP dest, HGBITMAP source);
LACQUER_API int BlurBitmapEx(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect);
LACQUER_API int BlurTexture(HGTEXTURE dest, HGTEXTURE source);
LACQUER_API int BlurTextureEx(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect);

/** Blurs a target in place, more strongly: seven bell-shaped weights in each direction, applied twice. Channels are
 * rounded down, so white ends at 254. 32 bits, both.
 * @param target the object that is blurred; a wrong handle is refused
 * @param scratch another object, whose pixels are lost; it, or its rectangle, has the size of the target, or of the
 * target's rectangle; a wrong handle is refused
 * @return 1, also when nothing is done because a rectangle is not inside, sizes differ, or because of the depth; 0 for
 * a wrong handle */
LACQUER_API int GaussianBlurBitmap(HGBITMAP target, HGBITMAP scratch);
LACQUER_API int GaussianBlurTexture(HGTEXTURE target, HGTEXTURE scratch);
LACQUER_API int GaussianBlurCanvas(HGCANVAS target, const RECT *targetRect, HGCANVAS scratch, const RECT *scratchRect);

/** Makes pixels grey: blue, green and red become (B + 2 G + R) / 4, rounded down; alpha stays. 8, 24 and 32 bits. */
LACQUER_API int GrayBitmap(HGBITMAP bitmap);
LACQUER_API int GrayTexture(HGTEXTURE texture);

/** Premultiplies straight pixels: colour channels become c * (A + 1) / 256, rounded down. 8 and 32 bits. */
LACQUER_API int NormalizeBitmap(HGBITMAP bitmap);
LACQUER_API int NormalizeTexture(HGTEXTURE texture);

/** Inverts premultiplied colour: colour channels become A - c, modulo 256. At other depths than 32 bits the rows are
 * walked as four-byte pixels all the same, up to the last whole one.
 * @return 1, also without pixels; 0 for a wrong handle and below 8 bits per pixel */
LACQUER_API int InvertBitmap(HGBITMAP bitmap);
LACQUER_API int InvertTexture(HGTEXTURE texture);

/** Replaces one exact colour by another. 8, 24 and 32 bits.
 * @param find 0xAARRGGBB as it stands in the pixels, alpha included; with 24 bits its low three bytes
 * @param put 0xAARRGGBB as it is to stand there; with 24 bits its low three bytes */
LACQUER_API int TranslateTexture(HGTEXTURE texture, DWORD find, DWORD put);

/** Moves channels, of the ...Ex forms in a rectangle. 32 bits.
 * @param code 6 makes alpha the largest of blue, green and red, 1 makes these three alpha; others do nothing
 * @return 1, also at a depth that stays as it is; 0 for a wrong handle, an object without pixels or below 8 bits per
 * pixel, and a rectangle that is empty or not inside */
LACQUER_API int ShuffleBitmap(HGBITMAP bitmap, DWORD code);
LACQUER_API int ShuffleTexture(HGTEXTURE texture, DWORD code);
LACQUER_API int ShuffleBitmapEx(HGBITMAP bitmap, const RECT *rect, DWORD code);
LACQUER_API int ShuffleTextureEx(HGTEXTURE texture, const RECT *rect, DWORD code);

/** Replaces the pixels, of LightTextureEx in a rectangle, by a soft white halo in the shape of their alpha. 32 bits.
 * Needs for the time of the call a handle slot and memory of the same size.
 * @return 1, also when nothing can be done; 0 for a wrong handle */
LACQUER_API int LightBitmap(HGBITMAP bitmap);
LACQUER_API int LightTexture(HGTEXTURE texture);
LACQUER_API int LightTextureEx(HGTEXTURE texture, const RECT *rect);

/** @} */

/** @defgroup regions Regions
 * From pixels to GDI regions.
 * @ingroup lacquer
 * @{ */

/** A new GDI region of the pixels of a rectangle whose word, by the palette with 8 bits per pixel, is not 0, relative
 * to the rectangle's top-left corner. All pixels count when the draw mode is LACQUER_DRAW_COPY, and with 24 bits per
 * pixel.
 * @param texture the texture; a wrong handle is refused
 * @param rect pixels of the texture; null for the whole texture
 * @return the region, which the caller deletes with DeleteObject; null for a wrong handle, for a rectangle that is
 * inverted or not inside, for an empty one unless the draw mode is LACQUER_DRAW_COPY, for depths other than 8, 24 and
 * 32 unless it is that, and when memory is short */
LACQUER_API HRGN CreateTextureRgn(HGTEXTURE texture, const RECT *rect);

/** @} */

/** @defgroup shapes Vector shapes
 * Anti-aliased shapes, drawn by the companion library velGraphic into a canvas's own pixels. <velgraphic/velgraphic.h>
 * has the limits of numbers and of work, and how each function draws: DrawLine is velCanvasDrawLine, PathArcTo is
 * velPathArcTo, and so on, also in what their comments leave out.
 *
 * Colours are straight 0xAARRGGBB; angles are degrees, clockwise on screen from the positive x axis. Coordinates are
 * logical pixels and may have fractions; drawing stays inside the canvas's clip. The vector state (style, colour,
 * blend, stroke, dash, gradient and font) belongs to the canvas and lasts until it is changed.
 *
 * @like velCanvas*
 * @param canvas the canvas that is drawn on; a wrong handle and a canvas made from a device context are refused
 * @return 0 also for a wrong handle and a canvas made from a device context
 * @ingroup lacquer
 * @{ */

/** Draws a dot as wide as the stroke. */
LACQUER_API int DrawPoint(HGCANVAS canvas, float x, float y);

/** Draws a stroked line. */
LACQUER_API int DrawLine(HGCANVAS canvas, float x0, float y0, float x1, float y1);

/** Draws a rectangle. */
LACQUER_API int DrawRectangle(HGCANVAS canvas, float x, float y, float width, float height);

/** Draws a rectangle with rounded corners. */
LACQUER_API int DrawRoundRect(HGCANVAS canvas, float x, float y, float width, float height, float radiusX,
                              float radiusY);

/** Draws a circle. */
LACQUER_API int DrawCircle(HGCANVAS canvas, float centreX, float centreY, float radius);

/** Draws part of the ellipse in a rectangle. */
LACQUER_API int DrawArc(HGCANVAS canvas, float x, float y, float width, float height, float startAngle,
                        float sweepAngle, int useCentre);

/** Draws an ellipse. */
LACQUER_API int DrawEllipse(HGCANVAS canvas, float centreX, float centreY, float radiusX, float radiusY);

/** Draws a closed polygon. @like velCanvasDrawPath
 * @param count how many points there are, at least 1
 * @param points its corners, logical pixels; null is refused */
LACQUER_API int DrawPolygon(HGCANVAS canvas, int count, const POINT *points);

/** Colours everything inside the clip. */
LACQUER_API int DrawColor(HGCANVAS canvas, DWORD colour);

/** Draws the cubic curve from (x0, y0) to (x3, y3) as a path. @like velCanvasDrawPath
 * @param x0 where it begins, logical pixels
 * @param y0 where it begins, logical pixels
 * @param x1 the first control point, logical pixels
 * @param y1 the first control point, logical pixels
 * @param x2 the second control point, logical pixels
 * @param y2 the second control point, logical pixels
 * @param x3 where it ends, logical pixels
 * @param y3 where it ends, logical pixels */
LACQUER_API int DrawBezier(HGCANVAS canvas, float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                           float y3);

/** Draws a path. */
LACQUER_API int DrawPath(HGCANVAS canvas, velPath *path);

/** @} */

/** @defgroup animations Animations
 * The velLottie... functions of velGraphic load and describe animations.
 *
 * @param canvas the canvas that is drawn on; a wrong handle and a canvas made from a device context are refused
 * @return 0 also for a wrong handle and a canvas made from a device context
 * @ingroup lacquer
 * @{ */

/** Draws one frame of an animation. @like velLottieDraw
 * @see velLottieCreateFromFile, velLottieGetInfo, velLottieLastError */
LACQUER_API int DrawLottie(HGCANVAS canvas, velLottie *lottie, float frame, float x, float y, float width,
                           float height);

/** @} */

/** @defgroup text Text
 * Text in the font of the canvas's vector state (SetFontFaceName, SetFontStyle, SetTextSize), drawn in its colour or
 * gradient.
 *
 * @like velCanvas*
 * @param canvas the canvas; a wrong handle and a canvas made from a device context are refused
 * @return 0 also for a wrong handle and a canvas made from a device context
 * @ingroup lacquer
 * @{ */

/** Draws glyphs of the canvas's font. */
LACQUER_API int DrawPosTextByGlyphs(HGCANVAS canvas, const WORD *glyphs, int count, const velPointF *positions);

/** Draws a line of text: shaped, in the order of its directions, with other fonts for what the font lacks. */
LACQUER_API int DrawTextRun(HGCANVAS canvas, const WCHAR *text, int length, float x, float y);

/** Measures what DrawTextRun would draw. */
LACQUER_API int MeasureTextRun(HGCANVAS canvas, const WCHAR *text, int length, velTextExtent *out);

/** The glyphs of a line of text in the canvas's own font, and their origins from that of the line, for
 * DrawPosTextByGlyphs. */
LACQUER_API int GetTextGlyphs(HGCANVAS canvas, const WCHAR *text, int length, WORD *glyphs, velPointF *positions,
                              int capacity);

/** Measures of the canvas's font at its size. */
LACQUER_API int GetFontMetrics(HGCANVAS canvas, float *ascent, float *descent, float *lineHeight);

/** @} */

/** @defgroup vector_state Vector state
 * How shapes and text are drawn on a canvas. Each setting lasts until it is changed.
 *
 * @like velCanvas*
 * @param canvas the canvas; a wrong handle and a canvas made from a device context are refused
 * @return 0 also for a wrong handle and a canvas made from a device context
 * @ingroup lacquer
 * @{ */

/** Puts the vector state on the canvas's stack. Clip and origins of the canvas are no part of it. */
LACQUER_API int Save(HGCANVAS canvas);

/** Goes back to the state last saved, and takes it off the stack. */
LACQUER_API int Restore(HGCANVAS canvas);

/** Sets how shapes and paths are drawn. */
LACQUER_API int SetDrawStyle(HGCANVAS canvas, DWORD style);

/** Sets the colour of the styles without gradient, of lines and of text. */
LACQUER_API int SetColor(HGCANVAS canvas, DWORD colour);

/** Sets whether edges are anti-aliased. */
LACQUER_API int SetSmooth(HGCANVAS canvas, int on);

/** Sets how what is drawn meets what is there. */
LACQUER_API int SetBlendMode(HGCANVAS canvas, DWORD mode);

/** The blend mode.
 * @return VEL_BLEND_...; 0xFFFFFFFF for a wrong handle and a canvas made from a device context */
LACQUER_API DWORD GetBlendMode(HGCANVAS canvas);

/** Sets the opacity of everything drawn. */
LACQUER_API int SetBlendValue(HGCANVAS canvas, DWORD value);

/** The opacity of everything drawn.
 * @return 0 to 255; 255 for a wrong handle and a canvas made from a device context */
LACQUER_API DWORD GetBlendValue(HGCANVAS canvas);

/** Sets the ends of open strokes and of dashes. */
LACQUER_API int SetStrokeCap(HGCANVAS canvas, DWORD cap);

/** Sets the corners of strokes. */
LACQUER_API int SetStrokeJoin(HGCANVAS canvas, DWORD join);

/** Sets the gradient of the gradient styles, in logical coordinates. It may be destroyed right afterwards. */
LACQUER_API int SetGradient(HGCANVAS canvas, velGradient *gradient);

/** Sets the width of strokes. */
LACQUER_API int SetStrokeWidth(HGCANVAS canvas, float width);

/** The width of strokes.
 * @return pixels; 1 for a wrong handle and a canvas made from a device context */
LACQUER_API float GetStrokeWidth(HGCANVAS canvas);

/** Sets how strokes are dashed. */
LACQUER_API int SetDashStyle(HGCANVAS canvas, DWORD style);

/** Sets the pattern of VEL_DASH_PATTERN. */
LACQUER_API int SetDashPattern(HGCANVAS canvas, const float *lengths, int count, float offset);

/** Sets the family that the glyphs of text come from. */
LACQUER_API int SetFontFaceName(HGCANVAS canvas, const WCHAR *name);

/** Sets weight, slant and bars of text. */
LACQUER_API int SetFontStyle(HGCANVAS canvas, DWORD bits);

/** Sets the size of text: that of the em square. */
LACQUER_API int SetTextSize(HGCANVAS canvas, float pixels);

/** @} */

/** @defgroup paths Paths
 * Figures of lines and curves, for DrawPath: the companion's own, made and destroyed by the caller.
 * @like vel*
 * @ingroup lacquer
 * @{ */

/** A new, empty path. */
LACQUER_API velPath *PathCreate(void);

/** Destroys a path. */
LACQUER_API int PathDestroy(velPath *path);

/** Empties a path. */
LACQUER_API int PathBegin(velPath *path);

/** Ends a figure with a line back to where it began. */
LACQUER_API int PathClose(velPath *path);

/** Sets which points a path encloses. */
LACQUER_API int PathSetFillType(velPath *path, DWORD type);

/** Begins a figure at a point. */
LACQUER_API int PathMoveTo(velPath *path, float x, float y);

/** Adds a line. */
LACQUER_API int PathLineTo(velPath *path, float x, float y);

/** Adds part of the ellipse in a rectangle. */
LACQUER_API int PathArcTo(velPath *path, float x, float y, float width, float height, float startAngle,
                          float sweepAngle, int forceMoveTo);

/** Adds an arc along a turned ellipse: the elliptical arc of SVG path data. */
LACQUER_API int PathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc,
                                int clockwise, float x, float y);

/** Adds a cubic curve. */
LACQUER_API int PathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3);

/** Adds a quadratic curve. */
LACQUER_API int PathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2);

/** Adds an arc as an open figure of its own. */
LACQUER_API int PathAddArc(velPath *path, float x, float y, float width, float height, float startAngle,
                           float sweepAngle);

/** Adds a rectangle as a closed figure of its own. */
LACQUER_API int PathAddRectangle(velPath *path, float x, float y, float width, float height);

/** Adds a circle as a closed figure of its own. */
LACQUER_API int PathAddCircle(velPath *path, float centreX, float centreY, float radius);

/** Adds an ellipse as a closed figure of its own. */
LACQUER_API int PathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY);

/** Writes the smallest rectangle around a path. */
LACQUER_API int PathGetBounds(velPath *path, velRectF *out);

/** @} */

/** @defgroup gradients Gradients
 * Colours for the gradient styles: the companion's own, made and destroyed by the caller.
 * @like vel*
 * @ingroup lacquer
 * @{ */

/** A new gradient along a line. */
LACQUER_API velGradient *GradientCreateLinear(float x0, float y0, float x1, float y1);

/** A new gradient outwards from a point. */
LACQUER_API velGradient *GradientCreateRadial(float centreX, float centreY, float radius);

/** Adds a colour. */
LACQUER_API int GradientAddColorStop(velGradient *gradient, float offset, DWORD colour);

/** Gives a gradient up. */
LACQUER_API int GradientDestroy(velGradient *gradient);

/** @} */

#ifdef __cplusplus
} /* extern "C" */

/** @addtogroup drawing
 *
 * The four layouts that DrawTextureEx chooses among can be called with a slice of the caller's. They have C++ linkage.
 * @param canvas the canvas that is drawn on; a wrong handle is refused
 * @param dest where, logical pixels; an empty or inverted rectangle draws nothing; null is refused
 * @param texture what is drawn; a wrong handle is refused
 * @param slice the part that is drawn, pixels of the texture; exchanged edges are put right; null for the whole texture
 * @param margins the widths of left column, top row, right column and bottom row, source pixels; null is refused
 * @param kernelMode the sampler where sizes differ, LACQUER_NEAREST ... LACQUER_AREA
 * @param alpha 0 to 255, as of DrawBitmapEx
 * @{ */

/** Scales the slice into `dest` with its aspect kept, centred, never cropped.
 * @return 1, also when nothing is visible; 0 for a wrong handle or null, and when the slice is empty or not inside the
 * texture */
LACQUER_API int DrawTextureCenter(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                  DWORD kernelMode, BYTE alpha);

/** Repeats the slice from the top-left corner of `dest`. When the last cell of a row is cut at the right edge, the rows
 * below repeat the cut cell. A slice that is empty or not inside the texture draws nothing.
 * @param scaleFlags LACQUER_SCALE_CELL for cells of the slice's size times `scale`, otherwise of its own size
 * @param scale factor on the cells; cells that are left without pixels draw nothing; 1 without the flag, as what a cut
 * cell shows follows it in any case
 * @return always 0 */
LACQUER_API int DrawTextureTile(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                DWORD kernelMode, BYTE alpha, DWORD scaleFlags, float scale);

/** Repeats the slice from left to right at its own width; its top margins.top rows keep their height, its bottom
 * margins.bottom rows are stretched over the rest. A slice that is empty or not inside the texture draws nothing.
 * @return always 0 */
LACQUER_API int DrawTextureTopTile(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                   const tagRECT *margins, DWORD kernelMode, BYTE alpha);

/** Cuts slice and `dest` into nine cells by the margins and draws cell into cell: the corners keep their size, edges
 * and centre stretch. Samples never reach outside the slice: a sheet needs no padding.
 * @param hollowCentre 0; otherwise the centre is filled with the colour of its middle pixel, faded by `alpha`, with the
 * texture's filter word as mode word
 * @param scaleFlags LACQUER_SCALE_LEFT ... LACQUER_SCALE_BOTTOM, added up: the margins on the canvas that `scale`
 * resizes
 * @param scale factor on these margins
 * @param halfScale 0; otherwise the margins on the canvas are half those of the texture
 * @return 1, also when nothing is visible; 0 for a wrong handle or null, and when the slice is empty or not inside the
 * texture */
LACQUER_API int DrawTexture9Grid(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                 const tagRECT *margins, DWORD kernelMode, int hollowCentre, BYTE alpha,
                                 DWORD scaleFlags, float scale, int halfScale);

/** @} */
#endif

#endif
