/** @file
 * The GDI subset that Lacquer is built on where the system has none: memory device contexts, DIB sections, regions
 * and transfers, under the Win32 names and with their meaning. It lets a caller work with the HDC, HBITMAP and HRGN
 * values that Lacquer hands out.
 *
 * What holds for all of it:
 * - A handle is never a pointer. A null, stale, foreign or damaged handle is refused: the result is the one for failure
 *   and nothing changes. At most 65535 objects live at a time.
 * - Results: non-zero is done and 0 refused, unless a declaration says otherwise.
 * - Mapping mode text: device = logical - window origin + viewport origin. Any coordinate value is allowed; sums are
 *   made in 64 bits, and kept in 32 where they must be stored.
 * - Pixels: 32-bit words 0xAARRGGBB, 24-bit BGR bytes, 16-bit words with five bits per channel, 8-bit indices into the
 *   bitmap's colour table, and bitmaps with one bit per pixel (device bitmaps only). Rows are padded to four bytes.
 * - Alpha: what SetPixel draws and what comes from fewer than 32 bits has alpha 0 in a 32-bit bitmap; BLACKNESS and
 *   WHITENESS make all 32 bits 0 or 1; copies between 32-bit bitmaps keep all four bytes.
 * - Drawing is done when a function returns, so that bits can be read at once.
 * - Nothing is ever printed.
 *
 * Where it differs from GDI, as Wine has it, within this subset:
 * - HALFTONE stretches as COLORONCOLOR does; GDI interpolates.
 * - BLACKONWHITE and WHITEONBLACK between different formats merge the source's pixels, then convert; GDI sometimes
 *   converts first. A stretch from two pixels, the first of them outside, to one draws nothing; GDI draws the second
 *   when the other side keeps its size.
 * - A stretch of which nothing is visible gives 1; GDI sometimes gives 0. AC_SRC_ALPHA with a source of fewer than 32
 *   bits is refused also when nothing is visible.
 * - Outside of the clip region, an empty one included, SetPixel and GetPixel give CLR_INVALID; GDI's SetPixel gives the
 *   colour, and neither heeds an empty region in its result.
 * - GetClipBox tells the kind of what it bounds, and its box is empty when nothing is visible; GDI tells the clip
 *   region's own kind, and the box may be inverted. The first IntersectClipRect gives NULLREGION for an empty
 *   rectangle; GDI gives SIMPLEREGION. An empty rectangle has no point in a region; in GDI one inside counts.
 * - What is refused changes nothing; GDI's ExtSelectClipRgn may leave the bitmap's rectangle behind.
 * - Beyond 2^24 GDI rounds logical coordinates, and its sums wrap around.
 *
 * How the comments are to be read: one comment stands for all functions up to the next empty line. What it leaves out,
 * the head of its section says for all its functions (parameters, result), and else the end of this comment.
 *
 * The header compiles as C11 and as C++17.
 *
 * @par Threads
 * Any thread may call it. The bits of a DIB section are the caller's to guard.
 * @since 0.1.0
 */
#ifndef LACQUER_HEADLESS_GDI_H
#define LACQUER_HEADLESS_GDI_H

#include <lacquer/win32_types.h>

/** Stands before what the library exports of GDI. */
#define LACQUER_GDI_API __attribute__((visibility("default")))

/** @defgroup gdi Headless GDI
 * Off Windows: the GDI subset that Lacquer is built on, under the Win32 names. */

/** @defgroup gdi_types Types and constants of GDI
 * With the Win32 names and values.
 * @ingroup gdi
 * @{ */

/** An unsigned number. */
typedef unsigned int UINT;

/** Stands for a section of memory; always null here. */
typedef void *HANDLE;

/** A colour 0x00BBGGRR. */
typedef DWORD COLORREF;

/** A colour of a colour table. */
typedef struct tagRGBQUAD {
    BYTE rgbBlue;     /**< 0 to 255 */
    BYTE rgbGreen;    /**< 0 to 255 */
    BYTE rgbRed;      /**< 0 to 255 */
    BYTE rgbReserved; /**< not used */
} RGBQUAD;

