// The functions of the headless GDI, and calls that go deep into the library and the companion.

#include "calls.h"

#include <string>

#include "support/memory_dc.h"
#include "support/objects.h"
#include "velgraphic/animations.h"

namespace lacquer {
namespace {

using Values = HandleCall::Values;

/// A handle of any type, as an argument or a result.
struct Any {
    uintptr_t value;
    template <class Handle>
    operator Handle *() const {
        return reinterpret_cast<Handle *>(value);
    }
};

constexpr RECT kRect{1, 1, 3, 3};
constexpr BLENDFUNCTION kBlend{AC_SRC_OVER, 0, 200, 0};
RECT rect;
POINT point;
BITMAP description;

struct ThreeRects {
    RGNDATAHEADER header{sizeof(RGNDATAHEADER), RDH_RECTANGLES, 3, sizeof(RECT) * 3, {0, 0, 9, 9}};
    RECT rects[3] = {{0, 0, 2, 2}, {4, 0, 6, 3}, {1, 5, 9, 9}};
} threeRects;
struct {
    RGNDATA data;
    RECT rects[16];
} regionData;
struct {
    BITMAPINFO info;
    RGBQUAD colours[256];
} picture = {{{sizeof(BITMAPINFOHEADER), 4, 4, 1, 8, BI_RGB, 0, 0, 0, 0, 0}, {}}, {}};
DWORD bits[16];

#define GDI(name, letters, expression, ...)                          \
    {                                                                \
#name, letters, []([[maybe_unused]] const Values &h) -> uint64_t { \
            [[maybe_unused]] const Any a{h[0]}, b{h[1]};                  \
            return static_cast<uint32_t>(expression);                     \
        } __VA_OPT__(, ) __VA_ARGS__ \
    }

/// Selects a bitmap, and the one before again.
bool SelectAndBack(HDC dc, HGDIOBJ bitmap) {
    HGDIOBJ previous = SelectObject(dc, bitmap);
    return previous && SelectObject(dc, previous);
}

const HandleCall kGdiCalls[] = {
    GDI(AlphaBlend, "DD", AlphaBlend(a, 0, 0, 4, 4, b, 0, 0, 2, 2, kBlend)),
    GDI(GdiAlphaBlend, "DD", GdiAlphaBlend(a, 0, 0, 4, 4, b, 0, 0, 4, 4, kBlend)),
    GDI(BitBlt, "DD", BitBlt(a, 0, 0, 4, 4, b, 0, 0, SRCCOPY)),
    GDI(StretchBlt, "DD", StretchBlt(a, 0, 0, 6, 6, b, 0, 0, 3, 3, SRCCOPY)),
    GDI(PatBlt, "D", PatBlt(a, 0, 0, 4, 4, WHITENESS)),
    GDI(SetDIBitsToDevice, "D", SetDIBitsToDevice(a, 0, 0, 4, 4, 0, 0, 0, 4, bits, &picture.info, DIB_RGB_COLORS)),
    GDI(GetPixel, "D", GetPixel(a, 0, 0), CLR_INVALID),
    GDI(SetPixel, "D", SetPixel(a, 0, 0, 0x112233), CLR_INVALID),
    GDI(GdiFlush, "", GdiFlush()),

    GDI(CreateBitmap, "", DeleteObject(CreateBitmap(4, 4, 1, 1, bits))),
    GDI(CreateCompatibleBitmap, "D", DeleteObject(CreateCompatibleBitmap(a, 4, 4))),
    GDI(CreateCompatibleDC, "D", DeleteDC(CreateCompatibleDC(a))),
    GDI(CreateDIBSection, "",
        DeleteObject(CreateDIBSection(nullptr, &picture.info, DIB_RGB_COLORS, nullptr, nullptr, 0))),
    GDI(DeleteDC, "", DeleteDC(CreateCompatibleDC(nullptr))),
    GDI(DeleteObject, "", DeleteObject(CreateRectRgn(0, 0, 9, 9))),
    GDI(GetCurrentObject, "D", GetCurrentObject(a, OBJ_BITMAP) != nullptr),
    GDI(GetObjectType, "R", GetObjectType(a)),
    GDI(GetObjectW, "H", GetObjectW(a, sizeof description, &description)),
    GDI(SelectObject, "DH", SelectAndBack(a, b)),

    GDI(CreateRectRgn, "", DeleteObject(CreateRectRgn(9, 9, 0, 0))),
    GDI(CreateRectRgnIndirect, "", DeleteObject(CreateRectRgnIndirect(&kRect))),
    GDI(ExtCreateRegion, "",
        DeleteObject(ExtCreateRegion(nullptr, sizeof threeRects, reinterpret_cast<const RGNDATA *>(&threeRects)))),
    GDI(CombineRgn, "RR", CombineRgn(a, a, b, RGN_XOR)),
    GDI(EqualRgn, "R", EqualRgn(a, a)),
    GDI(GetRegionData, "R", GetRegionData(a, sizeof regionData, &regionData.data)),
    GDI(GetRgnBox, "R", GetRgnBox(a, &rect)),
    GDI(OffsetRgn, "R", OffsetRgn(a, 1, 2)),
    GDI(PtInRegion, "R", PtInRegion(a, 0, 0)),
    GDI(RectInRegion, "R", RectInRegion(a, &kRect)),
    GDI(SetRectRgn, "R", SetRectRgn(a, 1, 2, 3, 4)),

    GDI(ExcludeClipRect, "D", ExcludeClipRect(a, 0, 0, 2, 2)),
    GDI(ExtSelectClipRgn, "DR", ExtSelectClipRgn(a, b, RGN_DIFF)),
    GDI(GetClipBox, "D", GetClipBox(a, &rect)),
    GDI(GetClipRgn, "DR", GetClipRgn(a, b), 0xFFFFFFFF),
    GDI(IntersectClipRect, "D", IntersectClipRect(a, 0, 0, 5, 5)),
    GDI(OffsetClipRgn, "D", OffsetClipRgn(a, 1, 1)),
    GDI(PtVisible, "D", PtVisible(a, 0, 0)),
    GDI(RectVisible, "D", RectVisible(a, &kRect)),
    GDI(SelectClipRgn, "DR", SelectClipRgn(a, b)),

    GDI(SaveDC, "D", SaveDC(a) && RestoreDC(a, -1)),
    GDI(RestoreDC, "D", SaveDC(a) && ExcludeClipRect(a, 0, 0, 1, 1) && RestoreDC(a, -1)),
    GDI(GetStretchBltMode, "D", GetStretchBltMode(a)),
    GDI(SetStretchBltMode, "D", SetStretchBltMode(a, COLORONCOLOR)),
    GDI(GetViewportOrgEx, "D", GetViewportOrgEx(a, &point)),
    GDI(SetViewportOrgEx, "D", SetViewportOrgEx(a, 0, 0, &point)),
    GDI(GetWindowOrgEx, "D", GetWindowOrgEx(a, &point)),
    GDI(SetWindowOrgEx, "D", SetWindowOrgEx(a, 0, 0, &point)),
};

/// Draws into pixels of its own with everything that a canvas can have set.
uint64_t UseVelCanvas(int (*use)(velCanvas *)) {
    static DWORD pixels[32 * 32];
    velCanvas *canvas = velCanvasCreate();
    velBitmap *bitmap = velBitmapCreateFromData(pixels, 32, 32, 128);
    velGradient *gradient = velGradientCreateLinear(0, 0, 32, 0);
    const float dashes[] = {3, 1, 2, 1};
    int result = 0;
    if (velCanvasSetBitmap(canvas, bitmap) && velGradientAddColorStop(gradient, 0, 0xFFFF0000) &&
        velGradientAddColorStop(gradient, 1, 0xFF0000FF) && velCanvasSetGradient(canvas, gradient) &&
        velCanvasSetDashPattern(canvas, dashes, 4, 1) && velCanvasSetStrokeWidth(canvas, 2) && velCanvasSave(canvas)) {
        result = use(canvas);
        velCanvasRestore(canvas);
    }
    velGradientDestroy(gradient);
    velBitmapDestroy(bitmap);
    velCanvasDestroy(canvas);
    return static_cast<uint32_t>(result);
}

int DrawText(velCanvas *canvas) {
    constexpr WCHAR kText[] = {'Q', 'w', 'g', '&'};
    constexpr WCHAR kFace[] = {'D', 'e', 'j', 'a', 'V', 'u', ' ', 'S', 'a', 'n', 's', 0};
    WORD glyphs[4];
    velPointF positions[4];
    float ascent = 0, descent = 0, lineHeight = 0;
    return velCanvasSetFontFaceName(canvas, kFace) && velCanvasSetTextSize(canvas, 14) &&
           velCanvasGetGlyphs(canvas, kText, 4, glyphs, positions) &&
           velCanvasGetFontMetrics(canvas, &ascent, &descent, &lineHeight) &&
           velCanvasDrawPosTextByGlyphs(canvas, glyphs, 4, positions);
}

int DrawAnimation(velCanvas *canvas) {
    static const std::string json = RichAnimation();
    velLottie *lottie = velLottieCreateFromData(json.data(), json.size());
    velLottieInfo info{};
    const int result = lottie && velLottieGetInfo(lottie, &info) && velLottieDraw(canvas, lottie, 7, 0, 0, 32, 32);
    velLottieDestroy(lottie);
    return result;
}

int DrawFilledPath(velCanvas *canvas) {
    velPath *path = velPathCreate();
    const int result = velPathAddCircle(path, 16, 16, 12) && velPathMoveTo(path, 1, 1) &&
                       velPathBezierCurveTo(path, 9, 1, 1, 9, 30, 30) && velPathClose(path) &&
                       velCanvasDrawPath(canvas, path);
    velPathDestroy(path);
    return result;
}

int DrawStrokedPath(velCanvas *canvas) { return velCanvasSetDrawStyle(canvas, 0) && DrawFilledPath(canvas); }

/// A region of more runs than are gathered at once.
uint64_t MakeLargeRegion(const Values &) {
    constexpr LONG kHeight = 3000;
    static const OwnedTexture texture = [] {
        OwnedTexture made(CreateTexture(3, kHeight));
        const SurfaceView view = ViewOf(made);
        for (LONG i = 0; i < 3 * kHeight; ++i) PutPixel(view, i % 3, i / 3, i % 2 == 0 ? 0xFFFFFFFF : 0);
        SetTextureFilter(made, 0x01000000);
        return made;
    }();
    HRGN region = CreateTextureRgn(texture, nullptr);
    if (!region) return 0;
    EXPECT_EQ(sizeof(RGNDATAHEADER) + sizeof(RECT) * kHeight * 3 / 2, GetRegionData(region, 0, nullptr));
    return DeleteObject(region) != 0;
}

/// A bitmap that is not kept for the next one.
uint64_t MakeLargeBitmap(const Values &) {
    const HGBITMAP bitmap = CreateMemBitmap(5000, 5000);
    DeleteBitmap(bitmap);
    return bitmap.value;
}

/// More objects than the headless GDI's table has room for at first.
uint64_t FillGdiTable(const Values &) {
    HRGN regions[200];
    for (HRGN &region : regions) region = CreateRectRgn(0, 0, 1, 1);
    uint64_t made = 1;
    for (HRGN region : regions) made &= static_cast<uint64_t>(DeleteObject(region));
    return made;
}

template <int (*use)(velCanvas *)>
uint64_t OnVelCanvas(const Values &) {
    return UseVelCanvas(use);
}

const HandleCall kDeepCalls[] = {
    {"LargeRegion", "", MakeLargeRegion},
    {"LargeBitmap", "", MakeLargeBitmap},
    {"GdiTable", "", FillGdiTable},
    {"Text", "", OnVelCanvas<DrawText>},
    {"FilledPath", "", OnVelCanvas<DrawFilledPath>},
    {"StrokedPath", "", OnVelCanvas<DrawStrokedPath>},
    {"Animation", "", OnVelCanvas<DrawAnimation>},
};

}  // namespace

std::vector<HandleCall> GdiCalls() { return {std::begin(kGdiCalls), std::end(kGdiCalls)}; }

std::vector<HandleCall> DeepCalls() {
    std::vector<HandleCall> calls(std::begin(kDeepCalls), std::end(kDeepCalls));
    if (!ExpectsAnimations()) calls.pop_back();
    return calls;
}

}  // namespace lacquer
