/// @file
/// Where a text may be broken into lines: a simple form of the usual rules, for labels and short paragraphs.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_LINE_BREAKS_HPP
#define LACQUER_LINE_BREAKS_HPP

#include <lacquer/lacquer.h>

#include <cstddef>
#include <string_view>

/// A literal of UTF-16 for a TextView, and for every `const WCHAR *` of the C interface: LACQUER_TEXT("Hello").
/// @param literal the text in quotes
#ifdef _WIN32
#define LACQUER_TEXT(literal) L##literal
#else
#define LACQUER_TEXT(literal) u##literal
#endif

namespace lq {

/// @addtogroup cpp
/// @{

/// A text in UTF-16: L"..." on Windows and u"..." elsewhere. Halves of surrogate pairs count as characters.
using TextView = std::basic_string_view<WCHAR>;

/// The most UTF-16 units that a line can have.
inline constexpr size_t kLongestRun = 65535;

namespace detail {

// The character that begins at unit `at`, and the one that ends before it. `at` must be inside the text, and above 0.
inline char32_t CharacterAt(TextView text, size_t at) noexcept {
    const char32_t unit = static_cast<char32_t>(text[at]);
    if ((unit & 0xFC00) != 0xD800 || at + 1 == text.size()) return unit;
    const char32_t low = static_cast<char32_t>(text[at + 1]);
    return (low & 0xFC00) == 0xDC00 ? 0x10000 + ((unit & 0x3FF) << 10) + (low & 0x3FF) : unit;
}
inline char32_t CharacterBefore(TextView text, size_t at) noexcept {
    const char32_t unit = static_cast<char32_t>(text[at - 1]);
    if ((unit & 0xFC00) != 0xDC00 || at < 2) return unit;
    const char32_t whole = CharacterAt(text, at - 2);
    return whole > 0xFFFF ? whole : unit;
}

// First and last characters of ranges, and whether one of them has a character.
struct CharacterRange {
    char32_t first, last;
};
template <size_t count>
constexpr bool IsIn(const CharacterRange (&ranges)[count], char32_t character) noexcept {
    for (const CharacterRange &range : ranges) {
        if (character >= range.first && character <= range.last) return true;
    }
    return false;
}

// Spaces that a line may end after and that take no room there: not the no-break ones.
constexpr bool IsSpace(char32_t character) noexcept {
    constexpr CharacterRange kSpaces[] = {{' ', ' '},       {'\t', '\t'},     {0x1680, 0x1680}, {0x2000, 0x2006},
                                          {0x2008, 0x200B}, {0x205F, 0x205F}, {0x3000, 0x3000}};
    return IsIn(kSpaces, character);
}

// Hyphens and dashes that a word may be broken after.
constexpr bool IsHyphen(char32_t character) noexcept {
    constexpr CharacterRange kHyphens[] = {{'-', '-'}, {0x2010, 0x2010}, {0x2012, 0x2014}};
    return IsIn(kHyphens, character);
}

// Chinese, Japanese and Korean characters, with their punctuation and wide forms, and pictures.
constexpr bool IsIdeographic(char32_t character) noexcept {
    constexpr CharacterRange kIdeographs[] = {{0x2E80, 0x2FFF}, {0x3001, 0x33FF},   {0x3400, 0x4DBF},  {0x4E00, 0x9FFF},
                                              {0xA000, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},  {0xFE30, 0xFE4F},
                                              {0xFF01, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
    return IsIn(kIdeographs, character);
}

// Punctuation that closes, and small letters: not at the beginning of a line.
constexpr bool MayNotBeginLine(char32_t character) noexcept {
    constexpr std::u32string_view kClosing =
        U"!%),.:;?]}"
        U"\u00BB\u2019\u201D\u2026\u3001\u3002\u3005\u3009\u300B\u300D\u300F\u3011\u3015\u3017\u3019\u301F\u3041"
        U"\u3043\u3045\u3047\u3049\u3063\u3083\u3085\u3087\u308E\u309D\u309E\u30A1\u30A3\u30A5\u30A7\u30A9\u30C3\u30E3"
        U"\u30E5\u30E7\u30EE\u30F5\u30F6\u30FB\u30FC\u30FD\u30FE\uFF01\uFF05\uFF09\uFF0C\uFF0E\uFF1A\uFF1B\uFF1F\uFF3D"
        U"\uFF5D\uFF60";
    return kClosing.find(character) != std::u32string_view::npos;
}

// Punctuation that opens: not at the end of a line.
constexpr bool MayNotEndLine(char32_t character) noexcept {
    constexpr std::u32string_view kOpening =
        U"([{\u00AB\u2018\u201C\u3008\u300A\u300C\u300E\u3010\u3014\u3016\u3018\u301D\uFF08\uFF3B\uFF5B\uFF5F";
    return kOpening.find(character) != std::u32string_view::npos;
}

// Whether a character that is seen as one begins at unit `at`: not the second half of a pair, not a mark of the
// character before, not what a joiner ties to it.
inline bool IsClusterStart(TextView text, size_t at) noexcept {
    constexpr CharacterRange kMarks[] = {{0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD},   {0x064B, 0x065F},
                                         {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E},   {0x1AB0, 0x1AFF},
                                         {0x1DC0, 0x1DFF}, {0x200C, 0x200D}, {0x20D0, 0x20F0},   {0x3099, 0x309A},
                                         {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0x1F3FB, 0x1F3FF}, {0xE0100, 0xE01EF}};
    if (at == 0 || at >= text.size()) return true;
    if ((text[at] & 0xFC00) == 0xDC00 && (text[at - 1] & 0xFC00) == 0xD800) return false;
    return text[at - 1] != 0x200D && !IsIn(kMarks, CharacterAt(text, at));
}

// Where paragraphs end.
inline constexpr WCHAR kLineEnds[] = {'\n', '\r', 0x2028, 0x2029};

// Whether a line may end before unit `at`, which is inside the text.
inline bool MayBreak(TextView text, size_t at) noexcept {
    if (at == 0 || at >= text.size() || !IsClusterStart(text, at)) return false;
    const char32_t before = CharacterBefore(text, at), after = CharacterAt(text, at);
    if (IsSpace(after)) return false;
    if (IsSpace(before)) return true;
    if (IsHyphen(before)) {
        // Inside a word: not after the sign of a number or an option, not in a range of numbers.
        if (IsHyphen(after) || (after >= '0' && after <= '9')) return false;
        size_t word = at;
        while (word > 0 && IsHyphen(static_cast<char32_t>(text[word - 1]))) --word;
        if (word == 0) return false;
        const WCHAR last = text[word - 1];
        return !IsSpace(last) && TextView(kLineEnds, 4).find(last) == TextView::npos;
    }
    return (IsIdeographic(before) || IsIdeographic(after)) && !MayNotBeginLine(after) && !MayNotEndLine(before);
}

// Where the paragraph that begins at `begin` ends, without its line end; and where the next one begins, npos for the
// last one.
inline size_t LineEnd(TextView text, size_t begin) noexcept {
    const size_t end = text.find_first_of(TextView(kLineEnds, 4), begin);
    return end == TextView::npos ? text.size() : end;
}
inline size_t AfterLineEnd(TextView text, size_t end) noexcept {
    if (end >= text.size()) return TextView::npos;
    return text[end] == '\r' && end + 1 < text.size() && text[end + 1] == '\n' ? end + 2 : end + 1;
}

// The first place from `from` on where `mayBreak(text, place)` allows a break; `limit` when there is none before it.
template <typename MayBreakAt>
size_t NextBreak(TextView text, size_t from, size_t limit, MayBreakAt mayBreak) {
    while (from < limit && !mayBreak(text, from)) ++from;
    return from < limit ? from : limit;
}

// The last place, `end` or one where `mayBreak` allows a break, up to which the text from `begin` on fits; `begin` when
// none does. `fits(place)` is asked about at most twice as much text as fits, so that long texts are not measured whole
// for each of their lines; a part of a text counts as no wider than the text.
template <typename MayBreakAt, typename Fits>
size_t LongestFit(TextView text, size_t begin, size_t end, MayBreakAt mayBreak, Fits fits) {
    size_t beyond = begin;
    for (size_t step = 16; beyond < end; step *= 2) {
        const size_t reach = end - beyond > step ? NextBreak(text, beyond + step, end, IsClusterStart) : end;
        beyond = reach;
        if (!fits(reach)) break;
        if (reach == end) return end;
    }
    // What ends at `best` fits; breaks at `beyond` and after it do not.
    size_t best = begin;
    while (best + 1 < beyond) {
        const size_t middle = best + (beyond - best) / 2;
        const size_t place = NextBreak(text, middle, beyond, mayBreak);
        if (place < beyond && fits(place)) {
            best = place;
        } else {
            beyond = middle;
        }
    }
    return best;
}

}  // namespace detail

/// @}

}  // namespace lq

#endif
