// Counts what the library allocates by: the operators.

#include "allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> count{0};

}  // namespace

void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    ++count;
    return std::malloc(size ? size : 1);
}
void *operator new(std::size_t size) {
    if (void *block = operator new(size, std::nothrow)) return block;
    std::abort();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return operator new(size, std::nothrow); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }

namespace lacquer {

long AllocationCount() { return count; }

}  // namespace lacquer
