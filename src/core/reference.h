// Counted references to objects that several owners share.
#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace lacquer {

/// Base of what counted references share.
class Shared {
public:
    Shared() = default;
    Shared(const Shared &) = delete;
    Shared &operator=(const Shared &) = delete;

private:
    template <class Object>
    friend class Ref;
    std::atomic<uint32_t> references_{0};
};

/// A counted reference, or null. The last one deletes the object.
template <class Object>
class Ref {
public:
    Ref() = default;
    explicit Ref(Object *object) : object_(object) {
        if (object_) object_->references_.fetch_add(1, std::memory_order_relaxed);
    }
    Ref(const Ref &other) : Ref(other.object_) {}
    Ref(Ref &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Ref &operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_ && object_->references_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete object_;
    }

    Object *get() const { return object_; }
    Object *operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    Object *object_ = nullptr;
};

}  // namespace lacquer
