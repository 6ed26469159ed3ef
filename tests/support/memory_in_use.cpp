// Asks the allocator: the sanitizer's own where there is one, that of the C library, or the heaps of the process.

#include "support/memory_in_use.h"

#include <cstddef>

#ifdef _WIN32
#include <windows.h>

namespace lacquer {

long MemoryInUse() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    SIZE_T bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) {
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        }
        HeapUnlock(heaps[i]);
    }
    return static_cast<long>(bytes);
}

}  // namespace lacquer
#else
#include <malloc.h>

extern "C" __attribute__((weak)) size_t __sanitizer_get_current_allocated_bytes();

namespace lacquer {

long MemoryInUse() {
    if (__sanitizer_get_current_allocated_bytes) return static_cast<long>(__sanitizer_get_current_allocated_bytes());
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long>(info.uordblks + info.hblkhd);
}

}  // namespace lacquer
#endif
