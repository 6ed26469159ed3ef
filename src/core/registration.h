// Between objects and handles: registering a finished object, finding the object of a handle.
#pragma once

#include <cstdint>
#include <memory>

#include "core/handle_table.h"

namespace lacquer {

/// Hands a complete object over to the handle table. Result: its handle. When `object` is null or no slot is free, 0,
/// and the object is destroyed.
template <class Object>
uint32_t RegisterObject(HandleType type, std::unique_ptr<Object> object) {
    if (!object) return 0;
    const uint32_t handle = ProcessHandleTable().NewHandleEntry(static_cast<int>(type), object.get());
    if (handle != 0) object.release();
    return handle;
}

/// Result: the object that a handle's low 32 bits name, null unless the handle is current and of this type.
template <class Object>
Object *FindObject(HandleType type, uintptr_t handle) {
    const auto value = static_cast<uint32_t>(handle);
    if ((value & 0xFF0000) != static_cast<uint32_t>(type) << 16) return nullptr;
    return static_cast<Object *>(ProcessHandleTable().LookupHandleEntry(value));
}

/// Frees the slot of a handle that FindObject has just accepted.
inline void UnregisterHandle(uintptr_t handle) { ProcessHandleTable().DelHandleEntry(static_cast<uint32_t>(handle)); }

}  // namespace lacquer
