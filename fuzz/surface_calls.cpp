// The rows of pixel objects: handles, bitmaps, textures, canvases, drawing, filters.

#include "kinds.h"

namespace fuzz {
namespace {

constexpr Group kGroup = kSurfaces;

/// What tells which rows of an object a caller reached by the handle table alone.
int ChooseEntryType(Call &call) {
    // Types of the library's own objects must name such objects; a type of 0 in the low byte could not be freed again.
    const int type = static_cast<int>(call.choices.Word());
    return (type & 0xFF) < 4 ? type | 4 : type;
}
using EntryType = Chosen<int, ChooseEntryType>;

int ChooseScrollX(Call &call) { return call.choices.Seldom(32) ? ChooseCoordinate(call) : 0; }
using ScrollX = Chosen<int, ChooseScrollX>;

struct Window {
    explicit Window(Call &call) : value(call.choices.Byte()) {}
    HWND Value() const { return reinterpret_cast<HWND>(value); }
    uintptr_t value;
};

void ChooseRadii(Call &call, float (&radii)[4]) {
    for (float &radius : radii) radius = ChooseLength(call) / 4;
}

GeoRect ChooseGeoRect(Call &call) {
    const float left = ChooseLength(call), top = ChooseLength(call);
    return {left, top, left + ChooseLength(call), top + ChooseLength(call)};
}

GeoStyle ChooseStyle(Call &call) {
    GeoStyle style{ChooseColour(call), ChooseColour(call), ChooseLength(call) / 8, {}};
    ChooseRadii(call, style.radii);
    return style;
}

ShadowStyle ChooseShadow(Call &call) {
    ShadowStyle style{ChooseColour(call),
                      ChooseInteger(call),
                      ChooseInteger(call),
                      ChooseLength(call) / 2,
                      ChooseLength(call) / 8,
                      {},
                      call.choices.Seldom(128) ? 1 : ChooseScale(call),
                      ChooseCode<4>(call)};
    ChooseRadii(call, style.radii);
    return style;
}

using Box = In<GeoRect, ChooseGeoRect>;
using Style = In<GeoStyle, ChooseStyle>;
using Shadows = List<ShadowStyle, ChooseShadow, 5>;

using Slices = List<RECT, ChooseRect, 5>;
using Mode = In<TextureMode, ChooseTextureMode>;
using Rgb = In<RGBRecord, ChooseRgb>;
using Hsl = In<HSLRecord, ChooseHsl>;
using BitmapAlias = Handle<HGBITMAP, Use::LentOnly>;
using CanvasAlias = Handle<HGCANVAS, Use::LentOnly>;
using DrawableBitmap = Drawable<HGBITMAP>;
using DrawableTexture = Drawable<HGTEXTURE>;

Entry MakeEntry(int type, int object) {
    static int objects[256];
    return {e_NewHandleEntry(nullptr, type, &objects[object & 255])};
}

/// The views that calls have locked and that are still valid are written.
struct LockedViews {
    explicit LockedViews(Call &call) : world(call.world), seed(call.choices.Byte()) {}
    std::tuple<World *, uint32_t> Value() const { return {&world, seed}; }
    World &world;
    uint32_t seed;
};
int WriteLocked(World *world, uint32_t seed) {
    for (const SurfaceView &view : world->views) world->PaintView(view, seed);
    return !world->views.empty();
}

}  // namespace

// A function that bitmaps and textures have under names of their own.
#define ON_SURFACES(before, after, ...) \
    CALL(before##Bitmap##after, Bitmap, __VA_ARGS__), CALL(before##Texture##after, Texture, __VA_ARGS__)

std::vector<Row> SurfaceCalls() {
    return {
        FOR_EACH(CALL, DeleteBitmap, GetBitmapHandle, GetBitmapSize, UnlockBitmapBits, GetBitmapFilter,
                 GetBitmapBitsPixel, CanvasToBitmap, DeleteTexture, ReleaseTexture, GetTexture, GetTextureFromVelCanvas,
                 GetTextureHandle, GetTextureSize, UnlockTextureBits, GetTextureFilter, GetTextureBitsPixel,
                 GetTextureMode, GetTextureCurSlice, GetTextureSliceCount, CanvasToTexture, BitmapToTexture,
                 CreateCanvasFromDC, DeleteCanvas, UnlockCanvasBits, GetCanvasHandle, GetCanvasSize, GetViewportOrg,
                 GetWindowOrg, GetCanvasWindow, SetCanvasParent, GetCanvasFilter, GetCanvasBkColor, SetCanvasClipRect,
                 IntersectCanvasClipRect, GetCanvasClipRect, GetStretchKernelMode, BlurBitmap, BlurTexture,
                 GaussianBlurBitmap, GaussianBlurTexture, GrayBitmap, GrayTexture, NormalizeBitmap, NormalizeTexture,
                 InvertBitmap, InvertTexture, LightBitmap, LightTexture, GetCanvasParent, GetBitmap),
        CALL_AS(e_NewHandleEntry, MakeEntry, EntryType, Integer),
        CALL_AS(e_DelHandleEntry, (+[](DWORD entry) { return e_DelHandleEntry(nullptr, entry); }), EndedEntry),
        CALL(WriteLocked, LockedViews),

        CALL(CreateSystemBitmap, Extent),
        CALL(CreateMemBitmap, Extent),
        CALL(CreateMemBitmapEx, Format),
        ON_SURFACES(Lock, Bits, View, Part),
        ON_SURFACES(Lock, BitsEx, View, Part),
        ON_SURFACES(Set, Filter, ModeWord),
        CALL(CopyBitmap, Bitmap, Part, Bitmap, Part),
        CALL(ResizeBitmap, DrawableBitmap, Extent, KernelMode),
        CALL(TransformBitmap, DrawableBitmap, Code<9>),
        CALL(RotateBitmap, DrawableBitmap, Code<5>),
        CALL(FlipBitmap, DrawableBitmap, Code<7>),

        CALL(CreateTexture, Extent),
        CALL(CreateTextureEx, Format),
        CALL(SetTextureMode, Texture, Mode),
        CALL_AS(SetTextureSlice, (+[](HGTEXTURE texture, const RECT *rects, int count) {
                    return SetTextureSlice(texture, static_cast<DWORD>(std::max(count, 0)), rects);
                }),
                Texture, Slices),
        CALL(SetTextureCurSlice, Texture, Integer),
        CALL(CopyTexture, Texture, Part, Texture, Part),
        CALL(ResizeTexture, DrawableTexture, Extent, KernelMode),
        CALL(TransformTexture, DrawableTexture, Code<9>),
        CALL(RotateTexture, DrawableTexture, Code<5>),
        CALL(FlipTexture, DrawableTexture, Code<7>),

        CALL(CreateCanvas, Extent, Canvas),
        CALL(CreateSystemCanvas, Extent, Canvas),
        CALL(ReleaseCanvas, CanvasAlias),
        CALL(LockCanvasBits, Canvas, View, Part),
        CALL(LockCanvasBitsEx, Canvas, View, Part),
        CALL(SetViewportOrg, Canvas, Origin, Origin, Out<POINT>),
        CALL(SetWindowOrg, Canvas, Origin, Origin, Out<POINT>),
        CALL(SetCanvasWindow, Canvas, Window),
        CALL(SetCanvasFilter, Canvas, ModeWord),
        CALL(SetCanvasBkColor, Canvas, Colour, Out<DWORD>),
        CALL(ReleaseBitmap, BitmapAlias),

        CALL(SetStretchKernelMode, Code<3>),
        CALL(DrawBitmap, Canvas, Rect, Bitmap, KernelMode),
        CALL(DrawBitmapEx, Canvas, Rect, Bitmap, KernelMode, Alpha),
        CALL(DrawBitmapRectEx, Canvas, Rect, Bitmap, Part, KernelMode, Alpha),
        CALL(DrawTexture, Canvas, Rect, Texture, KernelMode),
        CALL(DrawTextureEx, Canvas, Rect, Texture, KernelMode, Alpha, Scale, Flag),
        CALL(DrawTextureCenter, Canvas, Rect, Texture, Part, KernelMode, Alpha),
        // These two give 0 always, as if they had done nothing.
        CALL(DrawTextureTile, Canvas, Rect, Texture, Part, KernelMode, Alpha, Code<32>, Scale),
        CALL(DrawTextureTopTile, Canvas, Rect, Texture, Part, Margins, KernelMode, Alpha),
        CALL(DrawTexture9Grid, Canvas, Rect, Texture, Part, Margins, KernelMode, Flag, Alpha, Code<32>, Scale, Flag),

        CALL(FillSolidRect, Canvas, Colour, Rect),
        CALL(FillSolidRectEx, Canvas, Colour, Rect, ModeWord),
        CALL(FillPreMulColorRectEx, Canvas, Colour, Rect, ModeWord),
        CALL(FillGradualRect, Canvas, Colour, Colour, Rect, Integer),

        CALL(GeoRectangle, Canvas, Rect, Colour, Colour, Integer),
        CALL(GeoRoundRect, Canvas, Rect, Colour, Colour, Integer, Integer),
        CALL(GeoRectangleEx, Canvas, Box, Style, ModeWord),
        CALL(GeoRoundRectEx, Canvas, Box, Style, ModeWord),
        CALL(GeoRectFocusEx, Canvas, Box, Colour, Length, Length, Length, Length),
        CALL(DrawShadows, Canvas, Rect, Shadows),

        CALL(MixCanvas, Canvas, Part, Canvas, Part, Alpha),
        CALL(MixCanvasWithColor, Canvas, Part, Colour, Word),
        CALL(BlendCanvas, Canvas, Rect, Canvas, Part, Alpha),
        CALL(GdiTransCanvas, Dc, GdiRect, Canvas, Part, Alpha),
        CALL(CanvasScroll, Canvas, ScrollX, Coordinate),
        CALL(DrawModulation, Canvas, Coordinate, Coordinate, Bitmap, Part, Colour),

        CALL(ARGBtoAHSL, Colour),
        CALL(AHSLtoARGB, Colour),
        CALL(RGBtoHSL, Out<HSLRecord>, Rgb),
        CALL(HSLtoRGB, Out<RGBRecord>, Hsl),
        CALL(ARGBColorize, Colour, Fraction, Fraction, Fraction),
        CALL(AHSLColorize, Colour, Fraction, Fraction, Fraction),
        CALL(RGBColorize, Out<RGBRecord>, Rgb, Fraction, Fraction, Fraction),
        CALL(HSLColorize, Out<HSLRecord>, Hsl, Fraction, Fraction, Fraction),
        CALL(ColorizeTexture, Texture, Fraction, Fraction, Fraction),

        CALL(BlurBitmapEx, Bitmap, Part, Bitmap, Part),
        CALL(BlurTextureEx, Texture, Part, Texture, Part),
        CALL(GaussianBlurCanvas, Canvas, Part, Canvas, Part),
        CALL(TranslateTexture, Texture, Colour, Colour),
        ON_SURFACES(Shuffle, , Code<8>),
        ON_SURFACES(Shuffle, Ex, Part, Code<8>),
        CALL(LightTextureEx, Texture, Part),
        CALL(CreateTextureRgn, Texture, Part),
    };
}

}  // namespace fuzz
