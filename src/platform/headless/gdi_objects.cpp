// The handle table of the headless GDI. It is ready before any constructor has run, and its lock stays usable for ever.
#include "platform/headless/gdi_objects.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <type_traits>

namespace lacquer::headless {
namespace {

constexpr uint32_t kIndexBits = 16;
constexpr uint32_t kMaxEntries = 1u << kIndexBits;
constexpr uint32_t kFirstEntries = 64;
// Keeps a handle below 2^47, where addresses lie as well.
constexpr uint32_t kGenerationMask = 0x7FFFFFFF;

struct Entry {
    void *object;
    DWORD kind;
    uint32_t generation;
    uint32_t nextFree;
};

/// Index 0 stays unused: it ends the list of free indices, and no handle is null.
struct Table {
    std::mutex mutex;
    Entry *entries = nullptr;
    uint32_t capacity = 0;
    uint32_t used = 1;
    uint32_t firstFree = 0;
    HBITMAP defaultBitmap = nullptr;
    std::atomic<bool> hasEnded = false;
};

constinit Table table;
static_assert(std::is_trivially_destructible_v<Table>, "calls come after every destructor has run");

bool Grow() {
    if (table.capacity == kMaxEntries || table.hasEnded) return false;
    const uint32_t capacity = table.capacity == 0 ? kFirstEntries : table.capacity * 2;
    void *entries = std::realloc(table.entries, capacity * sizeof(Entry));
    if (!entries) return false;
    table.entries = static_cast<Entry *>(entries);
    table.capacity = capacity;
    return true;
}

void *Add(DWORD kind, void *object) {
    uint32_t index = table.firstFree;
    if (index != 0) {
        table.firstFree = table.entries[index].nextFree;
    } else {
        if (table.used >= table.capacity && !Grow()) return nullptr;
        index = table.used++;
        table.entries[index].generation = 1;
    }
    Entry &entry = table.entries[index];
    entry.object = object;
    entry.kind = kind;
    return reinterpret_cast<void *>(uintptr_t{entry.generation} << kIndexBits | index);
}

template <class T>
void *AddOwned(DWORD kind, std::unique_ptr<T> object) {
    void *handle = object ? Add(kind, object.get()) : nullptr;
    if (handle) static_cast<void>(object.release());
    return handle;
}

Entry *FindEntry(const void *handle) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    const auto index = static_cast<uint32_t>(value & (kMaxEntries - 1));
    if (index == 0 || index >= table.used) return nullptr;
    Entry &entry = table.entries[index];
    return entry.object && entry.generation == value >> kIndexBits ? &entry : nullptr;
}

template <class T>
T *Find(const void *handle, DWORD kind) {
    const Entry *entry = FindEntry(handle);
    return entry && entry->kind == kind ? static_cast<T *>(entry->object) : nullptr;
}

/// Frees the table, but not the callers' objects in it.
void Clear() {
    delete Find<Bitmap>(table.defaultBitmap, OBJ_BITMAP);
    std::free(table.entries);
    table.defaultBitmap = nullptr;
    table.entries = nullptr;
    table.capacity = 0;
    table.used = 1;
    table.firstFree = 0;
}

/// The library's end. It waits for nobody: when the lock is held, the next one to hold it clears the table.
struct TableEnd {
    ~TableEnd() {
        table.hasEnded = true;
        if (!table.mutex.try_lock()) return;
        Clear();
        table.mutex.unlock();
    }
};
TableEnd tableEnd;

}  // namespace

GdiLock::GdiLock() : guard_(table.mutex) {
    if (table.hasEnded) Clear();
}

void FreeDeleter::operator()(void *block) const { std::free(block); }

HDC AddDC(std::unique_ptr<DeviceContext> dc) { return static_cast<HDC>(AddOwned(OBJ_MEMDC, std::move(dc))); }

HBITMAP AddBitmap(std::unique_ptr<Bitmap> bitmap) {
    return static_cast<HBITMAP>(AddOwned(OBJ_BITMAP, std::move(bitmap)));
}

HRGN AddRegion(std::unique_ptr<Region> region) { return static_cast<HRGN>(AddOwned(OBJ_REGION, std::move(region))); }

DeviceContext *FindDC(const void *handle) { return Find<DeviceContext>(handle, OBJ_MEMDC); }

Bitmap *FindBitmap(const void *handle) { return Find<Bitmap>(handle, OBJ_BITMAP); }

Region *FindRegion(const void *handle) { return Find<Region>(handle, OBJ_REGION); }

DWORD KindOf(const void *handle) {
    const Entry *entry = FindEntry(handle);
    return entry ? entry->kind : 0;
}

void DestroyObject(const void *handle) {
    Entry *entry = FindEntry(handle);
    switch (entry->kind) {
        case OBJ_MEMDC: delete static_cast<DeviceContext *>(entry->object); break;
        case OBJ_BITMAP: delete static_cast<Bitmap *>(entry->object); break;
        default: delete static_cast<Region *>(entry->object); break;
    }
    entry->object = nullptr;
    entry->generation = entry->generation % kGenerationMask + 1;
    entry->nextFree = table.firstFree;
    table.firstFree = static_cast<uint32_t>(entry - table.entries);
}

HBITMAP DefaultBitmap() {
    if (!table.defaultBitmap) {
        if (std::unique_ptr<Bitmap> bitmap = NewBitmap(1, 1, 1)) {
            bitmap->isDefault = true;
            table.defaultBitmap = AddBitmap(std::move(bitmap));
        }
    }
    return table.defaultBitmap;
}

}  // namespace lacquer::headless
