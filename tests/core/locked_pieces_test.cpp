// Pieces that share one lock of a device context.

#include "core/locked_pieces.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/locked.h"
#include "support/memory_dc.h"
#include "support/pixels.h"

namespace lacquer {
namespace {

/// What a piece may do to a view: read and write every pixel, alpha included.
void Change(const SurfaceView &view) {
    for (LONG y = 0; y < view.height; ++y) {
        for (LONG x = 0; x < view.width; ++x) PutPixel(view, x, y, PixelAt(view, x, y) * 31 + 0x9A070503);
    }
}

TEST(LockedPiecesTest, SeeAndLeaveWhatLocksOfTheirOwnDo) {
    constexpr LONG kWidth = 30, kHeight = 20;
    for (uint32_t round = 0; round < 300; ++round) {
        uint32_t next = 0;
        const auto below = [&](LONG end) {
            return static_cast<LONG>(Noise(round, ++next) % static_cast<uint32_t>(end));
        };
        const Dib shared(kWidth, kHeight, 24), apart(kWidth, kHeight, 24);
        const MemoryDC sharedDC(shared.Handle()), apartDC(apart.Handle());
        for (const Dib *dib : {&shared, &apart}) FillWithNoise(dib->View(), round);
        for (HDC dc : {HDC(sharedDC), HDC(apartDC)}) {
            if (round % 4 != 0) SelectClipWithHole(dc, {0, 0, kWidth, kHeight}, {7, 4, 12, 15});
        }
        const std::unique_ptr<Canvas> sharing = MakeCanvasFromDC(sharedDC), single = MakeCanvasFromDC(apartDC);
        {
            LockedPieces pieces(*sharing, {0, 0, kWidth - below(3), kHeight + below(3)});
            for (LONG i = 0; i < 12; ++i) {
                // Columns that do not touch, cells from left to right, or anything.
                RECT rect{2 * i, 3, 2 * i + 1, 9};
                if (round % 3 == 1) rect = {i % 4 * 5, i / 4 * 4, i % 4 * 5 + 5, i / 4 * 4 + 4};
                if (round % 3 == 2) rect = {below(20), below(12), 20 + below(11), 12 + below(9)};
                const SurfaceView *view = pieces.Lock(rect);
                const LockedCanvas own(*single, &rect);
                ASSERT_NE(nullptr, view);
                ASSERT_EQ(PixelsOf(*own.View()), PixelsOf(*view)) << "round " << round << " piece " << i;
                Change(*view);
                Change(*own.View());
            }
        }
        ASSERT_EQ(PixelsOf(apart.View()), PixelsOf(shared.View())) << "round " << round;
    }
}

}  // namespace
}  // namespace lacquer
