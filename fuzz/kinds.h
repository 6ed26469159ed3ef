// Kinds of arguments. Each is made from choices, gives one argument or a tuple of several, can be written as C, and may
// look at what the call left in it.
#pragma once

#include <climits>
#include <cmath>
#include <limits>
#include <vector>

#include "caps.h"
#include "invoke.h"

namespace fuzz {

// ---- Numbers

/// Writes a number, or a record as the numbers that it consists of.
template <class Value>
void Write(std::ostream &out, const Value &value) {
    if constexpr (std::is_floating_point_v<Value>) {
        out << value;  // as "nan" and "inf" where it is no number
    } else if constexpr (std::is_same_v<Value, DWORD>) {
        out << (value < 65536 ? "" : "0x") << (value < 65536 ? std::dec : std::hex) << value << std::dec;
    } else if constexpr (std::is_integral_v<Value>) {
        out << +value;
    } else {
        using Part = std::conditional_t<std::is_same_v<Value, velPointF> || std::is_same_v<Value, GeoRect>, float,
                                        std::conditional_t<alignof(Value) == 1, BYTE, LONG>>;
        Part parts[sizeof(Value) / sizeof(Part)];
        std::memcpy(parts, &value, sizeof parts);
        for (const Part &part : parts) Write(out << (&part == parts ? "{" : ", "), part);
        out << '}';
    }
}
template <class Items>
void WriteItems(std::ostream &out, const Items &items) {
    out << '{';
    for (const auto &item : items) Write(out, item), out << ", ";
    out << '}';
}

template <class Number, Number (*kChoose)(Call &)>
struct Chosen {
    explicit Chosen(Call &call) : number(kChoose(call)) {}
    Number Value() const { return number; }
    void Write(std::ostream &out) const { fuzz::Write(out, number); }
    Number number;
};

int ChooseCoordinate(Call &call);  // about the size of a surface; seldom anything
int ChooseOrigin(Call &call);      // as a coordinate
int ChooseGdiCoordinate(Call &call);
int ChooseSpan(Call &call);          // 0 to 11; seldom anything
int ChooseSmallInteger(Call &call);  // -2 to 9; seldom anything
DWORD ChooseColour(Call &call);
DWORD ChooseKernelMode(Call &call);
DWORD ChooseModeWord(Call &call);  // a draw mode in the top byte, a colour below
DWORD ChooseWord(Call &call);
float ChooseLength(Call &call);    // of vector drawing; seldom anything
float ChooseFraction(Call &call);  // -1 to 1; seldom anything
float ChooseScale(Call &call);
float ChooseSmallLength(Call &call);  // 0 to 32; seldom anything
inline BYTE ChooseByte(Call &call) { return call.choices.Seldom(100) ? 255 : call.choices.Byte(); }
inline int ChooseFlag(Call &call) { return call.choices.Byte() & 1; }
template <int kBelow>
DWORD ChooseCode(Call &call) {
    return call.choices.Seldom(16) ? call.choices.Word() : call.choices.Below(kBelow);
}

using Coordinate = Chosen<int, ChooseCoordinate>;
using Origin = Chosen<int, ChooseOrigin>;
using GdiCoordinate = Chosen<int, ChooseGdiCoordinate>;
using Span = Chosen<int, ChooseSpan>;
using Integer = Chosen<int, ChooseSmallInteger>;
using Flag = Chosen<int, ChooseFlag>;
using Colour = Chosen<DWORD, ChooseColour>;
using KernelMode = Chosen<DWORD, ChooseKernelMode>;
using ModeWord = Chosen<DWORD, ChooseModeWord>;
using Word = Chosen<DWORD, ChooseWord>;
template <int kBelow>
using Code = Chosen<DWORD, ChooseCode<kBelow>>;
using Alpha = Chosen<BYTE, ChooseByte>;
using Length = Chosen<float, ChooseLength>;
using Fraction = Chosen<float, ChooseFraction>;
using Scale = Chosen<float, ChooseScale>;
using SmallLength = Chosen<float, ChooseSmallLength>;

template <auto kValue>
struct Constant {
    explicit Constant(Call &) {}
    auto Value() const { return kValue; }
    void Write(std::ostream &out) const { out << (kValue == decltype(kValue){} ? "0" : "constant"); }
};
using Null = Constant<nullptr>;

/// Width and height.
struct Extent {
    explicit Extent(Call &call);
    std::tuple<DWORD, DWORD> Value() const { return {width, height}; }
    void Write(std::ostream &out) const { out << width << ", " << height; }
    DWORD width = 0, height = 0;
};

/// Width, height, bits per pixel and palette entries.
struct Format : Extent {
    explicit Format(Call &call);
    std::tuple<DWORD, DWORD, DWORD, DWORD> Value() const { return {width, height, bits, paletteCount}; }
    void Write(std::ostream &out) const {
        Extent::Write(out);
        out << ", " << bits << ", " << paletteCount;
    }
    DWORD bits = 32, paletteCount = 0;
};

// ---- Handles

enum class Use { Any, OwnOnly, LentOnly };

/// A handle from its pool, mostly a current one; else stale, of another type, or of no object.
template <class Type, Use kUse = Use::Any>
struct Handle {
    static constexpr PoolShape kPool = kShape<Type>;

