/* Lacquer: a 2D software raster library for user interfaces that paint their own windows.
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
 * - Threads: any thread may call any function; one thread at a time works on an object.
 *
 * The header compiles as C11 and as C++17. On Windows the types come from <windows.h>.
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
#define LACQUER_API __attribute__((visibility("default")))
#endif

/* Handles. Only the low 32 bits count on the way in; the upper 32 bits are zero on the way out. Bits 0-15 are a slot
 * index, 16-23 the type (1 canvas, 2 bitmap, 3 texture), 24-31 the slot's generation. The generation has eight bits:
 * after 256 deletions in one slot an old handle matches again, so forget a handle when you delete its object. In the
 * calling conventions of both targets these structs travel like a pointer-sized integer. */
#ifdef __cplusplus
#define LACQUER_HANDLE_OPERATORS(Handle)                                      \
    explicit operator bool() const { return value != 0; }                     \
    friend bool operator==(Handle a, Handle b) { return a.value == b.value; } \
    friend bool operator!=(Handle a, Handle b) { return a.value != b.value; }
#else
#define LACQUER_HANDLE_OPERATORS(Handle)
#endif
typedef struct HGBITMAP {
    uintptr_t value;
    LACQUER_HANDLE_OPERATORS(HGBITMAP)
} HGBITMAP;
typedef struct HGTEXTURE {
    uintptr_t value;
    LACQUER_HANDLE_OPERATORS(HGTEXTURE)
} HGTEXTURE;
typedef struct HGCANVAS {
    uintptr_t value;
    LACQUER_HANDLE_OPERATORS(HGCANVAS)
} HGCANVAS;
#undef LACQUER_HANDLE_OPERATORS

/* Locked pixels. The first seven fields, 32 bytes, are laid out as the Win32 BITMAP. */
typedef struct SurfaceView {
    LONG type;          /* always 0 */
    LONG width, height; /* of the locked rectangle, pixels */
    LONG stride;        /* bytes from one row to the next of the whole surface, positive */
    WORD planes;        /* always 1 */
    WORD bitsPerPixel;  /* 8, 24 or 32 for surfaces that can be drawn */
    void *bits;         /* the first byte of the top-left pixel */
    DWORD paletteCount; /* written by the ...Ex locks only */
    DWORD *palette;     /* written by the ...Ex locks only; paletteCount words 0xAARRGGBB, or null */
} SurfaceView;

/* A straight colour in 24 bits, and one as hue, saturation and lightness. Saturation and lightness are 0..255; hue is
 * 0..255 for the whole circle: 0 red, 85 green, 170 blue. */
typedef struct RGBRecord {
    BYTE b, g, r;
} RGBRecord;
typedef struct HSLRecord {
    BYTE l, s, h;
} HSLRecord;

/* The layouts of DrawTextureEx. */
enum {
    LACQUER_LAYOUT_STRETCH = 0,
    LACQUER_LAYOUT_NINE_GRID = 1,
    LACQUER_LAYOUT_TILE = 2,
    LACQUER_LAYOUT_CENTER = 3,
    LACQUER_LAYOUT_HOLLOW_NINE_GRID = 4,
    LACQUER_LAYOUT_TOP_TILE = 5
};

/* What follows the scale argument of a draw: single margins of a nine-grid, the cell of a tile. */
enum {
    LACQUER_SCALE_LEFT = 0x1,
    LACQUER_SCALE_TOP = 0x2,
    LACQUER_SCALE_RIGHT = 0x4,
    LACQUER_SCALE_BOTTOM = 0x8,
    LACQUER_SCALE_CELL = 0x10
};

/* How DrawTextureEx lays a texture out. Any mode but LACQUER_LAYOUT_NINE_GRID to LACQUER_LAYOUT_TOP_TILE stretches. The
 * margins are the widths of the left column, top row, right column and bottom row, source pixels. */
typedef struct TextureMode {
    DWORD mode, scaleFlags;
    RECT margins;
} TextureMode;

/* A rectangle in logical coordinates, pixels; fractions of a pixel count, to the nearest 1/256. */
typedef struct GeoRect {
    float left, top, right, bottom;
} GeoRect;

/* How a geometric rectangle is painted. 28 bytes. */
typedef struct GeoStyle {
    DWORD border, fill; /* straight colours 0xAARRGGBB; alpha 0 leaves that part unpainted, in every mode */
    float borderWidth;  /* pixels, inside the rectangle's edge; 0 to 16384 */
    float radii[4];     /* pixels, 0 to 16384: top left, top right, bottom right, bottom left corner */
} GeoStyle;

/* One shadow of a rectangle. 44 bytes. */
typedef struct ShadowStyle {
    DWORD colour;          /* straight, 0xAARRGGBB */
    LONG offsetX, offsetY; /* pixels by which the shadow is moved right and down */
    float blur;            /* pixels, 0 to 1024: twice the standard deviation of the Gaussian, as in CSS */
    float spread;          /* pixels, -16384 to 16384, by which the shadow grows before it is blurred */
    float radii[4];        /* pixels, of the rectangle's corners before the spread; order as in GeoStyle */
    float lightness;       /* factor on the colour's lightness, 0 to 255; exactly 1 leaves the colour alone */
    DWORD flags;           /* LACQUER_SHADOW_..., added up */
} ShadowStyle;

/* Where a shadow falls. Without a flag: around the rectangle, not under it. */
enum {
    LACQUER_SHADOW_INNER = 1, /* into the rectangle, from its edge inwards */
    LACQUER_SHADOW_FILLED = 2 /* also under the rectangle; ignored with LACQUER_SHADOW_INNER */
};

