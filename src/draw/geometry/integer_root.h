// Square roots of whole numbers, the same on every machine.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace lacquer {
namespace root {

/// 2^30 / sqrt((i + 1/2) / 32), found bit by bit; only i of 8 and above are used.
constexpr std::array<uint32_t, 32> MakeInverseRoots() {
    std::array<uint32_t, 32> inverse{};
    for (uint64_t i = 8; i < inverse.size(); ++i) {
        const uint64_t square = ((uint64_t{1} << 60) / (2 * i + 1)) << 6;
        uint64_t result = 0;
        for (uint64_t bit = uint64_t{1} << 31; bit != 0; bit >>= 1) {
            if ((result + bit) * (result + bit) <= square) result += bit;
        }
        inverse[i] = static_cast<uint32_t>(result);
    }
    return inverse;
}
inline constexpr std::array<uint32_t, 32> kInverseRoots = MakeInverseRoots();

/// For z = upper / 2^32 of 1/4 to 1: 2^30 / sqrt(z) by so many steps of Newton's. After one it is off by less than
/// 1/600, after two by less than 1/200,000.
constexpr uint64_t InverseRoot(uint64_t upper, int steps) {
    uint64_t inverse = kInverseRoots[upper >> 27];
    for (int step = 0; step < steps; ++step) {
        const uint64_t product = ((inverse * inverse >> 30) * upper) >> 32;
        inverse = inverse * ((uint64_t{3} << 30) - product) >> 31;
    }
    return inverse;
}

}  // namespace root

/// The square root, off by less than 1/600 of it.
constexpr uint32_t RoughRoot(uint64_t square) {
    if (square == 0) return 0;
    const int shift = std::countl_zero(square) & ~1;
    const uint64_t upper = square << shift >> 32;
    const uint64_t result = upper * root::InverseRoot(upper, 1) >> 30 >> shift / 2;
    return result > UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(result);
}

/// The square root, rounded down. Two steps of Newton's towards 1 / sqrt, one from there to the root, and what is left
/// to correct is at most a step of one.
constexpr uint32_t FloorRoot(uint64_t square) {
    if (square == 0) return 0;
    const int shift = std::countl_zero(square) & ~1;
    const uint64_t scaled = square << shift;
    const uint64_t upper = scaled >> 32;  // z = upper / 2^32 is 1/4 to 1
    const uint64_t inverse = root::InverseRoot(upper, 2);
    uint64_t result = upper * inverse >> 30;
    const auto rest = static_cast<int64_t>(scaled - result * result);
    result += static_cast<uint64_t>(((rest >> 31) * static_cast<int64_t>(inverse)) >> 32);
    // All of this works modulo 2^64, and the root fits 32 bits.
    while (result > UINT32_MAX || result * result > scaled) --result;
    while (result < UINT32_MAX && (result + 1) * (result + 1) <= scaled) ++result;
    return static_cast<uint32_t>(result >> shift / 2);
}

}  // namespace lacquer
