// The handle table: slots, generations and the hint.

#include "core/handle_table.h"

#include <new>

namespace {

constexpr uint16_t kSlotCount = 32768;
constexpr uint32_t kIndexMask = 0xFFFF;
constexpr int kTagShift = 16;
constexpr uint32_t kTypeMask = 0xFF0000;

class Locked {
public:
    explicit Locked(CRITICAL_SECTION &lock) : lock_(lock) { EnterCriticalSection(&lock_); }
    ~Locked() { LeaveCriticalSection(&lock_); }
    Locked(const Locked &) = delete;
    Locked &operator=(const Locked &) = delete;

private:
    CRITICAL_SECTION &lock_;
};

HandleTable processTable;

}  // namespace

HandleTable::HandleTable() {
    slots_ = new (std::nothrow) lacquer::HandleSlot[kSlotCount];
    if (!slots_) return;
    InitializeCriticalSection(&lock_);
    count_ = kSlotCount;
    hint_ = 1;
    // Slot 0 never looks free, so it is never handed out.
    slots_[0].object = reinterpret_cast<void *>(UINTPTR_MAX);
}

HandleTable::~HandleTable() {
    if (!slots_) return;
    DeleteCriticalSection(&lock_);
    delete[] slots_;
    slots_ = nullptr;
    count_ = 0;
}

uint32_t HandleTable::NewHandleEntry(int type, void *object) {
    if (!slots_) return 0;
    const Locked locked(lock_);
    const uint32_t index = FindFreeSlot();
    if (index == 0) return 0;
    lacquer::HandleSlot &slot = slots_[index];
    slot.type = static_cast<uint8_t>(type & 0xFF);
    slot.object = object;
    return slot.Tag() << kTagShift | index;
}

uint32_t HandleTable::FindFreeSlot() {
    if (hint_ != 0) {
        if (!slots_[hint_].object) return hint_;
        hint_ = 0;
    }
    while (lowestFree_ < count_ && slots_[lowestFree_].object) ++lowestFree_;
    return lowestFree_ < count_ ? lowestFree_ : 0;
}

lacquer::HandleSlot *HandleTable::CurrentSlot(uint32_t handle) {
    const uint32_t index = handle & kIndexMask;
    if (index >= count_ || (handle & kTypeMask) == 0) return nullptr;
    lacquer::HandleSlot &slot = slots_[index];
    return slot.Tag() == handle >> kTagShift ? &slot : nullptr;
}

void HandleTable::Free(uint32_t index) {
    lacquer::HandleSlot &slot = slots_[index];
    slot.type = static_cast<uint8_t>(lacquer::HandleType::Free);
    ++slot.generation;
    slot.zero = 0;
    slot.object = nullptr;
    if (index < lowestFree_) lowestFree_ = index;
}

bool HandleTable::DelHandleEntry(uint32_t handle) {
    if (!slots_) return false;
    const Locked locked(lock_);
    if (!CurrentSlot(handle)) return false;
    Free(handle & kIndexMask);
    hint_ = static_cast<uint16_t>(handle & kIndexMask);
    return true;
}

void *HandleTable::LookupHandleEntry(uint32_t handle) {
    if (!slots_) return nullptr;
    const Locked locked(lock_);
    const lacquer::HandleSlot *slot = CurrentSlot(handle);
    return slot ? slot->object : nullptr;
}

void HandleTable::Revoke(const void *object) {
    if (!slots_) return;
    const Locked locked(lock_);
    for (uint32_t index = 1; index < count_; ++index) {
        if (slots_[index].object == object) Free(index);
    }
}

namespace lacquer {

HandleTable &ProcessHandleTable() { return processTable; }

}  // namespace lacquer
