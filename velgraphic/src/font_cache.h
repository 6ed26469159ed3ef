// The faces that a canvas drew with last.
#pragma once

#include <memory>

#include "font_face.h"
#include "state.h"

namespace lacquer::vel {

class FontCache {
public:
    /// Null when there is no such family or memory is short. Valid until the next call.
    FontFace *Find(const FontName &name);

private:
    struct Entry {
        FontName name;
        std::unique_ptr<FontFace> face;
    };
    static constexpr int kEntries = 8;

    Entry entries_[kEntries];
    int oldest_ = 0;
};

}  // namespace lacquer::vel
