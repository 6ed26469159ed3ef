// The table of exported functions that take handles.

#include "handle_calls.h"

#include <iterator>

#include "handle_world.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

using Values = HandleCall::Values;

constexpr RECT kRect{0, 0, 2, 2}, kMargins{1, 1, 1, 1};

uint64_t Number(int result) { return static_cast<uint32_t>(result); }
uint64_t Number(const void *result) { return reinterpret_cast<uintptr_t>(result); }

bool MadeBitmap(uint64_t result, const Values &) {
    const HGBITMAP made{static_cast<uintptr_t>(result)};
    const bool worked = result >> 32 == 0 && IsLive(made);
    DeleteBitmap(made);
    return worked;
}
bool MadeTexture(uint64_t result, const Values &) {
    const HGTEXTURE made{static_cast<uintptr_t>(result)};
    const bool worked = result >> 32 == 0 && IsLive(made);
    DeleteTexture(made);
    return worked;
}
bool BitmapIsGone(uint64_t, const Values &handles) { return !IsLive(HGBITMAP{handles[0]}); }
bool TextureIsGone(uint64_t, const Values &handles) { return !IsLive(HGTEXTURE{handles[0]}); }
bool CanvasIsGone(uint64_t, const Values &handles) { return !IsLive(HGCANVAS{handles[0]}); }
bool Always(uint64_t, const Values &) { return true; }

/// For creation with a template: a wrong one is ignored, a right one lends its filter word.
uint64_t TakeFilter(HGCANVAS made) {
    EXPECT_TRUE(made);
    DWORD filter = 0xFFFFFFFF;
    GetCanvasFilter(made, &filter);
    DeleteCanvas(made);
    return filter;
}

