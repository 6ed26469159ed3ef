// Memory that runs short at a chosen moment, for programs that link failing_allocation.cpp.
#pragma once

namespace lacquer {

/// From now on, lets `count` nothrow allocations of this thread succeed and the ones after them fail; negative: none
/// fails.
void FailAllocationsAfter(int count);

/// Whether one has failed since the last call of FailAllocationsAfter.
bool AllocationHasFailed();

}  // namespace lacquer