/* The draw mode: the top byte of an object's filter word, with which the object is drawn as a source (s); other values,
 * and LACQUER_DRAW_OR and LACQUER_DRAW_GREY_TINT, copy. Also the top byte of a fill's mode word, with the colour as s;
 * there LACQUER_DRAW_COLOR_KEY and other values act as LACQUER_DRAW_OVER. d is the destination.
 *
 * The key of LACQUER_DRAW_COLOR_KEY is the low 24 bits of the filter word, 0xRRGGBB. In a 24-bit source it leaves out
 * the pixels of that colour. In an 8-bit source (by the palette's word) and in a 32-bit one it leaves out only the
 * pixels that have that colour and alpha 0. A stretch of an 8- or 32-bit source by any sampler but LACQUER_NEAREST
 * ignores the key and draws over; a stretch of a 24-bit source keeps the key and samples nearest. A constant alpha of 1
 * to 254 ignores the key, too. */
enum {
    LACQUER_DRAW_COPY = 0,      /* d = s */
    LACQUER_DRAW_OVER = 1,      /* d = s + d * (256 - sA) / 256 */
    LACQUER_DRAW_COLOR_KEY = 2, /* d = s, unless s is the key; see above */
    LACQUER_DRAW_MODULATE = 3,  /* d = d * (s + 1) / 256 per channel */
    LACQUER_DRAW_OR = 4,        /* d = d | s */
    LACQUER_DRAW_GREY_TINT = 5, /* d = d * (256 - dA) / 256 + (dB + 2 dG + dR) / 4 * sA / 256 per colour channel */
    LACQUER_DRAW_BEHIND = 6     /* d = d + s * (256 - dA) / 256 */
};

/* The kernel mode of one draw: the sampler when sizes differ. Any other value is bilinear. */
enum {
    LACQUER_NEAREST = 0,
    LACQUER_BILINEAR = 1,
    LACQUER_BICUBIC = 4,
    LACQUER_AREA = 5 /* for opaque copies that shrink; bicubic for other copies, bilinear for blends */
};

/* Codes of the Transform..., Rotate... (1 to 3) and Flip... (4 and 5) functions. */
enum {
    LACQUER_ROTATE_90 = 1, /* clockwise */
    LACQUER_ROTATE_180 = 2,
    LACQUER_ROTATE_270 = 3,      /* clockwise, that is 90 degrees counter-clockwise */
    LACQUER_FLIP_VERTICAL = 4,   /* upside down */
    LACQUER_FLIP_HORIZONTAL = 5, /* mirrored */
    LACQUER_TRANSPOSE = 6,
    LACQUER_TRANSVERSE = 7 /* transposed across the other diagonal */
};

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Handle table ------------------------------------------------------------------------------------------- */

/* There is one table, inside the library, with 32767 usable slots; both functions work on it whatever `table` says, and
 * callers pass null. */
typedef struct HandleTable HandleTable;

/* Registers an object. `type`: its low 8 bits are stored. Result: the handle, or 0 when no slot is free. The table
 * never owns the object. */
LACQUER_API DWORD e_NewHandleEntry(HandleTable *table, int type, void *object);

/* Frees the slot of a current handle without touching the object. Result: 1, or 0 when the handle is not current. */
LACQUER_API int e_DelHandleEntry(HandleTable *table, DWORD handle);

/* ---- Bitmaps ------------------------------------------------------------------------------------------------ */

/* A new 32-bit bitmap in a DIB section, zero-filled. Width and height 1..32767 pixels. Result: its handle, 0 on
 * failure. */
LACQUER_API HGBITMAP CreateSystemBitmap(DWORD width, DWORD height);

/* A new 32-bit bitmap in process memory, its pixels not cleared. Otherwise as CreateSystemBitmap. */
LACQUER_API HGBITMAP CreateMemBitmap(DWORD width, DWORD height);

/* A new bitmap in process memory. `bitsPerPixel`: any; 8, 24 and 32 can be drawn. `paletteCount` (its low 16 bits): for
 * 8 bits and fewer, cut to 2^bitsPerPixel; with 0 the bitmap uses a shared, read-only palette of 256 greys. Pixels and
 * palette are not cleared. Result: its handle, 0 on failure. */
LACQUER_API HGBITMAP CreateMemBitmapEx(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount);

/* Deletes a bitmap. Not for handles that came from GetBitmap: these empty their canvas; see ReleaseBitmap. */
LACQUER_API void DeleteBitmap(HGBITMAP bitmap);

/* The GDI bitmap of a bitmap's pixels, owned by the library. A bitmap in process memory moves into a DIB section for
 * good: it has 32 bits per pixel and no palette afterwards, and views locked before are invalid. Result: null on
 * failure, also for depths other than 8, 24 and 32. */
LACQUER_API HBITMAP GetBitmapHandle(HGBITMAP bitmap);

/* Writes width and height, pixels. */
LACQUER_API int GetBitmapSize(HGBITMAP bitmap, SIZE *out);

/* Describes the pixels of a rectangle, or of everything when `rect` is null, in `out` (fields up to `bits`). The
 * rectangle must not be empty and must lie inside. The view is valid until the bitmap is deleted or converted; locks
 * are not counted. Result: 1, or 0 (also below 8 bits per pixel) with these fields cleared; a wrong handle leaves them
 * as they are. */
LACQUER_API int LockBitmapBits(HGBITMAP bitmap, SurfaceView *out, const RECT *rect);

/* LockBitmapBits, with the palette fields written, or cleared, too. */
LACQUER_API int LockBitmapBitsEx(HGBITMAP bitmap, SurfaceView *out, const RECT *rect);

/* Ends a lock. */
LACQUER_API int UnlockBitmapBits(HGBITMAP bitmap);

/* The filter word, 0 at first: its top byte is the draw mode, the low 24 bits are the key colour of
 * LACQUER_DRAW_COLOR_KEY. */
LACQUER_API int GetBitmapFilter(HGBITMAP bitmap, DWORD *out);
LACQUER_API int SetBitmapFilter(HGBITMAP bitmap, DWORD filter);

/* Writes the bits per pixel. */
LACQUER_API int GetBitmapBitsPixel(HGBITMAP bitmap, BYTE *out);

/* Copies pixels, palette and filter word of the source rectangle to the destination rectangle (null: everything). Equal
 * depths are copied row by row; otherwise a 32-bit destination receives converted pixels, and any other stays as it is.
 * The amount is the source rectangle's; what does not fit into the destination rectangle is left out. Result: 1
 * whenever both handles are bitmaps. */
