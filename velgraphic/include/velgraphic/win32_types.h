/* The Win32 names in the interface of velGraphic, for systems without <windows.h>, in the sizes of 64-bit Windows. */
#ifndef VELGRAPHIC_WIN32_TYPES_H
#define VELGRAPHIC_WIN32_TYPES_H

#include <stdint.h>
#ifndef __cplusplus
#include <uchar.h>
#endif

typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef int32_t LONG;
typedef char16_t WCHAR;

/* A rectangle; right and bottom are exclusive. */
typedef struct tagRECT {
    LONG left, top, right, bottom;
} RECT;

#endif
