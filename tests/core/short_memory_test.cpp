// A copy-in lock whose memory runs short at every possible moment.

#include <gtest/gtest.h>

#include "core/canvas.h"
#include "support/failing_allocation.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

/// Repeats `act` with the first, second, third ... allocation failing until none fails any more; it must give false
/// whenever one did, and true in the end. Result: how many times memory ran short.
template <class Act>
int FailEachAllocation(Act act) {
    for (int count = 0;; ++count) {
        FailAllocationsAfter(count);
        const bool done = act();
        const bool failed = AllocationHasFailed();
        FailAllocationsAfter(-1);
        EXPECT_EQ(!failed, done) << "allocation " << count;
        if (!failed || count > 100) return count;
    }
}

TEST(ShortMemoryTest, AFailedCopyInLockLocksNothing) {
    const Dib dib(6, 6);
    const MemoryDC dc(dib.Handle());
    SelectClipWithHole(dc, {0, 0, 6, 6}, {2, 2, 3, 3});
    DcLock lock;
    SurfaceView view{};
    FailEachAllocation([&] {
        const bool locked = lock.Lock(dc, {0, 0, 6, 6}, &view);
        if (locked) lock.Unlock();
        return locked;
    });
    EXPECT_TRUE(lock.Lock(dc, {0, 0, 6, 6}, &view));
}

}  // namespace
}  // namespace lacquer
