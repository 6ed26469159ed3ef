/* The GDI subset that Lacquer is built on where the system has none: memory device contexts, DIB sections, regions
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
 * - Any thread may call any function. The bits of a DIB section are the caller's to guard.
 * - Nothing is ever printed.
 *
 * Where it differs from GDI, as Wine has it, within this subset:
 * - HALFTONE stretches as COLORONCOLOR does; GDI interpolates.
 * - BLACKONWHITE and WHITEONBLACK between different formats merge the source's pixels, then convert; GDI sometimes
 *   converts first. A stretch from two pixels to one of which the first lies outside draws nothing; GDI draws the
 * second when the other side keeps its size.
 * - A stretch of which nothing is visible gives 1; GDI sometimes gives 0. AC_SRC_ALPHA with a source of fewer than 32
 *   bits is refused also when nothing is visible.
 * - Outside of the clip region, an empty one included, SetPixel and GetPixel give CLR_INVALID; GDI's SetPixel gives the
 *   colour, and neither heeds an empty region in its result.
 * - GetClipBox tells the kind of what it bounds, and its box is empty when nothing is visible; GDI tells the clip
 *   region's own kind, and the box may be inverted. The first IntersectClipRect gives NULLREGION for an empty
 * rectangle; GDI gives SIMPLEREGION. An empty rectangle has no point in a region; in GDI one inside counts.
 * - What is refused changes nothing; GDI's ExtSelectClipRgn may leave the bitmap's rectangle behind.
 * - Beyond 2^24 GDI rounds logical coordinates, and its sums wrap around.
 *
 * The header compiles as C11 and as C++17. */
#ifndef LACQUER_HEADLESS_GDI_H
#define LACQUER_HEADLESS_GDI_H

#include <lacquer/win32_types.h>

#define LACQUER_GDI_API __attribute__((visibility("default")))

/* ---- Types ----------------------------------------------------------------------------------------------------- */

typedef unsigned int UINT;
typedef void *HANDLE;

/* A colour 0x00BBGGRR. */
typedef DWORD COLORREF;

typedef struct tagRGBQUAD {
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
} RGBQUAD;

/* The layout of a device-independent bitmap; biHeight is negative when its first row in memory is the top one. */
typedef struct tagBITMAPINFOHEADER {
    DWORD biSize; /* 40 */
    LONG biWidth, biHeight;
    WORD biPlanes, biBitCount;
    DWORD biCompression, biSizeImage;
    LONG biXPelsPerMeter, biYPelsPerMeter;
    DWORD biClrUsed, biClrImportant;
} BITMAPINFOHEADER;

/* A header, and the colour table that follows it below 16 bits per pixel: biClrUsed entries, 0 for all of them. */
typedef struct tagBITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO;

typedef struct tagDIBSECTION {
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
} DIBSECTION;

typedef struct _BLENDFUNCTION {
    BYTE BlendOp;             /* AC_SRC_OVER */
    BYTE BlendFlags;          /* 0 */
    BYTE SourceConstantAlpha; /* 255 for none */
    BYTE AlphaFormat;         /* AC_SRC_ALPHA: a premultiplied 32-bit source; 0: an opaque one */
} BLENDFUNCTION;

/* The header of a region's rectangles; the sizes are bytes. */
typedef struct _RGNDATAHEADER {
    DWORD dwSize; /* 32 */
    DWORD iType;  /* RDH_RECTANGLES */
    DWORD nCount;
    DWORD nRgnSize;
    RECT rcBound;
} RGNDATAHEADER;

/* A header and, in Buffer, nCount records RECT. */
typedef struct _RGNDATA {
    RGNDATAHEADER rdh;
    char Buffer[1];
} RGNDATA;

/* ---- Constants, with the Win32 values -------------------------------------------------------------------------- */

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#ifndef ERROR
#define ERROR 0
#endif
#define CLR_INVALID 0xFFFFFFFFu

/* Kinds of region, and of results of region functions beside ERROR. */
enum { NULLREGION = 1, SIMPLEREGION = 2, COMPLEXREGION = 3 };

/* How two regions are combined. */
enum { RGN_AND = 1, RGN_OR = 2, RGN_XOR = 3, RGN_DIFF = 4, RGN_COPY = 5 };

