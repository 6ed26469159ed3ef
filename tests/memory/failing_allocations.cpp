// The allocating functions of the C library and the forms of `new`, in front of the real ones.

#include "failing_allocations.h"

#include <dlfcn.h>
#include <link.h>
#include <unwind.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>

#ifdef LACQUER_HEAP_OF_SANITIZER
#define REAL(function) __interceptor_##function
#else
#define REAL(function) __libc_##function
#endif

extern "C" {
void *REAL(malloc)(std::size_t size);
void *REAL(calloc)(std::size_t number, std::size_t size);
void *REAL(realloc)(void *block, std::size_t size);
void *REAL(memalign)(std::size_t alignment, std::size_t size);
void REAL(free)(void *block);
}

namespace {

enum Module { kOthers, kLacquer, kCompanion, kPixman, kCairo };

Module ModuleOf(const void *address) {
    dl_find_object found{};
    if (_dl_find_object(const_cast<void *>(address), &found) != 0) return kOthers;
    const auto is = [&](const char *name) { return std::strstr(found.dlfo_link_map->l_name, name) != nullptr; };
    if (is("/liblacquer.")) return kLacquer;
    if (is("/libvelGraphic.")) return kCompanion;
    if (is("/libpixman-")) return kPixman;
    return is("/libcairo.") ? kCairo : kOthers;
}

thread_local int granted = 0, refusals = 0, refused = 0;
thread_local bool isLooking = false;

/// Whether a block belongs to the modules under test. What the search itself allocates does not. (Nor does what the
/// companion asks for by the forms of `new` that throw: that goes to rlottie, which takes no other.)
bool Counts(const void *caller) {
    if (isLooking) return false;
    isLooking = true;
    Module module = ModuleOf(caller);
    if (module == kPixman) {
        // Not backtrace(): that loads a library at first.
        _Unwind_Backtrace(
            [](_Unwind_Context *frame, void *data) {
                const Module above = ModuleOf(reinterpret_cast<const void *>(_Unwind_GetIP(frame)));
                if (above != kLacquer && above != kCairo) return _URC_NO_REASON;
                *static_cast<Module *>(data) = above;
                return _URC_NORMAL_STOP;
            },
            &module);
    }
    isLooking = false;
    return module == kLacquer || module == kCompanion;
}

bool IsRefused() {
    if (refusals == 0) return false;
    if (granted > 0) {
        --granted;
        return false;
    }
    --refusals;
    ++refused;
    errno = ENOMEM;
    return true;
}

/// The addresses of the modules' blocks, in buckets. A sanitizer's mutexes do not work yet when it allocates first.
class Blocks {
public:
    void Add(const void *block) { Replace(block, nullptr, block, 1); }
    void Remove(const void *block) { Replace(block, block, nullptr, -1); }
    long Count() const { return count_; }

private:
    void Replace(const void *block, const void *old, const void *now, int change) {
        while (isBusy_.test_and_set(std::memory_order_acquire)) {
        }
        auto &bucket = buckets_[reinterpret_cast<uintptr_t>(block) / 16 % std::size(buckets_)];
        if (const void **place = std::find(bucket, std::end(bucket), old); place != std::end(bucket)) {
            *place = now;
            count_ += change;
        }
        isBusy_.clear(std::memory_order_release);
    }

    std::atomic_flag isBusy_;
    long count_ = 0;
    const void *buckets_[256][32] = {};
};

constinit Blocks blocks;

template <class Allocate>
void *Get(const void *caller, const Allocate &allocate) {
    const bool counts = Counts(caller);
    if (counts && IsRefused()) return nullptr;
    void *block = allocate();
    if (counts && block) blocks.Add(block);
    return block;
}

#define CALLER __builtin_return_address(0)

}  // namespace

extern "C" {
void *malloc(std::size_t size) {
    return Get(CALLER, [=] { return REAL(malloc)(size); });
}
void *calloc(std::size_t number, std::size_t size) {
    return Get(CALLER, [=] { return REAL(calloc)(number, size); });
}
void *realloc(void *block, std::size_t size) {
    void *moved = Get(CALLER, [=] { return REAL(realloc)(block, size); });
    if (moved && block) blocks.Remove(block);
    return moved;
}
void free(void *block) {
    if (block) blocks.Remove(block);
    REAL(free)(block);
}
}

// The modules under test take none that throw, but what gives back is one for all.
void *operator new(std::size_t size) {
    if (void *block = REAL(malloc)(size > 0 ? size : 1)) return block;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept {
    return Get(CALLER, [=] { return REAL(malloc)(size > 0 ? size : 1); });
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept {
    return Get(CALLER, [=] { return REAL(malloc)(size > 0 ? size : 1); });
}
void *operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t &) noexcept {
    return Get(CALLER, [=] { return REAL(memalign)(static_cast<std::size_t>(alignment), size); });
}
void operator delete(void *block) noexcept { free(block); }
void operator delete[](void *block) noexcept { free(block); }
void operator delete(void *block, std::size_t) noexcept { free(block); }
void operator delete[](void *block, std::size_t) noexcept { free(block); }
void operator delete[](void *block, std::align_val_t) noexcept { free(block); }

namespace lacquer {

void FailAllocations(int count, int failures) {
    granted = count;
    refusals = failures;
    refused = 0;
}

int StopFailing() {
    refusals = 0;
    return refused;
}

long LiveBlocks() { return blocks.Count(); }

}  // namespace lacquer
