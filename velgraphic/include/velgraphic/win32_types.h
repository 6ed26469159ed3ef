/** @file
 * The Win32 names in the interface of velGraphic, for systems without <windows.h>, in the sizes of 64-bit Windows.
 * @since 0.1.0
 */
#ifndef VELGRAPHIC_WIN32_TYPES_H
#define VELGRAPHIC_WIN32_TYPES_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

/** @defgroup win32 Types of Windows
 * Off Windows: the Win32 names of types, in the sizes of 64-bit Windows.
 * @{ */

/** A number of 16 bits, from 0. */
typedef uint16_t WORD;
/** A number of 32 bits, from 0. */
typedef uint32_t DWORD;
/** A number of 32 bits with a sign. */
typedef int32_t LONG;
/** A unit of UTF-16. */
typedef char16_t WCHAR;

/** A rectangle. */
typedef struct tagRECT {
    LONG left;   /**< the first column */
    LONG top;    /**< the first row */
    LONG right;  /**< the column after the last */
    LONG bottom; /**< the row after the last */
} RECT;

/** @} */

#endif