    explicit Handle(Call &call) {
        const auto &pool = call.world.PoolOf<Type>();
        const size_t first = kUse == Use::LentOnly ? kPool.own : 0;
        const size_t count = (kUse == Use::OwnOnly ? kPool.own : pool.size()) - first;
        const int how = call.choices.Byte();
        const size_t start = call.choices.Byte();
        place = first + start % count;
        call.usesLive = call.usesLive && how < 236;
        for (size_t i = 0; how < 236 && i < count; ++i) {
            const size_t next = first + (start + i) % count;
            if (!IsLive(pool[next])) continue;
            place = next;
            break;
        }
        handle = pool[place];
        if (how >= 240 && !(kIsGdiHandle<Type> && call.world.rules.plainGdi)) Disguise(call, how & 15);
        call.usesLive = call.usesLive && IsLive(handle);
        if constexpr (requires(SurfaceView view) { PixelsOf(handle, view); }) {
            if (call.world.rules.comparable) NotePixels(call);
        }
    }

    Type Value() const { return handle; }

    void Write(std::ostream &out) const {
        if (!isDisguised) {
            out << kPool.name << '[' << place << ']';
        } else if constexpr (std::is_class_v<Type>) {
            out << "{0x" << std::hex << handle.value << std::dec << '}';
        } else {
            out << handle;
        }
    }

    void Disguise(Call &call, int how) {
        isDisguised = true;
        if constexpr (std::is_class_v<Type>) {
            constexpr bool kIsCanvas = std::is_same_v<Type, HGCANVAS>, kIsTexture = std::is_same_v<Type, HGTEXTURE>;
            uintptr_t value = handle.value;
            const World &world = call.world;
            switch (how) {
                case 0:
                case 1: value = 0; break;
                case 2:
                case 3:
                case 4: value |= static_cast<uintptr_t>(0xDEADBEEFu) << 16 << 16; break;
                case 5:
                    value += 0x80000000u;
                    value &= 0xFFFFFFFF;
                    break;
                case 6: value |= 0x8000; break;
                case 7: value &= 0xFF00FFFF; break;
                case 8: value |= 0x00FF0000; break;
                case 9: value = static_cast<uintptr_t>(0xFFFFFFFFFFFFFFFF); break;
                case 10: value = 0x7FFF | static_cast<uintptr_t>(how) << 16; break;
                case 11:
                case 12: value = world.PoolOf<std::conditional_t<kIsCanvas, HGBITMAP, HGCANVAS>>()[0].value; break;
                case 13:
                case 14: value = world.PoolOf<std::conditional_t<kIsTexture, HGBITMAP, HGTEXTURE>>()[0].value; break;
                default: value = world.PoolOf<DWORD>()[0]; break;
            }
            handle = {value};
        } else if constexpr (kIsGdiHandle<Type>) {
            const World &world = call.world;
            handle = how < 8    ? Type{}
                     : how < 11 ? reinterpret_cast<Type>(static_cast<uintptr_t>(0xDEADBEEF12345678))
                     : how < 13 ? reinterpret_cast<Type>(world.PoolOf<HDC>()[0])
                     : how < 15 ? reinterpret_cast<Type>(world.PoolOf<HBITMAP>()[0])
                                : reinterpret_cast<Type>(world.PoolOf<HRGN>()[0]);
        } else {
            handle = Type{};
        }
    }

    /// Two handles of the same pixels leave the result of most calls open.
    void NotePixels(Call &call) {
        SurfaceView view{};
        const void *pixels = PixelsOf(handle, view);
        for (const void *other : call.pixels) call.isUndefined = call.isUndefined || (pixels && pixels == other);
        call.pixels.push_back(pixels);
        depth = view.bitsPerPixel;
    }

