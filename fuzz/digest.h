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
        // Four sums side by side, so that none waits for another.
        uint64_t sums[4] = {size, 1, 2, 3}, words[4] = {};
        for (; size >= sizeof words; size -= sizeof words, next += sizeof words) {
            std::memcpy(words, next, sizeof words);
            for (int i = 0; i < 4; ++i) {
                sums[i] = (sums[i] ^ words[i]) * kFactor;
                sums[i] ^= sums[i] >> 29;
            }
        }
        std::memset(words, 0, sizeof words);
        std::memcpy(words, next, size);
        for (int i = 0; i < 4; ++i) Add(sums[i] ^ words[i]);
    }
    uint64_t Value() const { return value_; }

private:
    static constexpr uint64_t kFactor = 0x9FB21C651E98DF25;
    uint64_t value_ = 0;
};

}  // namespace fuzz
