// The ramp is constant data: nothing has to run before it can be used.

#include "pipeline/pixel/grey_ramp.h"

#include <array>

#include "pipeline/pixel/pixel.h"

namespace lacquer {
namespace {

constexpr std::array<DWORD, kGreyRampSize> MakeRamp() {
    std::array<DWORD, kGreyRampSize> ramp{};
    for (DWORD i = 0; i < kGreyRampSize; ++i) ramp[i] = kOpaque | Grey(i);
    return ramp;
}

constexpr std::array<DWORD, kGreyRampSize> kRamp = MakeRamp();

}  // namespace

const DWORD *GreyRamp() { return kRamp.data(); }

}  // namespace lacquer
