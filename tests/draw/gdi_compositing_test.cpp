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

int Width(const RECT &rect) { return static_cast<int>(WidthOf(rect)); }
int Height(const RECT &rect) { return static_cast<int>(HeightOf(rect)); }

int Blend(HDC to, HDC from, const Rects &r, BYTE alpha, BYTE format) {
    return AlphaBlend(to, r.dest.left, r.dest.top, Width(r.dest), Height(r.dest), from, r.source.left, r.source.top,
                      Width(r.source), Height(r.source), {AC_SRC_OVER, 0, alpha, format});
}

int Stretch(HDC to, HDC from, const Rects &r) {
    return StretchBlt(to, r.dest.left, r.dest.top, Width(r.dest), Height(r.dest), from, r.source.left, r.source.top,
                      Width(r.source), Height(r.source), SRCCOPY);
}

TEST(GdiTransCanvas, PicksBlendOrStretchByFilterAndAlphaUnderOriginsAndClip) {
    for (const DWORD filter : {DWORD{0}, kOver, DWORD{0x03000000}}) {
        for (const BYTE alpha : {BYTE{0}, BYTE{128}, BYTE{255}}) {
            for (const Rects &r : kRects) {
                const TestCanvas source(CanvasKind::Memory, 20, 16, 3);
                SetCanvasFilter(source, filter);
                SetWindowOrg(source, -1, 2, nullptr);
                const TestCanvas drawn(CanvasKind::FromDC, 40, 36, 1), expected(CanvasKind::FromDC, 40, 36, 1);
                for (const TestCanvas *canvas : {&drawn, &expected}) {
                    SetViewportOrgEx(canvas->Context(), 4, -3, nullptr);
                    SelectClipWithHole(canvas->Context(), {2, 2, 36, 30}, {9, 9, 14, 14});
                }
                const int result = GdiTransCanvas(drawn.Context(), &r.dest, source, &r.source, alpha);
                HDC from = GetCanvasHandle(source), to = expected.Context();
                const int wanted = filter == kOver ? Blend(to, from, r, alpha, AC_SRC_ALPHA)
                                   : alpha == 255  ? Stretch(to, from, r)
                                                   : Blend(to, from, r, alpha, 0);
                EXPECT_EQ(wanted, result);
                EXPECT_TRUE(Same(expected.Pixels(), drawn.Pixels()))
                    << std::hex << filter << " alpha " << int{alpha} << " left " << r.dest.left;
            }
        }
    }
    const TestCanvas target(CanvasKind::FromDC, 8, 8, 1);
    EXPECT_EQ(0, GdiTransCanvas(nullptr, &kRects[0].dest, target, &kRects[0].source, 255));
}

TEST(BlendCanvas, LeavesCanvasesWithoutPixelsToGdiWhichIgnoresAlphaOfOpaqueSources) {
    const std::pair<CanvasKind, CanvasKind> kinds[] = {{CanvasKind::FromDC, CanvasKind::Memory},
                                                       {CanvasKind::Memory, CanvasKind::FromDC},
                                                       {CanvasKind::FromDC, CanvasKind::FromDC}};
    for (const auto &[destKind, sourceKind] : kinds) {
        for (const DWORD filter : {DWORD{0}, kOver}) {
            // A canvas made from a device context keeps its filter word 0.
            if (filter != 0 && sourceKind == CanvasKind::FromDC) continue;
            for (const BYTE alpha : {BYTE{128}, BYTE{255}}) {
                for (const Rects &r : kRects) {
                    const TestCanvas source(sourceKind, 20, 16, 3), drawn(destKind, 40, 36, 1),
                        expected(destKind, 40, 36, 1);
                    EXPECT_EQ(sourceKind != CanvasKind::FromDC, SetCanvasFilter(source, filter));
                    // A mirrored rectangle shows nothing, which is found before GDI is asked.
                    const bool visible = r.dest.left < r.dest.right;
                    const int result = BlendCanvas(drawn, &r.dest, source, &r.source, alpha);
                    HDC from = GetCanvasHandle(source), to = GetCanvasHandle(expected);
                    const int wanted = !visible          ? 1
                                       : filter == kOver ? Blend(to, from, r, alpha, AC_SRC_ALPHA)
                                                         : Stretch(to, from, r);
                    EXPECT_EQ(wanted, result);
                    EXPECT_TRUE(Same(expected.Pixels(), drawn.Pixels()))
                        << "filter " << std::hex << filter << " alpha " << int{alpha} << " left " << r.dest.left;
                }
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