enum { RDH_RECTANGLES = 1 };

/* Kinds of object. */
enum { OBJ_BITMAP = 7, OBJ_REGION = 8, OBJ_MEMDC = 10 };

/* Raster operations. */
enum { BLACKNESS = 0x00000042, SRCCOPY = 0x00CC0020, WHITENESS = 0x00FF0062 };

enum { DIB_RGB_COLORS = 0 };
enum { BI_RGB = 0 };
enum { AC_SRC_OVER = 0, AC_SRC_ALPHA = 1 };

/* Stretch modes. */
enum { BLACKONWHITE = 1, WHITEONBLACK = 2, COLORONCOLOR = 3, HALFTONE = 4 };

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Device contexts ------------------------------------------------------------------------------------------- */

/* A new memory device context, with a bitmap of 1 x 1 pixel and one bit per pixel selected, no clip region, both
 * origins 0 and the stretch mode BLACKONWHITE. `dc`: null or any device context; only its validity matters. Result:
 * null on failure. */
LACQUER_GDI_API HDC CreateCompatibleDC(HDC dc);

/* Deletes a device context with its saved states. What is selected into it is released, and stays. */
LACQUER_GDI_API BOOL DeleteDC(HDC dc);

/* Pushes the selected bitmap, clip region, origins and stretch mode. Result: the number of the saved state, from 1. */
LACQUER_GDI_API int SaveDC(HDC dc);

/* Goes back to saved state `level` (from 1), or with -1, -2 ... to the latest, the one before; that state and the
 * later ones are dropped. */
LACQUER_GDI_API BOOL RestoreDC(HDC dc, int level);

/* Sets an origin. `previous` (the old origin) may be null. */
LACQUER_GDI_API BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT *previous);
LACQUER_GDI_API BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT *previous);

LACQUER_GDI_API BOOL GetViewportOrgEx(HDC dc, POINT *out);
LACQUER_GDI_API BOOL GetWindowOrgEx(HDC dc, POINT *out);

/* Sets the stretch mode, 1 to 4. Result: the previous mode. */
LACQUER_GDI_API int SetStretchBltMode(HDC dc, int mode);
LACQUER_GDI_API int GetStretchBltMode(HDC dc);

/* Waits for drawing to be done; here it is done already. */
LACQUER_GDI_API BOOL GdiFlush(void);

/* ---- Objects --------------------------------------------------------------------------------------------------- */

/* Selects a bitmap into a device context; result: the bitmap that was selected before, null on failure. A bitmap
 * can be selected into one device context at a time. With a region: SelectClipRgn and its result, as a number. */
LACQUER_GDI_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

/* Deletes a bitmap, a region or a device context. A bitmap that is selected goes when it is no longer selected;
 * until then its handle and its pixels stay valid. The default bitmap is never deleted. */
LACQUER_GDI_API BOOL DeleteObject(HGDIOBJ object);

/* Describes a bitmap in `out`: BITMAP (`size` 32) or, for a DIB section, DIBSECTION (104). With a null `out` the
 * size in bytes that is needed. bmHeight is positive; bmBits, the lowest address, is null unless the bitmap is a
 * DIB section. Result: the bytes written. */
LACQUER_GDI_API int GetObjectW(HGDIOBJ object, int size, void *out);

/* OBJ_BITMAP, OBJ_REGION or OBJ_MEMDC; 0 for anything else. */
LACQUER_GDI_API DWORD GetObjectType(HGDIOBJ object);

/* The bitmap selected into a device context. `type`: OBJ_BITMAP; null for others. */
LACQUER_GDI_API HGDIOBJ GetCurrentObject(HDC dc, UINT type);

/* ---- Bitmaps --------------------------------------------------------------------------------------------------- */

/* A new bitmap whose pixels the caller reaches through `*bits` (null on failure; `bits` may be null); they are
 * zero. Of `info` count the size, 1 plane, 8, 16, 24 or 32 bits per pixel with BI_RGB, and the colour table.
 * `usage`: DIB_RGB_COLORS. `dc` plays no part; `section` must be null. Result: null on failure, also when width or
 * height is 0 or the pixels exceed 2^32 - 1 bytes. */
LACQUER_GDI_API HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section,
                                         DWORD offset);

