/// @file
/// The one owner that all others are made of: it holds a handle and gives it up when it ends.
///
/// Everything is in the namespace `lq`, because the libraries' own code is in `lacquer`: a program that links them
/// statically has no two classes of one name. Nothing here throws, and nothing is compiled into the libraries.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef VELGRAPHIC_OWNER_HPP
#define VELGRAPHIC_OWNER_HPP

namespace lq {

/// @addtogroup cpp
/// @{

/// Owns one object of the C interface. `Value` is its handle or pointer, `destroy` the C function that gives it up. It
/// can be moved, not copied; after a move the source owns nothing. It is as large as the handle, and stands wherever a
/// C function takes the handle.
///
/// @tparam Value the type of the handle or pointer
/// @tparam destroy the function of C that gives it up
template <typename Value, auto destroy>
class Owner {
public:
    /// Owns nothing, which is also what functions that make objects give on failure.
    Owner() noexcept = default;

    /// Takes over a handle that nobody else gives up.
    /// @param owned the handle; an empty one is fine
    explicit Owner(Value owned) noexcept : handle(owned) {}

    /// Takes over what another owner owns.
    /// @param other the owner, which owns nothing afterwards
    Owner(Owner &&other) noexcept : handle(other.Release()) {}

    /// Gives up what was owned and takes over what another owner owns.
    /// @param other the owner, which owns nothing afterwards; the owner itself is fine, and nothing changes
    /// @return this owner
    Owner &operator=(Owner &&other) noexcept {
        Reset(other.Release());
        return *this;
    }

    /// Gives up what is owned.
    ~Owner() { Reset(); }

    /// Whether something is owned. It says nothing about an object that was deleted through the C interface.
    /// @return false when nothing is owned
    explicit operator bool() const noexcept { return static_cast<bool>(handle); }

    /// The handle, which stays owned.
    /// @return the handle; an empty one when nothing is owned
    Value Handle() const noexcept { return handle; }
    /// The handle, which stays owned, where a C function takes it.
    /// @return the handle; an empty one when nothing is owned
    operator Value() const noexcept { return handle; }

    /// The handle, which is the caller's to give up from now on.
    /// @return the handle; an empty one when nothing was owned
    [[nodiscard]] Value Release() noexcept {
        const Value released = handle;
        handle = Value{};
        return released;
    }

    /// Gives up what is owned and takes over another handle.
    /// @param next the handle, which must not be the one that is owned; empty for none
    void Reset(Value next = Value{}) noexcept {
        if (handle) destroy(handle);
        handle = next;
    }

private:
    Value handle{};
};

/// @}

}  // namespace lq

#endif
