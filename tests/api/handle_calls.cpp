// The table of exported functions.

#include "handle_calls.h"

#include <iterator>
#include <type_traits>

#include "handle_world.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

using Values = HandleCall::Values;

constexpr RECT kRect{0, 0, 2, 2}, kMargins{1, 1, 1, 1};
constexpr TextureMode kMode{5, 5, kRect};
constexpr GeoRect kGeoRect{0, 0, 2, 2};
constexpr GeoStyle kGeoStyle{0xFF112233, 0xFF445566, 1, {}};
constexpr POINT kPoints[] = {{0, 0}, {3, 0}, {0, 3}};
constexpr float kDashes[] = {1.0f, 2.0f};
constexpr WCHAR kFontName[] = {'S', 'a', 'n', 's', 0};
constexpr WORD kGlyph = 1;
constexpr velPointF kPosition{0, 3};

/// A number, a pointer or a handle as a result of a call.
template <class Result>
uint64_t Number(Result result) {
    if constexpr (std::is_pointer_v<Result>) {
        return reinterpret_cast<uintptr_t>(result);
    } else if constexpr (std::is_class_v<Result>) {
        return result.value;
    } else {
        return static_cast<uint32_t>(result);
    }
}

#define CALL(expression) []([[maybe_unused]] const Values &h) { return Number(expression); }

template <class Handle, auto Delete>
bool Made(uint64_t result, const Values &) {
    const Handle made{static_cast<uintptr_t>(result)};
    const bool worked = result >> 32 == 0 && IsLive(made);
    Delete(made);
    return worked;
}
template <class Handle>
bool IsGone(uint64_t, const Values &handles) {
    return !IsLive(Handle{handles[0]});
}
/// An object made of another one that ends.
template <class Handle, auto Delete, class Source>
bool MadeOf(uint64_t result, const Values &handles) {
    return Made<Handle, Delete>(result, handles) && IsGone<Source>(result, handles);
}
bool Always(uint64_t, const Values &) { return true; }

/// For creation with a template: a wrong one is ignored, a right one lends its filter word.
DWORD TakeFilter(HGCANVAS canvas) {
    DWORD filter = 0;
    GetCanvasFilter(canvas, &filter);
    DeleteCanvas(canvas);
    return filter;
}

template <class Use>
uint64_t WithPath(const Use &use) {
    velPath *path = PathCreate();
    PathMoveTo(path, 1, 1);
    const uint64_t result = Number(use(path));
    PathDestroy(path);
    return result;
}
#define ON_PATH(expression) [](const Values &) { return WithPath([](velPath *path) { return expression; }); }

template <class Use>
uint64_t WithGradient(velGradient *gradient, const Use &use) {
    const uint64_t result = Number(use(gradient));
    GradientDestroy(gradient);
    return result;
}

/// A texture of a companion canvas over pixels of its own.
HGTEXTURE TextureOfVelCanvas() {
    static DWORD pixels[16];
    velCanvas *canvas = velCanvasCreate();
    velBitmap *bitmap = velBitmapCreateFromData(pixels, 4, 4, 16);
    const HGTEXTURE texture = velCanvasSetBitmap(canvas, bitmap) ? GetTextureFromVelCanvas(canvas) : HGTEXTURE{};
    velBitmapDestroy(bitmap);
    velCanvasDestroy(canvas);
    return texture;
}

HSLRecord hsl{1, 2, 3};
RGBRecord rgb{1, 2, 3};
velRectF bounds{};

