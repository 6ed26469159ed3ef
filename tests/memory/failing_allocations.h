// Memory that runs short at a chosen moment: the heap of this program, which all libraries in it use, refuses what the
// library under test, its companion or pixman (but not below cairo) ask for. And a count of the blocks that they hold.
#pragma once

namespace lacquer {

/// From now on this thread gets `count` blocks, is refused the next `failures` ones, and gets all after them.
void FailAllocations(int count, int failures);

/// Ends that. Result: how many were refused.
int StopFailing();

/// Blocks that the modules hold.
long LiveBlocks();

}  // namespace lacquer
