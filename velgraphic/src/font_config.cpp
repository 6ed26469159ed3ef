// What is installed, through fontconfig, with a configuration of our own: the program's stays as it is, and nothing is
// ever written. (Building a configuration's fonts, as fontconfig does it, writes caches; short of memory, empty ones.)

#include <dirent.h>
#include <fontconfig/fontconfig.h>
#include <hb.h>
#include <sys/stat.h>

#include <cstring>
#include <memory>
#include <new>

#include "memory_proof.h"
#include "system_font.h"

namespace lacquer::vel {
namespace {

template <auto destroy>
struct DestroyBy {
    template <class Object>
    void operator()(Object *object) const {
        destroy(object);
    }
};
using Pattern = std::unique_ptr<FcPattern, DestroyBy<FcPatternDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, DestroyBy<FcFontSetDestroy>>;
using CharSet = std::unique_ptr<FcCharSet, DestroyBy<FcCharSetDestroy>>;
using StringSet = std::unique_ptr<FcStrSet, DestroyBy<FcStrSetDestroy>>;
using StringList = std::unique_ptr<FcStrList, DestroyBy<FcStrListDone>>;
using String = std::unique_ptr<FcChar8, DestroyBy<FcStrFree>>;
using Config = std::unique_ptr<FcConfig, DestroyBy<FcConfigDestroy>>;

/// fontconfig does not look whether it gets memory. To read its configuration and caches it needs about 3 MiB, to
/// match or sort some hundreds of bytes for each font.
constexpr size_t kMemoryToLoad = size_t{12} << 20;
constexpr size_t kMemoryToMatch = size_t{1} << 20, kMemoryPerFont = 1 << 10;

/// Folders within folders, at most.
constexpr int kMaxDepth = 12;

/// A family's name as UTF-8; what is no character becomes U+FFFD.
struct Utf8Name {
    FcChar8 bytes[128] = {};

    explicit Utf8Name(const WCHAR *name) {
        FcChar8 *out = bytes;
        // 31 units, at most three bytes each.
        for (int i = 0; name[i] != 0 && i < 31; ++i) {
            uint32_t code = name[i];
            const bool isHigh = code >= 0xD800 && code < 0xDC00;
            if (isHigh && name[i + 1] >= 0xDC00 && name[i + 1] < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10) + (uint32_t{name[++i]} - 0xDC00);
            } else if (code >= 0xD800 && code < 0xE000) {
                code = 0xFFFD;
            }
            const int following = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
            constexpr uint8_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
            *out++ = static_cast<FcChar8>(kLead[following] | code >> 6 * following);
            for (int k = following - 1; k >= 0; --k) *out++ = static_cast<FcChar8>(0x80 | (code >> 6 * k & 0x3F));
        }
    }
};

const FcChar8 *Utf8(const char *ascii) { return reinterpret_cast<const FcChar8 *>(ascii); }

/// The generic family that a name stands for; null when it is a family's own name.
const FcChar8 *GenericFamily(const FontName &name) {
    if (name.IsOfUserInterface()) return Utf8("sans-serif");
    for (const char *generic : {"sans-serif", "serif", "monospace", "system-ui"}) {
        if (name.IsCalled(generic)) return Utf8(generic);
    }
    return nullptr;
}

/// A language that is written in a script, for those where fonts differ by it. Han is left to the user's languages.
const FcChar8 *LanguageOf(uint32_t script) {
    constexpr struct {
        hb_script_t script;
        const char *language;
    } kLanguages[] = {{HB_SCRIPT_ARABIC, "ar"},      {HB_SCRIPT_ARMENIAN, "hy"}, {HB_SCRIPT_BENGALI, "bn"},
                      {HB_SCRIPT_BOPOMOFO, "zh-tw"}, {HB_SCRIPT_CYRILLIC, "ru"}, {HB_SCRIPT_DEVANAGARI, "hi"},
                      {HB_SCRIPT_ETHIOPIC, "am"},    {HB_SCRIPT_GEORGIAN, "ka"}, {HB_SCRIPT_GREEK, "el"},
                      {HB_SCRIPT_GUJARATI, "gu"},    {HB_SCRIPT_GURMUKHI, "pa"}, {HB_SCRIPT_HANGUL, "ko"},
                      {HB_SCRIPT_HEBREW, "he"},      {HB_SCRIPT_HIRAGANA, "ja"}, {HB_SCRIPT_KANNADA, "kn"},
                      {HB_SCRIPT_KATAKANA, "ja"},    {HB_SCRIPT_KHMER, "km"},    {HB_SCRIPT_LAO, "lo"},
                      {HB_SCRIPT_MALAYALAM, "ml"},   {HB_SCRIPT_MYANMAR, "my"},  {HB_SCRIPT_ORIYA, "or"},
                      {HB_SCRIPT_SINHALA, "si"},     {HB_SCRIPT_TAMIL, "ta"},    {HB_SCRIPT_TELUGU, "te"},
                      {HB_SCRIPT_THAI, "th"},        {HB_SCRIPT_TIBETAN, "bo"}};
    for (const auto &entry : kLanguages) {
        if (entry.script == script) return Utf8(entry.language);
    }
    return nullptr;
}

/// What to match fonts with. Null when memory is short.
Pattern PatternOf(FcConfig *config, const FcChar8 *family, const FontName &name, const FcChar8 *language) {
    Pattern wanted(FcPatternCreate());
    if (!wanted || !FcPatternAddString(wanted.get(), FC_FAMILY, family) ||
        !FcPatternAddInteger(wanted.get(), FC_WEIGHT, name.IsBold() ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR) ||
        !FcPatternAddInteger(wanted.get(), FC_SLANT, name.IsItalic() ? FC_SLANT_ITALIC : FC_SLANT_ROMAN) ||
        !FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue) ||
        (language && !FcPatternAddString(wanted.get(), FC_LANG, language)) ||
        !FcConfigSubstitute(config, wanted.get(), FcMatchPattern)) {
        return {};
    }
    FcDefaultSubstitute(wanted.get());
    return wanted;
}

