// Objects that several owners refer to: a count inside the object, and a reference that keeps it right.
#pragma once

#include <atomic>
#include <utility>

namespace lacquer::vel {

/// Base of an object made by `new (std::nothrow)`, with one owner at first. The last owner's Release deletes it.
template <class Object>
class Shared {
public:
    void AddOwner() { owners_.fetch_add(1, std::memory_order_relaxed); }
    void Release() {
        if (owners_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete static_cast<Object *>(this);
    }

protected:
    Shared() = default;
    ~Shared() = default;
    Shared(const Shared &) = delete;
    Shared &operator=(const Shared &) = delete;

private:
    std::atomic<int> owners_{1};
};

/// One owner of an object, or of none.
template <class Object>
class Reference {
public:
    Reference() = default;
    ~Reference() { Reset(); }
    Reference(const Reference &other) : object_(other.object_) {
        if (object_) object_->AddOwner();
    }
    Reference(Reference &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Reference &operator=(Reference other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes over the ownership that a new object comes with.
    static Reference Adopt(Object *object) {
        Reference reference;
        reference.object_ = object;
        return reference;
    }
    /// Becomes one more owner.
    static Reference Share(Object *object) {
        if (object) object->AddOwner();
        return Adopt(object);
    }

    void Reset() {
        if (object_) std::exchange(object_, nullptr)->Release();
    }
    Object *operator->() const { return object_; }
    Object &operator*() const { return *object_; }
    Object *Get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Object *object_ = nullptr;
};

}  // namespace lacquer::vel
