// Shapes, paths, gradients and text on the pixels of a canvas.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

bool Shapes() {
    lq::Canvas canvas = lq::Canvas::Create(416, 96);
    canvas.Fill({0, 0, 416, 96}, 0xFFF4EEDD);

    // [shapes]
    SetColor(canvas, 0xFF963232);  // straight 0xAARRGGBB; the style is VEL_STYLE_FILL at first
    DrawCircle(canvas, 48, 48, 32);

    SetDrawStyle(canvas, VEL_STYLE_STROKE);
    SetStrokeWidth(canvas, 6);
    SetStrokeCap(canvas, VEL_CAP_ROUND);
    DrawArc(canvas, 112, 16, 64, 64, -90, 250, 0);
    // [/shapes]

    // [path]
    lq::Path heart = lq::Path::Create();
    heart.MoveTo(240, 80);
    heart.BezierCurveTo(190, 44, 208, 12, 240, 34);
    heart.BezierCurveTo(272, 12, 290, 44, 240, 80);
    heart.Close();

    lq::Gradient red = lq::Gradient::Linear(0, 16, 0, 80);
    red.AddStop(0, 0xFFE5484D);
    red.AddStop(1, 0xFF701820);
    {
        const lq::ScopedState state(canvas);  // style and gradient end with the block
        SetGradient(canvas, red);
        SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL);
        DrawPath(canvas, heart);
    }
    // [/path]

    // [round_rect]
    const RECT card = {304, 16, 400, 80};
    const ShadowStyle shadow = {0x60000000, 0, 3, 12, 0, {10, 10, 10, 10}, 1, 0};
    DrawShadows(canvas, &card, &shadow, 1);
    GeoRoundRect(canvas, &card, 0xFFB0A890, 0xFFFFFFFF, 1, 10);
    // [/round_rect]
    return lq::SavePng(canvas, "shapes.png");
}

bool Text() {
    lq::Canvas canvas = lq::Canvas::Create(416, 112);
    canvas.Fill({0, 0, 416, 112}, 0xFFF4EEDD);
    // [text]
    SetColor(canvas, 0xFF333845);
    canvas.SetFont(LACQUER_TEXT("sans-serif"), 22, VEL_FONT_BOLD);
    DrawTextRun(canvas, LACQUER_TEXT("Lacquer"), -1, 16, 32);

    velTextExtent extent;
    MeasureTextRun(canvas, LACQUER_TEXT("Lacquer"), -1, &extent);
    canvas.SetFont(LACQUER_TEXT("sans-serif"), 13);
    DrawTextRun(canvas, LACQUER_TEXT("draws text"), -1, 16 + extent.advance + 8, 32);
    // [/text]

    // [text_box]
    const lq::Text text(
        LACQUER_TEXT("A text in a box is broken into lines where they are full. "
                     "What does not fit into the box ends with three dots."));
    text.Draw(canvas, {16, 48, 240, 100});
    // [/text_box]

    // [centred]
    lq::TextStyle centred;
    centred.align = lq::TextStyle::Align::Centre;
    centred.vertical = lq::TextStyle::VerticalAlign::Middle;
    canvas.Fill({264, 48, 400, 96}, 0xFFFFFFFF);
    lq::Text(LACQUER_TEXT("In the middle"), centred).Draw(canvas, {264, 48, 400, 96});
    // [/centred]
    return lq::SavePng(canvas, "text.png");
}

// False when a frame that was loaded can't be drawn; builds without animations load none.
bool Animation(double seconds) {
    lq::Canvas canvas = lq::Canvas::Create(64, 64);
    // [animation]
    const lq::Lottie icon = lq::Lottie::FromFile("drop.json");
    const int drawn = DrawLottie(canvas, icon, icon.FrameAt(seconds), 0, 0, 64, 64);
    // [/animation]
    return !icon || drawn;
}

}  // namespace

int main() { return Shapes() && Text() && Animation(0.5) ? 0 : 1; }
