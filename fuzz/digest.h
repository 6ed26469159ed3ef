// A running checksum of what calls gave.
#pragma once

#include <cstdint>
#include <cstring>

namespace fuzz {

class Digest {
public:
    void Add(uint64_t word) {
        value_ = (value_ ^ word) * kFactor;
        value_ ^= value_ >> 32;
    }
    void AddBytes(const void *bytes, size_t size) {
        const auto *next = static_cast<const unsigned char *>(bytes);
        Add(size);
        for (uint64_t word = 0; size > 0; next += sizeof word) {
            const size_t part = size < sizeof word ? size : sizeof word;
            std::memcpy(&word, next, part);
            Add(word);
            size -= part;
        }
    }
    uint64_t Value() const { return value_; }

private:
    static constexpr uint64_t kFactor = 0x9FB21C651E98DF25;
    uint64_t value_ = 0;
};

}  // namespace fuzz
