// Finding a face again without asking the system, and remembering for a while what is not there.

#include "font_store.h"

#include <algorithm>
#include <new>
#include <utility>

namespace lacquer::vel {
namespace {

using Clock = std::chrono::steady_clock;

/// How long a family that is missing, and a character that no font has, is not looked for again.
constexpr auto kPatience = std::chrono::seconds(3);

constinit FontStore store;

/// A record of the last few of something, with the one that was used longest ago replaced first.
template <class Record, int capacity>
class Recent {
public:
    template <class Matches>
    Record *Find(Matches matches) {
        for (Slot &slot : slots_) {
            if (slot.used == 0 || !matches(slot.record)) continue;
            slot.used = ++uses_;
            return &slot.record;
        }
        return nullptr;
    }
    void Add(Record record) {
        Slot &slot = *std::ranges::min_element(slots_, {}, &Slot::used);
        slot.record = std::move(record);
        slot.used = ++uses_;
    }
    void Clear() {
        for (Slot &slot : slots_) slot = {};
    }

private:
    struct Slot {
        Record record;
        uint64_t used = 0;
    };
    Slot slots_[capacity];
    uint64_t uses_ = 0;
};

}  // namespace

FontStore &Fonts() { return store; }

struct FontStore::Contents {
    static constexpr int kNames = 48, kFaces = 64, kMissing = 16, kCharacters = 256;

    struct Named {
        FontName name;
        Reference<FontFace> face;
    };
    struct Placed {
        FontPlace place;
        DWORD style = 0;
        Reference<FontFace> face;
    };
    struct Missing {
        FontName name;
        Clock::time_point since;
    };
    /// Which face has a character; none where no face does.
    struct Character {
        FontName name;
        char32_t character = 0;
        uint32_t script = 0;
        Reference<FontFace> face;
    };

    InstalledFonts installed;
    Recent<Named, kNames> named;
    Recent<Placed, kFaces> placed;
    Recent<Missing, kMissing> missing;
    Character characters[kCharacters];
    Clock::time_point looked{};  ///< for new fonts

    /// Looks for new fonts now and then, and forgets what they may change.
    void LookForNewFonts() {
        const auto now = Clock::now();
        if (now - looked < kPatience) return;
        looked = now;
        if (installed.Refresh()) std::ranges::fill(characters, Character{});
    }

    /// None when memory is short.
    Reference<FontFace> FaceAt(const FontPlace &place, DWORD style) {
        if (const Placed *known = placed.Find([&](const Placed &p) { return p.style == style && p.place == place; })) {
            return known->face;
        }
        auto face = FontFace::Open(place, style);
        if (face) placed.Add({place, style, face});
        return face;
    }
};

FontStore::~FontStore() {
    // Whoever is inside while the process ends keeps what is there.
    if (!lock_.try_lock()) return;
    hasEnded_ = true;
    delete std::exchange(contents_, nullptr);
    lock_.unlock();
}

FontStore::Contents *FontStore::Open() {
    if (!contents_ && !hasEnded_) contents_ = new (std::nothrow) Contents;
    return contents_;
}

Reference<FontFace> FontStore::Find(const FontName &asked) {
    FontName name = asked;
    name.style &= VEL_FONT_BOLD | VEL_FONT_ITALIC;
    const Guard guard(lock_);
    Contents *contents = Open();
    if (!contents) return {};
    const auto hasName = [&](const auto &record) { return record.name == name; };
    if (const auto *known = contents->named.Find(hasName)) return known->face;
    auto *missing = contents->missing.Find(hasName);
    if (missing && Clock::now() - missing->since < kPatience) return {};

    contents->LookForNewFonts();
    FontPlace place;
    const Search result = contents->installed.Find(name, &place);
    if (result == Search::Missing) {
        missing ? void(missing->since = Clock::now()) : contents->missing.Add({name, Clock::now()});
    }
    if (result != Search::Found) return {};
    auto face = contents->FaceAt(place, name.style);
    if (face) contents->named.Add({name, face});
    return face;
}

Reference<FontFace> FontStore::FindFallback(const FontName &asked, char32_t character, uint32_t script) {
    FontName name = asked;
    name.style &= VEL_FONT_BOLD | VEL_FONT_ITALIC;
    const Guard guard(lock_);
    Contents *contents = Open();
    if (!contents) return {};
    auto &known = contents->characters[(character ^ script) % Contents::kCharacters];
    if (known.character == character && known.script == script && known.name == name) {
        if (known.face || Clock::now() - contents->looked < kPatience) return known.face;
    }
    contents->LookForNewFonts();
    FontPlace place;
    Reference<FontFace> face;
    for (int i = 0; !face; ++i) {
        const Search result = contents->installed.FindFallback(name, character, script, i, &place);
        if (result == Search::Missing) break;
        if (result == Search::Found) face = contents->FaceAt(place, name.style);
        if (!face) return {};  // for once, without memory
        if (face->GlyphOf(character) == 0) face.Reset();
    }
    known = {name, character, script, face};
    return face;
}

}  // namespace lacquer::vel