bool PlaceOf(FcPattern *font, FontPlace *out) {
    FcChar8 *file = nullptr;
    int index = 0;
    if (FcPatternGetString(font, FC_FILE, 0, &file) != FcResultMatch ||
        FcPatternGetInteger(font, FC_INDEX, 0, &index) != FcResultMatch) {
        return false;
    }
    const size_t length = std::strlen(reinterpret_cast<const char *>(file));
    if (length >= FontPlace::kCapacity) return false;
    *out = {};
    std::memcpy(out->name, file, length);
    out->index = index;
    return true;
}

/// Whether a font has outlines and OpenType's tables, and is not a whole family that varies: its instances are listed
/// as well.
bool CanBeUsed(FcPattern *font) {
    FcBool hasOutlines = FcFalse, isVariable = FcFalse;
    FcChar8 *format = nullptr;
    return FcPatternGetBool(font, FC_OUTLINE, 0, &hasOutlines) == FcResultMatch && hasOutlines &&
           FcPatternGetString(font, FC_FONTFORMAT, 0, &format) == FcResultMatch &&
           (FcStrCmp(format, Utf8("TrueType")) == 0 || FcStrCmp(format, Utf8("CFF")) == 0) &&
           (FcPatternGetBool(font, FC_VARIABLE, 0, &isVariable) != FcResultMatch || !isVariable);
}

/// A folder of fonts, and when it was changed last.
struct Folder {
    String path;
    timespec changed{};
    std::unique_ptr<Folder> next;
};

timespec LastChange(const FcChar8 *path) {
    struct stat status {};
    return stat(reinterpret_cast<const char *>(path), &status) == 0 ? status.st_mtim : timespec{};
}

/// Reads the folders of a configuration, from the caches that there are, and what has none from the fonts themselves.
class Collector {
public:
    Collector(FcConfig *config, FcFontSet *fonts, std::unique_ptr<Folder> *folders)
        : config_(config), fonts_(fonts), folders_(folders), seen_(FcStrSetCreate()) {}

