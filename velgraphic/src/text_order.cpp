// Taking UTF-16 apart, and asking FriBidi for directions.

#include "text_order.h"

#include <fribidi.h>
#include <hb.h>

#include <algorithm>

#include "memory_proof.h"

namespace lacquer::vel {
namespace {

constexpr uint32_t kReplacement = 0xFFFD, kLineSeparator = 0x2028, kParagraphSeparator = 0x2029;

bool IsDrawn(uint32_t character) {
    if (character == kLineSeparator || character == kParagraphSeparator) return false;
    hb_unicode_funcs_t *unicode = hb_unicode_funcs_get_default();
    return character == '\t' || hb_unicode_general_category(unicode, character) != HB_UNICODE_GENERAL_CATEGORY_CONTROL;
}

/// No character before Hebrew runs from right to left, or changes the direction.
bool MayRunLeft(uint32_t character) { return character >= 0x590; }

}  // namespace

bool AppendCharacters(std::span<const WCHAR> text, Buffer<uint32_t> &characters) {
    if (!characters.Reserve(text.size())) return false;
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t character = text[i];
        const bool isHigh = character >= 0xD800 && character < 0xDC00;
        if (isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            character = 0x10000 + ((character - 0xD800) << 10) + (uint32_t{text[++i]} - 0xDC00);
        } else if (character >= 0xD800 && character < 0xE000) {
            character = kReplacement;
        }
        if (IsDrawn(character)) characters.Append(character);
    }
    return true;
}

bool AppendLevels(const Buffer<uint32_t> &characters, Buffer<int8_t> &levels) {
    const size_t size = characters.Size();
    if (!levels.Reserve(size)) return false;
    for (size_t i = 0; i < size; ++i) levels.Append(0);
    if (std::none_of(characters.begin(), characters.end(), MayRunLeft)) return true;

    // What FriBidi takes for itself, and for the arrays below.
    constexpr size_t kMemoryPerCharacter = 256;
    if (!MemoryCanBeHad(size * kMemoryPerCharacter)) return false;
    Buffer<FriBidiCharType> types;
    Buffer<FriBidiBracketType> brackets;
    if (!types.Reserve(size) || !brackets.Reserve(size)) return false;
    const auto length = static_cast<FriBidiStrIndex>(size);
    for (size_t i = 0; i < size; ++i) {
        const FriBidiCharType type = fribidi_get_bidi_type(characters[i]);
        types.Append(type);
        brackets.Append(type == FRIBIDI_TYPE_ON ? fribidi_get_bracket(characters[i]) : FRIBIDI_NO_BRACKET);
    }
    static_assert(sizeof(FriBidiLevel) == sizeof(int8_t));
    FriBidiParType base = FRIBIDI_PAR_ON;
    auto *const found = reinterpret_cast<FriBidiLevel *>(levels.Data());
    return fribidi_get_par_embedding_levels_ex(types.begin(), brackets.begin(), length, &base, found) != 0 &&
           // Spaces at the end go with the base direction.
           fribidi_reorder_line(FRIBIDI_FLAGS_DEFAULT, types.begin(), length, 0, base, found, nullptr, nullptr) != 0;
}

}  // namespace lacquer::vel
