// The calls of the library's own exports: functions that stand for others, and the exceptions.

#include "exported_calls.h"

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {

/// Handles that arguments of some functions must be: an entry made by hand, aliases of a bitmap and of a canvas.
struct Entry {
    uintptr_t value;
};
struct BitmapAlias {
    uintptr_t value;
};
struct CanvasAlias {
    uintptr_t value;
};
LETTER(Entry, 'e');
LETTER(BitmapAlias, 'a');
LETTER(CanvasAlias, 'p');

namespace {

int DeleteEntry(Entry entry) { return e_DelHandleEntry(nullptr, static_cast<DWORD>(entry.value)); }

void ReleaseAlias(BitmapAlias alias) { ReleaseBitmap({alias.value}); }

/// A handle of another type is answered with its type bits.
bool ReleaseParent(CanvasAlias alias) {
    const uintptr_t type = alias.value & 0xFF0000;
    return ReleaseCanvas({alias.value}) != (type == 0x10000 ? 0 : type);
}

/// A wrong template is ignored, a right one lends its filter word.
template <HGCANVAS (*kCreate)(DWORD, DWORD, HGCANVAS)>
DWORD FilterTaken(DWORD width, DWORD height, HGCANVAS model) {
    const HGCANVAS canvas = kCreate(width, height, model);
    DWORD filter = 0;
    GetCanvasFilter(canvas, &filter);
    DeleteCanvas(canvas);
    return filter;
}

int SetAndResetKernelMode(DWORD mode) { return SetStretchKernelMode(mode) && SetStretchKernelMode(1); }

int DestroyPath(velPath *path) { return PathDestroy(path ? PathCreate() : nullptr); }

int DestroyGradient(velGradient *gradient) {
    return GradientDestroy(gradient ? GradientCreateLinear(0, 0, 1, 1) : nullptr);
}

constexpr DWORD kColour = 0xFF112233, kOther = 0xFF445566;

const Exception kExceptions[] = {
    {"e_NewHandleEntry", {9}, "2"},
    {"CreateMemBitmapEx CreateTextureEx", {5, 5, 8, 16}},
    {"LockBitmapBits LockBitmapBitsEx LockTextureBits LockTextureBitsEx LockCanvasBits LockCanvasBitsEx", {}, "2"},
    {"CopyBitmap CopyTexture BlurBitmapEx BlurTextureEx GaussianBlurCanvas MixCanvas", {}, "13"},
    {"FlipBitmap FlipTexture", {4}},
    {"SetTextureCurSlice", {0}, {}, 0xFFFFFFFF},
    {"GetTextureSliceCount GetBlendMode", {}, {}, 0xFFFFFFFF},
    {"SetViewportOrg SetWindowOrg", {}, "3"},
    {"SetCanvasBkColor", {}, "2"},
    {"LightTextureEx CreateTextureRgn", {}, "1"},
    {"ShuffleBitmapEx ShuffleTextureEx", {1}, "1"},
    {"TranslateTexture", {0, kColour}},
    {"ColorizeTexture", {0.5, 0, 0}},
    {"ARGBtoAHSL AHSLtoARGB DrawColor", {kColour}},
    {"ARGBColorize AHSLColorize", {kColour, 0.5, 0, 0}},

    {"FillSolidRect FillSolidRectEx FillPreMulColorRectEx", {kColour, 0}},
    {"FillGradualRect GeoRectangle", {kColour, kOther, 1}},
    {"GeoRoundRect", {kColour, kOther, 1, 1}},
    {"GeoRectangleEx GeoRoundRectEx SetDrawStyle", {0}},
    {"GeoRectFocusEx", {kColour, 1, 0, 1, 1}},
    {"DrawBitmapRectEx DrawTextureCenter", {}, "3"},
    {"DrawTextureTile DrawTextureTopTile", {}, "3", 0, true},
    {"DrawTexture9Grid", {1, 0, 255, 0, 1, 0}, "3"},
    {"MixCanvasWithColor", {kColour, 128}, "1"},
    {"CanvasScroll", {0, 1}},
    {"DrawModulation", {0, 0, kColour}, "4"},

    {"DrawLine", {0, 0, 2, 2}},
    {"DrawArc", {0, 0, 3, 3, 0, 90, 1}},
    {"DrawPolygon", {3}},
    {"DrawBezier", {0, 0, 1, 2, 2, 1, 3, 3}},
    {"DrawLottie", {}, {}, 0, true},  // without an animation
    {"SetFontFaceName", {}, "1"},
    {"GetFontMetrics", {}, "123"},
    {"GetBlendValue", {}, {}, 255},
    {"GetStrokeWidth", {}, {}, std::bit_cast<uint32_t>(1.0f)},
    {"PathSetFillType", {1}},
    {"PathArcTo PathAddArc", {0, 0, 4, 4, 0, 270, 0}},
    {"PathOvalCurveTo", {2, 1, 0, 1, 1, 3, 3}},
    {"GradientCreateLinear", {0, 0, 1, 1}},
    {"GradientAddColorStop", {0.5, kColour}},
};

bool IsCurrent(char letter, uintptr_t handle) {
    if (letter == 'c') return IsLive(HGCANVAS{handle});
    return letter == 't' ? IsLive(HGTEXTURE{handle}) : IsLive(HGBITMAP{handle});
}

}  // namespace

STAND_IN(e_DelHandleEntry, DeleteEntry);
STAND_IN(ReleaseBitmap, ReleaseAlias);
STAND_IN(ReleaseCanvas, ReleaseParent);
STAND_IN(CreateCanvas, FilterTaken<CreateCanvas>);
STAND_IN(CreateSystemCanvas, FilterTaken<CreateSystemCanvas>);
STAND_IN(SetStretchKernelMode, SetAndResetKernelMode);
STAND_IN(PathDestroy, DestroyPath);
STAND_IN(GradientDestroy, DestroyGradient);

bool HasWorked(const ExportedCall &row, uint64_t result, Arguments arguments) {
    const std::string_view name = row.name;
    const bool isOwn = !name.starts_with("Get"), endsItsSource = row.result == 'v' || name.find("To") != name.npos;
    const auto made = static_cast<uintptr_t>(result);
    void *const object = reinterpret_cast<void *>(made);
    const bool worked = !endsItsSource || !IsCurrent(arguments[0].letter, arguments[0].word);
    switch (row.result) {
        case 'v': return worked;
        case 'b':
        case 'c':
        case 't': {
            const bool isNew = made >> 16 >> 16 == 0 && IsCurrent(row.result, made);
            // The handle of an alias goes alone.
            if (isOwn || row.result == 't') {
                DeleteAny(made);
            } else {
                e_DelHandleEntry(nullptr, static_cast<DWORD>(made));
            }
            return worked && isNew;
        }
        case 'D': return isOwn ? DeleteDC(static_cast<HDC>(object)) != 0 : made != 0;
        case 'H': return isOwn ? DeleteObject(object) != 0 : made != 0;
        case 'R': return DeleteObject(object) != 0;
        case 'P': return PathDestroy(static_cast<velPath *>(object)) != 0;
        case 'G': return GradientDestroy(static_cast<velGradient *>(object)) != 0;
        default: break;
    }
    if (name == "e_NewHandleEntry") return e_DelHandleEntry(nullptr, static_cast<DWORD>(made)) != 0;
    return row.isMute || result != row.refused;
}

const std::vector<ExportedCall> &ExportedCalls() {
#define EXPORT(name) MakeCall<kStandIn<name>>(#name, kExceptions),
    static const std::vector<ExportedCall> calls = {
#include "exports.inc"
        // Exported under names that encode their argument types, so not in the list of plain names.
        EXPORT(DrawTexture9Grid) EXPORT(DrawTextureCenter) EXPORT(DrawTextureTile) EXPORT(DrawTextureTopTile)};
#undef EXPORT
    return calls;
}

}  // namespace lacquer
