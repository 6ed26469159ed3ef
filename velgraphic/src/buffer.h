// A growing array of plain records whose growth can fail: what a caller's sizes drive must not end the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <type_traits>

namespace lacquer::vel {

template <class T>
class Buffer {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    Buffer() = default;
    ~Buffer() { std::free(items_); }
    Buffer(const Buffer &) = delete;
    Buffer &operator=(const Buffer &) = delete;

    const T *begin() const { return items_; }
    const T *end() const { return items_ + size_; }
    T *Data() { return items_; }
    size_t Size() const { return size_; }
    const T &operator[](size_t index) const { return items_[index]; }
    const T &Last() const { return items_[size_ - 1]; }

    /// Makes room, so that the next `count` appends cannot fail. Result: false when memory is short.
    bool Reserve(size_t count) {
        if (count <= capacity_ - size_) return true;
        constexpr size_t kMost = PTRDIFF_MAX / sizeof(T);
        if (count > kMost - size_) return false;
        const size_t wanted = size_ + count, doubled = capacity_ <= kMost / 2 ? capacity_ * 2 : kMost;
        const size_t capacity = wanted > doubled ? wanted : doubled;
        T *items = static_cast<T *>(std::realloc(static_cast<void *>(items_), capacity * sizeof(T)));
        if (!items) return false;
        items_ = items;
        capacity_ = capacity;
        return true;
    }

    /// False, and nothing changed, when memory is short.
    bool Append(const T &item) {
        const T copy = item;
        if (!Reserve(1)) return false;
        items_[size_++] = copy;
        return true;
    }

    /// False, and nothing changed, when memory is short.
    bool AppendZeros(size_t count) {
        if (!Reserve(count)) return false;
        std::memset(static_cast<void *>(items_ + size_), 0, count * sizeof(T));
        size_ += count;
        return true;
    }

    /// Drops all but the first `size` items; their memory stays for later ones.
    void Truncate(size_t size) { size_ = size; }

private:
    T *items_ = nullptr;
    size_t size_ = 0, capacity_ = 0;
};

}  // namespace lacquer::vel
