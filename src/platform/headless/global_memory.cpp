// Global memory blocks. A moveable block's handle is the address of its record plus one, so that it can't be taken for
// an address; a fixed block's handle is the address of its bytes, which follow a record.
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/headless/system.h"

namespace {

struct alignas(std::max_align_t) Record {
    size_t size;
    uint32_t locks;
    void *bytes;  // null for a fixed block: its bytes follow the record
};

constexpr size_t kMaxSize = SIZE_MAX - sizeof(Record);

bool IsMoveable(HGLOBAL block) { return (reinterpret_cast<uintptr_t>(block) & 1) != 0; }

Record *RecordOf(HGLOBAL block) {
    auto *address = static_cast<char *>(block);
    return reinterpret_cast<Record *>(IsMoveable(block) ? address - 1 : address - sizeof(Record));
}

char *BytesOf(HGLOBAL block) { return static_cast<char *>(IsMoveable(block) ? RecordOf(block)->bytes : block); }

/// At least one byte, so that null means failure only.
void *Resize(void *bytes, size_t size) { return std::realloc(bytes, size == 0 ? 1 : size); }

HGLOBAL ResizeMoveable(HGLOBAL block, size_t size, UINT flags) {
    Record &record = *RecordOf(block);
    const bool mayMove = record.locks == 0 || (flags & GMEM_MOVEABLE) != 0;
    if (!mayMove && size > record.size) return nullptr;
    if (mayMove) {
        void *bytes = Resize(record.bytes, size);
        if (!bytes) return nullptr;
        record.bytes = bytes;
    }
    return block;
}

HGLOBAL ResizeFixed(HGLOBAL block, size_t size, UINT flags) {
    Record *record = RecordOf(block);
    if ((flags & GMEM_MOVEABLE) == 0) return size <= record->size ? block : nullptr;
    auto *moved = static_cast<Record *>(std::realloc(record, sizeof(Record) + size));
    return moved ? moved + 1 : nullptr;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, size_t size) {
    if (size > kMaxSize) return nullptr;
    const bool isMoveable = (flags & GMEM_MOVEABLE) != 0;
    auto *record = static_cast<Record *>(std::malloc(sizeof(Record) + (isMoveable ? 0 : size)));
    if (!record) return nullptr;
    *record = Record{size, 0, nullptr};
    if (isMoveable) {
        record->bytes = Resize(nullptr, size);
        if (!record->bytes) {
            std::free(record);
            return nullptr;
        }
    }
    HGLOBAL block = isMoveable ? static_cast<void *>(reinterpret_cast<char *>(record) + 1) : record + 1;
    if ((flags & GMEM_ZEROINIT) != 0) std::memset(BytesOf(block), 0, size);
    return block;
}

HGLOBAL GlobalReAlloc(HGLOBAL block, size_t size, UINT flags) {
    if (!block || size > kMaxSize) return nullptr;
    const size_t oldSize = RecordOf(block)->size;
    HGLOBAL resized = IsMoveable(block) ? ResizeMoveable(block, size, flags) : ResizeFixed(block, size, flags);
    if (!resized) return nullptr;
    RecordOf(resized)->size = size;
    if ((flags & GMEM_ZEROINIT) != 0 && size > oldSize) std::memset(BytesOf(resized) + oldSize, 0, size - oldSize);
    return resized;
}

void *GlobalLock(HGLOBAL block) {
    if (!block) return nullptr;
    if (IsMoveable(block)) ++RecordOf(block)->locks;
    return BytesOf(block);
}

BOOL GlobalUnlock(HGLOBAL block) {
    if (!block) return FALSE;
    if (!IsMoveable(block)) return TRUE;
    Record &record = *RecordOf(block);
    return record.locks > 0 && --record.locks > 0;
}

HGLOBAL GlobalFree(HGLOBAL block) {
    if (block) {
        Record *record = RecordOf(block);
        if (IsMoveable(block)) std::free(record->bytes);
        std::free(record);
    }
    return nullptr;
}

size_t GlobalSize(HGLOBAL block) { return block ? RecordOf(block)->size : 0; }
