// The ramp is constant data: nothing has to run before it can be used.

#include "pipeline/pixel/grey_ramp.h"

#include <array>

namespace lacquer {
namespace {

constexpr std::array<DWORD, 256> MakeRamp() {
    std::array<DWORD, 256> ramp{};
    for (DWORD i = 0; i < 256; ++i) ramp[i] = 0xFF000000u | i * 0x010101u;
    return ramp;
}

constexpr std::array<DWORD, 256> kRamp = MakeRamp();

}  // namespace

const DWORD *GreyRamp() { return kRamp.data(); }

}  // namespace lacquer
