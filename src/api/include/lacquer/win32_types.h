/* The Win32 names in the interface of Lacquer, for systems without <windows.h>: those of its companion and more. */
#ifndef LACQUER_WIN32_TYPES_H
#define LACQUER_WIN32_TYPES_H

#include <stdint.h>
#include <velgraphic/win32_types.h>

typedef uint8_t BYTE;
typedef int BOOL;

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
