// Where a canvas has no pixels of its own, and onto foreign device contexts, GDI draws: the operations must do what
// direct calls of AlphaBlend and StretchBlt do to a copy.

#include "painting.h"

namespace lacquer {
namespace {

struct Rects {
    RECT dest, source;
};

/// Same size, both stretches, partly outside, mirrored, and a source that GDI refuses to blend from.
constexpr Rects kRects[] = {{{3, 4, 18, 14}, {2, 1, 17, 11}}, {{1, 1, 38, 30}, {0, 0, 20, 16}},
                            {{5, 5, 12, 10}, {0, 0, 20, 16}}, {{-6, -3, 30, 20}, {0, 0, 20, 16}},
                            {{20, 4, 5, 14}, {0, 0, 15, 10}}, {{3, 4, 18, 14}, {10, 10, 25, 20}}};

/// What GDI is asked to do with a source; `kNothing` where nothing shows, which is found before.
enum class Transfer { kNothing, kStretch, kBlend, kBlendPixelAlpha };

int ByGdi(Transfer transfer, HDC to, HDC from, const Rects &r, BYTE alpha) {
    const auto width = [](const RECT &rect) { return static_cast<int>(WidthOf(rect)); };
    const auto height = [](const RECT &rect) { return static_cast<int>(HeightOf(rect)); };
    const RECT &d = r.dest, &s = r.source;
    if (transfer == Transfer::kNothing) return 1;
    if (transfer == Transfer::kStretch) {
        return StretchBlt(to, d.left, d.top, width(d), height(d), from, s.left, s.top, width(s), height(s), SRCCOPY);
    }
    const BYTE format = transfer == Transfer::kBlendPixelAlpha ? AC_SRC_ALPHA : 0;
    return AlphaBlend(to, d.left, d.top, width(d), height(d), from, s.left, s.top, width(s), height(s),
                      {AC_SRC_OVER, 0, alpha, format});
}

/// Calls test(source, drawn, expected, filter, rectangles, alpha) for canvases of two kinds, and compares the two that
/// it draws on.
template <class Test>
void ForEachTransfer(CanvasKind destKind, CanvasKind sourceKind, const Test &test) {
    for (const DWORD filter : {DWORD{0}, kOver, DWORD{0x03000000}}) {
        for (const BYTE alpha : {BYTE{0}, BYTE{128}, BYTE{255}}) {
            for (const Rects &r : kRects) {
                const TestCanvas source(sourceKind, 20, 16, 3), drawn(destKind, 40, 36, 1),
                    expected(destKind, 40, 36, 1);
                // A canvas made from a device context keeps its filter word 0.
                if (!SetCanvasFilter(source, filter) && filter != 0) continue;
                test(source, drawn, expected, filter, r, alpha);
                EXPECT_TRUE(Same(expected.Pixels(), drawn.Pixels()))
                    << std::hex << filter << " alpha " << int{alpha} << " left " << r.dest.left;
            }
        }
    }
}

using Canvas = const TestCanvas &;

TEST(GdiTransCanvas, PicksBlendOrStretchByFilterAndAlphaUnderOriginsAndClip) {
    ForEachTransfer(CanvasKind::FromDC, CanvasKind::Memory,
                    [](Canvas source, Canvas drawn, Canvas expected, DWORD filter, const Rects &r, BYTE alpha) {
                        SetWindowOrg(source, -1, 2, nullptr);
                        for (const HDC dc : {drawn.Context(), expected.Context()}) {
                            SetViewportOrgEx(dc, 4, -3, nullptr);
                            SelectClipWithHole(dc, {2, 2, 36, 30}, {9, 9, 14, 14});
                        }
                        const Transfer transfer = filter == kOver ? Transfer::kBlendPixelAlpha
                                                  : alpha == 255  ? Transfer::kStretch
                                                                  : Transfer::kBlend;
                        EXPECT_EQ(ByGdi(transfer, expected.Context(), GetCanvasHandle(source), r, alpha),
                                  GdiTransCanvas(drawn.Context(), &r.dest, source, &r.source, alpha));
                    });
    const TestCanvas target(CanvasKind::FromDC, 8, 8, 1);
    EXPECT_EQ(0, GdiTransCanvas(nullptr, &kRects[0].dest, target, &kRects[0].source, 255));
}

TEST(BlendCanvas, LeavesCanvasesWithoutPixelsToGdiWhichIgnoresAlphaOfOpaqueSources) {
    for (const auto &[destKind, sourceKind] : {std::pair{CanvasKind::FromDC, CanvasKind::Memory},
                                               {CanvasKind::Memory, CanvasKind::FromDC},
                                               {CanvasKind::FromDC, CanvasKind::FromDC}}) {
        ForEachTransfer(destKind, sourceKind,
                        [](Canvas source, Canvas drawn, Canvas expected, DWORD filter, const Rects &r, BYTE alpha) {
                            const Transfer transfer = r.dest.left >= r.dest.right ? Transfer::kNothing
                                                      : filter == kOver           ? Transfer::kBlendPixelAlpha
                                                                                  : Transfer::kStretch;
                            EXPECT_EQ(ByGdi(transfer, GetCanvasHandle(expected), GetCanvasHandle(source), r, alpha),
                                      BlendCanvas(drawn, &r.dest, source, &r.source, alpha));
                        });
    }
}

}  // namespace
}  // namespace lacquer