LACQUER_API int CopyBitmap(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect);

/* A new 32-bit bitmap of the given size, resampled with `kernelMode` (LACQUER_NEAREST ... LACQUER_AREA), in the same
 * kind of storage and with the same filter word. Result: its handle, 0 on failure. */
LACQUER_API HGBITMAP ResizeBitmap(HGBITMAP bitmap, DWORD width, DWORD height, DWORD kernelMode);

/* A new bitmap of the same depth, turned or mirrored by `code` (LACQUER_ROTATE_90 ... LACQUER_TRANSVERSE). RotateBitmap
 * takes the rotations and FlipBitmap the two flips only. Result: its handle, 0 for other codes and on failure. */
LACQUER_API HGBITMAP TransformBitmap(HGBITMAP bitmap, DWORD code);
LACQUER_API HGBITMAP RotateBitmap(HGBITMAP bitmap, int code);
LACQUER_API HGBITMAP FlipBitmap(HGBITMAP bitmap, DWORD code);

/* Turns a canvas into a bitmap; the canvas handle is invalid afterwards. Unless the canvas's draw mode is
 * LACQUER_DRAW_OVER every alpha becomes 255. Result: the bitmap, or 0: a wrong handle and a canvas made from a device
 * context change nothing; when no slot is free the canvas is gone. */
LACQUER_API HGBITMAP CanvasToBitmap(HGCANVAS canvas);

/* ---- Textures ----------------------------------------------------------------------------------------------- */

/* New textures in process memory, as CreateMemBitmap and CreateMemBitmapEx. They have no slices and the draw mode
 * record 0. */
LACQUER_API HGTEXTURE CreateTexture(DWORD width, DWORD height);
LACQUER_API HGTEXTURE CreateTextureEx(DWORD width, DWORD height, DWORD bitsPerPixel, DWORD paletteCount);

/* Deletes a texture; ReleaseTexture is the same function. Pixels borrowed from a canvas stay the canvas's. */
LACQUER_API void DeleteTexture(HGTEXTURE texture);
LACQUER_API void ReleaseTexture(HGTEXTURE texture);

/* A texture that borrows a canvas's pixels: what is drawn on the canvas shows in the texture. It keeps the pixels that
 * it has when the canvas is deleted, or when GetCanvasHandle moves the canvas's pixels. Release it with ReleaseTexture.
 * Result: 0 on failure, and for a canvas made from a device context. */
LACQUER_API HGTEXTURE GetTexture(HGCANVAS canvas);

/* A texture that describes the pixels of a companion canvas's bitmap. It is valid as long as these pixels are. Result:
 * 0 on failure, and for a null canvas or one without a bitmap. */
LACQUER_API HGTEXTURE GetTextureFromVelCanvas(velCanvas *canvas);

/* As GetBitmapHandle; null for pixels that the texture borrows from a canvas in process memory. */
LACQUER_API HBITMAP GetTextureHandle(HGTEXTURE texture);

/* Writes the size, pixels: of the current slice when the texture has slices, else of the whole texture. Result: 0, with
 * nothing written, when there is a list of slices but the current index is not in it. */
LACQUER_API int GetTextureSize(HGTEXTURE texture, SIZE *out);

/* As the functions for bitmaps. Rectangles are in the whole texture's coordinates, not in a slice's. */
LACQUER_API int LockTextureBits(HGTEXTURE texture, SurfaceView *out, const RECT *rect);
LACQUER_API int LockTextureBitsEx(HGTEXTURE texture, SurfaceView *out, const RECT *rect);
LACQUER_API int UnlockTextureBits(HGTEXTURE texture);
LACQUER_API int GetTextureFilter(HGTEXTURE texture, DWORD *out);
LACQUER_API int SetTextureFilter(HGTEXTURE texture, DWORD filter);
LACQUER_API int GetTextureBitsPixel(HGTEXTURE texture, BYTE *out);

/* The layout record, stored and returned as it is. */
LACQUER_API int SetTextureMode(HGTEXTURE texture, const TextureMode *mode);
LACQUER_API int GetTextureMode(HGTEXTURE texture, TextureMode *out);

/* Replaces the list of slices by `count` rectangles and makes the last one current; with a count of 0 the list is empty
 * and the current index stays. Result: `count`; 0, with nothing changed, when `rects` is null or memory is short. */
LACQUER_API DWORD SetTextureSlice(HGTEXTURE texture, DWORD count, const RECT *rects);

/* Makes slice `index` current. Result: the previous index (-1 for none); -1, with nothing changed, on a wrong handle,
 * without a list and outside of it. */
LACQUER_API int SetTextureCurSlice(HGTEXTURE texture, int index);

/* Writes the current slice, or (0, 0, width, height) when there is none. */
LACQUER_API int GetTextureCurSlice(HGTEXTURE texture, RECT *out);

/* The number of slices; 0xFFFFFFFF on a wrong handle. */
LACQUER_API DWORD GetTextureSliceCount(HGTEXTURE texture);

/* Turn a canvas (as CanvasToBitmap) or a bitmap into a texture; the old handle is invalid afterwards. */
LACQUER_API HGTEXTURE CanvasToTexture(HGCANVAS canvas);
LACQUER_API HGTEXTURE BitmapToTexture(HGBITMAP bitmap);

/* As the functions for bitmaps; new textures are in process memory and have no slices and the draw mode record 0. */
LACQUER_API int CopyTexture(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect);
LACQUER_API HGTEXTURE ResizeTexture(HGTEXTURE texture, DWORD width, DWORD height, DWORD kernelMode);
LACQUER_API HGTEXTURE TransformTexture(HGTEXTURE texture, DWORD code);
LACQUER_API HGTEXTURE RotateTexture(HGTEXTURE texture, int code);
LACQUER_API HGTEXTURE FlipTexture(HGTEXTURE texture, DWORD code);

/* ---- Canvases ----------------------------------------------------------------------------------------------- */

