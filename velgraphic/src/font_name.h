// What a canvas's text asks for: a family, by its own or by a generic name, and a style.
#pragma once

#include <velgraphic/velgraphic.h>

#include <algorithm>

namespace lacquer::vel {

/// A font's family and its style bits. Without a family it is the font of the system's user interface.
struct FontName {
    static constexpr int kCapacity = 32;
    WCHAR family[kCapacity] = {};
    DWORD style = 0;

    bool IsBold() const { return (style & VEL_FONT_BOLD) != 0; }
    bool IsItalic() const { return (style & VEL_FONT_ITALIC) != 0; }
    bool IsOfUserInterface() const { return family[0] == 0; }
    bool operator==(const FontName &other) const {
        return style == other.style && std::ranges::equal(family, other.family);
    }
    /// Whether the family has this name, whatever the case of its letters. `ascii`: in small letters.
    bool IsCalled(const char *ascii) const {
        const WCHAR *unit = family;
        for (; *ascii != 0; ++unit, ++ascii) {
            const int letter = *unit;
            if ((letter >= 'A' && letter <= 'Z' ? letter + ('a' - 'A') : letter) != *ascii) return false;
        }
        return *unit == 0;
    }
};

}  // namespace lacquer::vel
