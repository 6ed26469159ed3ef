// How much memory the program has allocated and not freed.
#pragma once

namespace lacquer {

/// Bytes that are allocated at this moment, by whichever library.
long MemoryInUse();

}  // namespace lacquer
