// How arguments are chosen: mostly what callers pass, often enough what they should not.

#include "kinds.h"

namespace fuzz {
namespace {

constexpr int kExtremes[] = {INT_MIN, INT_MIN + 1, -(1 << 30), -(1 << 27) - 1, -(1 << 27),    -65537,  -32769,
                             -1,      0,           1,          32767,          32768,         65535,   65536,
                             1 << 24, 1 << 26,     1 << 27,    (1 << 27) - 1,  (1 << 27) + 1, 1 << 30, INT_MAX - 1,
                             INT_MAX};

constexpr float kOddFloats[] = {0.0f,     -0.0f,      1.0f,   -1.0f,         1e-6f,          32767.0f,
                                32768.0f, 1000000.0f, 1e9f,   2147483648.0f, -2147483904.0f, FLT_MAX,
                                -FLT_MAX, FLT_MIN,    1e-45f, INFINITY,      -INFINITY,      NAN};

float ChooseOddFloat(Call &call) { return call.choices.OneOf(kOddFloats); }

}  // namespace

int ChooseCoordinate(Call &call) {
    const int place = call.choices.Byte();
    if (place < 208) return place % 80 - 8;
    if (place < 232) return static_cast<int>(call.choices.Below(1200)) - 400;
    return call.choices.OneOf(kExtremes);
}

int ChooseOrigin(Call &call) {
    // GDI computes its clip box in single precision.
    constexpr int kExact = 1 << 23;
    const int origin = ChooseCoordinate(call);
    return call.world.rules.comparable ? std::clamp(origin, -kExact, kExact) : origin;
}

int ChooseGdiCoordinate(Call &call) {
    const int coordinate = ChooseCoordinate(call);
    return call.world.rules.plainGdi ? std::clamp(coordinate, -1000, 1000) : coordinate;
}

int ChooseSpan(Call &call) {
    return call.choices.Seldom(40) ? ChooseGdiCoordinate(call) : static_cast<int>(call.choices.Below(12));
}

int ChooseInteger(Call &call) {
    return call.choices.Seldom(20) ? call.choices.OneOf(kExtremes) : static_cast<int>(call.choices.Below(12)) - 2;
}

int ChooseFlag(Call &call) { return call.choices.Byte() & 1; }

BYTE ChooseAlpha(Call &call) { return call.choices.Seldom(100) ? 255 : call.choices.Byte(); }

DWORD ChooseColour(Call &call) {
    constexpr DWORD kColours[] = {0, 0xFFFFFFFF, 0xFF000000, 0x80808080, 0x00FFFFFF, 0x01FF00FF, 0x7F4F2F1F};
    const int how = call.choices.Byte();
    DWORD colour = how < 80 ? call.choices.OneOf(kColours) : call.choices.Word();
    if (how >= 220) colour |= 0xFF000000;
    return how < 140 && !call.world.rules.comparable ? colour : Premultiplied(colour);
}

DWORD ChooseWord(Call &call) { return call.choices.Seldom(64) ? call.choices.Word() : call.choices.Byte(); }

DWORD ChooseKernelMode(Call &call) {
    constexpr DWORD kModes[] = {0, 0, 1, 1, 4, 4, 5, 5, 2, 3, 6, 0xFFFFFFFF};
    const DWORD mode = call.choices.OneOf(kModes);
    return call.world.rules.fineWeights || (mode != 4 && mode != 5) ? mode : 1;
}

DWORD ChooseModeWord(Call &call) {
    const DWORD mode = call.choices.Seldom(10) ? call.choices.Byte() : call.choices.Below(8);
    constexpr DWORD kKeys[] = {0, 0xFFFFFF, 0x3F7F1F, 0x000001};
    return mode << 24 | call.choices.OneOf(kKeys);
}

float ChooseLength(Call &call) {
    if (!call.choices.Seldom(12)) return static_cast<float>(call.choices.Below(65536) % 46080) / 512.0f - 16.0f;
    return ChooseOddFloat(call);
}

float ChooseFraction(Call &call) {
    return call.choices.Seldom(16) ? ChooseOddFloat(call) : static_cast<float>(call.choices.Byte()) / 127.5f - 1.0f;
}

float ChooseScale(Call &call) {
    constexpr float kScales[] = {1.0f, 1.0f, 0.5f, 2.0f, 1.5f, 0.1f, 3.7f, -1.0f};
    return call.choices.Seldom(24) ? ChooseOddFloat(call) : call.choices.OneOf(kScales);
}

float ChooseSmallLength(Call &call) {
    return call.choices.Seldom(16) ? ChooseOddFloat(call) : static_cast<float>(call.choices.Byte()) / 8;
}

Extent::Extent(Call &call) {
    const int how = call.choices.Byte();
    const auto side = [&](int most) { return 1 + call.choices.Below(static_cast<uint32_t>(most)); };
    width = side(how < 128 ? 16 : caps::kSide);
    height = side(how < 128 ? 16 : caps::kSide);
    if (how >= 240) width = side(caps::kLargeSide), height = side(caps::kLargeSide);
    constexpr DWORD kOddSides[] = {0, caps::kWideSide, 32768, 65537, 0x80000000, 0xFFFFFFFF};
    if (how >= 248) {
        (how & 1 ? width : height) = call.choices.OneOf(kOddSides);
        (how & 1 ? height : width) = side(3);
    }
}

Format::Format(Call &call) : Extent(call) {
    constexpr DWORD kDepths[] = {8, 24, 32};
    constexpr DWORD kOddDepths[] = {0, 1, 2, 4, 7, 9, 15, 16, 31, 33, 48, 64, 65535, 65544, 0x80000020};
    bits = call.choices.Seldom(24) ? call.choices.OneOf(kOddDepths) : call.choices.OneOf(kDepths);
    constexpr DWORD kCounts[] = {0, 0, 256, 255, 16, 1, 257, 65535, 65536};
    paletteCount = call.choices.Seldom(64) ? call.choices.Below(caps::kPaletteCount) : call.choices.OneOf(kCounts);
    if (bits > caps::kDepthOfLarge) width %= 9, height %= 9;
}

EndedEntry::EndedEntry(Call &call) {
    const World &world = call.world;
    const size_t place = call.choices.Byte(), which = place / 4;
    switch (place % 4) {
        case 0: handle = static_cast<DWORD>(world.PoolOf<HGCANVAS>()[kShape<HGCANVAS>.own + which % 2].value); break;
        case 1: handle = static_cast<DWORD>(world.PoolOf<HGBITMAP>()[kShape<HGBITMAP>.own + which % 2].value); break;
        default: handle = world.PoolOf<Entry>()[which % kShape<Entry>.own].value;
    }
    if (place >= 250) handle += 0x80000000;
}

RECT ChooseRect(Call &call) {
    const int how = call.choices.Byte();
    RECT rect{};
    if (how < 224) {
        rect.left = static_cast<LONG>(call.choices.Below(64)) - (how < 96 ? 0 : 12);
        rect.top = static_cast<LONG>(call.choices.Below(64)) - (how < 96 ? 0 : 12);
        if (how < 64) rect.left /= 8, rect.top /= 8;
        rect.right = rect.left + static_cast<LONG>(call.choices.Below(how < 64 ? 16 : 72)) + (how != 100);
        rect.bottom = rect.top + static_cast<LONG>(call.choices.Below(how < 64 ? 16 : 72)) + (how != 101);
        if (how == 102) std::swap(rect.left, rect.right);
        if (how == 103) std::swap(rect.top, rect.bottom);
    } else {
        rect = {ChooseCoordinate(call), ChooseCoordinate(call), ChooseCoordinate(call), ChooseCoordinate(call)};
        if (how >= 240) (how & 1 ? rect.right : rect.bottom) = call.choices.OneOf(kExtremes);
        if (how >= 248) (how & 2 ? rect.left : rect.top) = call.choices.OneOf(kExtremes);
    }
    return rect;
}

RECT ChooseGdiRect(Call &call) {
    const RECT rect = ChooseRect(call);
    const LONG left = rect.left % 99, top = rect.top % 99;
    return call.world.rules.plainGdi ? RECT{left, top, left + 20, top + 20} : rect;
}

RECT ChoosePart(Call &call) {
    if (call.choices.Seldom(48)) return ChooseRect(call);
    const auto left = static_cast<LONG>(call.choices.Below(4)), top = static_cast<LONG>(call.choices.Below(4));
    const auto side = [&] { return static_cast<LONG>(1 + call.choices.Below(call.choices.Seldom(64) ? 40 : 8)); };
    return {left, top, left + side(), top + side()};
}

RECT ChooseMargins(Call &call) {
    if (call.choices.Seldom(32)) return ChooseRect(call);
    const auto margin = [&] { return static_cast<LONG>(call.choices.Below(9)); };
    return {margin(), margin(), margin(), margin()};
}

TextureMode ChooseTextureMode(Call &call) { return {ChooseCode<7>(call), ChooseCode<32>(call), ChooseMargins(call)}; }
RGBRecord ChooseRgb(Call &call) { return {call.choices.Byte(), call.choices.Byte(), call.choices.Byte()}; }
HSLRecord ChooseHsl(Call &call) { return {call.choices.Byte(), call.choices.Byte(), call.choices.Byte()}; }

void View::After(Call &call) {
    if (!call.done || isNull) return;
    const LONG shape[] = {record.type, record.width, record.height, record.stride, record.planes, record.bitsPerPixel};
    call.digest.AddBytes(shape, sizeof shape);
    call.Add(record.paletteCount);
    if (!record.bits) return;
    const int how = call.choices.Byte();
    if (how < 64) {
        if (call.text) *call.text << "  // written by " << how << std::endl;
        call.world.PaintView(record, static_cast<uint32_t>(how));
    }
    if (call.world.views.size() < 4) call.world.views.push_back(record);
}

}  // namespace fuzz
