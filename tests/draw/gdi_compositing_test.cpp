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

/// One transfer onto the context of a canvas, under a clip and origins, or one blend onto the canvas, in every way.
void ExpectAsByGdi(bool isTransfer, CanvasKind destKind, CanvasKind sourceKind, DWORD filter, BYTE alpha,
                   const Rects &rects) {
    const TestCanvas source(sourceKind, 20, 16, 3), drawn(destKind, 40, 36, 1), expected(destKind, 40, 36, 1);
    // A canvas made from a device context keeps its filter word 0.
    if (!SetCanvasFilter(source, filter) && filter != 0) return;
    if (isTransfer) SetWindowOrg(source, -1, 2, nullptr);
    for (const TestCanvas *canvas : {&drawn, &expected}) {
        if (!isTransfer) continue;
        SetViewportOrgEx(canvas->Context(), 4, -3, nullptr);
        SelectClipWithHole(canvas->Context(), {2, 2, 36, 30}, {9, 9, 14, 14});
    }
    const HDC to = GetCanvasHandle(expected), from = GetCanvasHandle(source);
    const RECT &d = rects.dest, &s = rects.source;
    const int width = d.right - d.left, height = d.bottom - d.top, sourceWidth = s.right - s.left,
              sourceHeight = s.bottom - s.top;
    // Blends ignore alpha for opaque sources, and find out themselves where nothing shows.
    const bool isOver = filter == kOver, fades = isTransfer && alpha < 255, shows = isTransfer || width > 0;
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, alpha, isOver ? BYTE{AC_SRC_ALPHA} : BYTE{0}};
    int wanted = 1;
    if (shows && (isOver || fades)) {
        wanted = AlphaBlend(to, d.left, d.top, width, height, from, s.left, s.top, sourceWidth, sourceHeight, blend);
    } else if (shows) {
        wanted = StretchBlt(to, d.left, d.top, width, height, from, s.left, s.top, sourceWidth, sourceHeight, SRCCOPY);
    }
    EXPECT_EQ(wanted, isTransfer ? GdiTransCanvas(drawn.Context(), &d, source, &s, alpha)
                                 : BlendCanvas(drawn, &d, source, &s, alpha));
    EXPECT_TRUE(Same(expected.Pixels(), drawn.Pixels()))
        << isTransfer << std::hex << filter << " alpha " << int{alpha} << " left " << d.left;
}

TEST(GdiCompositing, DoesWhatGdiDoes) {
    for (const DWORD filter : {DWORD{0}, kOver, DWORD{0x03000000}}) {
        for (const BYTE alpha : {BYTE{0}, BYTE{128}, BYTE{255}}) {
            for (const Rects &rects : kRects) {
                ExpectAsByGdi(true, CanvasKind::FromDC, CanvasKind::Memory, filter, alpha, rects);
                for (const auto &[dest, source] : {std::pair{CanvasKind::FromDC, CanvasKind::Memory},
                                                   {CanvasKind::Memory, CanvasKind::FromDC},
                                                   {CanvasKind::FromDC, CanvasKind::FromDC}}) {
                    ExpectAsByGdi(false, dest, source, filter, alpha, rects);
                }
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