/* A new canvas, transparent black, in process memory (CreateCanvas) or in a DIB section with its device context
 * (CreateSystemCanvas). Width and height 1..32767 pixels. `template_`: a canvas whose filter word is taken over, or 0.
 * Result: its handle, 0 on failure. */
LACQUER_API HGCANVAS CreateCanvas(DWORD width, DWORD height, HGCANVAS template_);
LACQUER_API HGCANVAS CreateSystemCanvas(DWORD width, DWORD height, HGCANVAS template_);

/* A canvas that draws on the caller's device context, with the context's origins. The context is never deleted and must
 * outlive the canvas. Result: its handle, 0 on failure. */
LACQUER_API HGCANVAS CreateCanvasFromDC(HDC dc);

/* Deletes a canvas with its device context and its pixels. Handles from GetBitmap become invalid. */
LACQUER_API void DeleteCanvas(HGCANVAS canvas);

/* Gives a handle from GetCanvasParent back; the canvas stays. Result: 1, 0 for a stale canvas handle, and for a handle
 * of another type its type bits (handle & 0xFF0000). */
LACQUER_API DWORD ReleaseCanvas(HGCANVAS canvas);

/* As LockBitmapBits, with a logical rectangle. On a canvas made from a device context a rectangle is required; pixels
 * that can't be reached directly are copied (transparent black where the context can't be read), and UnlockCanvasBits
 * writes them back. There is one copy at a time, and any number of direct locks beside it; each unlock ends the last
 * lock. LockCanvasBitsEx refuses such canvases. */
LACQUER_API int LockCanvasBits(HGCANVAS canvas, SurfaceView *out, const RECT *rect);
LACQUER_API int LockCanvasBitsEx(HGCANVAS canvas, SurfaceView *out, const RECT *rect);
LACQUER_API int UnlockCanvasBits(HGCANVAS canvas);

/* The canvas's device context, owned by the canvas, with its clip and origins. The first call moves the pixels of a
 * canvas in process memory into a DIB section: views locked before are invalid. GDI writes 0 into the alpha of what it
 * draws; call GdiFlush between GDI drawing and reading pixels. Result: null on failure. */
LACQUER_API HDC GetCanvasHandle(HGCANVAS canvas);

/* Writes width and height, pixels. Result: 0 for a canvas made from a device context. */
LACQUER_API int GetCanvasSize(HGCANVAS canvas, SIZE *out);

/* The origins, both (0, 0) at first: device = logical + viewport origin - window origin. `previous` may be null. */
LACQUER_API int SetViewportOrg(HGCANVAS canvas, int x, int y, POINT *previous);
LACQUER_API int GetViewportOrg(HGCANVAS canvas, POINT *out);
LACQUER_API int SetWindowOrg(HGCANVAS canvas, int x, int y, POINT *previous);
LACQUER_API int GetWindowOrg(HGCANVAS canvas, POINT *out);

/* A window handle that the canvas remembers. SetCanvasWindow returns the previous one. */
LACQUER_API HWND SetCanvasWindow(HGCANVAS canvas, HWND window);
LACQUER_API HWND GetCanvasWindow(HGCANVAS canvas);

/* A parent that the canvas remembers; it is forgotten when it is deleted. GetCanvasParent gives a new handle for it, to
 * be given back with ReleaseCanvas, or 0. */
LACQUER_API int SetCanvasParent(HGCANVAS canvas, HGCANVAS parent);
LACQUER_API HGCANVAS GetCanvasParent(HGCANVAS canvas);

/* The filter word, as of bitmaps. A canvas made from a device context refuses to set it. */
LACQUER_API int GetCanvasFilter(HGCANVAS canvas, DWORD *out);
LACQUER_API int SetCanvasFilter(HGCANVAS canvas, DWORD filter);

/* A colour that the canvas remembers. `previous` may be null. */
LACQUER_API int SetCanvasBkColor(HGCANVAS canvas, DWORD colour, DWORD *previous);
LACQUER_API int GetCanvasBkColor(HGCANVAS canvas, DWORD *out);

/* The clip, the whole canvas at first. SetCanvasClipRect replaces it, cut to the canvas; IntersectCanvasClipRect
 * narrows it; an empty or inverted result is empty: nothing is drawn. On a canvas made from a device context they set
 * the context's clip, which is not cut: it lasts when the visible part changes. Both give 1 for every canvas and
 * rectangle. GetCanvasClipRect writes the clip's bounding box, of a device context's clip what is visible of it. */
LACQUER_API int SetCanvasClipRect(HGCANVAS canvas, const RECT *rect);
LACQUER_API int IntersectCanvasClipRect(HGCANVAS canvas, const RECT *rect);
LACQUER_API int GetCanvasClipRect(HGCANVAS canvas, RECT *out);

/* A bitmap handle for a canvas's own pixels; they stay the canvas's. Give it back with ReleaseBitmap. Result: 0 on
 * failure, and for a canvas made from a device context. */
LACQUER_API HGBITMAP GetBitmap(HGCANVAS canvas);

/* Gives a handle from GetBitmap back; the pixels stay. */
LACQUER_API void ReleaseBitmap(HGBITMAP bitmap);

/* ---- Stretching --------------------------------------------------------------------------------------------- */

/* The process-wide setting of the bicubic weights: 1, at load, is the cubic B-spline (soft); any other value the cubic
 * convolution with a = -1 (sharp). It does not choose a sampler: the kernel mode of a draw does. Set it while no draw
 * runs. SetStretchKernelMode: 1, or 0 when `mode` is set already. */
LACQUER_API int SetStretchKernelMode(DWORD mode);
LACQUER_API DWORD GetStretchKernelMode(void);

/* ---- Drawing bitmaps and textures --------------------------------------------------------------------------- */

/* Draw a whole bitmap (DrawBitmapRectEx: its rectangle `source`, null for all) into the rectangle `dest` of a canvas,
 * inside the canvas's clip. The draw mode is the top byte of the bitmap's filter word; `kernelMode` picks the sampler
 * when the sizes differ; `alpha` 255 draws at full strength, 0 nothing, and other values draw the bitmap over the
 * canvas with its channels scaled by (alpha + 1) / 256 (modes LACQUER_DRAW_MODULATE and LACQUER_DRAW_BEHIND ignore
 * alpha). Result: 1 also when nothing is visible or the source rectangle is not inside the bitmap. */
