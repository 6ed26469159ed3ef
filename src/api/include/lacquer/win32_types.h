/* The Win32 names that the interface of Lacquer uses, for systems without <windows.h>. Sizes are those of 64-bit
 * Windows. */
#ifndef LACQUER_WIN32_TYPES_H
#define LACQUER_WIN32_TYPES_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

typedef uint8_t BYTE;
typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef int32_t LONG;
typedef int BOOL;
typedef char16_t WCHAR;

/* A rectangle; right and bottom are exclusive. */
typedef struct tagRECT {
    LONG left, top, right, bottom;
} RECT;

typedef struct tagPOINT {
    LONG x, y;
} POINT;

typedef struct tagSIZE {
    LONG cx, cy;
} SIZE;

/* A bitmap as GetObjectW describes it; bmBits is null for a bitmap that is not a DIB section. */
typedef struct tagBITMAP {
    LONG bmType, bmWidth, bmHeight, bmWidthBytes;
    WORD bmPlanes, bmBitsPixel;
    void *bmBits;
} BITMAP;

/* Opaque handles. HGDIOBJ stands for any of them. */
typedef struct HDC__ *HDC;
typedef struct HBITMAP__ *HBITMAP;
typedef struct HRGN__ *HRGN;
typedef struct HWND__ *HWND;
typedef void *HGDIOBJ;

#endif
