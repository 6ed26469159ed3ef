// The functions of the headless GDI, and calls that go deep into the library and the companion.

#include "calls.h"

#include <velgraphic/velgraphic.hpp>

#include <string>

#include "support/objects.h"
#include "velgraphic/animations.h"

namespace lacquer {
namespace {

struct ThreeRects {
    RGNDATAHEADER header{sizeof(RGNDATAHEADER), RDH_RECTANGLES, 3, sizeof(RECT) * 3, {0, 0, 9, 9}};
    RECT rects[3] = {{0, 0, 2, 2}, {4, 0, 6, 3}, {1, 5, 9, 9}};
} threeRects;

}  // namespace

/// With room for a colour table.
template <>
inline const BITMAPINFO kSamples<BITMAPINFO>[64] {
    {
        {sizeof(BITMAPINFOHEADER), 4, 4, 1, 8, BI_RGB, 0, 0, 0, 0, 0}, {}
    }
};
SAMPLES(BLENDFUNCTION, {AC_SRC_OVER, 0, 200, 0});

namespace {

HRGN MakeThreeRects() {
    return ExtCreateRegion(nullptr, sizeof threeRects, reinterpret_cast<const RGNDATA *>(&threeRects));
}
HBITMAP MakeDibSection(const BITMAPINFO *info) {
    return CreateDIBSection(nullptr, info, DIB_RGB_COLORS, nullptr, nullptr, 0);
}
BOOL MakeAndDeleteDc() { return DeleteDC(CreateCompatibleDC(nullptr)); }
BOOL MakeAndDeleteRegion() { return DeleteObject(CreateRectRgn(0, 0, 9, 9)); }

bool SelectAndBack(HDC dc, HBITMAP bitmap) {
    HGDIOBJ previous = SelectObject(dc, bitmap);
    return previous && SelectObject(dc, previous);
}
int Describe(HBITMAP bitmap, BITMAP *out) { return GetObjectW(bitmap, sizeof *out, out); }
DWORD TypeOfRegion(HRGN region) { return GetObjectType(region); }
bool IsEqualToItself(HRGN region) { return EqualRgn(region, region); }
bool SaveAndBack(HDC dc) { return SaveDC(dc) && RestoreDC(dc, -1); }
bool SaveCutAndBack(HDC dc) { return SaveDC(dc) && ExcludeClipRect(dc, 0, 0, 1, 1) && RestoreDC(dc, -1); }

const Exception kExceptions[] = {
    {"AlphaBlend", {0, 0, 4, 4, 0, 0, 2, 2}},
    {"GdiAlphaBlend", {0, 0, 4, 4, 0, 0, 4, 4}},
    {"BitBlt", {0, 0, 4, 4, 0, 0, SRCCOPY}},
    {"StretchBlt", {0, 0, 6, 6, 0, 0, 3, 3, SRCCOPY}},
    {"PatBlt", {0, 0, 4, 4, WHITENESS}},
    {"SetDIBitsToDevice", {0, 0, 4, 4, 0, 0, 0, 4, DIB_RGB_COLORS}},
    {"GetPixel SetPixel", {0, 0, 0x112233}, {}, CLR_INVALID},
    {"CreateBitmap", {4, 4, 1, 1}},
    {"GetCurrentObject", {OBJ_BITMAP}},
    {"CreateRectRgn", {9, 9, 0, 0}},
    {"CombineRgn", {RGN_XOR}},
    {"GetRegionData", {sizeof outRecord}},
    {"ExcludeClipRect", {0, 0, 2, 2}},
    {"ExtSelectClipRgn", {RGN_DIFF}},
    {"GetClipRgn", {}, {}, 0xFFFFFFFF},
    {"IntersectClipRect", {0, 0, 5, 5}},
    {"SetStretchBltMode", {COLORONCOLOR}},
    {"SetViewportOrgEx SetWindowOrgEx", {0, 0}},
};

}  // namespace

STAND_IN(ExtCreateRegion, MakeThreeRects);
STAND_IN(CreateDIBSection, MakeDibSection);
STAND_IN(DeleteDC, MakeAndDeleteDc);
STAND_IN(DeleteObject, MakeAndDeleteRegion);
STAND_IN(SelectObject, SelectAndBack);
STAND_IN(GetObjectW, Describe);
STAND_IN(GetObjectType, TypeOfRegion);
STAND_IN(EqualRgn, IsEqualToItself);
STAND_IN(SaveDC, SaveAndBack);
STAND_IN(RestoreDC, SaveCutAndBack);

namespace {

/// Draws into pixels of its own.
template <int (*use)(velCanvas *)>
uint64_t OnVelCanvas(Arguments) {
    static DWORD pixels[32 * 32];
    lq::VectorCanvas canvas = lq::VectorCanvas::Create();
    return canvas.DrawInto(pixels, 32, 32, 128) && use(canvas);
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
    const lq::Lottie lottie = lq::Lottie::FromData(json);
    velLottieInfo info{};
    return lottie && velLottieGetInfo(lottie, &info) && velLottieDraw(canvas, lottie, 7, 0, 0, 32, 32);
}

/// A region of more runs than are gathered at once.
uint64_t MakeLargeRegion(Arguments) {
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
    return DeleteObject(region) != 0;
}

}  // namespace

std::vector<ExportedCall> GdiCalls() {
#define EXPORT(name) MakeCall<kStandIn<name>>(#name, kExceptions),
    return {
#include "exports_headless.inc"
    };
#undef EXPORT
}

std::vector<ExportedCall> DeepCalls() {
    std::vector<ExportedCall> calls{
        {"LargeRegion", {}, 'n', MakeLargeRegion},
        {"Text", {}, 'n', OnVelCanvas<DrawText>},
    };
    if (ExpectsAnimations()) calls.push_back({"Animation", {}, 'n', OnVelCanvas<DrawAnimation>});
    return calls;
}

}  // namespace lacquer