LACQUER_API int DrawBitmap(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, DWORD kernelMode);
LACQUER_API int DrawBitmapEx(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, DWORD kernelMode, BYTE alpha);
LACQUER_API int DrawBitmapRectEx(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, const RECT *source,
                                 DWORD kernelMode, BYTE alpha);

/* Draw a texture's current slice, or the whole texture without one, into the rectangle `dest` of a canvas, inside the
 * canvas's clip and by the texture's draw mode, laid out as its TextureMode says: see the layouts below. DrawTexture
 * uses alpha 255, scale 1 and no half scale. Result: 1; 0 when the slice is empty or not inside the texture, and always
 * for the tile and the top-tile. */
LACQUER_API int DrawTexture(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode);
LACQUER_API int DrawTextureEx(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode, BYTE alpha,
                              float scale, int halfScale);

/* ---- Fills -------------------------------------------------------------------------------------------------- */

/* Fill the visible part of a rectangle. The colour of FillSolidRect (drawn over) and FillSolidRectEx is straight and is
 * premultiplied first, c * (A + 1) / 256 per channel; that of FillPreMulColorRectEx is premultiplied already. The top
 * byte of `modeWord` is the draw mode. Under LACQUER_DRAW_MODULATE and LACQUER_DRAW_OR alike, the colour 0xFFFFFFFF
 * does nothing and 0 clears. A fill that does nothing by its colour and mode alone (a transparent colour over or keyed,
 * 0xFFFFFFFF in those two) gives 1 on any handle. */
LACQUER_API int FillSolidRect(HGCANVAS canvas, DWORD colour, const RECT *rect);
LACQUER_API int FillSolidRectEx(HGCANVAS canvas, DWORD colour, const RECT *rect, DWORD modeWord);
LACQUER_API int FillPreMulColorRectEx(HGCANVAS canvas, DWORD colour, const RECT *rect, DWORD modeWord);

/* Fills with a gradient between two straight colours: `direction` 1 from top to bottom, 2 from left to right; any other
 * value, and two colours that are equal once premultiplied, fill with the first. The gradient is a vector drawing: it
 * follows the canvas's blend mode and blend value, leaves the vector state as it was, and draws nothing, with the
 * result 1, on a canvas made from a device context and when memory is short. */
LACQUER_API int FillGradualRect(HGCANVAS canvas, DWORD from, DWORD to, const RECT *rect, int direction);

/* ---- Geometric rectangles and shadows ----------------------------------------------------------------------- */

/* Rectangles, rounded rectangles, focus rings and shadows with smooth edges; the same pixels on every machine. For all
 * of them: coordinates are clamped to 2^31 pixels on either side of 0 and rounded to 1/256 pixel, lengths likewise and
 * clamped to their ranges. A rectangle that is empty or inverted then, and a number that is none (NaN) in a field that
 * the function uses, draws nothing, with the result 1; a shadow with such a field is left out of its list. Only 32-bit
 * pixels are drawn on. Result: 1, also when nothing is visible; 0 for a wrong handle, a null pointer, a negative count.
 *
 * Each part of a shape is drawn as FillSolidRectEx draws its colour, to the extent that the part covers a pixel; whole
 * pixels are those of FillSolidRectEx. Radii that do not fit into a side are made smaller together. The inner edge of a
 * border keeps the circles' centres; a border that leaves nothing inside is all there is. */

/* `borderWidth` and `radius`: pixels, 0 to 16384. The colours are straight, drawn over; alpha 0 leaves a part out. */
LACQUER_API int GeoRectangle(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth);
LACQUER_API int GeoRoundRect(HGCANVAS canvas, const RECT *rect, DWORD border, DWORD fill, int borderWidth, int radius);

/* The top byte of `modeWord` is the draw mode. GeoRectangleEx ignores the radii. */
LACQUER_API int GeoRectangleEx(HGCANVAS canvas, const GeoRect *rect, const GeoStyle *style, DWORD modeWord);
LACQUER_API int GeoRoundRectEx(HGCANVAS canvas, const GeoRect *rect, const GeoStyle *style, DWORD modeWord);

/* A border in one straight colour, drawn over, of dashes that close: as many as fit best of `dash` + `gap`, the first
 * in the middle of the top left corner. Width (at most half the smaller side), radius of all corners, dash and gap:
 * pixels, 0 to 16384. A dash or a gap of 0, or a ring of more than 65536 pixels, is drawn without gaps. Around a
 * rectangle of whole pixels a width, dash and gap of 1 with sharp corners paint every other pixel of the edge. */
LACQUER_API int GeoRectFocusEx(HGCANVAS canvas, const GeoRect *rect, DWORD colour, float width, float radius,
                               float dash, float gap);

/* Draws `count` shadows of a rectangle over the canvas, the last one first, so that the first one lies on top.
 * `shadows` may be null when `count` is 0. A shadow ends 3/2 of its blur beyond its edge. */
LACQUER_API int DrawShadows(HGCANVAS canvas, const RECT *rect, const ShadowStyle *shadows, int count);

/* ---- Compositing canvases ----------------------------------------------------------------------------------- */

/* Mix every channel, alpha included, of a rectangle (null: the whole canvas; the clip plays no part) with a rectangle
 * of another canvas, sampled nearest where sizes differ: d * (255 - value) / 256 + s * (value + 1) / 256, truncated
 * once. Or with a colour whose channels carry their weight already: d * (255 - value) / 256 + c; only the low byte of
 * `value` counts. 0 does nothing; 255 replaces. Result: 1, also when a rectangle is not inside its canvas. */
LACQUER_API int MixCanvas(HGCANVAS dest, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE value);
LACQUER_API int MixCanvasWithColor(HGCANVAS canvas, const RECT *rect, DWORD colour, DWORD value);

