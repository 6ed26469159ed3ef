// What is installed, through GDI, and what Windows links to a font for the characters that it lacks.

#include "gdi_fonts.h"

#include <hb.h>

#include <cstring>
#include <cwchar>
#include <memory>
#include <new>

namespace lacquer::vel {
namespace {

FontName NameOf(const WCHAR *family, DWORD style) {
    FontName name{.style = style};
    for (int i = 0; family[i] != 0 && i < FontName::kCapacity - 1; ++i) name.family[i] = family[i];
    return name;
}

/// GDI takes another family for one that is missing; the enumeration does not.
bool IsInstalled(const FontName &name) {
    LOGFONTW wanted = Describe(name, 0);
    int found = 0;
    HDC dc = CreateCompatibleDC(nullptr);
    if (!dc) return false;
    EnumFontFamiliesExW(
        dc, &wanted,
        [](const LOGFONTW *, const TEXTMETRICW *, DWORD, LPARAM result) -> int {
            *reinterpret_cast<int *>(result) = 1;
            return 0;
        },
        reinterpret_cast<LPARAM>(&found), 0);
    DeleteDC(dc);
    return found != 0;
}

/// What generic names stand for, the first that is installed.
constexpr struct {
    const char *generic;
    const WCHAR *families[5];
} kGenerics[] = {
    {"sans-serif", {L"Segoe UI", L"Arial", L"Tahoma", L"DejaVu Sans", L"Liberation Sans"}},
    {"serif", {L"Times New Roman", L"Georgia", L"Cambria", L"DejaVu Serif", L"Liberation Serif"}},
    {"monospace", {L"Consolas", L"Courier New", L"Lucida Console", L"DejaVu Sans Mono", L"Liberation Mono"}}};

/// The family of message boxes.
FontName MessageFont(DWORD style) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return NameOf(L"", style);
    return NameOf(metrics.lfMessageFont.lfFaceName, style);
}

/// Families that Windows comes with, for most scripts; and two that other systems do.
constexpr const WCHAR *kUsual[] = {L"Segoe UI",
                                   L"Tahoma",
                                   L"Nirmala UI",
                                   L"Mangal",
                                   L"Leelawadee UI",
                                   L"Microsoft YaHei",
                                   L"Yu Gothic",
                                   L"Malgun Gothic",
                                   L"SimSun",
                                   L"MS Gothic",
                                   L"Microsoft JhengHei",
                                   L"Gulim",
                                   L"Ebrima",
                                   L"Khmer UI",
                                   L"Sylfaen",
                                   L"Segoe UI Symbol",
                                   L"Segoe UI Emoji",
                                   L"Segoe UI Historic",
                                   L"Cambria Math",
                                   L"Arial Unicode MS",
                                   L"DejaVu Sans",
                                   L"Lohit Devanagari"};

/// Families for characters that are drawn in more than one way, before all others.
const WCHAR *FamilyFirst(uint32_t script) {
    switch (script) {
        case HB_SCRIPT_HIRAGANA: return L"Yu Gothic";
        case HB_SCRIPT_HANGUL: return L"Malgun Gothic";
        default: return L"";
    }
}

/// Installed families for what one font lacks, in their order.
struct Fallbacks {
    static constexpr int kCapacity = 48;

    FontName name;
    uint32_t script = 0;
    bool isKnown = false;
    WCHAR families[kCapacity][FontName::kCapacity] = {};
    int count = 0;

