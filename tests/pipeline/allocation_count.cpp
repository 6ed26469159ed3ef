// The linker sends each call of an allocating function here (see CMakeLists.txt); `new` is routed through malloc.

#include "allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> count{0};

}  // namespace

extern "C" {
void *__real_malloc(std::size_t size);
void *__real_calloc(std::size_t number, std::size_t size);
void *__real_realloc(void *block, std::size_t size);

void *__wrap_malloc(std::size_t size) {
    ++count;
    return __real_malloc(size);
}
void *__wrap_calloc(std::size_t number, std::size_t size) {
    ++count;
    return __real_calloc(number, size);
}
void *__wrap_realloc(void *block, std::size_t size) {
    ++count;
    return __real_realloc(block, size);
}
}

void *operator new(std::size_t size) {
    if (void *block = std::malloc(size ? size : 1)) return block;
    std::abort();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size ? size : 1); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size ? size : 1); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete[](void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }
void operator delete[](void *block, std::size_t) noexcept { std::free(block); }

namespace lacquer {

long AllocationCount() { return count; }

}  // namespace lacquer