/* Draws a rectangle of a canvas into a rectangle of another, inside the other's clip, sampled nearest where sizes
 * differ. A source whose draw mode is LACQUER_DRAW_OVER is drawn over, whatever `alpha`. Any other counts as opaque: it
 * is copied, or faded in by an `alpha` below 255, or onto a destination whose draw mode is LACQUER_DRAW_OVER; a faded
 * draw that is both stretched and partly clipped copies. When one of the canvases was made from a device context, GDI
 * draws, and copies opaque sources whatever `alpha`. Result: 1, or GDI's. */
LACQUER_API int BlendCanvas(HGCANVAS dest, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE alpha);

/* Draws a rectangle of a canvas onto a device context through GDI: with the pixels' alpha when the canvas's draw mode
 * is LACQUER_DRAW_OVER, and with the constant `alpha`. Result: GDI's, 0 for a refused handle. */
LACQUER_API int GdiTransCanvas(HDC dc, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE alpha);

/* Moves a canvas's rows down by `dy` pixels (negative: up), clip and origins apart. The rows left behind keep their
 * pixels. Result: 0 when dx is not 0 or |dy| is not below the height. */
LACQUER_API int CanvasScroll(HGCANVAS canvas, int dx, int dy);

/* Paints a colour through a rectangle of a 32-bit mask (null: all of it) with its top-left corner at (x, y), inside the
 * canvas's clip. With an opaque colour the mask's blue, green and red are three coverages, as of sub-pixel text; with a
 * translucent one, which must be premultiplied, the mask's bytes scale the colour's and the result is drawn over.
 * Result: 1, also when nothing is visible. */
LACQUER_API int DrawModulation(HGCANVAS canvas, int x, int y, HGBITMAP mask, const RECT *source, DWORD colour);

/* ---- Colour ------------------------------------------------------------------------------------------------- */

/* Convert between straight colours 0xAARRGGBB and 0xAAHHSSLL, or between the records; `out` and `in` may be the same
 * memory. A grey has saturation 0 and hue 170. Both directions round, so that a round trip may be off by a little.
 * Result: the word; the record that was written, null when a pointer is null. */
LACQUER_API DWORD ARGBtoAHSL(DWORD argb);
LACQUER_API DWORD AHSLtoARGB(DWORD ahsl);
LACQUER_API HSLRecord *RGBtoHSL(HSLRecord *out, const RGBRecord *in);
LACQUER_API RGBRecord *HSLtoRGB(RGBRecord *out, const HSLRecord *in);

/* Shift the hue by `dh`, 1 being half the circle, the saturation by `ds` and the lightness by `dl`, -1 to 1: fractions
 * of the way to the least or the greatest value. Larger deltas wrap around. The saturation ends above 0, so even a grey
 * takes on a trace of colour; with all three deltas below 0.000001 the colour stays exactly as it is. Alpha stays.
 * Result: as for the conversions. */
LACQUER_API DWORD ARGBColorize(DWORD argb, float dh, float ds, float dl);
LACQUER_API DWORD AHSLColorize(DWORD ahsl, float dh, float ds, float dl);
LACQUER_API RGBRecord *RGBColorize(RGBRecord *out, const RGBRecord *in, float dh, float ds, float dl);
LACQUER_API HSLRecord *HSLColorize(HSLRecord *out, const HSLRecord *in, float dh, float ds, float dl);

/* Colorizes every pixel, or, with 8 bits per pixel, every palette entry of a texture; the shared grey palette and other
 * depths stay as they are. The channels count as straight. Result: 1 on any handle when all three deltas are below
 * 0.000001. */
LACQUER_API int ColorizeTexture(HGTEXTURE texture, float dh, float ds, float dl);

/* ---- Filters ------------------------------------------------------------------------------------------------ */

/* Blur a source into a destination: each channel becomes the mean, rounded down, of 3 x 3 pixels, edge pixels standing
 * for those outside. The ...Ex forms take rectangles (null: everything); the common part of the two is written. Both
 * need 32 bits per pixel, and must be different objects. Result: 1 also when nothing can be done, by a rectangle that
 * is not inside or by the depth. */
LACQUER_API int BlurBitmap(HGBITMAP dest, HGBITMAP source);
LACQUER_API int BlurBitmapEx(HGBITMAP dest, const RECT *destRect, HGBITMAP source, const RECT *sourceRect);
LACQUER_API int BlurTexture(HGTEXTURE dest, HGTEXTURE source);
LACQUER_API int BlurTextureEx(HGTEXTURE dest, const RECT *destRect, HGTEXTURE source, const RECT *sourceRect);

/* Blur a target in place, more strongly: seven bell-shaped weights in each direction, applied twice. `scratch` must be
 * another object; it, or its rectangle, has the size of the target, or of the target's rectangle (null: everything),
 * and its pixels are lost. Both need 32 bits per pixel. Channels are rounded down, so white ends at 254. Result: 1 also
 * when nothing can be done, by a rectangle that is not inside, by sizes that differ or by the depth. */
LACQUER_API int GaussianBlurBitmap(HGBITMAP target, HGBITMAP scratch);
LACQUER_API int GaussianBlurTexture(HGTEXTURE target, HGTEXTURE scratch);
LACQUER_API int GaussianBlurCanvas(HGCANVAS target, const RECT *targetRect, HGCANVAS scratch, const RECT *scratchRect);

/* The filters below work in place on all pixels (rectangle forms: null is everything) and leave depths that they do not
 * name as they are. With 8 bits per pixel it is the palette that changes, unless it is the shared grey one. Result: 0
 * also when the object has no pixels (but see the inversion), fewer than 8 bits per pixel, or the rectangle is not
 * inside. */

/* Greys: blue, green and red become (B + 2 G + R) / 4, rounded down; alpha stays. 8, 24 and 32 bits. */
LACQUER_API int GrayBitmap(HGBITMAP bitmap);
LACQUER_API int GrayTexture(HGTEXTURE texture);

/* Premultiplies straight pixels: colour channels become c * (A + 1) / 256, rounded down. 8 and 32 bits. */
LACQUER_API int NormalizeBitmap(HGBITMAP bitmap);
LACQUER_API int NormalizeTexture(HGTEXTURE texture);

