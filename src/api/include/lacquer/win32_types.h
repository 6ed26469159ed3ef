/** @file
 * The Win32 names in the interface of Lacquer, for systems without <windows.h>: those of its companion and more.
 * @since 0.1.0
 */
#ifndef LACQUER_WIN32_TYPES_H
#define LACQUER_WIN32_TYPES_H

#include <stdint.h>
#include <velgraphic/win32_types.h>

/** @addtogroup win32
 * @{ */

/** A number of 8 bits, from 0. */
typedef uint8_t BYTE;
/** Not 0 for yes or done, 0 for no or refused. */
typedef int BOOL;

/** A point, or a distance. */
typedef struct tagPOINT {
    LONG x; /**< to the right, pixels */
    LONG y; /**< down, pixels */
} POINT;

/** A size. */
typedef struct tagSIZE {
    LONG cx; /**< the width, pixels */
    LONG cy; /**< the height, pixels */
} SIZE;

/** A bitmap as GetObjectW describes it. */
typedef struct tagBITMAP {
    LONG bmType;       /**< 0 */
    LONG bmWidth;      /**< pixels */
    LONG bmHeight;     /**< pixels, positive */
    LONG bmWidthBytes; /**< bytes from one row to the next */
    WORD bmPlanes;     /**< 1 */
    WORD bmBitsPixel;  /**< bits per pixel */
    void *bmBits;      /**< the first byte of the pixels; null for a bitmap that is not a DIB section */
} BITMAP;

/** A device context. */
typedef struct HDC__ *HDC;
/** A bitmap of GDI. */
typedef struct HBITMAP__ *HBITMAP;
/** A region of GDI. */
typedef struct HRGN__ *HRGN;
/** A window, which Lacquer only remembers. */
typedef struct HWND__ *HWND;
/** Any of these but a window. */
typedef void *HGDIOBJ;

/** @} */

#endif
