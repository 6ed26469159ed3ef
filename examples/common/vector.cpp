// Vector drawing for the examples.
#include "common/vector.h"

#include <array>

namespace lacquer::examples {

namespace {

using WideString = std::basic_string<WCHAR>;

/// The first choice is free and so the same everywhere; the second comes with every Windows.
constexpr std::array<std::array<std::string_view, 2>, 3> kNames{
    {{"DejaVu Sans", "Tahoma"}, {"DejaVu Serif", "Times New Roman"}, {"DejaVu Sans Mono", "Courier New"}}};

/// Valid UTF-8 as UTF-16.
WideString Widened(std::string_view text) {
    WideString result;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i++]);
        const int following = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        std::uint32_t code = following == 0 ? lead : lead & (0x3Fu >> following);
        for (int k = 0; k < following && i < text.size(); ++k)
            code = code << 6 | (static_cast<unsigned char>(text[i++]) & 0x3F);
        if (code < 0x10000) {
            result.push_back(static_cast<WCHAR>(code));
        } else {
            result.push_back(static_cast<WCHAR>(0xD7C0 + (code >> 10)));
            result.push_back(static_cast<WCHAR>(0xDC00 + (code & 0x3FF)));
        }
    }
    return result;
}

Gradient WithStops(Gradient gradient, std::initializer_list<ColourStop> stops) {
    for (const ColourStop &stop : stops)
        Check(GradientAddColorStop(gradient, stop.offset, stop.colour), "GradientAddColorStop");
    return gradient;
}

}  // namespace

Path MakePath() { return Need(Path::Create(), "PathCreate"); }

Gradient MakeLinearGradient(velPointF from, velPointF to, std::initializer_list<ColourStop> stops) {
    return WithStops(Need(Gradient::Linear(from.x, from.y, to.x, to.y), "GradientCreateLinear"), stops);
}

Gradient MakeRadialGradient(velPointF centre, float radius, std::initializer_list<ColourStop> stops) {
    return WithStops(Need(Gradient::Radial(centre.x, centre.y, radius), "GradientCreateRadial"), stops);
}

void FillWith(const Canvas &canvas, std::uint32_t colour) {
    Check(SetDrawStyle(canvas, VEL_STYLE_FILL), "SetDrawStyle");
    Check(SetColor(canvas, colour), "SetColor");
}

void FillWith(const Canvas &canvas, const Gradient &gradient) {
    Check(SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL), "SetDrawStyle");
    Check(SetGradient(canvas, gradient), "SetGradient");
}

void StrokeWith(const Canvas &canvas, std::uint32_t colour, float width) {
    Check(SetDrawStyle(canvas, VEL_STYLE_STROKE), "SetDrawStyle");
    Check(SetColor(canvas, colour), "SetColor");
    Check(SetStrokeWidth(canvas, width), "SetStrokeWidth");
}

void StrokeWith(const Canvas &canvas, const Gradient &gradient, float width) {
    Check(SetDrawStyle(canvas, VEL_STYLE_GRADIENT_STROKE), "SetDrawStyle");
    Check(SetGradient(canvas, gradient), "SetGradient");
    Check(SetStrokeWidth(canvas, width), "SetStrokeWidth");
}

Typeface::Typeface(Family family, float size, DWORD style)
    : measure_(Need(lq::VectorCanvas::Create(), "velCanvasCreate")), size_(size), style_(style) {
    Check(velCanvasSetFontStyle(measure_, style), "velCanvasSetFontStyle");
    Check(velCanvasSetTextSize(measure_, size), "velCanvasSetTextSize");
    for (const std::string_view name : kNames[static_cast<std::size_t>(family)]) {
        name_ = name;
        Check(velCanvasSetFontFaceName(measure_, Widened(name).c_str()), "velCanvasSetFontFaceName");
        if (velCanvasGetFontMetrics(measure_, &ascent_, &descent_, &lineHeight_) == 1) return;
    }
    throw std::runtime_error("there is no font " + std::string(kNames[static_cast<std::size_t>(family)].front()));
}

GlyphRun Typeface::Lay(float x, float y, std::string_view text) const {
    const WideString units = Widened(text);
    GlyphRun run{std::vector<WORD>(units.size()), std::vector<velPointF>(units.size())};
    if (units.empty()) return run;
    Check(velCanvasGetGlyphs(measure_, units.data(), static_cast<int>(units.size()), run.glyphs.data(),
                             run.origins.data()),
          "velCanvasGetGlyphs");
    for (velPointF &origin : run.origins) {
        const float advance = origin.x;
        origin = {x + run.width, y};
        run.width += advance;
    }
    return run;
}

float Typeface::RunWidth(std::string_view text) const {
    velTextExtent extent{};
    Check(velCanvasMeasureTextRun(measure_, Widened(text).c_str(), -1, &extent), "velCanvasMeasureTextRun");
    return extent.advance;
}

bool Typeface::CanShow(std::string_view text) const {
    // No font has a character at this place: it is as wide as what stands for a missing one.
    constexpr std::string_view kMissing = "\U0010FFFD";
    return RunWidth(text) != RunWidth(kMissing);
}

void Typeface::Select(const Canvas &canvas) const {
    Check(SetFontFaceName(canvas, Widened(name_).c_str()), "SetFontFaceName");
    Check(SetFontStyle(canvas, style_), "SetFontStyle");
    Check(SetTextSize(canvas, size_), "SetTextSize");
}

void Typeface::DrawRun(const Canvas &canvas, float x, float y, std::string_view text, std::uint32_t colour) const {
    const ScopedState keep(canvas);
    FillWith(canvas, colour);
    Select(canvas);
    Check(DrawTextRun(canvas, Widened(text).c_str(), -1, x, y), "DrawTextRun");
}

void Typeface::Draw(const Canvas &canvas, const GlyphRun &run) const {
    if (run.glyphs.empty()) return;
    Select(canvas);
    Check(DrawPosTextByGlyphs(canvas, run.glyphs.data(), static_cast<int>(run.glyphs.size()), run.origins.data()),
          "DrawPosTextByGlyphs");
}

void Typeface::Draw(const Canvas &canvas, float x, float y, std::string_view text, std::uint32_t colour) const {
    const ScopedState keep(canvas);
    FillWith(canvas, colour);
    Draw(canvas, Lay(x, y, text));
}

void Typeface::DrawCentred(const Canvas &canvas, float x, float y, std::string_view text, std::uint32_t colour) const {
    Draw(canvas, x - Width(text) / 2, y, text, colour);
}

}  // namespace lacquer::examples
