// A face of a font installed on this machine, as the platform gives it: its tables, its character map and its outlines.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstddef>
#include <cstdint>

#include "outline.h"

namespace lacquer::vel {

class SystemFont {
public:
    /// The face of this very family that comes nearest to the weight and slant; it may be of another weight or slant,
    /// or imitate it. Null when the family is not there or has no outlines, and when memory is short.
    static SystemFont *Open(const WCHAR *family, bool bold, bool italic);
    ~SystemFont();
    SystemFont(const SystemFont &) = delete;
    SystemFont &operator=(const SystemFont &) = delete;

    /// Copies part of an OpenType table; `tag` is its four characters, first one highest. False unless all is there.
    bool ReadTable(uint32_t tag, uint32_t offset, uint8_t *out, uint32_t size) const;
    /// Tells the units of the em square, which outlines come in from now on.
    bool SetUnitsPerEm(int units);
    /// 0 for a character that the font lacks.
    WORD GlyphOf(WCHAR unit) const;
    /// Appends a glyph without hints, in font units with y down. False when the font lacks it or memory is short; part
    /// of it may be there then.
    bool AppendGlyph(WORD glyph, Outline &outline) const;

private:
    struct Handle;
    explicit SystemFont(Handle *handle) : handle_(handle) {}

    Handle *handle_;
};

}  // namespace lacquer::vel