    /// False when memory is short.
    bool AddFolder(const FcChar8 *path, int depth) {
        if (!seen_) return false;
        if (depth > kMaxDepth || FcStrSetMember(seen_.get(), path)) return true;
        std::unique_ptr<Folder> folder(new (std::nothrow) Folder);
        if (!FcStrSetAdd(seen_.get(), path) || !folder) return false;
        folder->path.reset(FcStrCopy(path));
        if (!folder->path) return false;
        folder->changed = LastChange(path);
        folder->next = std::move(*folders_);
        *folders_ = std::move(folder);

        FcCache *cache = FcDirCacheLoad(path, config_, nullptr);
        // A cache that was made under another name of the folder has that name in all its paths. And an empty one is
        // what fontconfig writes when memory is short.
        const bool isRight =
            cache && FcCacheNumFont(cache) + FcCacheNumSubdir(cache) > 0 && FcStrCmp(FcCacheDir(cache), path) == 0;
        const bool isDone = isRight ? AddCached(cache, depth) : Scan(path, depth);
        if (cache) FcDirCacheUnload(cache);
        return isDone;
    }

private:
    bool AddCached(FcCache *cache, int depth) {
        const FontSet cached(FcCacheCopySet(cache));
        if (!cached) return false;
        for (int i = 0; i < cached->nfont; ++i) {
            if (!Add(cached->fonts[i])) return false;
        }
        for (int i = 0; i < FcCacheNumSubdir(cache); ++i) {
            if (!AddFolder(FcCacheSubdir(cache, i), depth + 1)) return false;
        }
        return true;
    }

    bool Add(FcPattern *font) {
        if (!CanBeUsed(font)) return true;
        FcPatternReference(font);
        if (FcFontSetAdd(fonts_, font)) return true;
        FcPatternDestroy(font);
        return false;
    }

    bool Scan(const FcChar8 *path, int depth) {
        const std::unique_ptr<DIR, DestroyBy<closedir>> entries(opendir(reinterpret_cast<const char *>(path)));
        while (const dirent *entry = entries ? readdir(entries.get()) : nullptr) {
            if (entry->d_name[0] == '.') continue;
            const String name(FcStrBuildFilename(path, Utf8(entry->d_name), nullptr));
            struct stat status {};
            if (!name) return false;
            if (stat(reinterpret_cast<const char *>(name.get()), &status) != 0) continue;
            if (S_ISDIR(status.st_mode) ? !AddFolder(name.get(), depth + 1)
                                        : S_ISREG(status.st_mode) && !ScanFile(name.get())) {
                return false;
            }
        }
        return true;
    }

    bool ScanFile(const FcChar8 *file) {
        constexpr unsigned kAllFaces = ~0u;
        const FontSet found(FcFontSetCreate());
        if (!found || !MemoryCanBeHad(kMemoryToMatch)) return false;
        int count = 0;
        FcFreeTypeQueryAll(file, kAllFaces, nullptr, &count, found.get());
        for (int i = 0; i < found->nfont; ++i) {
            FcPattern *font = found->fonts[i];
            if (!FcConfigSubstitute(config_, font, FcMatchScan) || !Add(font)) return false;
        }
        return true;
    }

    FcConfig *config_;
    FcFontSet *fonts_;
    std::unique_ptr<Folder> *folders_;
    StringSet seen_;
};

/// The fonts for what one font lacks in one language, the best first, and all that they have.
struct Fallbacks {
    FontName name;
    const FcChar8 *language = nullptr;
    FontSet fonts;
    CharSet characters;
};

}  // namespace

struct InstalledFonts::Data {
    static constexpr int kFallbacks = 32;

    Config config;
    FontSet fonts;
    std::unique_ptr<Folder> folders;
    Fallbacks fallbacks[kFallbacks];
    int oldest = 0;

    bool HasMemory() const {
        return MemoryCanBeHad(kMemoryToMatch + kMemoryPerFont * static_cast<size_t>(fonts->nfont));
    }

    const Fallbacks *FallbacksFor(const FontName &name, uint32_t script);
};

InstalledFonts::Data *InstalledFonts::Load() {
    if (data_) return data_;
    if (!MemoryCanBeHad(kMemoryToLoad)) return nullptr;
    std::unique_ptr<Data> data(new (std::nothrow) Data);
    if (!data) return nullptr;
    data->config.reset(FcConfigCreate());
    data->fonts.reset(FcFontSetCreate());
    if (!data->config || !data->fonts) return nullptr;
    FcConfigParseAndLoad(data->config.get(), nullptr, FcFalse);
    Collector collector(data->config.get(), data->fonts.get(), &data->folders);
    const StringList folders(FcConfigGetFontDirs(data->config.get()));
    while (const FcChar8 *path = folders ? FcStrListNext(folders.get()) : nullptr) {
        if (!collector.AddFolder(path, 0)) return nullptr;
    }
    return data_ = data.release();
}