/* A new device bitmap: its pixels can't be reached directly. `planes`: 1. `bitsPerPixel`: 1 or 32. `bits`: its
 * first pixels, rows top-down and padded to two bytes, or null for all black. The sign of width and height does not
 * count. Result: null on failure; the default bitmap when width or height is 0, whatever the other arguments. */
LACQUER_GDI_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits);

/* A new bitmap, all black, of the kind and depth of the bitmap selected into `dc`: a DIB section gives a DIB section
 * (top-down when the height is negative), the default bitmap a device bitmap of one bit per pixel. Result: null on
 * failure; the default bitmap when width or height is 0. */
LACQUER_GDI_API HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);

/* ---- Clipping -------------------------------------------------------------------------------------------------- */

/* Writes the bounding box, logical coordinates, of the clip region cut to the bitmap. Result: the kind of that
 * region. */
LACQUER_GDI_API int GetClipBox(HDC dc, RECT *out);

/* Copies the clip region, device coordinates, into `region`. Result: 1; 0 without a clip region, -1 on failure. */
LACQUER_GDI_API int GetClipRgn(HDC dc, HRGN region);

/* Makes a copy of `region`, device coordinates, the clip region; null removes it. Result: the kind of the clip
 * region, SIMPLEREGION without one. */
LACQUER_GDI_API int SelectClipRgn(HDC dc, HRGN region);

/* Combines the clip region (without one: the bitmap's rectangle) with `region`, device coordinates, by RGN_AND ...
 * RGN_COPY. A null region is allowed with RGN_COPY only and removes the clip region. Result: as SelectClipRgn. */
LACQUER_GDI_API int ExtSelectClipRgn(HDC dc, HRGN region, int mode);

/* Narrow the clip region to a rectangle, or take a rectangle away from it; logical coordinates, corners in any
 * order. Result: as SelectClipRgn. */
LACQUER_GDI_API int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
LACQUER_GDI_API int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);

/* Moves the clip region. Result: as SelectClipRgn; NULLREGION without one, and nothing changes. */
LACQUER_GDI_API int OffsetClipRgn(HDC dc, int x, int y);

/* Whether a point, or any point of a rectangle, logical coordinates, can be drawn. */
LACQUER_GDI_API BOOL PtVisible(HDC dc, int x, int y);
LACQUER_GDI_API BOOL RectVisible(HDC dc, const RECT *rect);

/* ---- Regions --------------------------------------------------------------------------------------------------- */

/* A new region of one rectangle, corners in any order. Result: null on failure. */
LACQUER_GDI_API HRGN CreateRectRgn(int left, int top, int right, int bottom);
LACQUER_GDI_API HRGN CreateRectRgnIndirect(const RECT *rect);

/* A new region: the union of the rectangles of `data`, whose `size` is in bytes. `transform`, a matrix on Windows,
 * must be null. Inverted and empty rectangles count as nothing. Result: null on failure, also when `size` is too
 * small for the count. */
LACQUER_GDI_API HRGN ExtCreateRegion(const void *transform, DWORD size, const RGNDATA *data);

/* Makes a region one rectangle, corners in any order. */
LACQUER_GDI_API BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom);

/* dest = source1 `mode` source2; the regions may be the same, and RGN_COPY takes source1 only. Result: the kind of
 * dest, or ERROR. */
LACQUER_GDI_API int CombineRgn(HRGN dest, HRGN source1, HRGN source2, int mode);

/* Writes the rectangles of a region, top to bottom and left to right, into `out` of `size` bytes. Result: the bytes
 * that are needed when `out` is null, the bytes written otherwise, 0 when `size` is too small. */
LACQUER_GDI_API DWORD GetRegionData(HRGN region, DWORD size, RGNDATA *out);

/* Writes the bounding box, (0, 0, 0, 0) for an empty region. Result: the kind of the region, or ERROR. */
LACQUER_GDI_API int GetRgnBox(HRGN region, RECT *out);

/* Whether two regions have the same points. */
LACQUER_GDI_API BOOL EqualRgn(HRGN first, HRGN second);

/* Moves a region; what leaves the 32-bit range is lost. Result: its kind, or ERROR. */
LACQUER_GDI_API int OffsetRgn(HRGN region, int x, int y);

