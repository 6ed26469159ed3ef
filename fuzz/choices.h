// Decisions made from the bytes of one record of a program. A record that runs out of bytes goes on with numbers that
// follow from it, so that every record decides everything and the same record decides the same.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace fuzz {

/// The next number of a sequence that looks random.
inline uint64_t NextRandom(uint64_t &state) {
    uint64_t word = state += 0x9E3779B97F4A7C15;
    word = (word ^ word >> 30) * 0xBF58476D1CE4E5B9;
    word = (word ^ word >> 27) * 0x94D049BB133111EB;
    return word ^ word >> 31;
}

class Choices {
public:
    explicit Choices(std::span<const uint8_t> record) : record_(record) {
        for (const uint8_t byte : record) state_ = (state_ ^ byte) * 0x100000001B3;
    }

    uint8_t Byte() { return used_ < record_.size() ? record_[used_++] : static_cast<uint8_t>(NextRandom(state_)); }
    uint32_t Word() {
        const uint32_t low = Byte(), second = Byte(), third = Byte();
        return static_cast<uint32_t>(Byte()) << 24 | third << 16 | second << 8 | low;
    }

    /// 0 to `count` - 1; `count` up to 65536.
    uint32_t Below(uint32_t count) {
        const uint32_t low = Byte();
        return (count <= 256 ? low : low | static_cast<uint32_t>(Byte()) << 8) % count;
    }

    /// True `times` in 256.
    bool Seldom(int times) { return Byte() >= 256 - times; }

    template <class T, size_t size>
    T OneOf(const T (&values)[size]) {
        return values[Below(size)];
    }

private:
    std::span<const uint8_t> record_;
    size_t used_ = 0;
    uint64_t state_ = 0xCBF29CE484222325;
};

}  // namespace fuzz
