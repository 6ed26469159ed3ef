// Memory that runs short while the pixels of a device context are copied: a lock needs its DIB section and no more, and
// pieces that can't share one lock each take their own.

#include <algorithm>

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
    std::vector<uint32_t> read;
    int section = -1;  // the last block without which there is no lock
    for (int count = 0, refused = 1; refused > 0; ++count) {
        SurfaceView view{};
        FailAllocations(count, 2);
        const bool locked = LockCanvasBits(copied.canvas, &view, &kAll) == 1;
        refused = StopFailing();
        if (!locked) {
            EXPECT_TRUE(read.empty()) << "the section comes first";
            section = count;
            continue;
        }
        read.push_back(PixelAt(view, 5, 5));
        EXPECT_EQ(read.back() == 0 && refused > 0 ? 0 : kInside, read.back());
        FillWith(view, kInside);
        EXPECT_EQ(1, UnlockCanvasBits(copied.canvas));
    }
    EXPECT_LT(0, std::count(read.begin(), read.end(), 0u));

    // Tiles that can't share a lock because its section fails take each their own.
    const CopiedCanvas whole;
    const OwnedTexture tile = NoisyTexture(3, 3, 7);
    DrawTextureTile(whole.canvas, &kAll, tile, nullptr, 1, 255, 0, 1);
    FailAllocations(section, 2);
    DrawTextureTile(copied.canvas, &kAll, tile, nullptr, 1, 255, 0, 1);
    EXPECT_LT(0, StopFailing());
    EXPECT_EQ(PixelsOf(whole.dib.View()), PixelsOf(copied.dib.View()));
}

}  // namespace
}  // namespace lacquer