/** The layout of a device-independent bitmap. */
typedef struct tagBITMAPINFOHEADER {
    DWORD biSize;         /**< 40: bytes of this header */
    LONG biWidth;         /**< pixels, positive */
    LONG biHeight;        /**< pixels, negative when the first row in memory is the top one */
    WORD biPlanes;        /**< 1 */
    WORD biBitCount;      /**< bits per pixel: 8, 16, 24 or 32 */
    DWORD biCompression;  /**< BI_RGB */
    DWORD biSizeImage;    /**< bytes of all pixels; CreateDIBSection does not read it */
    LONG biXPelsPerMeter; /**< not read */
    LONG biYPelsPerMeter; /**< not read */
    DWORD biClrUsed;      /**< entries of the colour table with 8 bits per pixel; 0 for all 256 */
    DWORD biClrImportant; /**< not read */
} BITMAPINFOHEADER;

/** A header, and the colour table that follows it with 8 bits per pixel. */
typedef struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader; /**< the header */
    RGBQUAD bmiColors[1];       /**< the first of biClrUsed entries */
} BITMAPINFO;

/** A DIB section as GetObjectW describes it. */
typedef struct tagDIBSECTION {
    BITMAP dsBm;             /**< size, depth and pixels */
    BITMAPINFOHEADER dsBmih; /**< its layout, but that the height is always positive */
    DWORD dsBitfields[3];    /**< the bits of red, green and blue with 16 bits per pixel; else 0 */
    HANDLE dshSection;       /**< null */
    DWORD dsOffset;          /**< 0 */
} DIBSECTION;

/** How AlphaBlend blends. */
typedef struct _BLENDFUNCTION {
    BYTE BlendOp;             /**< AC_SRC_OVER */
    BYTE BlendFlags;          /**< 0 */
    BYTE SourceConstantAlpha; /**< 0 to 255; 255 for none */
    BYTE AlphaFormat;         /**< AC_SRC_ALPHA: a premultiplied 32-bit source; 0: an opaque one */
} BLENDFUNCTION;

/** The header of a region's rectangles; the sizes are bytes. */
typedef struct _RGNDATAHEADER {
    DWORD dwSize;   /**< 32: bytes of this header */
    DWORD iType;    /**< RDH_RECTANGLES */
    DWORD nCount;   /**< how many rectangles follow */
    DWORD nRgnSize; /**< their bytes; ExtCreateRegion does not read it */
    RECT rcBound;   /**< around all of them; ExtCreateRegion does not read it */
} RGNDATAHEADER;

/** A region's rectangles. */
typedef struct _RGNDATA {
    RGNDATAHEADER rdh; /**< the header */
    char Buffer[1];    /**< where nCount records RECT begin */
} RGNDATA;

#ifndef FALSE
/** Refused, or no. */
#define FALSE 0
#endif
#ifndef TRUE
/** Done, or yes. */
#define TRUE 1
#endif
#ifndef ERROR
/** What region functions give on failure. */
#define ERROR 0
#endif
/** What GetPixel and SetPixel give on failure. */
#define CLR_INVALID 0xFFFFFFFFu

/** Kinds of region, and results of region functions beside ERROR. */
enum {
    NULLREGION = 1,   /**< no pixels */
    SIMPLEREGION = 2, /**< one rectangle */
    COMPLEXREGION = 3 /**< more than one */
};

/** How two regions are combined. */
enum {
    RGN_AND = 1,  /**< what both have */
    RGN_OR = 2,   /**< what any has */
    RGN_XOR = 3,  /**< what one alone has */
    RGN_DIFF = 4, /**< what the first has and the second has not */
    RGN_COPY = 5  /**< the first of two; of a clip region the new one */
};

/** Kinds of region data. */
enum { RDH_RECTANGLES = 1 /**< rectangles */ };

/** Kinds of object. */
enum {
    OBJ_BITMAP = 7, /**< a bitmap */
    OBJ_REGION = 8, /**< a region */
    OBJ_MEMDC = 10  /**< a memory device context */
};

/** Raster operations. */
enum {
    BLACKNESS = 0x00000042, /**< all bits 0 */
    SRCCOPY = 0x00CC0020,   /**< the source */
    WHITENESS = 0x00FF0062  /**< all bits 1 */
};

/** What colour tables hold. */
enum { DIB_RGB_COLORS = 0 /**< colours */ };
/** How pixels are packed. */
enum { BI_RGB = 0 /**< not at all */ };
/** Values of BLENDFUNCTION. */
enum {
    AC_SRC_OVER = 0, /**< the source over the destination */
    AC_SRC_ALPHA = 1 /**< with the alpha of the source's pixels */
};

/** Stretch modes: what becomes of pixels that shrink into one. */
enum {
    BLACKONWHITE = 1, /**< the bits that all have */
    WHITEONBLACK = 2, /**< the bits that any has */
    COLORONCOLOR = 3, /**< one of them is kept */
    HALFTONE = 4      /**< as COLORONCOLOR, here */
};