void InstalledFonts::Forget() {
    delete data_;
    data_ = nullptr;
}

Search InstalledFonts::Find(const FontName &name, FontPlace *out) {
    Data *data = Load();
    if (!data || !data->HasMemory()) return Search::NoMemory;
    const FcChar8 *generic = GenericFamily(name);
    const Utf8Name own(name.family);
    const FcChar8 *family = generic ? generic : own.bytes;
    const Pattern wanted = PatternOf(data->config.get(), family, name, nullptr);
    if (!wanted) return Search::NoMemory;
    FcFontSet *fonts = data->fonts.get();
    FcResult result;
    const Pattern found(FcFontSetMatch(data->config.get(), &fonts, 1, wanted.get(), &result));
    if (!found) return Search::Missing;
    bool isRight = generic != nullptr;
    FcChar8 *called = nullptr;
    for (int i = 0; !isRight && FcPatternGetString(found.get(), FC_FAMILY, i, &called) == FcResultMatch; ++i) {
        isRight = FcStrCmpIgnoreCase(called, family) == 0;
    }
    return isRight && PlaceOf(found.get(), out) ? Search::Found : Search::Missing;
}

const Fallbacks *InstalledFonts::Data::FallbacksFor(const FontName &name, uint32_t script) {
    const FcChar8 *language = LanguageOf(script);
    for (const Fallbacks &each : fallbacks) {
        if (each.fonts && each.language == language && each.name == name) return &each;
    }
    if (!HasMemory()) return nullptr;
    const FcChar8 *generic = GenericFamily(name);
    const Utf8Name own(name.family);
    const Pattern wanted = PatternOf(config.get(), generic ? generic : own.bytes, name, language);
    if (!wanted) return nullptr;
    FcFontSet *sets = fonts.get();
    FcCharSet *characters = nullptr;
    FcResult result;
    FontSet sorted(FcFontSetSort(config.get(), &sets, 1, wanted.get(), FcTrue, &characters, &result));
    CharSet owned(characters);
    if (!sorted || !owned) return nullptr;
    Fallbacks &place = fallbacks[oldest];
    oldest = (oldest + 1) % kFallbacks;
    place = {name, language, std::move(sorted), std::move(owned)};
    return &place;
}

Search InstalledFonts::FindFallback(const FontName &name, char32_t character, uint32_t script, int passed,
                                    FontPlace *out) {
    Data *data = Load();
    const Fallbacks *fallbacks = data ? data->FallbacksFor(name, script) : nullptr;
    if (!fallbacks) return Search::NoMemory;
    if (!FcCharSetHasChar(fallbacks->characters.get(), character)) return Search::Missing;
    for (int i = 0; i < fallbacks->fonts->nfont; ++i) {
        FcPattern *font = fallbacks->fonts->fonts[i];
        FcCharSet *characters = nullptr;
        if (FcPatternGetCharSet(font, FC_CHARSET, 0, &characters) != FcResultMatch) continue;
        if (FcCharSetHasChar(characters, character) && passed-- == 0) {
            return PlaceOf(font, out) ? Search::Found : Search::Missing;
        }
    }
    return Search::Missing;
}

bool InstalledFonts::Refresh() {
    if (!data_) return false;
    bool isSame = true;
    for (const Folder *folder = data_->folders.get(); folder && isSame; folder = folder->next.get()) {
        const timespec changed = LastChange(folder->path.get());
        isSame = changed.tv_sec == folder->changed.tv_sec && changed.tv_nsec == folder->changed.tv_nsec;
    }
    if (isSame) return false;
    // What was known goes only when something new can be known.
    Data *known = data_;
    data_ = nullptr;
    if (!Load()) {
        data_ = known;
        return false;
    }
    delete known;
    return true;
}

}  // namespace lacquer::vel
