// The rows of GDI, as far as callers of the library use it: device contexts, their bitmaps and clips, transfers.

#include "kinds.h"

namespace fuzz {
namespace {

using OwnDc = Ended<HDC>;
int ChooseLevel(Call &call) {
    return call.choices.Seldom(20) ? ChooseGdiCoordinate(call) % 1000 : call.choices.Byte() % 6 - 3;
}
using Level = Chosen<int, ChooseLevel>;

template <class Record>
using Needed = Out<Record, 0>;

DWORD ChooseOperation(Call &call) {
    constexpr DWORD kOperations[] = {SRCCOPY, SRCCOPY, SRCCOPY, BLACKNESS, WHITENESS};
    return call.choices.OneOf(kOperations);
}
using Operation = Chosen<DWORD, ChooseOperation>;

int ChooseCombination(Call &call) { return call.choices.Seldom(8) ? ChooseInteger(call) : call.choices.Byte() % 5 + 1; }
using Combination = Chosen<int, ChooseCombination>;

struct BlendWord {
    explicit BlendWord(Call &call)
        : blend{AC_SRC_OVER, 0, ChooseAlpha(call), static_cast<BYTE>(call.choices.Byte() & AC_SRC_ALPHA)} {}
    BLENDFUNCTION Value() const { return blend; }
    BLENDFUNCTION blend;
};

struct GdiExtent : Extent {
    explicit GdiExtent(Call &call) : Extent(call) {
        if (call.world.rules.plainGdi) width %= caps::kSide, height %= caps::kSide;
    }
};

/// The layout of a picture, and its pixels.
struct Picture {
    explicit Picture(Call &call) {
        constexpr WORD kDepths[] = {32, 32, 32, 24, 16, 8, 8, 1, 0, 64};
        BITMAPINFOHEADER &header = info.header;
        header.biSize = sizeof header;
        header.biWidth = static_cast<LONG>(1 + call.choices.Below(caps::kSide));
        header.biHeight = static_cast<LONG>(1 + call.choices.Below(caps::kSide));
        header.biPlanes = 1;
        const bool isPlain = call.world.rules.plainGdi;
        header.biBitCount = kDepths[call.choices.Below(isPlain ? 4 : call.choices.Seldom(8) ? 10 : 7)];
        const size_t words = static_cast<size_t>(header.biWidth) * 2 * static_cast<size_t>(header.biHeight);
        if (call.choices.Byte() & 1) header.biHeight = -header.biHeight;
        if (!isPlain && call.choices.Seldom(8)) header.biWidth = call.choices.Seldom(128) ? 0 : -header.biWidth;
        header.biClrUsed = call.choices.Seldom(64) ? call.choices.Below(257) : 0;
        uint64_t state = call.choices.Byte();
        for (RGBQUAD &colour : info.colours) {
            const uint64_t word = NextRandom(state);
            std::memcpy(&colour, &word, sizeof colour);
        }
        pixels.resize(words);
        for (uint32_t &pixel : pixels) pixel = static_cast<uint32_t>(NextRandom(state)) & 0xFF7F7F7F;
    }
    const BITMAPINFO *Info() const { return reinterpret_cast<const BITMAPINFO *>(&info); }
    struct {
        BITMAPINFOHEADER header{};
        RGBQUAD colours[256];
    } info;
    std::vector<uint32_t> pixels;
};
/// What CreateDIBSection is called with.
struct Layout : Picture {
    using Picture::Picture;
    std::tuple<HDC, const BITMAPINFO *, UINT, void **, HANDLE, DWORD> Value() const {
        return {nullptr, Info(), DIB_RGB_COLORS, nullptr, nullptr, 0};
    }
};
/// startScan, lines, bits, info, usage.
struct Scans : Picture {
    explicit Scans(Call &call) : Picture(call) {
        // The rows from the first one on are there; a number beyond the picture's height counts as far as it goes.
        const auto height = static_cast<UINT>(std::abs(info.header.biHeight));
        const bool isPart = call.choices.Seldom(64);
        first = isPart ? call.choices.Below(caps::kSide) : 0;
        count = isPart ? call.choices.Below(2 * caps::kSide) : height;
    }
    std::tuple<UINT, UINT, const void *, const BITMAPINFO *, UINT> Value() const {
        return {first, count, pixels.data(), Info(), DIB_RGB_COLORS};
    }
    UINT first = 0, count = 0;
};

/// Rectangles as a region's data.
struct RegionData {
    explicit RegionData(Call &call) : rects(call.choices.Below(6)) {
        for (RECT &rect : rects) rect = ChooseGdiRect(call);
        const DWORD count = static_cast<DWORD>(rects.size()), size = count * static_cast<DWORD>(sizeof(RECT));
        const RGNDATAHEADER header{sizeof header, RDH_RECTANGLES, count, size, {-32768, -32768, 32767, 32767}};
        bytes.resize(sizeof header + size);
        std::memcpy(bytes.data(), &header, sizeof header);
        if (count > 0) std::memcpy(bytes.data() + sizeof header, rects.data(), size);
        if (!call.world.rules.plainGdi && call.choices.Seldom(8)) bytes.resize(bytes.size() - 1);
    }
    std::tuple<std::nullptr_t, DWORD, const RGNDATA *> Value() const {
        return {nullptr, static_cast<DWORD>(bytes.size()), reinterpret_cast<const RGNDATA *>(bytes.data())};
    }
    std::vector<RECT> rects;
    std::vector<char> bytes;
};

HBITMAP MakeBitmap(int width, int height) { return CreateBitmap(width, height, 1, 32, nullptr); }

HDC MakeDcWithBitmap(HDC, const BITMAPINFO *info, UINT usage, void **, HANDLE, DWORD) {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(nullptr, info, usage, nullptr, nullptr, 0);
    if (bitmap) SelectObject(dc, bitmap);
    // The context keeps the bitmap until it goes.
    DeleteObject(bitmap);
    return dc;
}

}  // namespace

std::vector<Row> ContextCalls() {
    constexpr Group kGroup = kContexts;
    return {
        FOR_EACH(CALL, CreateCompatibleDC, SaveDC, GdiFlush),
        CALL_AS(CreateDcWithBitmap, MakeDcWithBitmap, Layout),
        CALL(CreateDIBSection, Layout),
        CALL(DeleteDC, OwnDc),
        CALL(RestoreDC, Dc, Level),
        CALL(SetViewportOrgEx, Dc, Origin, Origin, Out<POINT>),
        CALL(SetWindowOrgEx, Dc, Origin, Origin, Out<POINT>),
        CALL(GetViewportOrgEx, Dc, Needed<POINT>),
        CALL(GetWindowOrgEx, Dc, Needed<POINT>),
        CALL(SelectObject, Dc, GdiBitmap),
        CALL(DeleteObject, Ended<HBITMAP>),
        CALL(IntersectClipRect, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
    };
}

std::vector<Row> GdiCalls() {
    constexpr Group kGroup = kGdi;
    return {
        FOR_EACH(CALL, GetStretchBltMode, GetClipRgn, SelectClipRgn, EqualRgn),
        CALL(SetStretchBltMode, Dc, Integer),
        CALL_AS(DeleteRegion, DeleteObject, Ended<HRGN>),
        CALL_AS(CreateBitmap, MakeBitmap, GdiExtent),
        CALL(CreateCompatibleBitmap, Dc, GdiExtent),
        CALL(GetClipBox, Dc, Needed<RECT>),
        CALL(ExtSelectClipRgn, Dc, Region, Combination),
        CALL(ExcludeClipRect, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
        CALL(OffsetClipRgn, Dc, GdiCoordinate, GdiCoordinate),
        CALL(PtVisible, Dc, GdiCoordinate, GdiCoordinate),
        CALL(RectVisible, Dc, GdiRect),
        CALL(CreateRectRgn, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
        CALL(ExtCreateRegion, RegionData),
        CALL(SetRectRgn, Region, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
        CALL(CombineRgn, Region, Region, Region, Combination),
        CALL(GetRgnBox, Region, Needed<RECT>),
        CALL(OffsetRgn, Region, GdiCoordinate, GdiCoordinate),
        CALL(PtInRegion, Region, GdiCoordinate, GdiCoordinate),
        CALL(RectInRegion, Region, GdiRect),
        CALL(BitBlt, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate, Dc, Span, Span, Operation),
        CALL(StretchBlt, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate, Dc, Span, Span, Span, Span,
             Operation),
        CALL(PatBlt, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate, Operation),
        CALL(GdiAlphaBlend, Dc, GdiCoordinate, GdiCoordinate, Span, Span, Dc, Span, Span, Span, Span, BlendWord),
        CALL(SetDIBitsToDevice, Dc, GdiCoordinate, GdiCoordinate, GdiExtent, GdiCoordinate, GdiCoordinate, Scans),
        CALL(GetPixel, Dc, GdiCoordinate, GdiCoordinate),
        CALL(SetPixel, Dc, GdiCoordinate, GdiCoordinate, Colour),
    };
}

}  // namespace fuzz
