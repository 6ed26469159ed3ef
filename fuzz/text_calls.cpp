// The rows of text and animations.

#include <string_view>

#include "kinds.h"
#include "velgraphic/animations.h"

namespace fuzz {
namespace {

constexpr Group kGroup = kText;

/// A family name, zero-terminated.
struct FontName {
    explicit FontName(Call &call) {
        constexpr const char *kNames[] = {
            "DejaVu Sans",    "Sans",     "DejaVu Serif",
            "No Such Family", "",         "A name of more than thirty-one units is refused",
            "serif",          "monospace"};
        isNull = call.choices.Seldom(8);
        const int how = call.choices.Byte();
        text = kNames[how < 128 ? 0 : how % 8];
        units.assign(text.begin(), text.end());
        if (how == 255) units.assign(3, static_cast<WCHAR>(0xD800));
        units.push_back(0);
    }
    const WCHAR *Value() const { return isNull ? nullptr : units.data(); }
    void Write(std::ostream &out) const { out << "L\"" << text << '"'; }
    bool isNull = false;
    std::string text;
    std::vector<WCHAR> units;
};

/// Glyphs, their number and their positions.
struct Glyphs {
    explicit Glyphs(Call &call) : count(static_cast<int>(call.choices.Below(caps::kGlyphs + 1))) {
        for (int i = 0; i < count; ++i) {
            glyphs.push_back(static_cast<WORD>(call.choices.Seldom(16) ? call.choices.Word() : call.choices.Byte()));
            positions.push_back({ChooseLength(call), ChooseLength(call)});
        }
        how = call.choices.Byte();
        if (how == 2) count = -1;
    }
    std::tuple<const WORD *, int, const velPointF *> Value() const {
        return {how == 0 ? nullptr : glyphs.data(), count, how == 1 ? nullptr : positions.data()};
    }
    int count, how = 0;
    std::vector<WORD> glyphs;
    std::vector<velPointF> positions;
};

/// UTF-16 units, their number, and room for as many glyphs and advances.
struct Text {
    explicit Text(Call &call) : units(call.choices.Below(caps::kGlyphs + 1)), hasAdvances(!call.choices.Seldom(32)) {
        for (WCHAR &unit : units) {
            unit = static_cast<WCHAR>(call.choices.Seldom(32) ? call.choices.Word() : 32 + call.choices.Below(96));
        }
        glyphs.resize(units.size());
        advances.resize(units.size());
    }
    std::tuple<const WCHAR *, int, WORD *, velPointF *> Value() {
        return {units.data(), static_cast<int>(units.size()), glyphs.data(), hasAdvances ? advances.data() : nullptr};
    }
    void After(Call &call) {
        if (call.done) call.digest.AddBytes(glyphs.data(), glyphs.size() * sizeof(WORD));
    }
    std::vector<WCHAR> units;
    std::vector<WORD> glyphs;
    std::vector<velPointF> advances;
    bool hasAdvances;
};

/// A string of words in several scripts and of any units, its length, and where it is cut in two halves.
struct String {
    explicit String(Call &call) {
        constexpr const char16_t *kWords[] = {u"To",
                                              u" AV fi",
                                              u" \u05E9\u05DC\u05D5\u05DD",
                                              u"\u0633\u0644\u0627\u0645",
                                              u"\t",
                                              u"(12)",
                                              u"e\u0301",
                                              u"\xD83D\xDE00",
                                              u"\u0915\u094D\u0937",
                                              u"\u6F22",
                                              u"\u202E",
                                              u"\u2067"};
        const int words = static_cast<int>(call.choices.Below(8));
        for (int i = 0; i < words; ++i) {
            units += kWords[call.choices.Below(12)];
            if (call.choices.Seldom(8)) units += static_cast<char16_t>(call.choices.Word());
        }
        how = call.choices.Byte();
    }
    std::tuple<const WCHAR *, int> Value() const {
        const int length = static_cast<int>(units.size());
        return {how == 0 ? nullptr : reinterpret_cast<const WCHAR *>(units.c_str()), how < 32    ? -1
                                                                                     : how == 32 ? -2
                                                                                     : how < 48  ? length / 2
                                                                                                 : length};
    }
    std::u16string units;
    int how;
};

/// Room for glyphs and their positions.
struct Room {
    explicit Room(Call &call)
        : capacity(static_cast<int>(call.choices.Below(caps::kGlyphs))), how(call.choices.Byte()) {}
    std::tuple<WORD *, velPointF *, int> Value() {
        return {how == 0 ? nullptr : glyphs, how == 1 ? nullptr : positions, how == 2 ? -1 : capacity};
    }
    void After(Call &call) {
        if (call.done) call.digest.AddBytes(glyphs, sizeof glyphs);
    }
    int capacity, how;
    WORD glyphs[caps::kGlyphs] = {};
    velPointF positions[caps::kGlyphs];
};

/// The text of an animation, with some of its digits changed, or cut short.
struct Animation {
    explicit Animation(Call &call) {
        static const std::string animations[] = {lacquer::RichAnimation(), lacquer::AnimationOf(lacquer::RedSquare()),
                                                 lacquer::Composition("")};
        json = call.choices.OneOf(animations);
        const int how = call.choices.Byte();
        for (int i = 0; how >= 64 && i < caps::kAnimationChanges; ++i) {
            char &place = json[call.choices.Below(static_cast<uint32_t>(json.size()))];
            const auto with = static_cast<char>(how >= 248 ? call.choices.Byte() : '0' + call.choices.Below(10));
            if (how >= 248 || (place >= '0' && place <= '9')) place = with;
        }
        if (how == 255) json.resize(call.choices.Below(static_cast<uint32_t>(json.size())));
    }
    std::tuple<const char *, size_t> Value() const { return {json.data(), json.size()}; }
    std::string json;
};

struct File {
    explicit File(Call &call) : how(call.choices.Byte()) {}
    const char *Value() const {
        return how < 192 ? LACQUER_FUZZ_ANIMATION : how < 224 ? "no/such/file" : how < 248 ? "" : nullptr;
    }
    int how;
};

/// Which error was the last depends on programs before this one.
int ReadLastError() { return std::string_view(velLottieLastError()).size() < 200; }

}  // namespace

std::vector<Row> TextCalls() {
    return {
        CALL(DrawPosTextByGlyphs, Canvas, Glyphs),
        CALL(DrawTextRun, Canvas, String, Length, Length),
        CALL(MeasureTextRun, Canvas, String, Out<velTextExtent>),
        CALL(GetTextGlyphs, Canvas, String, Room),
        CALL(GetFontMetrics, Canvas, Out<float>, Out<float>, Out<float>),
        CALL(SetFontFaceName, Canvas, FontName),
        CALL(SetFontStyle, Canvas, Code<16>),
        CALL(SetTextSize, Canvas, SmallLength),
        CALL(velCanvasSetFontFaceName, VelCanvas, FontName),
        CALL(velCanvasSetFontStyle, VelCanvas, Code<16>),
        CALL(velCanvasSetTextSize, VelCanvas, SmallLength),
        CALL(velCanvasDrawPosTextByGlyphs, VelCanvas, Glyphs),
        CALL(velCanvasDrawTextRun, VelCanvas, String, Length, Length),
        CALL(velCanvasMeasureTextRun, VelCanvas, String, Out<velTextExtent>),
        CALL(velCanvasGetTextGlyphs, VelCanvas, String, Room),
        CALL(velCanvasGetGlyphs, VelCanvas, Text),
        CALL(velCanvasGetFontMetrics, VelCanvas, Out<float>, Out<float>, Out<float>),
        CALL(velLottieCreateFromData, Animation),
        CALL(velLottieCreateFromFile, File),
        CALL_AS(velLottieLastError, ReadLastError),
        CALL(velLottieGetInfo, Lottie, Out<velLottieInfo>),
        CALL(velLottieDestroy, Ended<velLottie *>),
        CALL(DrawLottie, Canvas, Lottie, Length, Length, Length, Length, Length),
        CALL(velLottieDraw, VelCanvas, Lottie, Length, Length, Length, Length, Length),
    };
}

}  // namespace fuzz