/** @} */

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup gdi_dc Device contexts
 * Memory device contexts: what is drawn on, by way of a bitmap that is selected into them.
 *
 * @param dc the device context; a wrong handle is refused
 * @param out where the answer is written; null is refused
 * @param x pixels
 * @param y pixels
 * @return not 0; 0 when an argument is refused
 * @ingroup gdi
 * @{ */

/** A new memory device context, with a bitmap of 1 x 1 pixel and one bit per pixel selected, no clip region, both
 * origins 0 and the stretch mode BLACKONWHITE.
 * @param dc any device context, which plays no other part; a wrong handle is refused; null is fine
 * @return the device context, which DeleteDC deletes; null when `dc` is refused and when memory or handles are short */
LACQUER_GDI_API HDC CreateCompatibleDC(HDC dc);

/** Deletes a device context with its saved states. What is selected into it is released, and stays. */
LACQUER_GDI_API BOOL DeleteDC(HDC dc);

/** Saves the selected bitmap, clip region, origins and stretch mode.
 * @return the number of the saved state, from 1; 0 for a wrong handle and when memory is short */
LACQUER_GDI_API int SaveDC(HDC dc);

/** Goes back to a saved state. That state and the later ones are dropped.
 * @param level its number, from 1; or -1 for the latest, -2 for the one before, and so on
 * @return not 0; 0 for a wrong handle and when there is no such state */
LACQUER_GDI_API BOOL RestoreDC(HDC dc, int level);

/** Sets an origin: device = logical - window origin + viewport origin.
 * @param previous where the old origin is written; null when it is not wanted */
LACQUER_GDI_API BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT *previous);
LACQUER_GDI_API BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT *previous);

/** Writes an origin. */
LACQUER_GDI_API BOOL GetViewportOrgEx(HDC dc, POINT *out);
LACQUER_GDI_API BOOL GetWindowOrgEx(HDC dc, POINT *out);

/** Sets the stretch mode.
 * @param mode BLACKONWHITE ... HALFTONE
 * @return the previous mode; 0, with nothing changed, for a wrong handle and another mode */
LACQUER_GDI_API int SetStretchBltMode(HDC dc, int mode);

/** The stretch mode.
 * @return BLACKONWHITE ... HALFTONE; 0 for a wrong handle */
LACQUER_GDI_API int GetStretchBltMode(HDC dc);

/** Waits for drawing to be done; here it is done already.
 * @return not 0; never fails */
LACQUER_GDI_API BOOL GdiFlush(void);

/** @} */

/** @defgroup gdi_objects Objects and bitmaps
 * What device contexts draw on, and what has a handle.
 *
 * @param dc the device context; a wrong handle is refused
 * @param object a bitmap, a region or a device context; a wrong handle is refused
 * @param width pixels
 * @param height pixels
 * @return not 0; 0 when an argument is refused
 * @ingroup gdi
 * @{ */

/** Selects a bitmap into a device context. A bitmap can be selected into one device context at a time.
 * @param object the bitmap; or a region, for SelectClipRgn and its result as a number; a wrong handle is refused
 * @return the bitmap that was selected before; null on failure */
LACQUER_GDI_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

/** Deletes a bitmap, a region or a device context. A bitmap that is selected goes when it is no longer selected;
 * until then its handle and its pixels stay valid. The default bitmap is never deleted. */
LACQUER_GDI_API BOOL DeleteObject(HGDIOBJ object);

/** Describes a bitmap. bmHeight is positive; bmBits, the lowest address, is null unless the bitmap is a DIB section.
 * @param object the bitmap; a wrong handle is refused
 * @param size bytes at `out`: 32 for a BITMAP; 104 for a DIBSECTION, which only a DIB section has
 * @param out where the description is written; null to learn how large a BITMAP is
 * @return the bytes written, or with a null `out` 32; 0 for a wrong handle and a smaller size */
LACQUER_GDI_API int GetObjectW(HGDIOBJ object, int size, void *out);

/** The kind of an object.
 * @return OBJ_BITMAP, OBJ_REGION or OBJ_MEMDC; 0 for anything else */
LACQUER_GDI_API DWORD GetObjectType(HGDIOBJ object);

/** The bitmap selected into a device context.
 * @param type OBJ_BITMAP
 * @return the bitmap; null for a wrong handle and another type */