    void Add(const WCHAR *family) {
        const FontName found = NameOf(family, name.style);
        if (count < kCapacity && family[0] != 0 && IsInstalled(found)) {
            std::memcpy(families[count++], found.family, sizeof found.family);
        }
    }
    /// Each line is a file, most have a family after it: "MSGOTHIC.TTC,MS UI Gothic,128,96".
    void AddLinked(const WCHAR *family) {
        constexpr DWORD kMost = 4096;
        const std::unique_ptr<WCHAR[]> lines(new (std::nothrow) WCHAR[kMost]());
        DWORD bytes = (kMost - 2) * sizeof(WCHAR);
        constexpr const WCHAR *kKey = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink";
        if (!lines || RegGetValueW(HKEY_LOCAL_MACHINE, kKey, family, RRF_RT_REG_MULTI_SZ, nullptr, lines.get(),
                                   &bytes) != ERROR_SUCCESS) {
            return;
        }
        for (WCHAR *line = lines.get(); *line != 0;) {
            WCHAR *const next = line + std::wcslen(line) + 1;
            if (WCHAR *linked = std::wcschr(line, L','); linked && (linked[1] < L'0' || linked[1] > L'9')) {
                if (WCHAR *end = std::wcschr(linked + 1, L',')) *end = 0;
                Add(linked + 1);
            }
            line = next;
        }
    }
};

}  // namespace

LOGFONTW Describe(const FontName &name, LONG em) {
    LOGFONTW font{};
    font.lfHeight = -em;
    font.lfWeight = name.IsBold() ? FW_BOLD : FW_NORMAL;
    font.lfItalic = name.IsItalic();
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfOutPrecision = OUT_OUTLINE_PRECIS;
    font.lfQuality = ANTIALIASED_QUALITY;
    static_assert(sizeof font.lfFaceName == sizeof name.family);
    std::memcpy(font.lfFaceName, name.family, sizeof name.family);
    return font;
}

FontPlace PlaceOf(const FontName &name) {
    FontPlace place;
    std::memcpy(place.name, name.family, sizeof name.family);
    place.index = static_cast<int>(name.style);
    return place;
}

FontName NameAt(const FontPlace &place) {
    FontName name{.style = static_cast<DWORD>(place.index)};
    std::memcpy(name.family, place.name, sizeof name.family);
    return name;
}

struct InstalledFonts::Data {
    static constexpr int kFallbacks = 8;

    Fallbacks fallbacks[kFallbacks];
    int oldest = 0;
};

InstalledFonts::Data *InstalledFonts::Load() {
    if (!data_) data_ = new (std::nothrow) Data;
    return data_;
}

void InstalledFonts::Forget() {
    delete data_;
    data_ = nullptr;
}

Search InstalledFonts::Find(const FontName &asked, FontPlace *out) {
    const auto isFound = [&](const FontName &name) {
        if (name.family[0] == 0 || !IsInstalled(name)) return false;
        *out = PlaceOf(name);
        return true;
    };
    const bool isOfInterface = asked.IsOfUserInterface() || asked.IsCalled("system-ui");
    if (isFound(isOfInterface ? MessageFont(asked.style) : asked)) return Search::Found;
    for (const auto &[generic, families] : kGenerics) {
        if (!asked.IsCalled(generic) && !(isOfInterface && generic == kGenerics[0].generic)) continue;
        for (const WCHAR *family : families) {
            if (isFound(NameOf(family, asked.style))) return Search::Found;
        }
    }
    return Search::Missing;
}

Search InstalledFonts::FindFallback(const FontName &name, char32_t, uint32_t script, int passed, FontPlace *out) {
    Data *data = Load();
    if (!data) return Search::NoMemory;
    const WCHAR *first = FamilyFirst(script);
    // What is not written in several ways has one list for all scripts.
    if (first[0] == 0) script = 0;
    const Fallbacks *known = nullptr;
    for (const Fallbacks &each : data->fallbacks) {
        if (each.isKnown && each.script == script && each.name == name) known = &each;
    }
    if (!known) {
        Fallbacks &place = data->fallbacks[data->oldest];
        data->oldest = (data->oldest + 1) % Data::kFallbacks;
        place = {};
        place.name = name;
        place.script = script;
        place.isKnown = true;
        place.Add(first);
        FontPlace own;
        if (Find(name, &own) == Search::Found) place.AddLinked(NameAt(own).family);
        for (const WCHAR *family : kUsual) place.Add(family);
        known = &place;
    }
    if (passed >= known->count) return Search::Missing;
    *out = PlaceOf(NameOf(known->families[passed], name.style));
    return Search::Found;
}

bool InstalledFonts::Refresh() {
    Forget();
    return true;
}

}  // namespace lacquer::vel
