// Kinds of arguments. Each is made from choices, gives one argument or a tuple of several, can be written as C, and may
// look at what the call left in it.
#pragma once

#include <cfloat>
#include <climits>
#include <cmath>
#include <vector>

#include "caps.h"
#include "invoke.h"

namespace fuzz {

// ---- Numbers

template <class Number, Number (*kChoose)(Call &)>
struct Chosen {
    explicit Chosen(Call &call) : number(kChoose(call)) {}
    Number Value() const { return number; }
    Number number;
};

#define CHOSEN(Name, Number)         \
    Number Choose##Name(Call &call); \
    using Name = Chosen<Number, Choose##Name>
CHOSEN(Coordinate, int);     // about the size of a surface; seldom anything
CHOSEN(Origin, int);         // as a coordinate
CHOSEN(GdiCoordinate, int);  // as a coordinate
CHOSEN(Span, int);           // 0 to 11; seldom anything
CHOSEN(Integer, int);        // -2 to 9; seldom anything
CHOSEN(Flag, int);
CHOSEN(Colour, DWORD);
CHOSEN(KernelMode, DWORD);
CHOSEN(ModeWord, DWORD);  // a draw mode in the top byte, a colour below
CHOSEN(Word, DWORD);
CHOSEN(Alpha, BYTE);
CHOSEN(Length, float);    // of vector drawing; seldom anything
CHOSEN(Fraction, float);  // -1 to 1; seldom anything
CHOSEN(Scale, float);
CHOSEN(SmallLength, float);  // 0 to 32; seldom anything

template <int kBelow>
DWORD ChooseCode(Call &call) {
    return call.choices.Seldom(16) ? call.choices.Word() : call.choices.Below(kBelow);
}
template <int kBelow>
using Code = Chosen<DWORD, ChooseCode<kBelow>>;

/// Width and height.
struct Extent {
    explicit Extent(Call &call);
    std::tuple<DWORD, DWORD> Value() const { return {width, height}; }
    DWORD width = 0, height = 0;
};

/// Width, height, bits per pixel and palette entries.
struct Format : Extent {
    explicit Format(Call &call);
    std::tuple<DWORD, DWORD, DWORD, DWORD> Value() const { return {width, height, bits, paletteCount}; }
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
        const World &world = call.world;
        if constexpr (std::is_class_v<Type>) {
            using OtherThanCanvas = std::conditional_t<std::is_same_v<Type, HGCANVAS>, HGBITMAP, HGCANVAS>;
            using OtherThanTexture = std::conditional_t<std::is_same_v<Type, HGTEXTURE>, HGBITMAP, HGTEXTURE>;
            const uintptr_t value = handle.value, upper = static_cast<uintptr_t>(0xDEADBEEFu) << 16 << 16;
            const uintptr_t canvas = world.PoolOf<OtherThanCanvas>()[0].value,
                            texture = world.PoolOf<OtherThanTexture>()[0].value;
            const uintptr_t wrong[] = {0,
                                       value | upper,
                                       (value + 0x80000000u) & 0xFFFFFFFF,
                                       value | 0x8000,
                                       value & 0xFF00FFFF,
                                       value | 0x00FF0000,
                                       ~uintptr_t{0},
                                       0x000A7FFF,
                                       canvas,
                                       texture,
                                       world.PoolOf<Entry>()[0].value};
            handle = {call.choices.OneOf(wrong)};
        } else if constexpr (kIsGdiHandle<Type>) {
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
struct EndedEntry {
    explicit EndedEntry(Call &call);
    DWORD Value() const { return handle; }
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
    void After(Call &call) {
        if (!call.done || isNull) return;
        if constexpr (std::is_same_v<Record, RECT>) {
            // An empty box may be any.
            if (record.left >= record.right || record.top >= record.bottom) record = {};
        }
        call.digest.AddBytes(&record, sizeof record);
        if (call.text) WriteValue(*call.text << "// gives ", record), *call.text << '\n';
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
    std::tuple<const Item *, int> Value() const { return {isNull ? nullptr : items.data(), count}; }
    bool isNull;
    std::vector<Item> items;
    int count = 0;
};

// ---- What types stand for

template <class Type>
struct KindOf {
    template <class Plain, class Usual, class Other>
    using When = std::conditional_t<std::is_same_v<Type, Plain>, Usual, Other>;
    using HandleOrRecord = std::conditional_t<kShape<Type>.own != 0, Handle<Type>, Out<std::remove_pointer_t<Type>>>;
    using Kind = When<int, Coordinate, When<float, Length, When<const RECT *, Rect, HandleOrRecord>>>;
};

}  // namespace fuzz