LACQUER_GDI_API HGDIOBJ GetCurrentObject(HDC dc, UINT type);

/** A new bitmap, a DIB section, whose pixels the caller reaches directly; they are zero.
 * @param dc not used; null
 * @param info of it count the size, 1 plane, 8, 16, 24 or 32 bits per pixel with BI_RGB, and the colour table; null is
 * refused
 * @param usage DIB_RGB_COLORS
 * @param bits where the address of the pixels is written, null on failure; null when it is not wanted
 * @param section must be null
 * @param offset not used
 * @return the bitmap, which DeleteObject deletes; null when an argument is refused, when width or height is 0 or the
 * pixels exceed 2^32 - 1 bytes, and when memory or handles are short */
LACQUER_GDI_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section,
                                         DWORD offset);

/** A new device bitmap: its pixels can't be reached directly.
 * @param width pixels; its sign does not count
 * @param height pixels; its sign does not count
 * @param planes 1
 * @param bitsPerPixel 1 or 32
 * @param bits its first pixels, rows top-down and padded to two bytes; null for all black
 * @return the bitmap, which DeleteObject deletes; null when an argument is refused and when memory or handles are
 * short; the default bitmap when width or height is 0, whatever the other arguments */
LACQUER_GDI_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits);

/** A new bitmap, all black, of the kind and depth of the bitmap selected into a device context: a DIB section gives a
 * DIB section (top-down when the height is negative), the default bitmap a device bitmap of one bit per pixel.
 * @param width pixels; a negative one is refused for a DIB section
 * @return the bitmap, which DeleteObject deletes; null when an argument is refused and when memory or handles are
 * short; the default bitmap when width or height is 0 */
LACQUER_GDI_API HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);

/** @} */

/** @defgroup gdi_clipping Clipping
 * Where a device context draws: in its clip region, if it has one, and in its bitmap.
 *
 * @param dc the device context; a wrong handle is refused
 * @param region a region in device coordinates; a wrong handle is refused
 * @param left logical coordinate
 * @param top logical coordinate
 * @param right logical coordinate, exclusive
 * @param bottom logical coordinate, exclusive
 * @return the kind of the clip region: NULLREGION, SIMPLEREGION or COMPLEXREGION; ERROR, with nothing changed, when an
 * argument is refused and when memory is short
 * @ingroup gdi
 * @{ */

/** Writes the bounding box of the clip region cut to the bitmap.
 * @param out where it is written, logical coordinates; null is refused
 * @return the kind of the clip region cut to the bitmap; ERROR, with nothing written, on failure */
LACQUER_GDI_API int GetClipBox(HDC dc, RECT *out);

/** Copies the clip region.
 * @param region where it is copied to, in device coordinates; a wrong handle is refused
 * @return 1; 0 without a clip region, -1 on failure */
LACQUER_GDI_API int GetClipRgn(HDC dc, HRGN region);

/** Makes a copy of a region the clip region.
 * @param region a region in device coordinates; a wrong handle is refused; null removes the clip region
 * @return the kind of the clip region, SIMPLEREGION without one; ERROR, with nothing changed, on failure */
LACQUER_GDI_API int SelectClipRgn(HDC dc, HRGN region);

/** Combines the clip region (without one: the bitmap's rectangle) with a region.
 * @param region a region in device coordinates; a wrong handle is refused; null removes the clip region with RGN_COPY,
 * and is refused with the other modes
 * @param mode RGN_AND ... RGN_COPY
 * @return the kind of the clip region, SIMPLEREGION without one; ERROR, with nothing changed, on failure */
LACQUER_GDI_API int ExtSelectClipRgn(HDC dc, HRGN region, int mode);

/** Narrows the clip region to a rectangle, or (ExcludeClipRect) takes a rectangle away from it; corners in any order.
 */
LACQUER_GDI_API int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
LACQUER_GDI_API int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);

/** Moves the clip region.
 * @param x pixels to the right
 * @param y pixels down
 * @return the kind of the clip region; NULLREGION without one, and nothing changes; ERROR, with nothing changed, on
 * failure */
LACQUER_GDI_API int OffsetClipRgn(HDC dc, int x, int y);

/** Whether a point can be drawn.
 * @param x logical coordinate
 * @param y logical coordinate
 * @return not 0 if it can; 0 if not, and for a wrong handle */
LACQUER_GDI_API BOOL PtVisible(HDC dc, int x, int y);

/** Whether any point of a rectangle can be drawn.
 * @param rect logical coordinates, corners in any order; null is refused
 * @return not 0 if one can; 0 if not, and when an argument is refused */
