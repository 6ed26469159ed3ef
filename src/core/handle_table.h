// The process-wide table behind all handles: it maps a handle to its object and refuses stale and mistyped ones.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

#include "platform/platform.h"

namespace lacquer {

enum class HandleType : uint8_t { Free = 0, Canvas = 1, Bitmap = 2, Texture = 3 };

/// One entry of the table. Its first 32 bits, shifted left by 16, are the upper half of the slot's handle.
struct HandleSlot {
    uint8_t type = 0;        ///< HandleType of the object held, 0 when free
    uint8_t generation = 1;  ///< counts the frees of this slot modulo 256
    uint16_t zero = 0;
    void *object = nullptr;  ///< null when free

    uint32_t Tag() const { return static_cast<uint32_t>(generation) << 8 | type; }
};

}  // namespace lacquer

/// A fixed array of slots and the lock that guards it. It owns the array only, never the objects; several handles may
/// name one object. Bits 0-15 of a handle are the slot's index (0 is never handed out), 16-23 its type, 24-31 its
/// generation.
struct HandleTable {
    HandleTable();
    ~HandleTable();
    HandleTable(const HandleTable &) = delete;
    HandleTable &operator=(const HandleTable &) = delete;

    /// Takes the slot freed last if it is still free, else the free slot of the lowest index. Only the low 8 bits of
    /// `type` are stored. Result: the handle, 0 when no slot is free.
    uint32_t NewHandleEntry(int type, void *object);

    /// Frees the slot of a current handle. Result: false when the handle is not current.
    bool DelHandleEntry(uint32_t handle);

    /// Result: the object of a current handle, else null. The table does not keep the object alive.
    void *LookupHandleEntry(uint32_t handle);

    /// Frees every slot that names `object`, which is about to be destroyed.
    void Revoke(const void *object);

private:
    uint32_t FindFreeSlot();
    lacquer::HandleSlot *CurrentSlot(uint32_t handle);
    void Free(uint32_t index);

    uint16_t count_ = 0;
    uint16_t hint_ = 0;  ///< index of the slot freed last, 0 for none
    lacquer::HandleSlot *slots_ = nullptr;
    CRITICAL_SECTION lock_;
    uint32_t lowestFree_ = 1;  ///< no slot below this index is free
};

namespace lacquer {

/// The one table. It is built when the library is loaded and freed when it is unloaded; before and after, it is empty
/// and full at once: nothing is found in it and nothing can be added.
HandleTable &ProcessHandleTable();

}  // namespace lacquer
