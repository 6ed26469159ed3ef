// The nothrow forms of `new`, which can be told to fail.

#include "support/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace {

thread_local int remaining = -1;
thread_local bool hasFailed = false;

void *Allocate(std::size_t size) {
    if (remaining == 0) {
        hasFailed = true;
        return nullptr;
    }
    if (remaining > 0) --remaining;
    return std::malloc(size > 0 ? size : 1);
}

}  // namespace

void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return Allocate(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return Allocate(size); }
void *operator new(std::size_t size) {
    if (void *block = std::malloc(size > 0 ? size : 1)) return block;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size) { return operator new(size); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }

namespace lacquer {

void FailAllocationsAfter(int count) {
    remaining = count;
    hasFailed = false;
}

bool AllocationHasFailed() { return hasFailed; }

}  // namespace lacquer
