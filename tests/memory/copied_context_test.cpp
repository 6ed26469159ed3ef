// Memory that runs short while the pixels of a device context are copied: a lock needs its DIB section and no more, and
// pieces that can't share one lock each take their own.

#include "failing_allocations.h"
#include "support/memory_dc.h"
#include "support/objects.h"

namespace lacquer {
namespace {

constexpr uint32_t kInside = 0x123456;
constexpr RECT kAll{0, 0, 12, 12};

/// A canvas whose context has a clip with a hole, so that its pixels can't be locked where they are.
struct CopiedCanvas {
    CopiedCanvas() {
        FillWith(dib.View(), kInside);
        SelectClipWithHole(dc, kAll, {8, 8, 10, 10});
    }
    Dib dib{12, 12, 24};
    MemoryDC dc{dib.Handle()};
    OwnedCanvas canvas{CreateCanvasFromDC(dc)};
};

TEST(CopiedContext, ALockFailsOnlyWithItsSectionAndReadsBlackWithoutItsCopy) {
    const CopiedCanvas copied;
    int failed = 0, black = 0;
    for (int count = 0, refused = 1; refused > 0; ++count) {
        SurfaceView view{};
        FailAllocations(count, 2);
        const bool locked = LockCanvasBits(copied.canvas, &view, &kAll) == 1;
        refused = StopFailing();
        if (!locked) {
            EXPECT_EQ(0, black) << "the section comes first";
            ++failed;
            continue;
        }
        const uint32_t pixel = PixelAt(view, 5, 5);
        EXPECT_TRUE(pixel == kInside || (pixel == 0 && refused > 0));
        if (pixel == 0) ++black;
        FillWith(view, kInside);
        EXPECT_EQ(1, UnlockCanvasBits(copied.canvas));
    }
    EXPECT_LT(0, failed);
    EXPECT_LT(0, black);
}

TEST(CopiedContext, TilesAreDrawnOneByOneWhenTheirSharedLockFails) {
    const CopiedCanvas whole, apart;
    const OwnedTexture tile = NoisyTexture(3, 3, 7);
    // The last block without which there is no lock is the section's.
    int section = -1;
    for (bool locked = false; !locked;) {
        SurfaceView view{};
        FailAllocations(section + 1, 2);
        locked = LockCanvasBits(apart.canvas, &view, &kAll) == 1;
        StopFailing();
        if (locked) {
            UnlockCanvasBits(apart.canvas);
        } else {
            ++section;
        }
    }
    DrawTextureTile(whole.canvas, &kAll, tile, nullptr, 1, 255, 0, 1);
    FailAllocations(section, 2);
    DrawTextureTile(apart.canvas, &kAll, tile, nullptr, 1, 255, 0, 1);
    EXPECT_LT(0, StopFailing());
    EXPECT_EQ(PixelsOf(whole.dib.View()), PixelsOf(apart.dib.View()));
}

}  // namespace
}  // namespace lacquer
