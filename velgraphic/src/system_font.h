// The fonts installed on this machine, as the platform gives them: which there are, and of a face its tables and its
// outlines.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstddef>
#include <cstdint>

#include "font_name.h"
#include "outline.h"

namespace lacquer::vel {

/// Where a face is found: a file and the number of the face in it, or a family and a style, whichever the system goes
/// by. Equal places are the same face.
struct FontPlace {
    static constexpr size_t kCapacity = 1000;
    char name[kCapacity] = {};
    int index = 0;

    bool operator==(const FontPlace &) const = default;
};

/// How a search for a font ends.
enum class Search { Found, Missing, NoMemory };

/// What is installed. One thread at a time may call it.
class InstalledFonts {
public:
    InstalledFonts() = default;
    ~InstalledFonts() { Forget(); }
    InstalledFonts(const InstalledFonts &) = delete;
    InstalledFonts &operator=(const InstalledFonts &) = delete;

    /// The face that comes nearest to the style in this very family, in the one that a generic name stands for, or in
    /// that of the user interface. A family without outlines is missing.
    Search Find(const FontName &name, FontPlace *out);
    /// A face for a character that the font asked for lacks: of all that may have it, the one after the first
    /// `passed`. `script`: the tag of the script, as HarfBuzz has it. Missing: there are no more.
    Search FindFallback(const FontName &name, char32_t character, uint32_t script, int passed, FontPlace *out);
    /// Looks whether fonts were added or removed. True when what was found before may be found differently now.
    bool Refresh();

private:
    struct Data;

    /// Null when memory is short.
    Data *Load();
    void Forget();

    Data *data_ = nullptr;
};

/// One thread at a time may use a face.
class SystemFont {
public:
    /// Null when it is gone or has no outlines, and when memory is short.
    static SystemFont *Open(const FontPlace &place);
    ~SystemFont();
    SystemFont(const SystemFont &) = delete;
    SystemFont &operator=(const SystemFont &) = delete;

    /// The length of an OpenType table, bytes; 0 when there is none. `tag` is its four characters, first one highest.
    uint32_t TableSize(uint32_t tag) const;
    /// Copies part of a table. False unless all is there.
    bool ReadTable(uint32_t tag, uint32_t offset, uint8_t *out, uint32_t size) const;
    /// Tells the units of the em square, which outlines come in from now on.
    bool SetUnitsPerEm(int units);
    /// Of a face that is one of the instances of a variable font, where it lies on the font's axes, in steps of 2^-14.
    /// Result: the number of axes; 0 for any other face.
    int Variations(int *out, int capacity) const;
    /// Appends a glyph without hints, in font units with y down. False when the font lacks it or memory is short; part
    /// of it may be there then.
    bool AppendGlyph(WORD glyph, Outline &outline) const;

private:
    struct Handle;
    explicit SystemFont(Handle *handle) : handle_(handle) {}

    Handle *handle_;
};

}  // namespace lacquer::vel
