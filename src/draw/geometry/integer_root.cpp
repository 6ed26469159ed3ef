// Roots by a table of 1 / sqrt and Newton's steps.

#include "draw/geometry/integer_root.h"

#include <array>
#include <bit>

namespace lacquer {
namespace {

/// 2^30 / sqrt((i + 1/2) / 256), found bit by bit; only i of 64 and above are used.
constexpr std::array<uint32_t, 256> MakeInverseRoots() {
    std::array<uint32_t, 256> inverse{};
    for (uint64_t i = 64; i < inverse.size(); ++i) {
        const uint64_t square = ((uint64_t{1} << 60) / (2 * i + 1)) << 9;
        uint64_t result = 0;
        for (uint64_t bit = uint64_t{1} << 31; bit != 0; bit >>= 1) {
            if ((result + bit) * (result + bit) <= square) result += bit;
        }
        inverse[i] = static_cast<uint32_t>(result);
    }
    return inverse;
}
constexpr std::array<uint32_t, 256> kInverseRoots = MakeInverseRoots();

/// 2^30 / sqrt(upper / 2^32) for an upper of 2^30 and above, by the table and one step of Newton's: off by less than
/// 1/40,000.
constexpr uint64_t InverseRoot(uint64_t upper) {
    const uint64_t inverse = kInverseRoots[upper >> 24];
    const uint64_t product = ((inverse * inverse >> 30) * upper) >> 32;
    return inverse * ((uint64_t{3} << 30) - product) >> 31;
}

}  // namespace

uint32_t RoughRoot(uint64_t square) {
    if (square == 0) return 0;
    const int shift = std::countl_zero(square) & ~1;
    const uint64_t upper = square << shift >> 32;
    const uint64_t result = upper * InverseRoot(upper) >> 30 >> shift / 2;
    return result > UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(result);
}

/// After another step towards the root what is left to correct is one or two.
uint32_t FloorRoot(uint64_t square) {
    if (square == 0) return 0;
    const int shift = std::countl_zero(square) & ~1;
    const uint64_t scaled = square << shift;
    const uint64_t upper = scaled >> 32;  // z = upper / 2^32 is 1/4 to 1
    const uint64_t inverse = InverseRoot(upper);
    uint64_t result = upper * inverse >> 30;
    const auto rest = static_cast<int64_t>(scaled - result * result);
    result += static_cast<uint64_t>(((rest >> 31) * static_cast<int64_t>(inverse)) >> 32);
    // All of this works modulo 2^64, and the root fits 32 bits.
    while (result > UINT32_MAX || result * result > scaled) --result;
    while (result < UINT32_MAX && (result + 1) * (result + 1) <= scaled) ++result;
    return static_cast<uint32_t>(result >> shift / 2);
}

}  // namespace lacquer