LACQUER_GDI_API BOOL RectVisible(HDC dc, const RECT *rect);

/** @} */

/** @defgroup gdi_regions Regions in GDI
 * Sets of pixels, kept as rectangles.
 *
 * @param region the region; a wrong handle is refused
 * @param left pixels
 * @param top pixels
 * @param right pixels, exclusive
 * @param bottom pixels, exclusive
 * @param x pixels
 * @param y pixels
 * @return not 0; 0 when an argument is refused
 * @ingroup gdi
 * @{ */

/** A new region of one rectangle, corners in any order.
 * @return the region, which DeleteObject deletes; null when memory or handles are short */
LACQUER_GDI_API HRGN CreateRectRgn(int left, int top, int right, int bottom);

/** A new region of one rectangle.
 * @param rect pixels, corners in any order; null is refused
 * @return the region, which DeleteObject deletes; null when it is refused and when memory or handles are short */
LACQUER_GDI_API HRGN CreateRectRgnIndirect(const RECT *rect);

/** A new region: the union of rectangles. Inverted and empty ones count as nothing.
 * @param transform a matrix on Windows; must be null
 * @param size bytes at `data`
 * @param data the rectangles; null is refused
 * @return the region, which DeleteObject deletes; null when an argument is refused, when the size is too small for the
 * count, and when memory or handles are short */
LACQUER_GDI_API HRGN ExtCreateRegion(const void *transform, DWORD size, const RGNDATA *data);

/** Makes a region one rectangle, corners in any order. */
LACQUER_GDI_API BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom);

/** Makes a region what two regions are together: dest = source1 `mode` source2; they may be the same.
 * @param dest the region that is changed; a wrong handle is refused
 * @param source1 the first; a wrong handle is refused
 * @param source2 the second, which RGN_COPY does not look at; a wrong handle is refused
 * @param mode RGN_AND ... RGN_COPY
 * @return the kind of dest; ERROR when an argument is refused and when memory is short */
LACQUER_GDI_API int CombineRgn(HRGN dest, HRGN source1, HRGN source2, int mode);

/** Writes the rectangles of a region, top to bottom and left to right.
 * @param size bytes at `out`
 * @param out where they are written; null to learn how many bytes are needed
 * @return the bytes written, or with a null `out` those that are needed; 0 for a wrong handle and when `size` is too
 * small */
LACQUER_GDI_API DWORD GetRegionData(HRGN region, DWORD size, RGNDATA *out);

/** Writes the bounding box of a region.
 * @param out where it is written, (0, 0, 0, 0) for an empty region; null is refused
 * @return the kind of the region; ERROR, with nothing written, when an argument is refused */
LACQUER_GDI_API int GetRgnBox(HRGN region, RECT *out);

/** Whether two regions have the same points.
 * @param first a region; a wrong handle is refused
 * @param second a region; a wrong handle is refused
 * @return not 0 if they have; 0 if not, and when a handle is refused */
LACQUER_GDI_API BOOL EqualRgn(HRGN first, HRGN second);

/** Moves a region; what leaves the 32-bit range is lost.
 * @return the kind of the region; ERROR for a wrong handle and when memory is short */
LACQUER_GDI_API int OffsetRgn(HRGN region, int x, int y);

/** Whether a region contains a point.
 * @return not 0 if it does; 0 if not, and for a wrong handle */
LACQUER_GDI_API BOOL PtInRegion(HRGN region, int x, int y);

/** Whether a region contains any point of a rectangle.
 * @param rect pixels, corners in any order; null is refused
 * @return not 0 if it does; 0 if not, and when an argument is refused */
LACQUER_GDI_API BOOL RectInRegion(HRGN region, const RECT *rect);

/** @} */

/** @defgroup gdi_transfers Transfers
 * Each function draws inside the clip region and the bitmap of its destination. Coordinates are logical. Pixels whose
 * source lies outside the source's bitmap are left as they are. Converting to 16 bits cuts channels. Converting to 8
 * bits takes the nearest colour of the table: nearest to the source's colour when that comes from a table itself, and
 * otherwise, as well as when blending, to (c & 0xF8) + 4 in each channel c. Converting to one bit takes the nearest of
 * black and white; BitBlt and StretchBlt take white for the source's value for white (alpha 0; the nearest entry of a
 * table) and black for all others. Drawing onto the same bitmap works as through a copy.
 *
 * @param dest the device context that is drawn on; a wrong handle is refused
 * @param dc the device context; a wrong handle is refused
 * @param x the left edge, logical coordinate
 * @param y the top edge, logical coordinate
 * @param width pixels
 * @param height pixels
 * @param source the device context that is read; a wrong handle is refused
 * @param sourceX the left edge, logical coordinate of `source`
 * @param sourceY the top edge, logical coordinate of `source`
 * @param sourceWidth pixels of `source`
 * @param sourceHeight pixels of `source`
 * @return not 0, also when nothing is visible; 0, with nothing drawn, when an argument is refused and when memory is
 * short
 * @ingroup gdi
 * @{ */