/* Whether a region contains a point, or any point of a rectangle (corners in any order). */
LACQUER_GDI_API BOOL PtInRegion(HRGN region, int x, int y);
LACQUER_GDI_API BOOL RectInRegion(HRGN region, const RECT *rect);

/* ---- Transfers ------------------------------------------------------------------------------------------------- */

/* Each function draws inside the clip region and the bitmap of `dest`. Coordinates are logical. Pixels whose source
 * lies outside the source's bitmap are left as they are. Converting to 16 bits cuts channels. Converting to 8 bits
 * takes the nearest colour of the table: nearest to the source's colour when that comes from a table itself, and
 * otherwise, as well as when blending, to (c & 0xF8) + 4 in each channel c. Converting to one bit takes the nearest of
 * black and white; BitBlt and StretchBlt take white for the source's value for white (alpha 0; the nearest entry of a
 * table) and black for all others. Drawing onto the same bitmap works as through a copy. Result: 1 also when nothing is
 * visible. */

/* Copies a rectangle with SRCCOPY; with BLACKNESS and WHITENESS no source is used. A negative width or height goes
 * from (x, y) to the left or upwards, the pixel (x, y) included. */
LACQUER_GDI_API BOOL BitBlt(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                            DWORD operation);

/* Copies and scales a rectangle; negative sizes, on one side, mirror. Along each axis, growing takes the source
 * pixel in which the destination pixel's centre lies; shrinking gives each source pixel to the destination pixel in
 * which its centre lies, and of several the stretch mode of `dest` keeps the last of a row and the first of a
 * column (COLORONCOLOR, HALFTONE), the bits that all have (BLACKONWHITE) or the bits that any has (WHITEONBLACK).
 * Shrinking to one pixel, unmirrored, leaves out the last source pixel. When a mirrored source lies partly outside its
 * bitmap, the part inside is mirrored at the place where it would be drawn without mirroring.
 * `operation`: as for BitBlt. */
LACQUER_GDI_API BOOL StretchBlt(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                int sourceWidth, int sourceHeight, DWORD operation);

/* Fills a rectangle with BLACKNESS or WHITENESS: all bits 0 or 1. */
LACQUER_GDI_API BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);

/* Blend a rectangle over the destination, scaling as StretchBlt with COLORONCOLOR. For each channel, alpha
 * included, with the constant alpha c: d = (s c + d (255 - c)) / 255; with AC_SRC_ALPHA s' = s c / 255 and d = s' +
 * d (255 - a') / 255, where a' is the alpha of s'. Quotients are rounded to the nearest. Sources of fewer than 32
 * bits have the alpha 255 here. Refused: negative sizes, a source rectangle that is not inside the source's bitmap,
 * AC_SRC_ALPHA with a source of fewer than 32 bits, overlapping rectangles of one device context. */
LACQUER_GDI_API BOOL GdiAlphaBlend(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                   int sourceWidth, int sourceHeight, BLENDFUNCTION blend);
LACQUER_GDI_API BOOL AlphaBlend(HDC dest, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                                int sourceWidth, int sourceHeight, BLENDFUNCTION blend);

/* Draws pixels described by `info` (as for CreateDIBSection) whose rows `startScan` ... startScan + lines - 1,
 * counted from the picture's bottom, are at `bits`. (sourceX, sourceY): the lower left corner, counted from the
 * picture's bottom left, of the rectangle drawn; (x, y): its upper left corner on `dest`. Of a top-down picture no more
 * rows are read than it has; `lines` places the first of them even when there are fewer. Result: the number of rows, 0
 * on failure and when the rectangle lies outside the rows, unless it lies below those of a top-down picture. */
LACQUER_GDI_API int SetDIBitsToDevice(HDC dest, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY,
                                      UINT startScan, UINT lines, const void *bits, const BITMAPINFO *info, UINT usage);

/* One pixel's colour; CLR_INVALID outside of the clip region and on failure. */
LACQUER_GDI_API COLORREF GetPixel(HDC dc, int x, int y);

/* Draws one pixel. Result: the colour it has now; CLR_INVALID outside of the clip region and on failure. */
LACQUER_GDI_API COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour);

#ifdef __cplusplus
} /* extern "C" */
#endif

#endif
