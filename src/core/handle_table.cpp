// The handle table: its life, slots, generations and the hint.

#include "core/handle_table.h"

#include <new>
#include <type_traits>

#include "pipeline/table/kernel_table.h"

namespace {

constexpr uint32_t kSlotCount = lacquer::ObjectChains::kSlots;
constexpr uint32_t kIndexMask = 0xFFFF;
constexpr int kTagShift = 16;

constinit HandleTable processTable;
static_assert(std::is_trivially_destructible_v<HandleTable>, "calls come after every destructor has run");

/// The library's load and its end.
struct ProcessTableLife {
    ProcessTableLife() {
        // No object exists before the kernels that draw it.
        lacquer::Kernels();
        processTable.Open();
    }
    ~ProcessTableLife() { processTable.Close(); }
};
ProcessTableLife processTableLife;

}  // namespace

void HandleTable::Open() {
    auto *slots = new (std::nothrow) lacquer::HandleSlot[kSlotCount];
    chains_ = new (std::nothrow) lacquer::ObjectChains;
    if (!slots || !chains_) {
        delete[] slots;
        delete chains_;
        return;
    }
    // Without debug information a lock that is never deleted leaves nothing behind.
    InitializeCriticalSectionEx(&lock_, 0, CRITICAL_SECTION_NO_DEBUG_INFO);
    count_ = kSlotCount;
    hint_ = 1;
    // Slot 0 never looks free, so it is never handed out.
    slots[0].object = reinterpret_cast<void *>(UINTPTR_MAX);
    slots_.store(slots, std::memory_order_release);
}

void HandleTable::Close() {
    if (!slots_.load(std::memory_order_relaxed)) return;
    const bool entered = TryEnterCriticalSection(&lock_) != FALSE;
    lacquer::HandleSlot *slots = slots_.exchange(nullptr, std::memory_order_relaxed);
    if (!entered) return;
    LeaveCriticalSection(&lock_);
    delete[] slots;
    delete chains_;
}

uint32_t HandleTable::NewHandleEntry(int type, void *object) {
    return lacquer::HeldTable(*this).NewHandleEntry(type, object);
}

bool HandleTable::DelHandleEntry(uint32_t handle) { return lacquer::HeldTable(*this).DelHandleEntry(handle); }

void *HandleTable::LookupHandleEntry(uint32_t handle) { return lacquer::HeldTable(*this).LookupHandleEntry(handle); }

namespace lacquer {

HeldTable::HeldTable(HandleTable &table) : table_(table) {
    // A table that was never open has no lock yet.
    if (!table.slots_.load(std::memory_order_acquire)) return;
    EnterCriticalSection(&table.lock_);
    // The table may have been closed meanwhile. If it is closed from now on, the slots stay.
    slots_ = table.slots_.load(std::memory_order_relaxed);
    if (!slots_) LeaveCriticalSection(&table.lock_);
}

HeldTable::~HeldTable() {
    if (slots_) LeaveCriticalSection(&table_.lock_);
}

uint32_t HeldTable::NewHandleEntry(int type, void *object) {
    if (!slots_) return 0;
    const uint32_t index = FindFreeSlot();
    if (index == 0) return 0;
    HandleSlot &slot = slots_[index];
    slot.type = static_cast<uint8_t>(type & 0xFF);
    slot.object = object;
    if (object) table_.chains_->Enter(index, object);
    return slot.Tag() << kTagShift | index;
}

uint32_t HeldTable::FindFreeSlot() {
    if (table_.hint_ != 0) {
        if (!slots_[table_.hint_].object) return table_.hint_;
        table_.hint_ = 0;
    }
    uint32_t &lowest = table_.lowestFree_;
    while (lowest < table_.count_ && slots_[lowest].object) ++lowest;
    return lowest < table_.count_ ? lowest : 0;
}

HandleSlot *HeldTable::CurrentSlot(uint32_t handle) const {
    const uint32_t index = handle & kIndexMask;
    if (!slots_ || index >= table_.count_ || (handle & kHandleTypeMask) == 0) return nullptr;
    HandleSlot &slot = slots_[index];
    return slot.Tag() == handle >> kTagShift ? &slot : nullptr;
}

void HeldTable::Free(uint32_t index) {
    HandleSlot &slot = slots_[index];
    if (slot.object) table_.chains_->Leave(index, slot.object);
    slot.type = static_cast<uint8_t>(HandleType::Free);
    ++slot.generation;
    slot.zero = 0;
    slot.object = nullptr;
    if (index < table_.lowestFree_) table_.lowestFree_ = index;
}

bool HeldTable::DelHandleEntry(uint32_t handle) {
    if (!CurrentSlot(handle)) return false;
    Free(handle & kIndexMask);
    table_.hint_ = static_cast<uint16_t>(handle & kIndexMask);
    return true;
}

void *HeldTable::LookupHandleEntry(uint32_t handle) const {
    const HandleSlot *slot = CurrentSlot(handle);
    return slot ? slot->object : nullptr;
}

void HeldTable::Revoke(const void *object) {
    if (!slots_) return;
    for (uint32_t index = table_.chains_->First(object), next = 0; index != 0; index = next) {
        next = table_.chains_->Next(index);
        if (slots_[index].object == object) Free(index);
    }
}

HandleTable &ProcessHandleTable() { return processTable; }

}  // namespace lacquer
