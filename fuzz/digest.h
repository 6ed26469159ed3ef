// A running checksum of what calls gave.
#pragma once

#include <cstdint>
#include <cstring>

namespace fuzz {

class Digest {
public:
    void Add(uint64_t word) {
        value_ = (value_ ^ word) * 0x9FB21C651E98DF25;
        value_ ^= value_ >> 32;
    }
    void AddBytes(const void *bytes, size_t size) {
        const auto *next = static_cast<const unsigned char *>(bytes);
        for (; size >= 8; size -= 8, next += 8) {
            uint64_t word;
            std::memcpy(&word, next, 8);
            Add(word);
        }
        uint64_t rest = size;
        for (; size > 0; --size) rest = rest << 8 | *next++;
        Add(rest);
    }
    uint64_t Value() const { return value_; }

private:
    uint64_t value_ = 0;
};

}  // namespace fuzz