/** Copies a rectangle. A negative width or height goes from (x, y) to the left or upwards, the pixel (x, y) included.
 * @param source the device context that is read, which BLACKNESS and WHITENESS do not use; otherwise a wrong handle is
 * refused
 * @param operation SRCCOPY, BLACKNESS or WHITENESS; others are refused */
LACQUER_GDI_API BOOL BitBlt(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                            DWORD operation);

/** Copies and scales a rectangle; negative sizes, on one side, mirror. Along each axis, growing takes the source
 * pixel in which the destination pixel's centre lies; shrinking gives each source pixel to the destination pixel in
 * which its centre lies, and of several the stretch mode of `dest` keeps the last of a row and the first of a
 * column (COLORONCOLOR, HALFTONE), the bits that all have (BLACKONWHITE) or the bits that any has (WHITEONBLACK).
 * Shrinking to one pixel, unmirrored, leaves out the last source pixel. When a mirrored source lies partly outside its
 * bitmap, the part inside is mirrored at the place where it would be drawn without mirroring.
 * @param source the device context that is read, which BLACKNESS and WHITENESS do not use; otherwise a wrong handle is
 * refused
 * @param operation SRCCOPY, BLACKNESS or WHITENESS; others are refused */
LACQUER_GDI_API BOOL StretchBlt(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                int sourceWidth, int sourceHeight, DWORD operation);

/** Fills a rectangle with all bits 0 or 1.
 * @param operation BLACKNESS or WHITENESS; others are refused */
LACQUER_GDI_API BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);

/** Blends a rectangle over the destination, scaling as StretchBlt with COLORONCOLOR. For each channel, alpha
 * included, with the constant alpha c: d = (s c + d (255 - c)) / 255; with AC_SRC_ALPHA s' = s c / 255 and d = s' +
 * d (255 - a') / 255, where a' is the alpha of s'. Quotients are rounded to the nearest. Sources of fewer than 32
 * bits have the alpha 255 here. Refused are negative sizes, a source rectangle that is not inside the source's bitmap,
 * AC_SRC_ALPHA with a source of fewer than 32 bits, overlapping rectangles of one device context. Both are the same.
 * @param blend the constant alpha, and whether the pixels' alpha counts; other values than those of the record are
 * refused */
LACQUER_GDI_API BOOL GdiAlphaBlend(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                   int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
LACQUER_GDI_API BOOL AlphaBlend(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                int sourceWidth, int sourceHeight, BLENDFUNCTION blend);

/** Draws pixels of the caller's: rows `startScan` ... startScan + lines - 1 of a picture, counted from its bottom. Of a
 * top-down picture no more rows are read than it has; `lines` places the first of them even when there are fewer.
 * @param sourceX the left edge of the rectangle drawn, counted from the picture's left
 * @param sourceY its lower edge, counted from the picture's bottom
 * @param startScan the first row that there is, counted from the picture's bottom
 * @param lines how many rows there are
 * @param bits the rows; null is refused
 * @param info the picture's layout, as for CreateDIBSection; null is refused
 * @param usage DIB_RGB_COLORS
 * @return the number of rows; 0 on failure and when the rectangle lies outside the rows, unless it lies below those of
 * a top-down picture */
LACQUER_GDI_API int SetDIBitsToDevice(HDC dest, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                                      UINT startScan, UINT lines, const void *bits, const BITMAPINFO *info, UINT usage);

/** The colour of one pixel.
 * @return 0x00BBGGRR; CLR_INVALID outside of the clip region and for a wrong handle */
LACQUER_GDI_API COLORREF GetPixel(HDC dc, int x, int y);

/** Draws one pixel.
 * @param colour 0x00BBGGRR
 * @return the colour that it has now, 0x00BBGGRR; CLR_INVALID, with nothing drawn, outside of the clip region and for a
 * wrong handle */
LACQUER_GDI_API COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);

/** @} */

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