/* Inverts premultiplied colour: colour channels become A - c, modulo 256. At other depths than 32 bits the rows are
 * walked as four-byte pixels all the same, up to the last whole one. Result: 1 also without pixels. */
LACQUER_API int InvertBitmap(HGBITMAP bitmap);
LACQUER_API int InvertTexture(HGTEXTURE texture);

/* Replaces one exact colour by another: the whole word, alpha included, or with 24 bits the low three bytes of both. 8,
 * 24 and 32 bits. */
LACQUER_API int TranslateTexture(HGTEXTURE texture, DWORD find, DWORD put);

/* Move channels: code 6 makes alpha the largest of blue, green and red, code 1 makes these three alpha; other codes do
 * nothing. 32 bits. */
LACQUER_API int ShuffleBitmap(HGBITMAP bitmap, DWORD code);
LACQUER_API int ShuffleTexture(HGTEXTURE texture, DWORD code);
LACQUER_API int ShuffleBitmapEx(HGBITMAP bitmap, const RECT *rect, DWORD code);
LACQUER_API int ShuffleTextureEx(HGTEXTURE texture, const RECT *rect, DWORD code);

/* Replace the pixels, inside a rectangle with LightTextureEx (null: everything), by a soft white halo in the shape of
 * their alpha. Need 32 bits per pixel, and for the time of the call a handle slot and memory of the same size. Result:
 * 1 also when nothing can be done. */
LACQUER_API int LightBitmap(HGBITMAP bitmap);
LACQUER_API int LightTexture(HGTEXTURE texture);
LACQUER_API int LightTextureEx(HGTEXTURE texture, const RECT *rect);

/* ---- Regions ------------------------------------------------------------------------------------------------ */

/* A new GDI region of the pixels of a rectangle (null: the whole texture) whose word, by the palette with 8 bits per
 * pixel, is not 0, relative to the rectangle's top-left corner. All pixels count when the draw mode is
 * LACQUER_DRAW_COPY, and with 24 bits per pixel. The caller deletes it with DeleteObject. Result: null on failure, for
 * a rectangle that is inverted or not inside, for an empty one unless the draw mode is LACQUER_DRAW_COPY, and for other
 * depths. */
LACQUER_API HRGN CreateTextureRgn(HGTEXTURE texture, const RECT *rect);

/* ---- Vector drawing ------------------------------------------------------------------------------------------------
 * Anti-aliased shapes, paths, gradients, text and animations, drawn by the companion library velGraphic into a canvas's
 * own pixels. <velgraphic/velgraphic.h> has the values of styles, modes, caps, joins and dashes, the limits of
 * numbers and of work, and how each function draws: DrawLine is velCanvasDrawLine, PathArcTo is velPathArcTo, and so
 * on.
 *
 * Colours are straight 0xAARRGGBB; angles are degrees, clockwise on screen from the positive x axis. Coordinates are
 * logical and may have fractions; drawing stays inside the canvas's clip. The vector state (style, colour, blend,
 * stroke, dash, gradient and font) belongs to the canvas and lasts until it is changed.
 *
 * Results are the companion's: 1 for done, 0 for refused. A wrong handle, and a canvas made from a device context, are
 * refused; the three functions that read the state then give its initial value, but GetBlendMode 0xFFFFFFFF. */

/* A dot as wide as the stroke; a stroked line; shapes in the present draw style. */
LACQUER_API int DrawPoint(HGCANVAS canvas, float x, float y);
LACQUER_API int DrawLine(HGCANVAS canvas, float x0, float y0, float x1, float y1);
LACQUER_API int DrawRectangle(HGCANVAS canvas, float x, float y, float width, float height);
LACQUER_API int DrawRoundRect(HGCANVAS canvas, float x, float y, float width, float height, float radiusX,
                              float radiusY);
LACQUER_API int DrawCircle(HGCANVAS canvas, float centreX, float centreY, float radius);

/* Part of the ellipse in a rectangle: an open arc, or with `useCentre` a pie. */
LACQUER_API int DrawArc(HGCANVAS canvas, float x, float y, float width, float height, float startAngle,
                        float sweepAngle, int useCentre);

LACQUER_API int DrawEllipse(HGCANVAS canvas, float centreX, float centreY, float radiusX, float radiusY);

/* A closed polygon of `count` points, at least 1. */
LACQUER_API int DrawPolygon(HGCANVAS canvas, int count, const POINT *points);

/* Colours everything inside the clip, by the blend mode and value. */
LACQUER_API int DrawColor(HGCANVAS canvas, DWORD colour);

/* The cubic curve from (x0, y0) to (x3, y3) with two control points. */
LACQUER_API int DrawBezier(HGCANVAS canvas, float x0, float y0, float x1, float y1, float x2, float y2, float x3,
                           float y3);

LACQUER_API int DrawPath(HGCANVAS canvas, velPath *path);

/* One frame of an animation, stretched to a rectangle. */
LACQUER_API int DrawLottie(HGCANVAS canvas, velLottie *lottie, float frame, float x, float y, float width,
                           float height);

/* Glyphs by the font's own indices, each with the origin of its baseline. Smooth text of at most 256 pixels stands in
 * the nearest whole row, at the nearest quarter of a column; all glyphs of a call are one shape. Refused, as a text
 * from a string is, when larger outlines have more than 1,000,000 lines and curves inside the clip. */
LACQUER_API int DrawPosTextByGlyphs(HGCANVAS canvas, const WORD *glyphs, int count, const velPointF *positions);

/* A line of text from a string of `length` UTF-16 units, at most 65,535 (-1: up to the terminating zero), with the
 * origin of its baseline at (x, y): shaped, in the order of its directions, with other fonts for what the font lacks.
 */
LACQUER_API int DrawTextRun(HGCANVAS canvas, const WCHAR *text, int length, float x, float y);

/* How large DrawTextRun would draw a text, pixels. Refused, the record stays as it was. */
LACQUER_API int MeasureTextRun(HGCANVAS canvas, const WCHAR *text, int length, velTextExtent *out);

