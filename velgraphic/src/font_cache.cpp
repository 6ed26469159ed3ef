// Finding a face again without asking the system.

#include "font_cache.h"

#include <algorithm>
#include <utility>

namespace lacquer::vel {

FontFace *FontCache::Find(const FontName &name) {
    if (name.family[0] == 0) return nullptr;
    const DWORD style = name.style & (VEL_FONT_BOLD | VEL_FONT_ITALIC);
    for (const Entry &entry : entries_) {
        if (entry.face && entry.name.style == style && std::ranges::equal(entry.name.family, name.family)) {
            return entry.face.get();
        }
    }
    // A family that is missing is looked for again each time: it may have been installed in the meantime.
    auto face = FontFace::Open(name.family, style);
    if (!face) return nullptr;
    Entry &entry = entries_[oldest_];
    oldest_ = (oldest_ + 1) % kEntries;
    entry.name = {.style = style};
    std::ranges::copy(name.family, entry.name.family);
    entry.face = std::move(face);
    return entry.face.get();
}

}  // namespace lacquer::vel
