// The rows of text and animations.

#include "kinds.h"

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

constexpr const char *kAnimations[] = {
    R"({"v":"5.5.7","fr":30,"ip":0,"op":30,"w":40,"h":30,"nm":"a","ddd":0,"assets":[],"layers":[{"ddd":0,"ind":1,"ty":4,
"nm":"s","sr":1,"ks":{"o":{"a":0,"k":80},"r":{"a":1,"k":[{"i":{"x":[0.8],"y":[0.8]},"o":{"x":[0.2],"y":[0.2]},"t":0,
"s":[0]},{"t":29,"s":[90]}]},"p":{"a":0,"k":[20,15,0]},"a":{"a":0,"k":[0,0,0]},"s":{"a":0,"k":[100,100,100]}},"ao":0,
"shapes":[{"ty":"gr","it":[{"ty":"rc","d":1,"s":{"a":0,"k":[20,10]},"p":{"a":0,"k":[0,0]},"r":{"a":0,"k":3},"nm":"r"},
{"ty":"st","c":{"a":0,"k":[0,0.5,1,1]},"o":{"a":0,"k":100},"w":{"a":0,"k":2},"lc":2,"lj":2,"d":[{"n":"d","nm":"d",
"v":{"a":0,"k":3}},{"n":"g","nm":"g","v":{"a":0,"k":2}},{"n":"o","nm":"o","v":{"a":0,"k":0}}],"nm":"k"},{"ty":"tr",
"p":{"a":0,"k":[0,0]},"a":{"a":0,"k":[0,0]},"s":{"a":0,"k":[100,100]},"r":{"a":0,"k":0},"o":{"a":0,"k":100}}],
"nm":"g"}],"ip":0,"op":30,"st":0,"bm":0}]})",
    R"({"v":"5.5.7","fr":25,"ip":0,"op":10,"w":16,"h":16,"assets":[],"layers":[{"ind":1,"ty":4,"sr":1,"ks":{"o":{"a":0,
"k":100},"r":{"a":0,"k":0},"p":{"a":0,"k":[8,8,0]},"a":{"a":0,"k":[0,0,0]},"s":{"a":0,"k":[100,100,100]}},"shapes":[
{"ty":"gr","it":[{"ty":"el","d":1,"s":{"a":0,"k":[8,8]},"p":{"a":0,"k":[0,0]}},{"ty":"fl","c":{"a":0,"k":[1,0,0,1]},
"o":{"a":0,"k":100},"r":1},{"ty":"rp","c":{"a":0,"k":3},"o":{"a":0,"k":0},"m":1,"tr":{"ty":"tr","p":{"a":0,"k":[3,0]},
"a":{"a":0,"k":[0,0]},"s":{"a":0,"k":[90,90]},"r":{"a":0,"k":9},"so":{"a":0,"k":100},"eo":{"a":0,"k":50}}},{"ty":"tr",
"p":{"a":0,"k":[0,0]},"a":{"a":0,"k":[0,0]},"s":{"a":0,"k":[100,100]},"r":{"a":0,"k":0},"o":{"a":0,"k":100}}]},
{"ty":"tm","s":{"a":0,"k":10},"e":{"a":0,"k":90},"o":{"a":0,"k":0},"m":1}],"ip":0,"op":10,"st":0}]})",
    R"({"v":"5","fr":1,"ip":0,"op":1,"w":1,"h":1,"layers":[]})"};

/// The text of an animation, with some of its digits changed, or cut short.
struct Animation {
    explicit Animation(Call &call) : json(call.choices.OneOf(kAnimations)) {
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
    void Write(std::ostream &out) const { out << (Value() ? Value() : "0"); }
    int how;
};

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
        CALL(velLottieGetInfo, Lottie, Out<velLottieInfo>),
        CALL(velLottieDestroy, Ended<velLottie *>),
        CALL(DrawLottie, Canvas, Lottie, Length, Length, Length, Length, Length),
        CALL(velLottieDraw, VelCanvas, Lottie, Length, Length, Length, Length, Length),
    };
}

}  // namespace fuzz
