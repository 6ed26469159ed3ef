// Icons as path data, and the controls.
#include "common/controls.h"

#include <cmath>
#include <sstream>

namespace lacquer::examples {

namespace {

constexpr int kIconSize = 16;
constexpr SIZE kSheetSize{512, 64};  // holds all that is painted once

SIZE SizeOf(const RECT &rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

/// A path from a description: M and L with a point, C with three, Z to close, O with the centre and radius of a circle.
Path PathOf(const char *description) {
    Path path = MakePath();
    std::istringstream in(description);
    const auto next = [&] {
        float number = 0;
        in >> number;
        return number;
    };
    const auto point = [&] {
        const float x = next();
        return velPointF{x, next()};
    };
    for (char verb = 0; in >> verb;) {
        const velPointF a = verb == 'Z' ? velPointF{} : point();
        int result = 0;
        switch (verb) {
            case 'M': result = PathMoveTo(path, a.x, a.y); break;
            case 'L': result = PathLineTo(path, a.x, a.y); break;
            case 'O': result = PathAddCircle(path, a.x, a.y, next()); break;
            case 'C': {
                const velPointF b = point();
                const velPointF c = point();
                result = PathBezierCurveTo(path, a.x, a.y, b.x, b.y, c.x, c.y);
                break;
            }
            case 'Z': result = PathClose(path); break;
            default: break;
        }
        Check(result, "making a path");
    }
    return path;
}

Gradient DownGradient(int height, std::uint32_t top, std::uint32_t bottom) {
    return MakeLinearGradient({0, 0}, {0, static_cast<float>(height)}, {{0, top}, {1, bottom}});
}

void SetPaint(const Canvas &canvas, const Gradient &gradient) {
    Check(SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL), "SetDrawStyle");
    Check(SetGradient(canvas, gradient), "SetGradient");
}

void SetPaint(const Canvas &canvas, std::uint32_t colour, DWORD style = VEL_STYLE_FILL) {
    Check(SetDrawStyle(canvas, style), "SetDrawStyle");
    Check(SetColor(canvas, colour), "SetColor");
}

/// Draws something raised: its shade below it, then itself. What is disabled lies flat.
template <typename Draw>
void DrawRaised(ButtonState state, Draw draw) {
    const bool isFlat = state == ButtonState::kDisabled;
    const int sunk = state == ButtonState::kPressed ? 1 : 0;
    if (!isFlat) draw(sunk + 1, 0x80400008);
    draw(sunk, isFlat ? 0xFF6F6866 : 0xFFFFFFFF);
}

}  // namespace

Controls::Controls(const Skin &skin)
    : skin_(skin),
      label_(Family::kSans, 12),
      name_(Family::kSans, 12, VEL_FONT_BOLD),
      title_(Family::kSans, 13, VEL_FONT_BOLD),
      code_(Family::kMono, 12),
      sheet_(MakeCanvas(kSheetSize.cx, kSheetSize.cy)) {
    struct Description {
        Icon icon;
        const char *lines;
        float width;
        const char *areas;
    };
    constexpr Description descriptions[] = {
        {Icon::kMinimise, "M 4 11 L 12 11", 2, ""},
        {Icon::kClose, "M 4.5 4.5 L 11.5 11.5 M 11.5 4.5 L 4.5 11.5", 2, ""},
        {Icon::kTick, "M 3.5 8.5 L 6.5 11.5 L 12.5 4.5", 2.4f, ""},
        {Icon::kEraser, "M 9.5 2.5 L 13.5 6.5 L 7.5 12.5 L 5 12.5 L 2.5 10 L 2.5 9.5 Z M 7.5 13.2 L 14 13.2", 1.4f,
         "M 9.5 2.5 L 13.5 6.5 L 9.8 10.2 L 5.8 6.2 Z"},
        {Icon::kRoller, "M 12 4 L 14.2 4 L 14.2 8 L 7.5 8 L 7.5 10", 1.4f,
         "M 3 1.5 L 11 1.5 C 12 1.5 12 1.5 12 2.5 L 12 5.5 C 12 6.5 12 6.5 11 6.5 L 3 6.5 C 2 6.5 2 6.5 2 5.5 L 2 2.5"
         " C 2 1.5 2 1.5 3 1.5 Z M 6 10 L 9 10 L 9 13.5 C 9 15 6 15 6 13.5 Z"},
        {Icon::kInformation, "O 8 8 6.2 M 8 7.6 L 8 11", 1.5f, "O 8 4.9 1"},
        {Icon::kUp, "M 4 10 L 8 6 L 12 10", 2, ""},
        {Icon::kDown, "M 4 6 L 8 10 L 12 6", 2, ""},
    };
    for (const auto &[icon, lines, width, areas] : descriptions)
        icons_[static_cast<std::size_t>(icon)] = {PathOf(lines), width, PathOf(areas)};

    constexpr int height = kCaptionButtonSize.cy;
    caps_ = {{{DownGradient(height, 0xFF97A1B8, 0xFF5A647C), DownGradient(height, 0xFF3C4354, 0xFF566077)},
              {DownGradient(height, 0xFFF4766C, 0xFFC2242C), DownGradient(height, 0xFF840C14, 0xFFB4222A)}}};
    box_ = DownGradient(20, 0xFFFFFFFF, 0xFFDFE2EA);
    rim_ = MakeRadialGradient({8, 8}, 7.5f, {{0, 0x00000000}, {0.6f, 0x00000000}, {1, 0x78000000}});
    glint_ = MakeRadialGradient({5.5f, 4.8f}, 7, {{0, 0xF0FFFFFF}, {0.3f, 0x70FFFFFF}, {1, 0x00FFFFFF}});
}

void Controls::DrawFrame(const Canvas &canvas, const RECT &outer, std::string_view title) const {
    DrawInto(canvas, outer, skin_.frame);
    const int left = (outer.left + outer.right - static_cast<int>(title_.Width(title))) / 2;
    const int middle = outer.top + 17;
    DrawLine(canvas, title_, left, middle + 1, title, 0x90000000);
    DrawLine(canvas, title_, left, middle, title, 0xFFF4F6FA);
}

void Controls::DrawButton(const Canvas &canvas, const RECT &rect, ButtonState state, Icon icon,
                          std::string_view caption) const {
    examples::DrawButton(canvas, skin_, rect, state);
    constexpr int gap = 6;
    const int width = kIconSize + gap + static_cast<int>(name_.Width(caption));
    const int left = (rect.left + rect.right - width) / 2;
    const int middle = (rect.top + rect.bottom) / 2 - 1;
    DrawRaised(state, [&](int down, std::uint32_t colour) {
        DrawIcon(canvas, left, middle + down - kIconSize / 2, icon, colour);
        DrawName(canvas, left + kIconSize + gap, middle + down, caption, colour);
    });
}

void Controls::DrawMenuButton(const Canvas &canvas, const RECT &rect, ButtonState state, std::string_view caption,
                              Icon icon) const {
    examples::DrawButton(canvas, skin_, rect, state);
    const int middle = (rect.top + rect.bottom) / 2 - 1;
    DrawRaised(state, [&](int down, std::uint32_t colour) {
        DrawName(canvas, rect.left + 20, middle + down, caption, colour);
        DrawIcon(canvas, rect.right - 18 - kIconSize, middle + down - kIconSize / 2, icon, colour);
    });
}

void Controls::DrawCaptionButton(const Canvas &canvas, const RECT &rect, CaptionButton button,
                                 ButtonState state) const {
    const bool isClose = button == CaptionButton::kClose;
    if (state == ButtonState::kNormal) {
        DrawHighlight(canvas, {rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1}, 0x18FFFFFF);
    } else {
        const auto &[hot, pressed] = caps_[isClose];
        DrawFace(canvas, rect, state == ButtonState::kHot ? hot : pressed, isClose ? 0xFF6A0A10 : 0xFF2A303E);
    }
    DrawIcon(canvas, (rect.left + rect.right - kIconSize) / 2, (rect.top + rect.bottom - kIconSize) / 2,
             isClose ? Icon::kClose : Icon::kMinimise, state == ButtonState::kNormal ? 0xFFC4CAD8 : 0xFFFFFFFF);
}

void Controls::DrawCheckBox(const Canvas &canvas, const RECT &rect, bool isOn, bool isHot,
                            std::string_view caption) const {
    if (isHot) DrawHighlight(canvas, rect, 0x14000000);
    DrawFace(canvas, Box(rect.left + 3, rect.top + 3, 18, 18), box_, isHot ? 0xFFA0343C : 0xFF7A8294);
    if (isOn) DrawIcon(canvas, rect.left + 4, rect.top + 4, Icon::kTick, 0xFFB81C26);
    DrawLabel(canvas, rect.left + 27, rect.top + 12, caption, kText);
}

void Controls::DrawBall(const Canvas &canvas, int x, int y, std::uint32_t colour, BYTE gloss) const {
    DrawOnce(canvas, x, y, {kIconSize, kIconSize}, {&glint_, colour, gloss, 0, ""}, [&](const Canvas &sheet) {
        const auto draw = [&] { Check(DrawCircle(sheet, 8, 8, 7.5f), "DrawCircle"); };
        SetPaint(sheet, colour);
        draw();
        SetPaint(sheet, rim_);
        draw();
        Check(SetBlendValue(sheet, gloss), "SetBlendValue");
        SetPaint(sheet, glint_);
        draw();
    });
}

void Controls::DrawHighlight(const Canvas &canvas, const RECT &rect, std::uint32_t colour) const {
    Check(GeoRoundRect(canvas, &rect, 0, colour, 0, 4), "GeoRoundRect");
}

/// A raised surface with an edge of one pixel.
void Controls::DrawFace(const Canvas &canvas, const RECT &rect, const Gradient &gradient, std::uint32_t edge) const {
    const SIZE size = SizeOf(rect);
    DrawOnce(canvas, rect.left, rect.top, size, {&gradient, edge, size.cx, size.cy, ""}, [&](const Canvas &sheet) {
        SetPaint(sheet, gradient);
        for (int layer = 0; layer < 2; ++layer) {
            Check(DrawRoundRect(sheet, 0.5f, 0.5f, static_cast<float>(size.cx - 1), static_cast<float>(size.cy - 1), 4,
                                4),
                  "DrawRoundRect");
            SetPaint(sheet, edge, VEL_STYLE_STROKE);
        }
    });
}

void Controls::DrawIcon(const Canvas &canvas, int x, int y, Icon icon, std::uint32_t colour) const {
    const Drawing &drawing = icons_[static_cast<std::size_t>(icon)];
    DrawOnce(canvas, x, y, {kIconSize, kIconSize}, {&drawing, colour, 0, 0, ""}, [&](const Canvas &sheet) {
        SetPaint(sheet, colour);
        Check(DrawPath(sheet, drawing.areas), "DrawPath");
        SetPaint(sheet, colour, VEL_STYLE_STROKE);
        Check(SetStrokeWidth(sheet, drawing.width), "SetStrokeWidth");
        Check(SetStrokeCap(sheet, VEL_CAP_ROUND), "SetStrokeCap");
        Check(SetStrokeJoin(sheet, VEL_JOIN_ROUND), "SetStrokeJoin");
        Check(DrawPath(sheet, drawing.lines), "DrawPath");
    });
}

void Controls::DrawCode(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour) const {
    DrawLine(canvas, code_, x - static_cast<int>(code_.Width(text)), y, text, colour);
}

void Controls::DrawLine(const Canvas &canvas, const Typeface &typeface, int x, int y, std::string_view text,
                        std::uint32_t colour) const {
    if (text.empty()) return;
    constexpr int margin = 2;      // letters may reach beyond their places
    constexpr float half = 0.36f;  // of a capital's height, in sizes
    const int above = static_cast<int>(std::ceil(typeface.ascent()));
    const int below = static_cast<int>(std::ceil(typeface.descent()));
    const int baseline = y + static_cast<int>(std::lround(typeface.size() * half));
    const SIZE size{static_cast<int>(typeface.Width(text)) + 2 * margin + 1, above + below};
    DrawOnce(canvas, x - margin, baseline - above, size, {&typeface, colour, 0, 0, std::string(text)},
             [&](const Canvas &sheet) { typeface.Draw(sheet, margin, static_cast<float>(above), text, colour); });
}

/// Draws a texture of this key at (x, y); `paint` fills it, on a clear ground, when there is none yet.
void Controls::DrawOnce(const Canvas &canvas, int x, int y, SIZE size, Key key,
                        const std::function<void(const Canvas &)> &paint) const {
    Texture &texture = textures_[std::move(key)];
    if (!texture) {
        const RECT part = Box(0, 0, size.cx, size.cy);
        Check(FillSolidRectEx(sheet_, 0, &part, LACQUER_DRAW_COPY), "FillSolidRectEx");
        const ScopedState keep(sheet_);
        paint(sheet_);
        texture = CopyOf(Need(sheet_.AsTexture(), "GetTexture"), &part);
        SetDrawMode(texture, LACQUER_DRAW_OVER);
    }
    DrawAt(canvas, x, y, texture);
}

}  // namespace lacquer::examples
