// Cutting a text into items of one direction, script and face, and shaping each with HarfBuzz.

#include "text_run.h"

#include <hb.h>

#include <algorithm>
#include <memory>

#include "font_store.h"
#include "memory_proof.h"
#include "text_order.h"

namespace lacquer::vel {
namespace {

/// Spaces that a tab is wide.
constexpr int kTabWidth = 4;

hb_unicode_funcs_t *Unicode() { return hb_unicode_funcs_get_default(); }

struct DestroyBuffer {
    void operator()(hb_buffer_t *buffer) const { hb_buffer_destroy(buffer); }
};

bool IsJoiner(uint32_t character) { return character == 0x200C || character == 0x200D; }

bool IsVariation(uint32_t character) {
    return (character >= 0xFE00 && character <= 0xFE0F) || (character >= 0xE0100 && character <= 0xE01EF);
}

/// Whether a character belongs to the one before it, and comes from the same font.
bool Continues(uint32_t character) {
    if (character < 0x300) return false;
    switch (hb_unicode_general_category(Unicode(), character)) {
        case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
        case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK: return true;
        default: return IsJoiner(character) || IsVariation(character) || (character >= 0x1F3FB && character <= 0x1F3FF);
    }
}

/// Whether a character needs no glyph: it only tells how others are drawn.
bool NeedsNoGlyph(uint32_t character) {
    return IsVariation(character) ||
           hb_unicode_general_category(Unicode(), character) == HB_UNICODE_GENERAL_CATEGORY_FORMAT;
}

/// Whether a face draws a character, if need be from its parts.
bool Has(const FontFace &face, uint32_t character) {
    if (face.GlyphOf(character) != 0 || NeedsNoGlyph(character)) return true;
    hb_codepoint_t base = 0, mark = 0;
    return hb_unicode_decompose(Unicode(), character, &base, &mark) && Has(face, base) &&
           (mark == 0 || Has(face, mark));
}

/// The first of some characters that a face does not draw; null when it draws them all.
const uint32_t *FirstMissing(const FontFace &face, const uint32_t *begin, const uint32_t *end) {
    for (const uint32_t *at = begin; at != end; ++at) {
        if (Has(face, *at)) continue;
        // A mark that the font lacks may be part of a letter that it has.
        hb_codepoint_t whole = 0;
        if (at == begin + 1 && hb_unicode_compose(Unicode(), *begin, *at, &whole) && face.GlyphOf(whole) != 0) continue;
        return at;
    }
    return nullptr;
}

/// The scripts of characters: those that belong to any script go with what is before them, at the beginning with what
/// is after them. Calls `handle` with each in turn.
class Scripts {
public:
    explicit Scripts(const Buffer<uint32_t> &characters) {
        for (const uint32_t character : characters) {
            const hb_script_t script = hb_unicode_script(Unicode(), character);
            if (IsOwn(script) && !IsOwn(present_)) present_ = script;
            if (script == HB_SCRIPT_HIRAGANA || script == HB_SCRIPT_KATAKANA) han_ = HB_SCRIPT_HIRAGANA;
            if (script == HB_SCRIPT_HANGUL && han_ == HB_SCRIPT_HAN) han_ = HB_SCRIPT_HANGUL;
        }
    }

    hb_script_t Next(uint32_t character) {
        const hb_script_t script = hb_unicode_script(Unicode(), character);
        if (IsOwn(script)) present_ = script;
        return present_;
    }
    /// The script that fonts are looked for by: Han is written with others in some languages.
    uint32_t ForFonts(hb_script_t script) const { return script == HB_SCRIPT_HAN ? han_ : script; }

private:
    static bool IsOwn(hb_script_t script) {
        return script != HB_SCRIPT_COMMON && script != HB_SCRIPT_INHERITED && script != HB_SCRIPT_UNKNOWN;
    }

    hb_script_t present_ = HB_SCRIPT_COMMON, han_ = HB_SCRIPT_HAN;
};

}  // namespace

/// Characters that are shaped together.
struct TextRun::Item {
    size_t begin, end;
    FontFace *face;
    hb_script_t script;
    int8_t level;
    bool isTab;

