// Taking memory and giving it back, each amount in the way that leaves it where the next caller looks.

#include "memory_proof.h"

#include <cstdint>
#include <cstdlib>

#ifdef __unix__
#include <sys/mman.h>
#endif

namespace lacquer::vel {
namespace {

/// The heap keeps a piece of this size when it is freed, and does not return it to the system.
constexpr size_t kHeapPiece = size_t{120} << 10;

/// Whether the heap has so much in one piece; the same thread finds it there again.
bool HeapHas(size_t bytes) {
    // The compiler would leave out an allocation that nobody looks at.
    void *volatile piece = std::malloc(bytes);
    if (!piece) return false;
    std::free(piece);
    return true;
}

#ifdef __unix__
/// Whether the system has so many bytes more. Not asked of the heap: that would raise the size from which on it maps
/// pieces on their own, in all of the program.
bool SystemHas(size_t bytes) {
    void *pages = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return pages != MAP_FAILED && munmap(pages, bytes) == 0;
}
#else
/// Here the heap returns large pieces at once.
bool SystemHas(size_t bytes) { return HeapHas(bytes); }
#endif

}  // namespace

bool MemoryCanBeHad(size_t bytes) {
    if (bytes <= kHeapPiece) return HeapHas(bytes);
    // The heap grows by more than it is asked for, and pieces on their own by whole pages.
    constexpr size_t kMargin = size_t{160} << 10;
    if (bytes <= SIZE_MAX - kMargin && HeapHas(kHeapPiece) && SystemHas(bytes + kMargin)) return true;
    return HeapHas(bytes);
}

}  // namespace lacquer::vel