const HandleCall kHandleCalls[] = {
    {"e_DelHandleEntry", "e", [](const Values &h) { return Number(e_DelHandleEntry(nullptr, static_cast<DWORD>(h[0]))); }},

    {"DeleteBitmap", "b", [](const Values &h) -> uint64_t { return DeleteBitmap({h[0]}), 0; }, 0, BitmapIsGone},
    {"ReleaseBitmap", "a", [](const Values &h) -> uint64_t { return ReleaseBitmap({h[0]}), 0; }, 0, BitmapIsGone},
    {"GetBitmapHandle", "b", [](const Values &h) { return Number(GetBitmapHandle({h[0]})); }},
    {"GetBitmapSize", "b", [](const Values &h) { return Number(GetBitmapSize({h[0]}, &out.size)); }},
    {"LockBitmapBits", "b", [](const Values &h) { return Number(LockBitmapBits({h[0]}, &out.view, nullptr)); }},
    {"LockBitmapBitsEx", "b", [](const Values &h) { return Number(LockBitmapBitsEx({h[0]}, &out.view, nullptr)); }},
    {"UnlockBitmapBits", "b", [](const Values &h) { return Number(UnlockBitmapBits({h[0]})); }},
    {"GetBitmapFilter", "b", [](const Values &h) { return Number(GetBitmapFilter({h[0]}, &out.word)); }},
    {"SetBitmapFilter", "b", [](const Values &h) { return Number(SetBitmapFilter({h[0]}, 0x02000000)); }},
    {"GetBitmapBitsPixel", "b", [](const Values &h) { return Number(GetBitmapBitsPixel({h[0]}, &out.byte)); }},
    {"CopyBitmap", "bb", [](const Values &h) { return Number(CopyBitmap({h[0]}, nullptr, {h[1]}, nullptr)); }},
    {"ResizeBitmap", "b", [](const Values &h) -> uint64_t { return ResizeBitmap({h[0]}, 2, 2, 1).value; }, 0, MadeBitmap},
    {"TransformBitmap", "b", [](const Values &h) -> uint64_t { return TransformBitmap({h[0]}, 6).value; }, 0, MadeBitmap},
    {"RotateBitmap", "b", [](const Values &h) -> uint64_t { return RotateBitmap({h[0]}, 1).value; }, 0, MadeBitmap},
    {"FlipBitmap", "b", [](const Values &h) -> uint64_t { return FlipBitmap({h[0]}, 4).value; }, 0, MadeBitmap},
    {"CanvasToBitmap", "c", [](const Values &h) -> uint64_t { return CanvasToBitmap({h[0]}).value; }, 0,
     [](uint64_t result, const Values &h) { return MadeBitmap(result, h) && CanvasIsGone(result, h); }},

    {"DeleteTexture", "t", [](const Values &h) -> uint64_t { return DeleteTexture({h[0]}), 0; }, 0, TextureIsGone},
    {"ReleaseTexture", "t", [](const Values &h) -> uint64_t { return ReleaseTexture({h[0]}), 0; }, 0, TextureIsGone},
    {"GetTexture", "c", [](const Values &h) -> uint64_t { return GetTexture({h[0]}).value; }, 0, MadeTexture},
    {"GetTextureHandle", "t", [](const Values &h) { return Number(GetTextureHandle({h[0]})); }},
    {"GetTextureSize", "t", [](const Values &h) { return Number(GetTextureSize({h[0]}, &out.size)); }},
    {"LockTextureBits", "t", [](const Values &h) { return Number(LockTextureBits({h[0]}, &out.view, nullptr)); }},
    {"LockTextureBitsEx", "t", [](const Values &h) { return Number(LockTextureBitsEx({h[0]}, &out.view, nullptr)); }},
    {"UnlockTextureBits", "t", [](const Values &h) { return Number(UnlockTextureBits({h[0]})); }},
    {"GetTextureFilter", "t", [](const Values &h) { return Number(GetTextureFilter({h[0]}, &out.word)); }},
    {"SetTextureFilter", "t", [](const Values &h) { return Number(SetTextureFilter({h[0]}, 0x02000000)); }},
    {"GetTextureBitsPixel", "t", [](const Values &h) { return Number(GetTextureBitsPixel({h[0]}, &out.byte)); }},
    {"SetTextureMode", "t",
     [](const Values &h) {
         const TextureMode mode{5, 5, kRect};
         return Number(SetTextureMode({h[0]}, &mode));
     }},
    {"GetTextureMode", "t", [](const Values &h) { return Number(GetTextureMode({h[0]}, &out.mode)); }},
    {"SetTextureSlice", "t", [](const Values &h) -> uint64_t { return SetTextureSlice({h[0]}, 1, &kRect); }},
    {"SetTextureCurSlice", "t", [](const Values &h) { return Number(SetTextureCurSlice({h[0]}, 0)); }, 0xFFFFFFFF},
    {"GetTextureCurSlice", "t", [](const Values &h) { return Number(GetTextureCurSlice({h[0]}, &out.rect)); }},
    {"GetTextureSliceCount", "t", [](const Values &h) -> uint64_t { return GetTextureSliceCount({h[0]}); }, 0xFFFFFFFF},
    {"CanvasToTexture", "c", [](const Values &h) -> uint64_t { return CanvasToTexture({h[0]}).value; }, 0,
     [](uint64_t result, const Values &h) { return MadeTexture(result, h) && CanvasIsGone(result, h); }},
    {"BitmapToTexture", "b", [](const Values &h) -> uint64_t { return BitmapToTexture({h[0]}).value; }, 0,
     [](uint64_t result, const Values &h) { return MadeTexture(result, h) && BitmapIsGone(result, h); }},
    {"CopyTexture", "tt", [](const Values &h) { return Number(CopyTexture({h[0]}, nullptr, {h[1]}, nullptr)); }},
    {"ResizeTexture", "t", [](const Values &h) -> uint64_t { return ResizeTexture({h[0]}, 2, 2, 1).value; }, 0, MadeTexture},
    {"TransformTexture", "t", [](const Values &h) -> uint64_t { return TransformTexture({h[0]}, 6).value; }, 0, MadeTexture},
    {"RotateTexture", "t", [](const Values &h) -> uint64_t { return RotateTexture({h[0]}, 1).value; }, 0, MadeTexture},
    {"FlipTexture", "t", [](const Values &h) -> uint64_t { return FlipTexture({h[0]}, 4).value; }, 0, MadeTexture},

    {"CreateCanvas", "c", [](const Values &h) { return TakeFilter(CreateCanvas(2, 2, {h[0]})); }},
    {"CreateSystemCanvas", "c", [](const Values &h) { return TakeFilter(CreateSystemCanvas(2, 2, {h[0]})); }},
    {"DeleteCanvas", "c", [](const Values &h) -> uint64_t { return DeleteCanvas({h[0]}), 0; }, 0, CanvasIsGone},
    {"ReleaseCanvas", "p",
     [](const Values &h) -> uint64_t {
         // A handle of another type is answered with its type bits.
         const uintptr_t type = h[0] & 0xFF0000;
         return ReleaseCanvas({h[0]}) != (type == 0x10000 ? 0 : type);
     },
     0, CanvasIsGone},
    {"LockCanvasBits", "c", [](const Values &h) { return Number(LockCanvasBits({h[0]}, &out.view, nullptr)); }},
    {"LockCanvasBitsEx", "c", [](const Values &h) { return Number(LockCanvasBitsEx({h[0]}, &out.view, nullptr)); }},
    {"UnlockCanvasBits", "c", [](const Values &h) { return Number(UnlockCanvasBits({h[0]})); }},
    {"GetCanvasHandle", "c", [](const Values &h) { return Number(GetCanvasHandle({h[0]})); }},
    {"GetCanvasSize", "c", [](const Values &h) { return Number(GetCanvasSize({h[0]}, &out.size)); }},
    {"SetViewportOrg", "c", [](const Values &h) { return Number(SetViewportOrg({h[0]}, 7, 8, &out.point)); }},
    {"GetViewportOrg", "c", [](const Values &h) { return Number(GetViewportOrg({h[0]}, &out.point)); }},
    {"SetWindowOrg", "c", [](const Values &h) { return Number(SetWindowOrg({h[0]}, 7, 8, &out.point)); }},
    {"GetWindowOrg", "c", [](const Values &h) { return Number(GetWindowOrg({h[0]}, &out.point)); }},
    {"SetCanvasWindow", "c", [](const Values &h) { return Number(SetCanvasWindow({h[0]}, nullptr)); }},
    {"GetCanvasWindow", "c", [](const Values &h) { return Number(GetCanvasWindow({h[0]})); }},
    {"SetCanvasParent", "cc", [](const Values &h) { return Number(SetCanvasParent({h[0]}, {h[1]})); }},
    {"GetCanvasParent", "c", [](const Values &h) -> uint64_t { return GetCanvasParent({h[0]}).value; }, 0,
     [](uint64_t result, const Values &) {
         return result >> 32 == 0 && ReleaseCanvas({static_cast<uintptr_t>(result)}) == 1;
     }},
    {"GetCanvasFilter", "c", [](const Values &h) { return Number(GetCanvasFilter({h[0]}, &out.word)); }},
    {"SetCanvasFilter", "c", [](const Values &h) { return Number(SetCanvasFilter({h[0]}, 0x02000000)); }},
    {"SetCanvasBkColor", "c", [](const Values &h) { return Number(SetCanvasBkColor({h[0]}, 1, &out.word)); }},
    {"GetCanvasBkColor", "c", [](const Values &h) { return Number(GetCanvasBkColor({h[0]}, &out.word)); }},
    {"SetCanvasClipRect", "c", [](const Values &h) { return Number(SetCanvasClipRect({h[0]}, &kRect)); }},
    {"IntersectCanvasClipRect", "c", [](const Values &h) { return Number(IntersectCanvasClipRect({h[0]}, &kRect)); }},
    {"GetCanvasClipRect", "c", [](const Values &h) { return Number(GetCanvasClipRect({h[0]}, &out.rect)); }},
    {"GetBitmap", "c", [](const Values &h) -> uint64_t { return GetBitmap({h[0]}).value; }, 0,
     [](uint64_t result, const Values &) {
         const HGBITMAP alias{static_cast<uintptr_t>(result)};
         const bool worked = result >> 32 == 0 && IsLive(alias);
         ReleaseBitmap(alias);
         return worked;
     }},

    {"FillSolidRect", "c", [](const Values &h) { return Number(FillSolidRect({h[0]}, 0xFF112233, &kRect)); }},
    {"FillSolidRectEx", "c", [](const Values &h) { return Number(FillSolidRectEx({h[0]}, 0xFF112233, &kRect, 0)); }},
    {"FillPreMulColorRectEx", "c",
     [](const Values &h) { return Number(FillPreMulColorRectEx({h[0]}, 0xFF112233, &kRect, 0)); }},
    {"FillGradualRect", "c",
     [](const Values &h) { return Number(FillGradualRect({h[0]}, 0xFF112233, 0xFF112233, &kRect, 1)); }},

    {"DrawBitmap", "cb", [](const Values &h) { return Number(DrawBitmap({h[0]}, &kRect, {h[1]}, 1)); }},
    {"DrawBitmapEx", "cb", [](const Values &h) { return Number(DrawBitmapEx({h[0]}, &kRect, {h[1]}, 1, 255)); }},
    {"DrawBitmapRectEx", "cb",
     [](const Values &h) { return Number(DrawBitmapRectEx({h[0]}, &kRect, {h[1]}, &kRect, 1, 255)); }},
    {"DrawTexture", "ct", [](const Values &h) { return Number(DrawTexture({h[0]}, &kRect, {h[1]}, 1)); }},
    {"DrawTextureEx", "ct",
     [](const Values &h) { return Number(DrawTextureEx({h[0]}, &kRect, {h[1]}, 1, 255, 1.0f, 0)); }},
    {"DrawTextureCenter", "ct",
     [](const Values &h) { return Number(DrawTextureCenter({h[0]}, &kRect, {h[1]}, nullptr, 1, 255)); }},
    // These two give 0 always.
    {"DrawTextureTile", "ct",
     [](const Values &h) { return Number(DrawTextureTile({h[0]}, &kRect, {h[1]}, nullptr, 1, 255, 0, 1.0f)); }, 0, Always},
    {"DrawTextureTopTile", "ct",
     [](const Values &h) { return Number(DrawTextureTopTile({h[0]}, &kRect, {h[1]}, nullptr, &kMargins, 1, 255)); }, 0,
     Always},
    {"DrawTexture9Grid", "ct",
     [](const Values &h) {
         return Number(DrawTexture9Grid({h[0]}, &kRect, {h[1]}, nullptr, &kMargins, 1, 0, 255, 0, 1.0f, 0));
     }},

    {"MixCanvas", "cc", [](const Values &h) { return Number(MixCanvas({h[0]}, &kRect, {h[1]}, &kRect, 128)); }},
    {"MixCanvasWithColor", "c", [](const Values &h) { return Number(MixCanvasWithColor({h[0]}, &kRect, 0x112233, 128)); }},
    {"BlendCanvas", "cc", [](const Values &h) { return Number(BlendCanvas({h[0]}, &kRect, {h[1]}, &kRect, 255)); }},
    {"GdiTransCanvas", "c",
     [](const Values &h) {
         const Dib dib(4, 4);
         const MemoryDC dc(dib.Handle());
         return Number(GdiTransCanvas(dc, &kRect, {h[0]}, &kRect, 255));
     }},
    {"CanvasScroll", "c", [](const Values &h) { return Number(CanvasScroll({h[0]}, 0, 1)); }},
    {"DrawModulation", "cb", [](const Values &h) { return Number(DrawModulation({h[0]}, 0, 0, {h[1]}, &kRect, 0xFF112233)); }},

    {"ColorizeTexture", "t", [](const Values &h) { return Number(ColorizeTexture({h[0]}, 0.5f, 0, 0)); }},
    {"BlurBitmap", "bb", [](const Values &h) { return Number(BlurBitmap({h[0]}, {h[1]})); }},
    {"BlurBitmapEx", "bb", [](const Values &h) { return Number(BlurBitmapEx({h[0]}, &kRect, {h[1]}, &kRect)); }},
    {"BlurTexture", "tt", [](const Values &h) { return Number(BlurTexture({h[0]}, {h[1]})); }},
    {"BlurTextureEx", "tt", [](const Values &h) { return Number(BlurTextureEx({h[0]}, &kRect, {h[1]}, &kRect)); }},
    {"GaussianBlurBitmap", "bb", [](const Values &h) { return Number(GaussianBlurBitmap({h[0]}, {h[1]})); }},
    {"GaussianBlurTexture", "tt", [](const Values &h) { return Number(GaussianBlurTexture({h[0]}, {h[1]})); }},
    {"GaussianBlurCanvas", "cc",
     [](const Values &h) { return Number(GaussianBlurCanvas({h[0]}, &kRect, {h[1]}, &kRect)); }},
    {"GrayBitmap", "b", [](const Values &h) { return Number(GrayBitmap({h[0]})); }},
    {"GrayTexture", "t", [](const Values &h) { return Number(GrayTexture({h[0]})); }},
    {"NormalizeBitmap", "b", [](const Values &h) { return Number(NormalizeBitmap({h[0]})); }},
    {"NormalizeTexture", "t", [](const Values &h) { return Number(NormalizeTexture({h[0]})); }},
    {"InvertBitmap", "b", [](const Values &h) { return Number(InvertBitmap({h[0]})); }},
    {"InvertTexture", "t", [](const Values &h) { return Number(InvertTexture({h[0]})); }},
    {"TranslateTexture", "t", [](const Values &h) { return Number(TranslateTexture({h[0]}, 0, 0xFF112233)); }},
    {"ShuffleBitmap", "b", [](const Values &h) { return Number(ShuffleBitmap({h[0]}, 6)); }},
    {"ShuffleTexture", "t", [](const Values &h) { return Number(ShuffleTexture({h[0]}, 6)); }},
    {"ShuffleBitmapEx", "b", [](const Values &h) { return Number(ShuffleBitmapEx({h[0]}, &kRect, 1)); }},
    {"ShuffleTextureEx", "t", [](const Values &h) { return Number(ShuffleTextureEx({h[0]}, &kRect, 1)); }},
    {"LightBitmap", "b", [](const Values &h) { return Number(LightBitmap({h[0]})); }},
    {"LightTexture", "t", [](const Values &h) { return Number(LightTexture({h[0]})); }},
    {"LightTextureEx", "t", [](const Values &h) { return Number(LightTextureEx({h[0]}, &kRect)); }},
    {"CreateTextureRgn", "t", [](const Values &h) { return Number(CreateTextureRgn({h[0]}, &kRect)); }, 0,
     [](uint64_t result, const Values &) {
         return DeleteObject(reinterpret_cast<HGDIOBJ>(static_cast<uintptr_t>(result))) != 0;
     }},

    {"DrawPoint", "c", [](const Values &h) { return Number(DrawPoint({h[0]}, 1, 1)); }},
    {"DrawLine", "c", [](const Values &h) { return Number(DrawLine({h[0]}, 0, 0, 2, 2)); }},
    {"DrawRectangle", "c", [](const Values &h) { return Number(DrawRectangle({h[0]}, 0, 0, 2, 2)); }},
    {"DrawRoundRect", "c", [](const Values &h) { return Number(DrawRoundRect({h[0]}, 0, 0, 3, 3, 1, 1)); }},
    {"DrawCircle", "c", [](const Values &h) { return Number(DrawCircle({h[0]}, 1, 1, 1)); }},
    {"DrawArc", "c", [](const Values &h) { return Number(DrawArc({h[0]}, 0, 0, 3, 3, 0, 90, 1)); }},
    {"DrawEllipse", "c", [](const Values &h) { return Number(DrawEllipse({h[0]}, 1, 1, 2, 1)); }},
    {"DrawPolygon", "c",
     [](const Values &h) {
         const POINT points[] = {{0, 0}, {3, 0}, {0, 3}};
         return Number(DrawPolygon({h[0]}, 3, points));
     }},
    {"DrawColor", "c", [](const Values &h) { return Number(DrawColor({h[0]}, 0xFF112233)); }},
    {"DrawBezier", "c", [](const Values &h) { return Number(DrawBezier({h[0]}, 0, 0, 1, 2, 2, 1, 3, 3)); }},
    {"DrawPath", "c",
     [](const Values &h) {
         velPath *path = PathCreate();
         PathAddRectangle(path, 0, 0, 2, 2);
         const int result = DrawPath({h[0]}, path);
         PathDestroy(path);
         return Number(result);
     }},
    // Without an animation it gives 0 always.
    {"DrawLottie", "c", [](const Values &h) { return Number(DrawLottie({h[0]}, nullptr, 0, 0, 0, 2, 2)); }, 0, Always},
    // Without a font it draws nothing and gives 0.
    {"DrawPosTextByGlyphs", "c",
     [](const Values &h) {
         const WORD glyph = 1;
         const velPointF position{0, 3};
         return Number(DrawPosTextByGlyphs({h[0]}, &glyph, 1, &position));
     },
     0, Always},
    {"Save", "c", [](const Values &h) { return Number(Save({h[0]})); }},
    {"Restore", "c", [](const Values &h) { return Number(Restore({h[0]})); }},
    {"SetDrawStyle", "c", [](const Values &h) { return Number(SetDrawStyle({h[0]}, 0)); }},
    {"SetColor", "c", [](const Values &h) { return Number(SetColor({h[0]}, 0xFF445566)); }},
    {"SetSmooth", "c", [](const Values &h) { return Number(SetSmooth({h[0]}, 0)); }},
    {"SetBlendMode", "c", [](const Values &h) { return Number(SetBlendMode({h[0]}, 3)); }},
    {"GetBlendMode", "c", [](const Values &h) -> uint64_t { return GetBlendMode({h[0]}); }, 0xFFFFFFFF},
    {"SetBlendValue", "c", [](const Values &h) { return Number(SetBlendValue({h[0]}, 99)); }},
    {"GetBlendValue", "c", [](const Values &h) -> uint64_t { return GetBlendValue({h[0]}); }, 255},
    {"SetStrokeCap", "c", [](const Values &h) { return Number(SetStrokeCap({h[0]}, 1)); }},
    {"SetStrokeJoin", "c", [](const Values &h) { return Number(SetStrokeJoin({h[0]}, 1)); }},
    {"SetGradient", "c",
     [](const Values &h) {
         velGradient *gradient = GradientCreateLinear(0, 0, 1, 1);
         const int result = SetGradient({h[0]}, gradient);
         GradientDestroy(gradient);
         return Number(result);
     }},
    {"SetStrokeWidth", "c", [](const Values &h) { return Number(SetStrokeWidth({h[0]}, 5.0f)); }},
    {"GetStrokeWidth", "c", [](const Values &h) -> uint64_t { return GetStrokeWidth({h[0]}) == 1.0f; }, 1},
    {"SetDashStyle", "c", [](const Values &h) { return Number(SetDashStyle({h[0]}, 2)); }},
    {"SetDashPattern", "c",
     [](const Values &h) {
         const float lengths[] = {1.0f, 2.0f};
         return Number(SetDashPattern({h[0]}, lengths, 2, 0.0f));
     }},
    {"SetFontFaceName", "c",
     [](const Values &h) {
         const WCHAR name[] = {'S', 'a', 'n', 's', 0};
         return Number(SetFontFaceName({h[0]}, name));
     }},
    {"SetFontStyle", "c", [](const Values &h) { return Number(SetFontStyle({h[0]}, 1)); }},
    {"SetTextSize", "c", [](const Values &h) { return Number(SetTextSize({h[0]}, 9.0f)); }},
};

}  // namespace

const std::vector<HandleCall> &HandleCalls() {
    static const std::vector<HandleCall> calls(std::begin(kHandleCalls), std::end(kHandleCalls));
    return calls;
}

}  // namespace lacquer
