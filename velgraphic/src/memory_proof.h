// Whether memory can be had, asked before calls into libraries that do not survive its lack.
#pragma once

#include <cstddef>

namespace lacquer::vel {

/// Proves that this many bytes can be had now, in any pieces: takes them and gives them back. Another thread may take
/// them before they are used. A proof of up to 120 KiB costs no more than an allocation, a larger one a few system
/// calls.
bool MemoryCanBeHad(size_t bytes);

}  // namespace lacquer::vel
