// The faces that the process draws with, shared by all canvases.
#pragma once

#include <chrono>

#include "font_face.h"

namespace lacquer::vel {

/// Any thread may use it. It keeps a bounded number of faces; those that somebody draws with stay all the same.
class FontStore {
public:
    constexpr FontStore() = default;
    ~FontStore();
    FontStore(const FontStore &) = delete;
    FontStore &operator=(const FontStore &) = delete;

    /// None when no such family is installed, when memory is short, and when the library has ended. Of the style, bold
    /// and italic count.
    Reference<FontFace> Find(const FontName &name);
    /// A face with a character that the font of this name lacks. None when no face has it, too.
    Reference<FontFace> FindFallback(const FontName &name, char32_t character, uint32_t script);

private:
    struct Contents;

    /// Null when memory is short, and when the library has ended.
    Contents *Open();

    Lock lock_;
    Contents *contents_ = nullptr;
    bool hasEnded_ = false;
};

FontStore &Fonts();

}  // namespace lacquer::vel
