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
        constexpr const char *kNames[] = {"DejaVu Sans",    "Sans", "DejaVu Serif",
                                          "No Such Family", "",     "A name of more than thirty-one units is refused"};
        isNull = call.choices.Seldom(8);
        const int how = call.choices.Byte();
        text = kNames[how < 128 ? 0 : how % 6];
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
    void Write(std::ostream &out) const {
        WriteItems(out, glyphs);
        WriteItems(out << ", " << count << ", ", positions);
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
    void Write(std::ostream &out) const {
        WriteItems(out, units);
        out << ", " << units.size() << ", glyphs, " << (hasAdvances ? "advances" : "0");
    }
    void After(Call &call) {
        if (call.done) call.digest.AddBytes(glyphs.data(), glyphs.size() * sizeof(WORD));
    }
    std::vector<WCHAR> units;
    std::vector<WORD> glyphs;
    std::vector<velPointF> advances;
    bool hasAdvances;
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
    void Write(std::ostream &out) const { out << "R\"(" << json << ")\", " << json.size(); }
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
        CALL(SetFontFaceName, Canvas, FontName),
        CALL(SetFontStyle, Canvas, Code<16>),
        CALL(SetTextSize, Canvas, SmallLength),
        CALL(velCanvasSetFontFaceName, VelCanvas, FontName),
        CALL(velCanvasSetFontStyle, VelCanvas, Code<16>),
        CALL(velCanvasSetTextSize, VelCanvas, SmallLength),
        CALL(velCanvasDrawPosTextByGlyphs, VelCanvas, Glyphs),
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
