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
    void Write(std::ostream &out) const { out << "(HWND)" << value; }
    uintptr_t value;
};

using Slices = List<RECT, ChooseRect, 5>;
using Mode = In<TextureMode, ChooseTextureMode>;
using BitmapAlias = Handle<HGBITMAP, Use::LentOnly>;
using CanvasAlias = Handle<HGCANVAS, Use::LentOnly>;
using DrawableBitmap = Drawable<HGBITMAP>;
using DrawableTexture = Drawable<HGTEXTURE>;

DWORD NewEntry(int type, int object) {
    static int objects[256];
    return e_NewHandleEntry(nullptr, type, &objects[object & 255]);
}

/// The views that calls have locked and that are still valid are written.
struct LockedViews {
    explicit LockedViews(Call &call) : world(call.world), seed(call.choices.Byte()) {}
    std::tuple<const World *, uint32_t> Value() const { return {&world, seed}; }
    void Write(std::ostream &out) const { out << world.views.size() << " views, " << seed; }
    const World &world;
    uint32_t seed;
};
int WriteLocked(const World *world, uint32_t seed) {
    for (const SurfaceView &view : world->views) world->PaintView(view, seed);
    return !world->views.empty();
}

}  // namespace

std::vector<Row> SurfaceCalls() {
    return {
        CALL_AS(e_NewHandleEntry, (+[](int type, int object) { return Owned<DWORD>{NewEntry(type, object)}; }),
                EntryType, Integer),
        CALL(e_DelHandleEntry, Null, Entry),
        CALL(WriteLocked, LockedViews),

        CALL(CreateSystemBitmap, Extent),
        CALL(CreateMemBitmap, Extent),
        CALL(CreateMemBitmapEx, Format),
        CALL(DeleteBitmap, Bitmap),
        CALL(GetBitmapHandle, Bitmap),
        CALL(GetBitmapSize, Bitmap, Out<SIZE>),
        CALL(LockBitmapBits, Bitmap, View, Part),
        CALL(LockBitmapBitsEx, Bitmap, View, Part),
        CALL(UnlockBitmapBits, Bitmap),
        CALL(GetBitmapFilter, Bitmap, Out<DWORD>),
        CALL(SetBitmapFilter, Bitmap, ModeWord),
        CALL(GetBitmapBitsPixel, Bitmap, Out<BYTE>),
        CALL(CopyBitmap, Bitmap, Part, Bitmap, Part),
        CALL(ResizeBitmap, DrawableBitmap, Extent, KernelMode),
        CALL(TransformBitmap, DrawableBitmap, Code<9>),
        CALL_AS(RotateBitmap, (+[](HGBITMAP b, DWORD c) { return RotateBitmap(b, static_cast<int>(c)); }),
                DrawableBitmap, Code<5>),
        CALL(FlipBitmap, DrawableBitmap, Code<7>),
        CALL(CanvasToBitmap, Canvas),

        CALL(CreateTexture, Extent),
        CALL(CreateTextureEx, Format),
        CALL(DeleteTexture, Texture),
        CALL(ReleaseTexture, Texture),
        CALL(GetTexture, Canvas),
        CALL(GetTextureFromVelCanvas, VelCanvas),
        CALL(GetTextureHandle, Texture),
        CALL(GetTextureSize, Texture, Out<SIZE>),
        CALL(LockTextureBits, Texture, View, Part),
        CALL(LockTextureBitsEx, Texture, View, Part),
        CALL(UnlockTextureBits, Texture),
        CALL(GetTextureFilter, Texture, Out<DWORD>),
        CALL(SetTextureFilter, Texture, ModeWord),
        CALL(GetTextureBitsPixel, Texture, Out<BYTE>),
        CALL(SetTextureMode, Texture, Mode),
        CALL(GetTextureMode, Texture, Out<TextureMode>),
        CALL_AS(SetTextureSlice, (+[](HGTEXTURE texture, const RECT *rects, int count) {
                    return SetTextureSlice(texture, static_cast<DWORD>(std::max(count, 0)), rects);
                }),
                Texture, Slices),
        CALL(SetTextureCurSlice, Texture, Integer),
        CALL(GetTextureCurSlice, Texture, Out<RECT>),
        CALL(GetTextureSliceCount, Texture),
        CALL(CanvasToTexture, Canvas),
        CALL(BitmapToTexture, Bitmap),
        CALL(CopyTexture, Texture, Part, Texture, Part),
        CALL(ResizeTexture, DrawableTexture, Extent, KernelMode),
        CALL(TransformTexture, DrawableTexture, Code<9>),
        CALL_AS(RotateTexture, (+[](HGTEXTURE t, DWORD c) { return RotateTexture(t, static_cast<int>(c)); }),
                DrawableTexture, Code<5>),
        CALL(FlipTexture, DrawableTexture, Code<7>),

        CALL(CreateCanvas, Extent, Canvas),
        CALL(CreateSystemCanvas, Extent, Canvas),
        CALL(CreateCanvasFromDC, Dc),
        CALL(DeleteCanvas, Canvas),
        CALL(ReleaseCanvas, CanvasAlias),
        CALL(LockCanvasBits, Canvas, View, Part),
        CALL(LockCanvasBitsEx, Canvas, View, Part),
        CALL(UnlockCanvasBits, Canvas),
        CALL(GetCanvasHandle, Canvas),
        CALL(GetCanvasSize, Canvas, Out<SIZE>),
        CALL(SetViewportOrg, Canvas, Origin, Origin, Out<POINT>),
        CALL(GetViewportOrg, Canvas, Out<POINT>),
        CALL(SetWindowOrg, Canvas, Origin, Origin, Out<POINT>),
        CALL(GetWindowOrg, Canvas, Out<POINT>),
        CALL(SetCanvasWindow, Canvas, Window),
        CALL(GetCanvasWindow, Canvas),
        CALL(SetCanvasParent, Canvas, Canvas),
        CALL_AS(GetCanvasParent, (+[](HGCANVAS canvas) { return Alias<HGCANVAS>{GetCanvasParent(canvas)}; }), Canvas),
        CALL(GetCanvasFilter, Canvas, Out<DWORD>),
        CALL(SetCanvasFilter, Canvas, ModeWord),
        CALL(SetCanvasBkColor, Canvas, Colour, Out<DWORD>),
        CALL(GetCanvasBkColor, Canvas, Out<DWORD>),
        CALL(SetCanvasClipRect, Canvas, Rect),
        CALL(IntersectCanvasClipRect, Canvas, Rect),
        CALL(GetCanvasClipRect, Canvas, Out<RECT>),
        CALL_AS(GetBitmap, (+[](HGCANVAS canvas) { return Alias<HGBITMAP>{GetBitmap(canvas)}; }), Canvas),
        CALL(ReleaseBitmap, BitmapAlias),

        CALL(SetStretchKernelMode, Code<3>),
        CALL(GetStretchKernelMode),
        CALL(DrawBitmap, Canvas, Rect, Bitmap, KernelMode),
        CALL(DrawBitmapEx, Canvas, Rect, Bitmap, KernelMode, Alpha),
        CALL(DrawBitmapRectEx, Canvas, Rect, Bitmap, Part, KernelMode, Alpha),
        CALL(DrawTexture, Canvas, Rect, Texture, KernelMode),
        CALL(DrawTextureEx, Canvas, Rect, Texture, KernelMode, Alpha, Scale, Flag),
        CALL(DrawTextureCenter, Canvas, Rect, Texture, Part, KernelMode, Alpha),
        // These two give 0 always.
        CALL_AS(DrawTextureTile,
                (+[](HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, DWORD kernelMode,
                     BYTE alpha, DWORD flags, float scale) {
                    return !DrawTextureTile(canvas, dest, texture, slice, kernelMode, alpha, flags, scale);
                }),
                Canvas, Rect, Texture, Part, KernelMode, Alpha, Code<32>, Scale),
        CALL_AS(DrawTextureTopTile,
                (+[](HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, const RECT *margins,
                     DWORD kernelMode, BYTE alpha) {
                    return !DrawTextureTopTile(canvas, dest, texture, slice, margins, kernelMode, alpha);
                }),
                Canvas, Rect, Texture, Part, Margins, KernelMode, Alpha),
        CALL(DrawTexture9Grid, Canvas, Rect, Texture, Part, Margins, KernelMode, Flag, Alpha, Code<32>, Scale, Flag),

        CALL(FillSolidRect, Canvas, Colour, Rect),
        CALL(FillSolidRectEx, Canvas, Colour, Rect, ModeWord),
        CALL(FillPreMulColorRectEx, Canvas, Colour, Rect, ModeWord),
        CALL(FillGradualRect, Canvas, Colour, Colour, Rect, Integer),

        CALL(MixCanvas, Canvas, Part, Canvas, Part, Alpha),
        CALL(MixCanvasWithColor, Canvas, Part, Colour, Word),
        CALL(BlendCanvas, Canvas, Rect, Canvas, Part, Alpha),
        CALL(GdiTransCanvas, Dc, GdiRect, Canvas, Part, Alpha),
        CALL(CanvasScroll, Canvas, ScrollX, Coordinate),
        CALL(DrawModulation, Canvas, Coordinate, Coordinate, Bitmap, Part, Colour),

        CALL(ARGBtoAHSL, Colour),
        CALL(AHSLtoARGB, Colour),
        CALL_AS(RGBtoHSL, (+[](HSLRecord *out, const RGBRecord *in) { return RGBtoHSL(out, in) != nullptr; }),
                Out<HSLRecord>, In<RGBRecord, ChooseRgb>),
        CALL_AS(HSLtoRGB, (+[](RGBRecord *out, const HSLRecord *in) { return HSLtoRGB(out, in) != nullptr; }),
                Out<RGBRecord>, In<HSLRecord, ChooseHsl>),
        CALL(ARGBColorize, Colour, Fraction, Fraction, Fraction),
        CALL(AHSLColorize, Colour, Fraction, Fraction, Fraction),
        CALL_AS(RGBColorize, (+[](RGBRecord *out, const RGBRecord *in, float dh, float ds, float dl) {
                    return RGBColorize(out, in, dh, ds, dl) != nullptr;
                }),
                Out<RGBRecord>, In<RGBRecord, ChooseRgb>, Fraction, Fraction, Fraction),
        CALL_AS(HSLColorize, (+[](HSLRecord *out, const HSLRecord *in, float dh, float ds, float dl) {
                    return HSLColorize(out, in, dh, ds, dl) != nullptr;
                }),
                Out<HSLRecord>, In<HSLRecord, ChooseHsl>, Fraction, Fraction, Fraction),
        CALL(ColorizeTexture, Texture, Fraction, Fraction, Fraction),

        CALL(BlurBitmap, Bitmap, Bitmap),
        CALL(BlurBitmapEx, Bitmap, Part, Bitmap, Part),
        CALL(BlurTexture, Texture, Texture),
        CALL(BlurTextureEx, Texture, Part, Texture, Part),
        CALL(GaussianBlurBitmap, Bitmap, Bitmap),
        CALL(GaussianBlurTexture, Texture, Texture),
        CALL(GaussianBlurCanvas, Canvas, Part, Canvas, Part),
        CALL(GrayBitmap, Bitmap),
        CALL(GrayTexture, Texture),
        CALL(NormalizeBitmap, Bitmap),
        CALL(NormalizeTexture, Texture),
        CALL(InvertBitmap, Bitmap),
        CALL(InvertTexture, Texture),
        CALL(TranslateTexture, Texture, Colour, Colour),
        CALL(ShuffleBitmap, Bitmap, Code<8>),
        CALL(ShuffleTexture, Texture, Code<8>),
        CALL(ShuffleBitmapEx, Bitmap, Part, Code<8>),
        CALL(ShuffleTextureEx, Texture, Part, Code<8>),
        CALL(LightBitmap, Bitmap),
        CALL(LightTexture, Texture),
        CALL(LightTextureEx, Texture, Part),
        CALL(CreateTextureRgn, Texture, Part),
    };
}

}  // namespace fuzz
