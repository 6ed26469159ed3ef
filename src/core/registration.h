// Between objects and handles: registering a finished object, finding the object of a handle, taking it back.
#pragma once

#include <cstdint>
#include <memory>
#include <new>

#include "core/handle_table.h"

namespace lacquer {

/// An object that is to be registered; null without memory, and while nothing can be registered. Then nothing more is
/// asked of the system: at a process's end, threads that the system has ended may hold locks of its heap and of GDI.
template <class Object>
Object *NewObject() {
    return ProcessHandleTable().IsOpen() ? new (std::nothrow) Object : nullptr;
}

/// Registers a further handle of an object that others own. Result: 0 when `object` is null or no slot is free.
inline uint32_t RegisterAlias(HeldTable &table, HandleType type, void *object) {
    return object ? table.NewHandleEntry(static_cast<int>(type), object) : 0;
}

/// Hands a complete object over to the handle table. Result: its handle. When `object` is null or no slot is free, 0,
/// and the object is destroyed.
template <class Object>
uint32_t RegisterObject(HandleType type, std::unique_ptr<Object> object) {
    if (!object) return 0;
    const uint32_t handle = ProcessHandleTable().NewHandleEntry(static_cast<int>(type), object.get());
    if (handle != 0) static_cast<void>(object.release());
    return handle;
}

/// Result: the object that a handle's low 32 bits name, null unless the handle is current and of this type. `Table` is
/// HandleTable or HeldTable.
template <class Object, class Table>
Object *FindObject(Table &table, HandleType type, uintptr_t handle) {
    const auto value = static_cast<uint32_t>(handle);
    if ((value & kHandleTypeMask) != TypeBits(type)) return nullptr;
    return static_cast<Object *>(table.LookupHandleEntry(value));
}

/// Frees the slot of a handle, and only that. Result: false unless the handle is current and of this type.
inline bool ReleaseHandle(HandleType type, uintptr_t handle) {
    HeldTable table(ProcessHandleTable());
    return FindObject<void>(table, type, handle) && table.DelHandleEntry(static_cast<uint32_t>(handle));
}

/// Takes the object of a handle back: every handle of it is refused from now on. Result: null unless the handle is
/// current and of this type; of two calls for one object only one gets it. To be destroyed when the table is no longer
/// held.
template <class Object>
std::unique_ptr<Object> TakeObject(HeldTable &table, HandleType type, uintptr_t handle) {
    std::unique_ptr<Object> object(FindObject<Object>(table, type, handle));
    if (object) {
        table.DelHandleEntry(static_cast<uint32_t>(handle));
        table.Revoke(object.get());
    }
    return object;
}

}  // namespace lacquer