/* The glyphs of a text in the canvas's own font, and their origins from that of the text, for DrawPosTextByGlyphs.
 * Writes at most `capacity` of each. Result: how many there are, also beyond the capacity. */
LACQUER_API int GetTextGlyphs(HGCANVAS canvas, const WCHAR *text, int length, WORD *glyphs, velPointF *positions,
                              int capacity);

/* How far the font reaches above and below the baseline, and the distance of two baselines, pixels; null where it is
 * not wanted. */
LACQUER_API int GetFontMetrics(HGCANVAS canvas, float *ascent, float *descent, float *lineHeight);

/* Put the vector state on the canvas's stack, and go back to the state last saved (0 when there is none). */
LACQUER_API int Save(HGCANVAS canvas);
LACQUER_API int Restore(HGCANVAS canvas);

LACQUER_API int SetDrawStyle(HGCANVAS canvas, DWORD style);
LACQUER_API int SetColor(HGCANVAS canvas, DWORD colour);
LACQUER_API int SetSmooth(HGCANVAS canvas, int on);
LACQUER_API int SetBlendMode(HGCANVAS canvas, DWORD mode);
LACQUER_API DWORD GetBlendMode(HGCANVAS canvas);

/* The opacity of everything drawn, 0 to 255. */
LACQUER_API int SetBlendValue(HGCANVAS canvas, DWORD value);
LACQUER_API DWORD GetBlendValue(HGCANVAS canvas);

LACQUER_API int SetStrokeCap(HGCANVAS canvas, DWORD cap);
LACQUER_API int SetStrokeJoin(HGCANVAS canvas, DWORD join);

/* The gradient of the gradient styles, in logical coordinates. It may be destroyed right afterwards. */
LACQUER_API int SetGradient(HGCANVAS canvas, velGradient *gradient);

LACQUER_API int SetStrokeWidth(HGCANVAS canvas, float width);
LACQUER_API float GetStrokeWidth(HGCANVAS canvas);
LACQUER_API int SetDashStyle(HGCANVAS canvas, DWORD style);
LACQUER_API int SetDashPattern(HGCANVAS canvas, const float *lengths, int count, float offset);

/* A family's name, or "sans-serif", "serif", "monospace" or "system-ui"; null or empty, as at first, for the font of
 * the system's user interface. */
LACQUER_API int SetFontFaceName(HGCANVAS canvas, const WCHAR *name);
LACQUER_API int SetFontStyle(HGCANVAS canvas, DWORD bits);
LACQUER_API int SetTextSize(HGCANVAS canvas, float pixels);

/* Paths and gradients belong to the caller, who destroys them. */
LACQUER_API velPath *PathCreate(void);
LACQUER_API int PathDestroy(velPath *path);
LACQUER_API int PathBegin(velPath *path);
LACQUER_API int PathClose(velPath *path);
LACQUER_API int PathSetFillType(velPath *path, DWORD type);
LACQUER_API int PathMoveTo(velPath *path, float x, float y);
LACQUER_API int PathLineTo(velPath *path, float x, float y);
LACQUER_API int PathArcTo(velPath *path, float x, float y, float width, float height, float startAngle,
                          float sweepAngle, int forceMoveTo);
LACQUER_API int PathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc,
                                int clockwise, float x, float y);
LACQUER_API int PathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3);
LACQUER_API int PathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2);
LACQUER_API int PathAddArc(velPath *path, float x, float y, float width, float height, float startAngle,
                           float sweepAngle);
LACQUER_API int PathAddRectangle(velPath *path, float x, float y, float width, float height);
LACQUER_API int PathAddCircle(velPath *path, float centreX, float centreY, float radius);
LACQUER_API int PathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY);
LACQUER_API int PathGetBounds(velPath *path, velRectF *out);
LACQUER_API velGradient *GradientCreateLinear(float x0, float y0, float x1, float y1);
LACQUER_API velGradient *GradientCreateRadial(float centreX, float centreY, float radius);
LACQUER_API int GradientAddColorStop(velGradient *gradient, float offset, DWORD colour);
LACQUER_API int GradientDestroy(velGradient *gradient);

#ifdef __cplusplus
} /* extern "C" */

/* ---- Texture layouts ---------------------------------------------------------------------------------------- */

/* The layouts that DrawTextureEx chooses among, with a slice of the caller's: null is the whole texture, and exchanged
 * edges are put right. A slice that is empty or not inside the texture draws nothing and gives 0. They have C++
 * linkage. */

/* Scales the slice into `dest` with its aspect kept, centred, never cropped. Result: 1. */
LACQUER_API int DrawTextureCenter(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                  DWORD kernelMode, BYTE alpha);

/* Repeats the slice from the top-left corner of `dest`, at its own size or, with LACQUER_SCALE_CELL, times `scale`.
 * When the last cell of a row is cut at the right edge, the rows below repeat the cut cell. Result: always 0. */
LACQUER_API int DrawTextureTile(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                DWORD kernelMode, BYTE alpha, DWORD scaleFlags, float scale);

/* Repeats the slice from left to right at its own width; its top margins.top rows keep their height, its bottom
 * margins.bottom rows are stretched over the rest. Result: always 0. */
LACQUER_API int DrawTextureTopTile(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                   const tagRECT *margins, DWORD kernelMode, BYTE alpha);

/* Cuts slice and `dest` into nine cells by the margins (source pixels) and draws cell into cell: the corners keep their
 * size, edges and centre stretch. `scaleFlags` choose the destination margins that `scale` resizes. `halfScale`:
 * destination margins are half the source's. `hollowCentre`: the centre is filled with the colour of its middle pixel,
 * faded by `alpha`, with the texture's filter word as mode word. Samples never reach outside the slice: a sheet needs
 * no padding. Result: 1. */
LACQUER_API int DrawTexture9Grid(HGCANVAS canvas, const tagRECT *dest, HGTEXTURE texture, const tagRECT *slice,
                                 const tagRECT *margins, DWORD kernelMode, int hollowCentre, BYTE alpha,
                                 DWORD scaleFlags, float scale, int halfScale);
#endif

#endif
