// The allocating functions of the C library and the forms of `new`, in front of the real ones.

#include "failing_allocations.h"

#include <execinfo.h>
#include <link.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <new>

#ifdef __SANITIZE_ADDRESS__
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
    struct Search {
        uintptr_t address;
        Module found;
    } search{reinterpret_cast<uintptr_t>(address), kOthers};
    dl_iterate_phdr(
        [](dl_phdr_info *info, std::size_t, void *data) {
            auto &wanted = *static_cast<Search *>(data);
            for (int i = 0; i < info->dlpi_phnum; ++i) {
                const ElfW(Phdr) &part = info->dlpi_phdr[i];
                if (part.p_type != PT_LOAD || wanted.address - info->dlpi_addr - part.p_vaddr >= part.p_memsz) continue;
                const auto is = [&](const char *name) { return std::strstr(info->dlpi_name, name) != nullptr; };
                if (is("/liblacquer.")) wanted.found = kLacquer;
                if (is("/libvelGraphic.")) wanted.found = kCompanion;
                if (is("/libpixman-")) wanted.found = kPixman;
                if (is("/libcairo.")) wanted.found = kCairo;
                return 1;
            }
            return 0;
        },
        &search);
    return search.found;
}

thread_local int granted = 0, refusals = 0, refused = 0;
thread_local bool isLooking = false;

/// Whether a block belongs to the modules under test. What the search itself allocates does not, nor what the companion
/// asks for by the forms that throw: that goes to rlottie, which takes no other.
bool Counts(const void *caller, bool throws) {
    if (isLooking) return false;
    isLooking = true;
    Module module = ModuleOf(caller);
    if (module == kPixman) {
        void *frames[40];
        const int count = backtrace(frames, 40);
        for (int i = 0; i < count && module == kPixman; ++i) {
            const Module above = ModuleOf(frames[i]);
            if (above == kLacquer || above == kCairo) module = above;
        }
    }
    isLooking = false;
    return module == kLacquer || (module == kCompanion && !throws);
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

/// The addresses of the modules' blocks, in buckets.
class Blocks {
public:
    void Add(const void *block) { Replace(block, nullptr, block, 1); }
    void Remove(const void *block) { Replace(block, block, nullptr, -1); }
    long Count() const { return count_; }

private:
    void Replace(const void *block, const void *old, const void *now, int change) {
        const std::lock_guard guard(mutex_);
        for (const void *&place : buckets_[reinterpret_cast<uintptr_t>(block) / 16 % 256]) {
            if (place != old) continue;
            place = now;
            count_ += change;
            return;
        }
    }

    std::mutex mutex_;
    long count_ = 0;
    const void *buckets_[256][32] = {};
};

constinit Blocks blocks;

template <class Allocate>
void *Get(const void *caller, const Allocate &allocate, bool throws = false) {
    const bool counts = Counts(caller, throws);
    if (counts && IsRefused()) return nullptr;
    void *block = allocate();
    if (counts && block) blocks.Add(block);
    return block;
}

#define CALLER __builtin_return_address(0)

void *GetOrThrow(const void *caller, std::size_t size) {
    void *block = Get(
        caller, [=] { return REAL(malloc)(size > 0 ? size : 1); }, true);
    if (!block) throw std::bad_alloc();
    return block;
}

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
void *memalign(std::size_t alignment, std::size_t size) {
    return Get(CALLER, [=] { return REAL(memalign)(alignment, size); });
}
void *aligned_alloc(std::size_t alignment, std::size_t size) {
    return Get(CALLER, [=] { return REAL(memalign)(alignment, size); });
}
int posix_memalign(void **out, std::size_t alignment, std::size_t size) {
    void *block = Get(CALLER, [=] { return REAL(memalign)(alignment, size); });
    if (block) *out = block;
    return block ? 0 : ENOMEM;
}
void free(void *block) {
    if (block) blocks.Remove(block);
    REAL(free)(block);
}
}

void *operator new(std::size_t size) { return GetOrThrow(CALLER, size); }
void *operator new[](std::size_t size) { return GetOrThrow(CALLER, size); }
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
