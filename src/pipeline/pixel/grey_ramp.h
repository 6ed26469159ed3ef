// The palette of 8-bit surfaces that have none of their own.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

constexpr DWORD kGreyRampSize = 256;

/// kGreyRampSize opaque greys, entry i being 0xFF000000 | i × 0x010101. Read-only, for the life of the process.
const DWORD *GreyRamp();

}  // namespace lacquer
