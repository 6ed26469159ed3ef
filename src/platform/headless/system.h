// What the library uses of the Win32 kernel and of USER beside GDI, for systems that have neither: critical sections,
// global memory blocks, MulDiv, rectangle helpers, the clock and the version. Internal; nothing here is exported.
#pragma once

#include <lacquer/headless_gdi.h>
#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>

using HGLOBAL = void *;

// ---- Critical sections: a thread may enter one again ----------------------------------------------------------------

/// For sections of some nanoseconds: one atomic exchange enters, a store leaves. Who waits sleeps after a few tries.
/// Ready for use when zero, and never in need of deletion.
struct CRITICAL_SECTION {
    std::atomic<pthread_t> owner;   ///< 0 while nobody is inside
    uint32_t reentries;             ///< how often the owner entered again
    std::atomic<uint32_t> waiting;  ///< how many threads sleep or are about to
    std::atomic<uint32_t> wakeUps;
};

enum : DWORD { CRITICAL_SECTION_NO_DEBUG_INFO = 0x01000000 };

/// There are no spins to choose, and no debug information. Always done.
inline BOOL InitializeCriticalSectionEx(CRITICAL_SECTION *section, DWORD, DWORD) {
    section->owner.store(0, std::memory_order_relaxed);
    section->reentries = 0;
    section->waiting.store(0, std::memory_order_relaxed);
    section->wakeUps.store(0, std::memory_order_relaxed);
    return TRUE;
}

/// Waits until the owner, who isn't the calling thread, has left, and makes the caller the owner.
void WaitForCriticalSection(CRITICAL_SECTION *section, pthread_t caller);

void WakeOneForCriticalSection(CRITICAL_SECTION *section);

/// False, at once, while another thread is inside.
inline BOOL TryEnterCriticalSection(CRITICAL_SECTION *section) {
    const pthread_t caller = pthread_self();
    pthread_t owner = 0;
    if (section->owner.compare_exchange_strong(owner, caller, std::memory_order_acquire)) return TRUE;
    if (owner != caller) return FALSE;
    ++section->reentries;
    return TRUE;
}

inline void EnterCriticalSection(CRITICAL_SECTION *section) {
    if (!TryEnterCriticalSection(section)) WaitForCriticalSection(section, pthread_self());
}

inline void LeaveCriticalSection(CRITICAL_SECTION *section) {
    if (section->reentries > 0) {
        --section->reentries;
        return;
    }
    section->owner.store(0, std::memory_order_release);
    // No fence stands between the two, since it would double what a lookup costs. So it may happen, if rarely, that a
    // thread which is about to sleep is not seen here: it wakes up by itself a little later.
    if (section->waiting.load(std::memory_order_relaxed) > 0) WakeOneForCriticalSection(section);
}

// ---- Global memory --------------------------------------------------------------------------------------------------

enum : UINT { GMEM_FIXED = 0, GMEM_MOVEABLE = 2, GMEM_ZEROINIT = 0x40, GHND = 0x42, GPTR = 0x40 };

/// A block of `size` bytes. A fixed block's handle is its address; a moveable one has an address only while it is
/// locked. Null when memory is short.
HGLOBAL GlobalAlloc(UINT flags, size_t size);

/// Resizes a block, keeping its contents; with GMEM_ZEROINIT what is added is zero. A locked block is moved only with
/// GMEM_MOVEABLE, and so is a fixed one. Returns the block's handle, or null, with the block unchanged.
HGLOBAL GlobalReAlloc(HGLOBAL block, size_t size, UINT flags);

/// The block's address; locks are counted. Null for null.
void *GlobalLock(HGLOBAL block);

/// Ends a lock. Non-zero while the block is still locked, and for a fixed block.
BOOL GlobalUnlock(HGLOBAL block);

/// Frees a block. Always null; null is accepted.
HGLOBAL GlobalFree(HGLOBAL block);

/// The block's size in bytes, 0 for null.
size_t GlobalSize(HGLOBAL block);

// ---- Rectangles: a null pointer gives 0 where a function tests for one; those on every draw's road are inline ------

BOOL SetRect(RECT *rect, int left, int top, int right, int bottom);
BOOL SetRectEmpty(RECT *rect);
BOOL CopyRect(RECT *dest, const RECT *source);

inline BOOL EqualRect(const RECT *first, const RECT *second) {
    if (!first || !second) return FALSE;
    return first->left == second->left && first->top == second->top && first->right == second->right &&
           first->bottom == second->bottom;
}

/// True when the right or bottom edge is not beyond the left or top one, and for null.
inline BOOL IsRectEmpty(const RECT *rect) { return !rect || rect->left >= rect->right || rect->top >= rect->bottom; }

/// Both wrap around at the ends of the range.
BOOL OffsetRect(RECT *rect, int x, int y);
BOOL InflateRect(RECT *rect, int x, int y);

/// The common part; (0, 0, 0, 0) and result 0 when there is none.
inline BOOL IntersectRect(RECT *dest, const RECT *first, const RECT *second) {
    if (!dest || !first || !second) return FALSE;
    const RECT common{std::max(first->left, second->left), std::max(first->top, second->top),
                      std::min(first->right, second->right), std::min(first->bottom, second->bottom)};
    // When one of the two is empty, so is the common part.
    const bool isEmpty = IsRectEmpty(&common) != FALSE;
    *dest = isEmpty ? RECT{} : common;
    return !isEmpty;
}

/// The box around both, an empty one left out; (0, 0, 0, 0) and result 0 when both are empty.
BOOL UnionRect(RECT *dest, const RECT *first, const RECT *second);

BOOL PtInRect(const RECT *rect, POINT point);

// ---- Others ---------------------------------------------------------------------------------------------------------

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize, dwMajorVersion, dwMinorVersion, dwBuildNumber, dwPlatformId;
    WCHAR szCSDVersion[128];
};

/// number x numerator / denominator, rounded half away from zero; -1 when the denominator is 0 or the result exceeds 32
/// bits.
int MulDiv(int number, int numerator, int denominator);

/// Milliseconds of a clock that never goes back, modulo 2^32.
DWORD GetTickCount();

/// Writes a version 6.2, as programs without a manifest see it. 0 when the record's size is not set.
BOOL GetVersionExW(OSVERSIONINFOW *info);

/// Always null: no device context belongs to a window.
HWND WindowFromDC(HDC dc);
