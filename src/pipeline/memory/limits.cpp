// The limits in use.

#include "pipeline/memory/limits.h"

namespace lacquer {

// Those of unknown caches hold until this file's turn comes, when the library is loaded.
constinit MemoryLimits memoryLimits = LimitsFor({});

namespace {
const bool isSet = (memoryLimits = LimitsFor(ReadCacheSizes()), true);
}  // namespace

}  // namespace lacquer