    bool GoesOnWith(const Item &next) const {
        return !isTab && !next.isTab && face == next.face && script == next.script && level == next.level;
    }
};

FontFace *TextRun::Keep(Reference<FontFace> face) {
    for (Reference<FontFace> &kept : faces_) {
        if (kept.Get() == face.Get()) return kept.Get();
        if (kept) continue;
        kept = std::move(face);
        return kept.Get();
    }
    return nullptr;
}

FontFace *TextRun::FaceFor(size_t begin, size_t end, uint32_t script, FontFace *before) {
    const uint32_t *first = characters_.begin() + begin, *last = characters_.begin() + end;
    const uint32_t *missing = FirstMissing(Main(), first, last);
    if (!missing || fonts_ == Fonts::OneOnly) return &Main();
    if (!FirstMissing(*before, first, last)) return before;
    auto found = lacquer::vel::Fonts().FindFallback(state_.font, *missing, script);
    // For a mark of another font the letter has to come from there as well.
    if (!found || (missing != first && FirstMissing(*found, first, last))) return &Main();
    FontFace *kept = Keep(std::move(found));
    return kept ? kept : &Main();
}

bool TextRun::FindItems(Buffer<Item> &items) {
    Buffer<int8_t> levels;
    if (!AppendLevels(characters_, levels)) return false;
    Scripts scripts(characters_);
    FontFace *before = &Main();
    for (size_t begin = 0, end = 0; begin < characters_.Size(); begin = end) {
        const hb_script_t script = scripts.Next(characters_[begin]);
        while (++end < characters_.Size() && Continues(characters_[end])) scripts.Next(characters_[end]);
        const bool isTab = characters_[begin] == '\t';
        FontFace *face = isTab ? &Main() : FaceFor(begin, end, scripts.ForFonts(script), before);
        if (face != &Main()) before = face;
        const Item item{begin, end, face, script, levels[begin], isTab};
        if (items.Size() > 0 && items.Last().GoesOnWith(item)) {
            items.Data()[items.Size() - 1].end = end;
        } else if (!items.Append(item)) {
            return false;
        }
    }
    // Into visual order: from the highest level down, what is at least as high as the level is turned round.
    int8_t highest = 0;
    for (const Item &item : items) highest = std::max(highest, item.level);
    for (int8_t level = highest; level > 0; --level) {
        const auto isLower = [level](const Item &item) { return item.level < level; };
        Item *const all = items.Data() + items.Size();
        for (Item *at = items.Data(); at != all;) {
            Item *const from = std::find_if_not(at, all, isLower);
            at = std::find_if(from, all, isLower);
            std::reverse(from, at);
        }
    }
    return true;
}

bool TextRun::AppendItem(const Item &item, hb_buffer_t *buffer) {
    if (item.isTab) {
        advance_ += kTabWidth * size_ / Main().UnitsPerEm() * Main().AdvanceOf(Main().GlyphOf(' '));
        return true;
    }
    const auto size = static_cast<int>(characters_.Size());
    hb_buffer_clear_contents(buffer);
    hb_buffer_set_direction(buffer, item.level % 2 == 0 ? HB_DIRECTION_LTR : HB_DIRECTION_RTL);
    hb_buffer_set_script(buffer, item.script);
    // With all of the text around it, letters join across items.
    hb_buffer_add_utf32(buffer, characters_.begin(), size, static_cast<unsigned>(item.begin),
                        static_cast<int>(item.end - item.begin));
    if (!hb_shape_full(item.face->Shaper(), buffer, nullptr, 0, nullptr) || !hb_buffer_allocation_successful(buffer)) {
        return false;
    }
    unsigned count = 0;
    const hb_glyph_info_t *const glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    const hb_glyph_position_t *const positions = hb_buffer_get_glyph_positions(buffer, &count);
    if (!glyphs_.Reserve(count)) return false;
    const double scale = size_ / item.face->UnitsPerEm();
    for (unsigned i = 0; i < count; ++i) {
        const Point place{advance_ + scale * positions[i].x_offset, -scale * positions[i].y_offset};
        glyphs_.Append({item.face, static_cast<WORD>(glyphs[i].codepoint), origin_ + place});
        advance_ += scale * positions[i].x_advance;
    }
    return true;
}

bool TextRun::Shape(std::span<const WCHAR> text, Fonts fonts) {
    fonts_ = fonts;
    faces_[0] = lacquer::vel::Fonts().Find(state_.font);
    // HarfBuzz asks for little by little, and more than once does without.
    constexpr size_t kMemory = size_t{64} << 10, kMemoryPerUnit = 256;
    if (!faces_[0] || !MemoryCanBeHad(kMemory + kMemoryPerUnit * text.size())) return false;
    const std::unique_ptr<hb_buffer_t, DestroyBuffer> buffer(hb_buffer_create());
    Buffer<Item> items;
    if (!AppendCharacters(text, characters_) || !FindItems(items)) return false;
    for (const Item &item : items) {
        if (!AppendItem(item, buffer.get())) return false;
    }
    return true;
}

void TextRun::DropDistantGlyphs() {
    GlyphPlacement *const begin = glyphs_.Data(), *const end = begin + glyphs_.Size();
    const auto isDistant = [&](const GlyphPlacement &glyph) { return !InRange(glyph.origin + state_.translation); };
    glyphs_.Truncate(static_cast<size_t>(std::remove_if(begin, end, isDistant) - begin));
}

bool TextRun::AppendBars(Buffer<BarPlacement> &bars) const {
    const double scale = size_ / Main().UnitsPerEm();
    const auto append = [&](DWORD bit, const Bar &bar) {
        if ((state_.font.style & bit) == 0 || advance_ <= 0) return true;
        return bars.Append({origin_, origin_.x + advance_, {scale * bar.top, scale * bar.thickness}});
    };
    return append(VEL_FONT_UNDERLINE, Main().Underline()) && append(VEL_FONT_STRIKE_OUT, Main().StrikeOut());
}

bool TextRun::Measure(velTextExtent *out) const {
    double ascent = 0, descent = 0, lineHeight = 0;
    const auto include = [&](const FontFace &face) {
        const double scale = size_ / face.UnitsPerEm();
        ascent = std::max(ascent, scale * face.Ascent());
        descent = std::max(descent, scale * face.Descent());
        lineHeight = std::max(lineHeight, scale * (face.Ascent() + face.Descent() + face.LineGap()));
    };
    if (glyphs_.Size() == 0) include(Main());
    Bounds ink{{INFINITY, INFINITY}, {-INFINITY, -INFINITY}};
    const auto cover = [&](Point low, Point high) {
        ink.low = {std::min(ink.low.x, low.x), std::min(ink.low.y, low.y)};
        ink.high = {std::max(ink.high.x, high.x), std::max(ink.high.y, high.y)};
    };
    const FontFace *before = nullptr;
    double scale = 0;
    for (const auto &[face, glyph, place] : glyphs_) {
        if (face != before) {
            include(*face);
            before = face;
            scale = size_ / face->UnitsPerEm();
        }
        Bounds drawn;
        if (!face->FindInk(glyph, &drawn)) return false;
        const Point origin = PlaceOnPixels(state_, place - origin_);
        if (drawn.low != drawn.high) cover(origin + scale * drawn.low, origin + scale * drawn.high);
    }
    Buffer<BarPlacement> bars;
    if (!AppendBars(bars)) return false;
    for (const auto &[place, right, bar] : bars) {
        cover({place.x - origin_.x, place.y - origin_.y + bar.top},
              {right - origin_.x, place.y - origin_.y + bar.top + bar.thickness});
    }
    out->advance = static_cast<float>(advance_);
    out->ascent = static_cast<float>(ascent);
    out->descent = static_cast<float>(descent);
    out->lineHeight = static_cast<float>(std::max(lineHeight, ascent + descent));
    if (ink.low.x <= ink.high.x) {
        out->ink = {static_cast<float>(std::floor(ink.low.x)), static_cast<float>(std::floor(ink.low.y)),
                    static_cast<float>(std::ceil(ink.high.x)), static_cast<float>(std::ceil(ink.high.y))};
    }
    return true;
}

}  // namespace lacquer::vel
