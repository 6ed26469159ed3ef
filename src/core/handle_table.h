// The process-wide table behind all handles: it maps a handle to its object and refuses stale and mistyped ones.
#pragma once

#include <lacquer/lacquer.h>

#include <atomic>
#include <cstdint>

#include "core/object_chains.h"
#include "platform/platform.h"

namespace lacquer {

enum class HandleType : uint8_t { Free = 0, Canvas = 1, Bitmap = 2, Texture = 3 };

/// The bits of a handle that tell its type.
constexpr uint32_t kHandleTypeMask = 0xFF0000;
constexpr uint32_t TypeBits(HandleType type) { return static_cast<uint32_t>(type) << 16; }

/// One entry of the table. Its first 32 bits, shifted left by 16, are the upper half of the slot's handle.
struct HandleSlot {
    uint8_t type = 0;        ///< HandleType of the object held, 0 when free
    uint8_t generation = 1;  ///< counts the frees of this slot modulo 256
    uint16_t zero = 0;
    void *object = nullptr;  ///< null when free

    uint32_t Tag() const { return static_cast<uint32_t>(generation) << 8 | type; }
};

class HeldTable;

}  // namespace lacquer

/// A fixed array of slots and the lock that guards it. It owns the array only, never the objects; several handles may
/// name one object. Bits 0-15 of a handle are the slot's index (0 is never handed out), 16-23 its type, 24-31 its
/// generation. Until it is opened, and once it is closed, it is empty and full at once: nothing is found in it and
/// nothing can be added. It needs no constructor and no destructor to be so.
struct HandleTable {
    constexpr HandleTable() = default;
    HandleTable(const HandleTable &) = delete;
    HandleTable &operator=(const HandleTable &) = delete;

    /// Makes the slots; without memory the table stays as it is. Once only, while nobody else opens or closes it.
    void Open();

    /// Ends the table while others may use it. It waits for nobody: when the lock is held, maybe by a thread that the
    /// system has ended, the slots are left behind.
    void Close();

    bool IsOpen() const { return slots_.load(std::memory_order_relaxed) != nullptr; }

    /// Takes the slot freed last if it is still free, else the free slot of the lowest index. Only the low 8 bits of
    /// `type` are stored. Result: the handle, 0 when no slot is free.
    uint32_t NewHandleEntry(int type, void *object);

    /// Frees the slot of a current handle. Result: false when the handle is not current.
    bool DelHandleEntry(uint32_t handle);

    /// Result: the object of a current handle, else null. The table does not keep the object alive.
    void *LookupHandleEntry(uint32_t handle);

private:
    friend class lacquer::HeldTable;

    uint16_t count_ = 0;
    uint16_t hint_ = 0;  ///< index of the slot freed last, 0 for none
    std::atomic<lacquer::HandleSlot *> slots_{nullptr};
    CRITICAL_SECTION lock_{};  ///< never deleted, for those who come late
    uint32_t lowestFree_ = 1;  ///< no slot below this index is free
    lacquer::ObjectChains *chains_ = nullptr;
};

namespace lacquer {

/// A table while one thread holds its lock: what is done through one of these is a single operation to all others.
/// Nothing that takes another lock belongs in between.
class HeldTable {
public:
    explicit HeldTable(HandleTable &table);
    ~HeldTable();
    HeldTable(const HeldTable &) = delete;
    HeldTable &operator=(const HeldTable &) = delete;

    /// As those of the table itself.
    uint32_t NewHandleEntry(int type, void *object);
    bool DelHandleEntry(uint32_t handle);
    void *LookupHandleEntry(uint32_t handle) const;

    /// Frees every slot that names `object`; none of them becomes the slot freed last.
    void Revoke(const void *object);

private:
    uint32_t FindFreeSlot();
    HandleSlot *CurrentSlot(uint32_t handle) const;
    void Free(uint32_t index);

    HandleTable &table_;
    HandleSlot *slots_ = nullptr;  ///< null when the table is not open; the lock is not held then
};

/// The one table. It is open from the library's load to its end.
HandleTable &ProcessHandleTable();

}  // namespace lacquer
