// The selection rules of draws and fills.

#include "pipeline/table/blit_dispatch.h"

#include <optional>

#include "pipeline/pixel/pixel.h"
#include "pipeline/sample/draw_area.h"

namespace lacquer {
namespace {

/// The rows of one combine rule: for equal sizes, and by kernel mode for a stretch.
struct RowChoice {
    Row same, nearest, bilinear, bicubic, area;

    Row Stretching(DWORD kernelMode) const {
        switch (kernelMode) {
            case LACQUER_NEAREST: return nearest;
            case LACQUER_BICUBIC: return bicubic;
            case LACQUER_AREA: return area;
            default: return bilinear;
        }
    }
};

/// Behind, modulate and the colour key are sampled nearest whatever the kernel mode.
constexpr RowChoice NearestOnly(Row same, Row stretched) { return {same, stretched, stretched, stretched, stretched}; }

struct Rows {
    RowChoice copy, over, constAlpha, behind, modulate, colorKey;
};

constexpr Rows kWholeRows = {
    .copy = {Row::CopyRow, Row::StretchCopyRow, Row::FilterCopyRow, Row::BicubicCopyRow, Row::AreaCopyRow},
    .over = {Row::OverRow, Row::StretchOverRow, Row::FilterOverRow, Row::BicubicOverRow, Row::FilterOverRow},
    .constAlpha = {Row::ConstAlphaRow, Row::StretchConstAlphaRow, Row::FilterConstAlphaRow, Row::BicubicConstAlphaRow,
                   Row::FilterConstAlphaRow},
    .behind = NearestOnly(Row::BehindRow, Row::StretchBehindRow),
    .modulate = NearestOnly(Row::ModulateRow, Row::StretchModulateRow),
    .colorKey = NearestOnly(Row::ColorKeyRow, Row::StretchColorKeyRow),
};

/// A visible part of an unstretched draw is a whole draw of the matching part of the source; behind takes the
/// stretching row for it, which samples equal sizes 1:1.
constexpr Rows kPartRows = {
    .copy = {Row::CopyRow, Row::SubRectCopyRow, Row::SubRectFilterCopyRow, Row::SubRectBicubicCopyRow,
             Row::SubRectAreaCopyRow},
    .over = {Row::OverRow, Row::SubRectOverRow, Row::SubRectFilterOverRow, Row::SubRectBicubicOverRow,
             Row::SubRectFilterOverRow},
    .constAlpha = {Row::ConstAlphaRow, Row::SubRectConstAlphaRow, Row::SubRectFilterConstAlphaRow,
                   Row::SubRectBicubicConstAlphaRow, Row::SubRectFilterConstAlphaRow},
    .behind = NearestOnly(Row::StretchBehindRow, Row::SubRectBehindRow),
    .modulate = NearestOnly(Row::ModulateRow, Row::SubRectModulateRow),
    .colorKey = NearestOnly(Row::ColorKeyRow, Row::SubRectColorKeyRow),
};

/// A 24-bit source has opaque pixels, and an opaque key. Pixels of other depths match only when they are transparent.
DWORD KeyWord(const SurfaceView &source, DWORD modeWord) {
    const DWORD colour = modeWord & kColours;
    return source.bitsPerPixel == 24 ? colour | kOpaque : colour;
}

/// The colour of a source that is stretched so far that looking at its pixels costs little, if they are all alike: the
/// means of them are that colour, too. Premultiplied ones only, for which all rules of one name are the same.
std::optional<DWORD> OneColourOf(const SurfaceView &dest, const SurfaceView &source, const RowArguments &arguments) {
    constexpr int64_t kEnlarged = 16;
    if (int64_t{dest.width} * dest.height < kEnlarged * source.width * source.height) return {};
    const bool isPart = arguments.fullSize.cx != 0;
    const DrawArea area = isPart ? DrawArea{arguments.fullSize, arguments.visibleOffset} : WholeArea(dest);
    if (!CanDraw(dest, source, 32, area)) return {};
    if (arguments.kernelMode == LACQUER_BICUBIC || arguments.kernelMode == LACQUER_AREA) return {};
    const DWORD colour = LoadPixel(RowOf(source, 0));
    if (!IsPremultiplied(colour)) return {};
    for (LONG y = 0; y < source.height; ++y) {
        const BYTE *const row = RowOf(source, y);
        DWORD others = 0;
        for (LONG x = 0; x < source.width; ++x) others |= LoadPixel(row + ptrdiff_t{x} * kPixelBytes) ^ colour;
        if (others != 0) return {};
    }
    return colour;
}

/// A filtered stretch of pixels with alpha has no key: it is drawn over.
bool HasKey(bool sameSize, const SurfaceView &source, DWORD kernelMode) {
    return sameSize || source.bitsPerPixel == 24 || kernelMode == LACQUER_NEAREST;
}

/// Fills where the stretched source is of one colour. Result: whether it is, and its mode has a fill.
bool FillsWithOneColour(const SurfaceView &dest, const SurfaceView &source, DWORD modeWord, BYTE alpha,
                        const RowArguments &arguments) {
    const DWORD mode = DrawModeOf(modeWord);
    const bool asksForKey = mode == LACQUER_DRAW_COLOR_KEY && alpha == 255;
    if (mode == LACQUER_DRAW_BEHIND || mode == LACQUER_DRAW_MODULATE) return false;
    if (asksForKey && HasKey(false, source, arguments.kernelMode)) return false;
    const auto colour = OneColourOf(dest, source, arguments);
    if (!colour) return false;
    const bool copies = alpha == 255 && mode != LACQUER_DRAW_OVER && !asksForKey;
    if (alpha > 0) {
        FillView(&dest, Scale(*colour, alpha + 1u), ModeWord(copies ? LACQUER_DRAW_COPY : LACQUER_DRAW_OVER));
    }
    return true;
}

int Draw(const Rows &rows, bool sameSize, const SurfaceView &dest, const SurfaceView &source, DWORD modeWord,
         BYTE alpha, RowArguments arguments) {
    const auto call = [&](const RowChoice &choice) {
        const Row row = sameSize ? choice.same : choice.Stretching(arguments.kernelMode);
        return CallRow(Kernels(), row, &dest, &source, arguments);
    };
    const DWORD mode = DrawModeOf(modeWord);
    if (mode == LACQUER_DRAW_BEHIND) return call(rows.behind);
    if (mode == LACQUER_DRAW_MODULATE) return call(rows.modulate);
    if (alpha == 0) return 1;
    if (alpha < 255) {
        arguments.parameter = alpha;
        return call(rows.constAlpha);
    }
    if (mode == LACQUER_DRAW_OVER) return call(rows.over);
    if (mode == LACQUER_DRAW_COLOR_KEY) {
        if (!HasKey(sameSize, source, arguments.kernelMode)) return call(rows.over);
        arguments.parameter = KeyWord(source, modeWord);
        return call(rows.colorKey);
    }
    return call(rows.copy);
}

}  // namespace

int BlitSameRect(const SurfaceView *dest, const SurfaceView *source, DWORD modeWord, DWORD kernelMode, BYTE alpha) {
    if (!dest || !source) return 0;
    const bool sameSize = source->width == dest->width && source->height == dest->height;
    const RowArguments arguments = {.kernelMode = kernelMode};
    if (!sameSize && FillsWithOneColour(*dest, *source, modeWord, alpha, arguments)) return 1;
    return Draw(kWholeRows, sameSize, *dest, *source, modeWord, alpha, arguments);
}

int BlitSubRect(const SurfaceView *dest, const SurfaceView *source, SIZE fullSize, POINT visibleOffset, DWORD modeWord,
                DWORD kernelMode, BYTE alpha) {
    if (!dest || !source) return 0;
    const RowArguments arguments = {.kernelMode = kernelMode, .fullSize = fullSize, .visibleOffset = visibleOffset};
    if (source->width != fullSize.cx || source->height != fullSize.cy) {
        if (FillsWithOneColour(*dest, *source, modeWord, alpha, arguments)) return 1;
        return Draw(kPartRows, false, *dest, *source, modeWord, alpha, arguments);
    }
    if (!CanDraw(*dest, *source, source->bitsPerPixel, {fullSize, visibleOffset})) return 1;
    SurfaceView shown = *source;
    shown.bits = RowOf(*source, visibleOffset.y) + ptrdiff_t{visibleOffset.x} * (source->bitsPerPixel / 8);
    shown.width = dest->width;
    shown.height = dest->height;
    return Draw(kPartRows, true, *dest, shown, modeWord, alpha, arguments);
}

bool IsVoidFill(DWORD colour, DWORD modeWord) {
    switch (DrawModeOf(modeWord)) {
        case LACQUER_DRAW_OVER:
        case LACQUER_DRAW_COLOR_KEY: return Alpha(colour) == 0;
        // The shortcuts of modulation hold for both modes: white changes nothing, and 0 clears.
        case LACQUER_DRAW_MODULATE:
        case LACQUER_DRAW_OR: return colour == kWhite;
        default: return false;
    }
}

int FillView(const SurfaceView *dest, DWORD colour, DWORD modeWord) {
    if (!dest) return 0;
    if (IsVoidFill(colour, modeWord)) return 1;
    const KernelTable &kernels = Kernels();
    const uint32_t alpha = Alpha(colour);
    const DWORD mode = DrawModeOf(modeWord);
    switch (mode) {
        case LACQUER_DRAW_COPY: return kernels.fillCopy(dest, colour);
        case LACQUER_DRAW_MODULATE:
        case LACQUER_DRAW_OR:
            if (colour == 0) return kernels.fillCopy(dest, 0);
            return (mode == LACQUER_DRAW_MODULATE ? kernels.fillModulate : kernels.fillOr)(dest, colour);
        case LACQUER_DRAW_GREY_TINT: return alpha == 0 ? 1 : kernels.fillGreyTint(dest, colour);
        case LACQUER_DRAW_BEHIND: return kernels.fillBehind(dest, colour);
        default:
            if (alpha == 0) return 1;
            return (alpha == 255 ? kernels.fillCopy : kernels.fillOver)(dest, colour);
    }
}

void ConvertCopy(const SurfaceView &dest, const SurfaceView &source) {
    CallRow(Kernels(), Row::CopyRow, &dest, &source, {});
}

void ResampleCopy(const SurfaceView &dest, const SurfaceView &source, DWORD kernelMode) {
    BlitSameRect(&dest, &source, ModeWord(LACQUER_DRAW_COPY), kernelMode, 255);
}

void ForceOpaqueView(const SurfaceView &view) { Kernels().forceOpaque(&view, &view); }

}  // namespace lacquer