    Type handle{};
    size_t place = 0;
    bool isDisguised = false;
    WORD depth = 0;
};

using Canvas = Handle<HGCANVAS>;
using Bitmap = Handle<HGBITMAP>;
using Texture = Handle<HGTEXTURE>;
using Dc = Handle<HDC>;
using GdiBitmap = Handle<HBITMAP>;
using Region = Handle<HRGN>;
using Path = Handle<velPath *>;
using Gradient = Handle<velGradient *>;
using Lottie = Handle<velLottie *>;
using VelCanvas = Handle<velCanvas *>;
using VelBitmap = Handle<velBitmap *>;

/// A source of new pixels: at other depths than these they are left as memory was.
template <class Type>
struct Drawable : Handle<Type> {
    explicit Drawable(Call &call) : Handle<Type>(call) {
        const bool isDrawn = this->depth == 8 || this->depth == 24 || this->depth == 32;
        if (call.world.rules.comparable && !isDrawn) call.isUndefined = true;
    }
};

/// An object that ends by the call. Those of the companion may not be named afterwards.
template <class Type>
struct Ended : Handle<Type, Use::OwnOnly> {
    explicit Ended(Call &call) : Handle<Type, Use::OwnOnly>(call) {
        if constexpr (!kIsGdiHandle<Type>) {
            if (this->handle) call.world.PoolOf<Type>()[this->place] = nullptr;
        }
    }
};

/// What e_DelHandleEntry may be given: entries made by hand, and aliases.
struct Entry {
    explicit Entry(Call &call);
    DWORD Value() const { return handle; }
    void Write(std::ostream &out) const { out << "0x" << std::hex << handle << std::dec; }
    DWORD handle = 0;
};

// ---- Records

RECT ChooseRect(Call &call);
RECT ChooseGdiRect(Call &call);
RECT ChoosePart(Call &call);
RECT ChooseMargins(Call &call);
TextureMode ChooseTextureMode(Call &call);
RGBRecord ChooseRgb(Call &call);
HSLRecord ChooseHsl(Call &call);

/// A pointer to a record, `kNull` times in 256 null.
template <class Record, Record (*kChoose)(Call &), int kNull = 24>
struct In {
    explicit In(Call &call) : isNull(call.choices.Seldom(kNull)), record(kChoose(call)) {}
    const Record *Value() const { return isNull ? nullptr : &record; }
    void Write(std::ostream &out) const {
        if (isNull) {
            out << "0";
        } else {
            fuzz::Write(out << '&', record);
        }
    }
    bool isNull;
    Record record;
};
using Rect = In<RECT, ChooseRect>;
using GdiRect = In<RECT, ChooseGdiRect, 0>;
using Part = In<RECT, ChoosePart, 100>;  // of a surface; null stands for all of it
using Margins = In<RECT, ChooseMargins>;

/// A pointer to a record that the call writes, `kNull` times in 256 null.
template <class Record, int kNull = 8>
struct Out {
    explicit Out(Call &call) : isNull(call.choices.Seldom(kNull)) {}
    Record *Value() { return isNull ? nullptr : &record; }
    void Write(std::ostream &out) const { out << (isNull ? "0" : "&out"); }
    void After(Call &call) {
        if (!call.done || isNull) return;
        if constexpr (std::is_same_v<Record, RECT>) {
            // An empty box may be any.
            if (record.left >= record.right || record.top >= record.bottom) record = {};
        }
        call.digest.AddBytes(&record, sizeof record);
        if (call.text) fuzz::Write(*call.text << "// gives ", record), *call.text << '\n';
    }
    bool isNull;
    Record record{};
};

/// A view that a lock fills. Now and then its pixels are written at once.
struct View : Out<SurfaceView> {
    explicit View(Call &call) : Out(call) {}
    void After(Call &call);
};

/// An array of up to `kMost` items, with their number after it; seldom null.
template <class Item, Item (*kChoose)(Call &), int kMost>
struct List {
    explicit List(Call &call) : isNull(call.choices.Seldom(12)), items(call.choices.Below(kMost + 1)) {
        for (Item &item : items) item = kChoose(call);
        count = call.choices.Seldom(4) && (isNull || items.empty()) ? -1 : static_cast<int>(items.size());
    }
    const Item *Items() const { return isNull ? nullptr : items.data(); }
    std::tuple<const Item *, int> Value() const { return {Items(), count}; }
    void Write(std::ostream &out) const {
        if (isNull) {
            out << '0';
        } else {
            WriteItems(out, items);
        }
        out << ", " << count;
    }
    bool isNull;
    std::vector<Item> items;
    int count = 0;
};

}  // namespace fuzz
