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

int ChooseCombination(Call &call) {
    return call.choices.Seldom(8) ? ChooseSmallInteger(call) : call.choices.Byte() % 5 + 1;
}
using Combination = Chosen<int, ChooseCombination>;

struct BlendWord {
    explicit BlendWord(Call &call)
        : blend{AC_SRC_OVER, 0, ChooseByte(call), static_cast<BYTE>(call.choices.Byte() & AC_SRC_ALPHA)} {}
    BLENDFUNCTION Value() const { return blend; }
    void Write(std::ostream &out) const {
        out << "{0, 0, " << +blend.SourceConstantAlpha << ", " << +blend.AlphaFormat << '}';
    }
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
    void Write(std::ostream &out) const {
        out << "{" << info.header.biWidth << " x " << info.header.biHeight << ", " << info.header.biBitCount
            << " bits, " << info.header.biClrUsed << " colours}";
    }
    struct {
        BITMAPINFOHEADER header{};
        RGBQUAD colours[256];
    } info;
    std::vector<uint32_t> pixels;
};
struct Layout : Picture {
    using Picture::Picture;
    const BITMAPINFO *Value() const { return Info(); }
};
/// startScan, lines, bits, info.
struct Scans : Picture {
    explicit Scans(Call &call) : Picture(call) {
        // The rows from the first one on are there; a number beyond the picture's height counts as far as it goes.
        const auto height = static_cast<UINT>(std::abs(info.header.biHeight));
        const bool isPart = call.choices.Seldom(64);
        first = isPart ? call.choices.Below(caps::kSide) : 0;
        count = isPart ? call.choices.Below(2 * caps::kSide) : height;
    }
    std::tuple<UINT, UINT, const void *, const BITMAPINFO *> Value() const {
        return {first, count, pixels.data(), Info()};
    }
    void Write(std::ostream &out) const { Picture::Write(out << first << ", " << count << ", bits, "); }
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
    std::tuple<DWORD, const RGNDATA *> Value() const {
        return {static_cast<DWORD>(bytes.size()), reinterpret_cast<const RGNDATA *>(bytes.data())};
    }
    void Write(std::ostream &out) const { WriteItems(out << bytes.size() << ", ", rects); }
    std::vector<RECT> rects;
    std::vector<char> bytes;
};

HDC NewDcWithBitmap(const BITMAPINFO *info) {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap = CreateDIBSection(nullptr, info, DIB_RGB_COLORS, nullptr, nullptr, 0);
    if (bitmap) SelectObject(dc, bitmap);
    // The context keeps the bitmap until it goes.
    DeleteObject(bitmap);
    return dc;
}

}  // namespace

std::vector<Row> ContextCalls() {
    constexpr Group kGroup = kContexts;
    return {
        CALL_AS(CreateCompatibleDC, (+[](HDC dc) { return Owned<HDC>{CreateCompatibleDC(dc)}; }), Dc),
        CALL_AS(CreateDcWithBitmap, (+[](const BITMAPINFO *info) { return Owned<HDC>{NewDcWithBitmap(info)}; }),
                Layout),
        CALL(DeleteDC, OwnDc),
        CALL(SaveDC, Dc),
        CALL(RestoreDC, Dc, Level),
        CALL(SetViewportOrgEx, Dc, Origin, Origin, Out<POINT>),
        CALL(SetWindowOrgEx, Dc, Origin, Origin, Out<POINT>),
        CALL(GetViewportOrgEx, Dc, Needed<POINT>),
        CALL(GetWindowOrgEx, Dc, Needed<POINT>),
        CALL(GdiFlush),
        CALL_AS(SelectObject, (+[](HDC dc, HBITMAP bitmap) { return SelectObject(dc, bitmap) != nullptr; }), Dc,
                GdiBitmap),
        CALL_AS(DeleteObject, (+[](HBITMAP bitmap) { return DeleteObject(bitmap); }), Ended<HBITMAP>),
        CALL_AS(CreateDIBSection, (+[](const BITMAPINFO *info) {
                    return Owned<HBITMAP>{CreateDIBSection(nullptr, info, DIB_RGB_COLORS, nullptr, nullptr, 0)};
                }),
                Layout),
        CALL(IntersectClipRect, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
    };
}

std::vector<Row> GdiCalls() {
    constexpr Group kGroup = kGdi;
    return {
        CALL(SetStretchBltMode, Dc, Integer),
        CALL(GetStretchBltMode, Dc),
        CALL_AS(DeleteRegion, (+[](HRGN region) { return DeleteObject(region); }), Ended<HRGN>),
        CALL_AS(CreateBitmap, (+[](DWORD width, DWORD height) {
                    return Owned<HBITMAP>{
                        CreateBitmap(static_cast<int>(width), static_cast<int>(height), 1, 32, nullptr)};
                }),
                GdiExtent),
        CALL_AS(CreateCompatibleBitmap, (+[](HDC dc, DWORD width, DWORD height) {
                    return Owned<HBITMAP>{
                        CreateCompatibleBitmap(dc, static_cast<int>(width), static_cast<int>(height))};
                }),
                Dc, GdiExtent),
        CALL(GetClipBox, Dc, Needed<RECT>),
        CALL(GetClipRgn, Dc, Region),
        CALL(SelectClipRgn, Dc, Region),
        CALL(ExtSelectClipRgn, Dc, Region, Combination),
        CALL(ExcludeClipRect, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
        CALL(OffsetClipRgn, Dc, GdiCoordinate, GdiCoordinate),
        CALL(PtVisible, Dc, GdiCoordinate, GdiCoordinate),
        CALL(RectVisible, Dc, GdiRect),
        CALL(CreateRectRgn, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
        CALL_AS(ExtCreateRegion,
                (+[](DWORD size, const RGNDATA *data) { return ExtCreateRegion(nullptr, size, data); }), RegionData),
        CALL(SetRectRgn, Region, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate),
        CALL(CombineRgn, Region, Region, Region, Combination),
        CALL(GetRgnBox, Region, Needed<RECT>),
        CALL(EqualRgn, Region, Region),
        CALL(OffsetRgn, Region, GdiCoordinate, GdiCoordinate),
        CALL(PtInRegion, Region, GdiCoordinate, GdiCoordinate),
        CALL(RectInRegion, Region, GdiRect),
        CALL(BitBlt, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate, Dc, Span, Span, Operation),
        CALL(StretchBlt, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate, Dc, Span, Span, Span, Span,
             Operation),
        CALL(PatBlt, Dc, GdiCoordinate, GdiCoordinate, GdiCoordinate, GdiCoordinate, Operation),
        CALL(GdiAlphaBlend, Dc, GdiCoordinate, GdiCoordinate, Span, Span, Dc, Span, Span, Span, Span, BlendWord),
        CALL_AS(SetDIBitsToDevice,
                (+[](HDC dc, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY, UINT first, UINT count,
                     const void *bits, const BITMAPINFO *info) {
                    return SetDIBitsToDevice(dc, x, y, width, height, sourceX, sourceY, first, count, bits, info,
                                             DIB_RGB_COLORS);
                }),
                Dc, GdiCoordinate, GdiCoordinate, GdiExtent, GdiCoordinate, GdiCoordinate, Scans),
        CALL(GetPixel, Dc, GdiCoordinate, GdiCoordinate),
        CALL(SetPixel, Dc, GdiCoordinate, GdiCoordinate, Colour),
    };
}

}  // namespace fuzz