const HandleCall kHandleCalls[] = {
    {"e_NewHandleEntry", "", CALL(e_NewHandleEntry(nullptr, 9, &out)), 0,
     [](uint64_t result, const Values &) { return e_DelHandleEntry(nullptr, static_cast<DWORD>(result)) != 0; }},
    {"e_DelHandleEntry", "e", CALL(e_DelHandleEntry(nullptr, static_cast<DWORD>(h[0])))},

    {"CreateSystemBitmap", "", CALL(CreateSystemBitmap(5, 5)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"CreateMemBitmap", "", CALL(CreateMemBitmap(5, 5)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"CreateMemBitmapEx", "", CALL(CreateMemBitmapEx(5, 5, 8, 16)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"DeleteBitmap", "b", CALL((DeleteBitmap({h[0]}), 0)), 0, IsGone<HGBITMAP>},
    {"ReleaseBitmap", "a", CALL((ReleaseBitmap({h[0]}), 0)), 0, IsGone<HGBITMAP>},
    {"GetBitmapHandle", "b", CALL(GetBitmapHandle({h[0]}))},
    {"GetBitmapSize", "b", CALL(GetBitmapSize({h[0]}, &out.size))},
    {"LockBitmapBits", "b", CALL(LockBitmapBits({h[0]}, &out.view, &kRect) && UnlockBitmapBits({h[0]}))},
    {"LockBitmapBitsEx", "b", CALL(LockBitmapBitsEx({h[0]}, &out.view, nullptr))},
    {"UnlockBitmapBits", "b", CALL(UnlockBitmapBits({h[0]}))},
    {"GetBitmapFilter", "b", CALL(GetBitmapFilter({h[0]}, &out.word))},
    {"SetBitmapFilter", "b", CALL(SetBitmapFilter({h[0]}, 0x02000000))},
    {"GetBitmapBitsPixel", "b", CALL(GetBitmapBitsPixel({h[0]}, &out.byte))},
    {"CopyBitmap", "bb", CALL(CopyBitmap({h[0]}, nullptr, {h[1]}, nullptr))},
    {"ResizeBitmap", "b", CALL(ResizeBitmap({h[0]}, 2, 2, 1)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"TransformBitmap", "b", CALL(TransformBitmap({h[0]}, 6)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"RotateBitmap", "b", CALL(RotateBitmap({h[0]}, 1)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"FlipBitmap", "b", CALL(FlipBitmap({h[0]}, 4)), 0, Made<HGBITMAP, DeleteBitmap>},
    {"CanvasToBitmap", "c", CALL(CanvasToBitmap({h[0]})), 0, MadeOf<HGBITMAP, DeleteBitmap, HGCANVAS>},

    {"CreateTexture", "", CALL(CreateTexture(5, 5)), 0, Made<HGTEXTURE, DeleteTexture>},
    {"CreateTextureEx", "", CALL(CreateTextureEx(5, 5, 8, 16)), 0, Made<HGTEXTURE, DeleteTexture>},
    {"GetTextureFromVelCanvas", "", CALL(TextureOfVelCanvas()), 0, Made<HGTEXTURE, DeleteTexture>},
    {"DeleteTexture", "t", CALL((DeleteTexture({h[0]}), 0)), 0, IsGone<HGTEXTURE>},
    {"ReleaseTexture", "t", CALL((ReleaseTexture({h[0]}), 0)), 0, IsGone<HGTEXTURE>},
    {"GetTexture", "c", CALL(GetTexture({h[0]})), 0, Made<HGTEXTURE, DeleteTexture>},
    {"GetTextureHandle", "t", CALL(GetTextureHandle({h[0]}))},
    {"GetTextureSize", "t", CALL(GetTextureSize({h[0]}, &out.size))},
    {"LockTextureBits", "t", CALL(LockTextureBits({h[0]}, &out.view, &kRect) && UnlockTextureBits({h[0]}))},
    {"LockTextureBitsEx", "t", CALL(LockTextureBitsEx({h[0]}, &out.view, nullptr))},
    {"UnlockTextureBits", "t", CALL(UnlockTextureBits({h[0]}))},
    {"GetTextureFilter", "t", CALL(GetTextureFilter({h[0]}, &out.word))},
    {"SetTextureFilter", "t", CALL(SetTextureFilter({h[0]}, 0x02000000))},
    {"GetTextureBitsPixel", "t", CALL(GetTextureBitsPixel({h[0]}, &out.byte))},
    {"SetTextureMode", "t", CALL(SetTextureMode({h[0]}, &kMode))},
    {"GetTextureMode", "t", CALL(GetTextureMode({h[0]}, &out.mode))},
    {"SetTextureSlice", "t", CALL(SetTextureSlice({h[0]}, 1, &kRect))},
    {"SetTextureCurSlice", "t", CALL(SetTextureCurSlice({h[0]}, 0)), 0xFFFFFFFF},
    {"GetTextureCurSlice", "t", CALL(GetTextureCurSlice({h[0]}, &out.rect))},
    {"GetTextureSliceCount", "t", CALL(GetTextureSliceCount({h[0]})), 0xFFFFFFFF},
    {"CanvasToTexture", "c", CALL(CanvasToTexture({h[0]})), 0, MadeOf<HGTEXTURE, DeleteTexture, HGCANVAS>},
    {"BitmapToTexture", "b", CALL(BitmapToTexture({h[0]})), 0, MadeOf<HGTEXTURE, DeleteTexture, HGBITMAP>},
    {"CopyTexture", "tt", CALL(CopyTexture({h[0]}, nullptr, {h[1]}, nullptr))},
    {"ResizeTexture", "t", CALL(ResizeTexture({h[0]}, 2, 2, 1)), 0, Made<HGTEXTURE, DeleteTexture>},
    {"TransformTexture", "t", CALL(TransformTexture({h[0]}, 6)), 0, Made<HGTEXTURE, DeleteTexture>},
    {"RotateTexture", "t", CALL(RotateTexture({h[0]}, 1)), 0, Made<HGTEXTURE, DeleteTexture>},
    {"FlipTexture", "t", CALL(FlipTexture({h[0]}, 4)), 0, Made<HGTEXTURE, DeleteTexture>},

    {"CreateCanvas", "c", CALL(TakeFilter(CreateCanvas(2, 2, {h[0]})))},
    {"CreateSystemCanvas", "c", CALL(TakeFilter(CreateSystemCanvas(2, 2, {h[0]})))},
    {"CreateCanvasFromDC", "", CALL(CreateCanvasFromDC(nullptr)), 0, Made<HGCANVAS, DeleteCanvas>},
    {"DeleteCanvas", "c", CALL((DeleteCanvas({h[0]}), 0)), 0, IsGone<HGCANVAS>},
    // A handle of another type is answered with its type bits.
    {"ReleaseCanvas", "p",
     CALL(ReleaseCanvas({h[0]}) != ((h[0] & 0xFF0000) == 0x10000 ? 0 : h[0] & 0xFF0000)), 0, IsGone<HGCANVAS>},
    {"LockCanvasBits", "c", CALL(LockCanvasBits({h[0]}, &out.view, &kRect) && UnlockCanvasBits({h[0]}))},
    {"LockCanvasBitsEx", "c", CALL(LockCanvasBitsEx({h[0]}, &out.view, nullptr))},
    {"UnlockCanvasBits", "c", CALL(UnlockCanvasBits({h[0]}))},
    {"GetCanvasHandle", "c", CALL(GetCanvasHandle({h[0]}))},
    {"GetCanvasSize", "c", CALL(GetCanvasSize({h[0]}, &out.size))},
    {"SetViewportOrg", "c", CALL(SetViewportOrg({h[0]}, 7, 8, &out.point))},
    {"GetViewportOrg", "c", CALL(GetViewportOrg({h[0]}, &out.point))},
    {"SetWindowOrg", "c", CALL(SetWindowOrg({h[0]}, 7, 8, &out.point))},
    {"GetWindowOrg", "c", CALL(GetWindowOrg({h[0]}, &out.point))},
    {"SetCanvasWindow", "c", CALL(SetCanvasWindow({h[0]}, nullptr))},
    {"GetCanvasWindow", "c", CALL(GetCanvasWindow({h[0]}))},
    {"SetCanvasParent", "cc", CALL(SetCanvasParent({h[0]}, {h[1]}))},
    {"GetCanvasParent", "c", CALL(GetCanvasParent({h[0]})), 0, Made<HGCANVAS, ReleaseCanvas>},
    {"GetCanvasFilter", "c", CALL(GetCanvasFilter({h[0]}, &out.word))},
    {"SetCanvasFilter", "c", CALL(SetCanvasFilter({h[0]}, 0x02000000))},
    {"SetCanvasBkColor", "c", CALL(SetCanvasBkColor({h[0]}, 1, &out.word))},
    {"GetCanvasBkColor", "c", CALL(GetCanvasBkColor({h[0]}, &out.word))},
    {"SetCanvasClipRect", "c", CALL(SetCanvasClipRect({h[0]}, &kRect))},
    {"IntersectCanvasClipRect", "c", CALL(IntersectCanvasClipRect({h[0]}, &kRect))},
    {"GetCanvasClipRect", "c", CALL(GetCanvasClipRect({h[0]}, &out.rect))},
    {"GetBitmap", "c", CALL(GetBitmap({h[0]})), 0, Made<HGBITMAP, ReleaseBitmap>},

    {"FillSolidRect", "c", CALL(FillSolidRect({h[0]}, 0xFF112233, &kRect))},
    {"FillSolidRectEx", "c", CALL(FillSolidRectEx({h[0]}, 0xFF112233, &kRect, 0))},
    {"FillPreMulColorRectEx", "c", CALL(FillPreMulColorRectEx({h[0]}, 0xFF112233, &kRect, 0))},
    {"FillGradualRect", "c", CALL(FillGradualRect({h[0]}, 0xFF112233, 0xFF112233, &kRect, 1))},

    {"GeoRectangle", "c", CALL(GeoRectangle({h[0]}, &kRect, 0xFF112233, 0xFF445566, 1))},
    {"GeoRoundRect", "c", CALL(GeoRoundRect({h[0]}, &kRect, 0xFF112233, 0xFF445566, 1, 1))},
    {"GeoRectangleEx", "c", CALL(GeoRectangleEx({h[0]}, &kGeoRect, &kGeoStyle, 0))},
    {"GeoRoundRectEx", "c", CALL(GeoRoundRectEx({h[0]}, &kGeoRect, &kGeoStyle, 0))},
    {"GeoRectFocusEx", "c", CALL(GeoRectFocusEx({h[0]}, &kGeoRect, 0xFF112233, 1, 0, 1, 1))},
    {"DrawShadows", "c", CALL(DrawShadows({h[0]}, &kRect, nullptr, 0))},

    {"DrawBitmap", "cb", CALL(DrawBitmap({h[0]}, &kRect, {h[1]}, 1))},
    {"DrawBitmapEx", "cb", CALL(DrawBitmapEx({h[0]}, &kRect, {h[1]}, 1, 255))},
    {"DrawBitmapRectEx", "cb", CALL(DrawBitmapRectEx({h[0]}, &kRect, {h[1]}, &kRect, 1, 255))},
    {"DrawTexture", "ct", CALL(DrawTexture({h[0]}, &kRect, {h[1]}, 1))},
    {"DrawTextureEx", "ct", CALL(DrawTextureEx({h[0]}, &kRect, {h[1]}, 1, 255, 1.0f, 0))},
    {"DrawTextureCenter", "ct", CALL(DrawTextureCenter({h[0]}, &kRect, {h[1]}, nullptr, 1, 255))},
    // These two give 0 always.
    {"DrawTextureTile", "ct", CALL(DrawTextureTile({h[0]}, &kRect, {h[1]}, nullptr, 1, 255, 0, 1.0f)), 0, Always},
    {"DrawTextureTopTile", "ct", CALL(DrawTextureTopTile({h[0]}, &kRect, {h[1]}, nullptr, &kMargins, 1, 255)), 0,
     Always},
    {"DrawTexture9Grid", "ct",
     CALL(DrawTexture9Grid({h[0]}, &kRect, {h[1]}, nullptr, &kMargins, 1, 0, 255, 0, 1.0f, 0))},

    {"MixCanvas", "cc", CALL(MixCanvas({h[0]}, &kRect, {h[1]}, &kRect, 128))},
    {"MixCanvasWithColor", "c", CALL(MixCanvasWithColor({h[0]}, &kRect, 0x112233, 128))},
    {"BlendCanvas", "cc", CALL(BlendCanvas({h[0]}, &kRect, {h[1]}, &kRect, 255))},
    {"GdiTransCanvas", "c",
     [](const Values &h) {
         static const Dib dib(4, 4);
         static const MemoryDC dc(dib.Handle());
         return Number(GdiTransCanvas(dc, &kRect, {h[0]}, &kRect, 255));
     }},
    {"CanvasScroll", "c", CALL(CanvasScroll({h[0]}, 0, 1))},
    {"DrawModulation", "cb", CALL(DrawModulation({h[0]}, 0, 0, {h[1]}, &kRect, 0xFF112233))},

    {"ColorizeTexture", "t", CALL(ColorizeTexture({h[0]}, 0.5f, 0, 0))},
    {"BlurBitmap", "bb", CALL(BlurBitmap({h[0]}, {h[1]}))},
    {"BlurBitmapEx", "bb", CALL(BlurBitmapEx({h[0]}, &kRect, {h[1]}, &kRect))},
    {"BlurTexture", "tt", CALL(BlurTexture({h[0]}, {h[1]}))},
    {"BlurTextureEx", "tt", CALL(BlurTextureEx({h[0]}, &kRect, {h[1]}, &kRect))},
    {"GaussianBlurBitmap", "bb", CALL(GaussianBlurBitmap({h[0]}, {h[1]}))},
    {"GaussianBlurTexture", "tt", CALL(GaussianBlurTexture({h[0]}, {h[1]}))},
    {"GaussianBlurCanvas", "cc", CALL(GaussianBlurCanvas({h[0]}, &kRect, {h[1]}, &kRect))},
    {"GrayBitmap", "b", CALL(GrayBitmap({h[0]}))},
    {"GrayTexture", "t", CALL(GrayTexture({h[0]}))},
    {"NormalizeBitmap", "b", CALL(NormalizeBitmap({h[0]}))},
    {"NormalizeTexture", "t", CALL(NormalizeTexture({h[0]}))},
    {"InvertBitmap", "b", CALL(InvertBitmap({h[0]}))},
    {"InvertTexture", "t", CALL(InvertTexture({h[0]}))},
    {"TranslateTexture", "t", CALL(TranslateTexture({h[0]}, 0, 0xFF112233))},
    {"ShuffleBitmap", "b", CALL(ShuffleBitmap({h[0]}, 6))},
    {"ShuffleTexture", "t", CALL(ShuffleTexture({h[0]}, 6))},
    {"ShuffleBitmapEx", "b", CALL(ShuffleBitmapEx({h[0]}, &kRect, 1))},
    {"ShuffleTextureEx", "t", CALL(ShuffleTextureEx({h[0]}, &kRect, 1))},
    {"LightBitmap", "b", CALL(LightBitmap({h[0]}))},
    {"LightTexture", "t", CALL(LightTexture({h[0]}))},
    {"LightTextureEx", "t", CALL(LightTextureEx({h[0]}, &kRect))},
    {"CreateTextureRgn", "t", CALL(CreateTextureRgn({h[0]}, &kRect)), 0,
     [](uint64_t result, const Values &) {
         return DeleteObject(reinterpret_cast<HGDIOBJ>(static_cast<uintptr_t>(result))) != 0;
     }},

    {"DrawPoint", "c", CALL(DrawPoint({h[0]}, 1, 1))},
    {"DrawLine", "c", CALL(DrawLine({h[0]}, 0, 0, 2, 2))},
    {"DrawRectangle", "c", CALL(DrawRectangle({h[0]}, 0, 0, 2, 2))},
    {"DrawRoundRect", "c", CALL(DrawRoundRect({h[0]}, 0, 0, 3, 3, 1, 1))},
    {"DrawCircle", "c", CALL(DrawCircle({h[0]}, 1, 1, 1))},
    {"DrawArc", "c", CALL(DrawArc({h[0]}, 0, 0, 3, 3, 0, 90, 1))},
    {"DrawEllipse", "c", CALL(DrawEllipse({h[0]}, 1, 1, 2, 1))},
    {"DrawPolygon", "c", CALL(DrawPolygon({h[0]}, 3, kPoints))},
    {"DrawColor", "c", CALL(DrawColor({h[0]}, 0xFF112233))},
    {"DrawBezier", "c", CALL(DrawBezier({h[0]}, 0, 0, 1, 2, 2, 1, 3, 3))},
    {"DrawPath", "c",
     [](const Values &h) {
         return WithPath(
             [&](velPath *path) { return PathAddRectangle(path, 0, 0, 2, 2) ? DrawPath({h[0]}, path) : 0; });
     }},
    // Without an animation it gives 0 always.
    {"DrawLottie", "c", CALL(DrawLottie({h[0]}, nullptr, 0, 0, 0, 2, 2)), 0, Always},
    // Without a font it draws nothing and gives 0.
    {"DrawPosTextByGlyphs", "c", CALL(DrawPosTextByGlyphs({h[0]}, &kGlyph, 1, &kPosition)), 0, Always},
    {"Save", "c", CALL(Save({h[0]}))},
    {"Restore", "c", CALL(Restore({h[0]}))},
    {"SetDrawStyle", "c", CALL(SetDrawStyle({h[0]}, 0))},
    {"SetColor", "c", CALL(SetColor({h[0]}, 0xFF445566))},
    {"SetSmooth", "c", CALL(SetSmooth({h[0]}, 0))},
    {"SetBlendMode", "c", CALL(SetBlendMode({h[0]}, 3))},
    {"GetBlendMode", "c", CALL(GetBlendMode({h[0]})), 0xFFFFFFFF},
    {"SetBlendValue", "c", CALL(SetBlendValue({h[0]}, 99))},
    {"GetBlendValue", "c", CALL(GetBlendValue({h[0]})), 255},
    {"SetStrokeCap", "c", CALL(SetStrokeCap({h[0]}, 1))},
    {"SetStrokeJoin", "c", CALL(SetStrokeJoin({h[0]}, 1))},
    {"SetGradient", "c",
     [](const Values &h) {
         return WithGradient(GradientCreateLinear(0, 0, 1, 1),
                             [&](velGradient *gradient) { return SetGradient({h[0]}, gradient); });
     }},
    {"SetStrokeWidth", "c", CALL(SetStrokeWidth({h[0]}, 5.0f))},
    {"GetStrokeWidth", "c", CALL(GetStrokeWidth({h[0]}) == 1.0f), 1},
    {"SetDashStyle", "c", CALL(SetDashStyle({h[0]}, 2))},
    {"SetDashPattern", "c", CALL(SetDashPattern({h[0]}, kDashes, 2, 0.0f))},
    {"SetFontFaceName", "c", CALL(SetFontFaceName({h[0]}, kFontName))},
    {"SetFontStyle", "c", CALL(SetFontStyle({h[0]}, 1))},
    {"SetTextSize", "c", CALL(SetTextSize({h[0]}, 9.0f))},

    {"SetStretchKernelMode", "",
     [](const Values &) {
         const int set = SetStretchKernelMode(2);
         SetStretchKernelMode(1);
         return Number(set);
     }},
    {"GetStretchKernelMode", "", CALL(GetStretchKernelMode())},
    {"ARGBtoAHSL", "", CALL(ARGBtoAHSL(0xFF112233))},
    {"AHSLtoARGB", "", CALL(AHSLtoARGB(0xFF112233))},
    {"RGBtoHSL", "", CALL(RGBtoHSL(&hsl, &rgb))},
    {"HSLtoRGB", "", CALL(HSLtoRGB(&rgb, &hsl))},
    {"ARGBColorize", "", CALL(ARGBColorize(0xFF112233, 0.5f, 0, 0))},
    {"AHSLColorize", "", CALL(AHSLColorize(0xFF112233, 0.5f, 0, 0))},
    {"RGBColorize", "", CALL(RGBColorize(&rgb, &rgb, 0.5f, 0, 0))},
    {"HSLColorize", "", CALL(HSLColorize(&hsl, &hsl, 0.5f, 0, 0))},

    {"PathCreate", "", ON_PATH(path != nullptr)},
    {"PathDestroy", "", CALL(PathDestroy(PathCreate()))},
    {"PathBegin", "", ON_PATH(PathBegin(path))},
    {"PathClose", "", ON_PATH(PathClose(path))},
    {"PathSetFillType", "", ON_PATH(PathSetFillType(path, 1))},
    {"PathMoveTo", "", ON_PATH(PathMoveTo(path, 2, 2))},
    {"PathLineTo", "", ON_PATH(PathLineTo(path, 3, 2))},
    {"PathArcTo", "", ON_PATH(PathArcTo(path, 0, 0, 4, 4, 0, 270, 0))},
    {"PathOvalCurveTo", "", ON_PATH(PathOvalCurveTo(path, 2, 1, 0, 1, 1, 3, 3))},
    {"PathBezierCurveTo", "", ON_PATH(PathBezierCurveTo(path, 1, 2, 3, 4, 5, 6))},
    {"PathQuadraticCurveTo", "", ON_PATH(PathQuadraticCurveTo(path, 1, 2, 3, 4))},
    {"PathAddArc", "", ON_PATH(PathAddArc(path, 0, 0, 4, 4, 0, 270))},
    {"PathAddRectangle", "", ON_PATH(PathAddRectangle(path, 0, 0, 2, 2))},
    {"PathAddCircle", "", ON_PATH(PathAddCircle(path, 2, 2, 2))},
    {"PathAddEllipse", "", ON_PATH(PathAddEllipse(path, 2, 2, 2, 1))},
    {"PathGetBounds", "", ON_PATH(PathAddCircle(path, 2, 2, 2) ? PathGetBounds(path, &bounds) : 0)},
    {"GradientCreateLinear", "", CALL(GradientDestroy(GradientCreateLinear(0, 0, 1, 1)))},
    {"GradientCreateRadial", "", CALL(GradientDestroy(GradientCreateRadial(0, 0, 1)))},
    {"GradientDestroy", "", CALL(GradientDestroy(GradientCreateLinear(0, 0, 1, 1)))},
    {"GradientAddColorStop", "",
     [](const Values &) {
         return WithGradient(GradientCreateLinear(0, 0, 1, 1),
                             [](velGradient *gradient) { return GradientAddColorStop(gradient, 0.5f, 0xFF112233); });
     }},
};

}  // namespace

const std::vector<HandleCall> &HandleCalls() {
    static const std::vector<HandleCall> calls(std::begin(kHandleCalls), std::end(kHandleCalls));
    return calls;
}

}  // namespace lacquer
