// The one owner that all others are made of: it holds a handle and gives it up when it ends.
//
// Everything is in the namespace `lq`, because the libraries' own code is in `lacquer`: a program that links them
// statically has no two classes of one name. Nothing here throws, and nothing is compiled into the libraries.
#ifndef VELGRAPHIC_OWNER_HPP
#define VELGRAPHIC_OWNER_HPP

namespace lq {

// Owns one object of the C interface. `Value` is its handle or pointer, `destroy` the C function that gives it up. It
// can be moved, not copied; after a move the source owns nothing. It is as large as the handle, and stands wherever a C
// function takes the handle. Threads: as the object.
template <typename Value, auto destroy>
class Owner {
public:
    // Owns nothing, which is also what functions that make objects give on failure.
    Owner() noexcept = default;

    // Takes over a handle that nobody else gives up; an empty one is fine.
    explicit Owner(Value owned) noexcept : handle(owned) {}

    Owner(Owner &&other) noexcept : handle(other.Release()) {}

    // Gives up what was owned and takes over what `other` owns. An owner may be moved to itself.
    Owner &operator=(Owner &&other) noexcept {
        Reset(other.Release());
        return *this;
    }

    ~Owner() { Reset(); }

    // Whether something is owned. It says nothing about an object that was deleted through the C interface.
    explicit operator bool() const noexcept { return static_cast<bool>(handle); }

    // The handle, which stays owned; an empty one when nothing is owned.
    Value Handle() const noexcept { return handle; }
    operator Value() const noexcept { return handle; }

    // The handle, which is the caller's to give up from now on.
    [[nodiscard]] Value Release() noexcept {
        const Value released = handle;
        handle = Value{};
        return released;
    }

    // Gives up what is owned and takes over `next`, which must be another handle, or empty.
    void Reset(Value next = Value{}) noexcept {
        if (handle) destroy(handle);
        handle = next;
    }

private:
    Value handle{};
};

}  // namespace lq

#endif
