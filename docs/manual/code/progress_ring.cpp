// A ring that fills clockwise, with the share in its middle.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <algorithm>
#include <string>

namespace {

// `share`: 0 to 1. `box`: a square.
void DrawRing(lq::Canvas &canvas, const RECT &box, float share) {
    const lq::ScopedState state(canvas);  // the vector settings below end with the function
    const auto side = static_cast<float>(box.right - box.left);
    const float width = side / 10, x = static_cast<float>(box.left) + width, y = static_cast<float>(box.top) + width;
    const float inner = side - 2 * width;

    SetDrawStyle(canvas, VEL_STYLE_STROKE);
    SetStrokeWidth(canvas, width);
    SetColor(canvas, 0x30000000);
    DrawEllipse(canvas, x + inner / 2, y + inner / 2, inner / 2, inner / 2);

    SetStrokeCap(canvas, VEL_CAP_ROUND);
    SetColor(canvas, 0xFF963232);
    if (share > 0) DrawArc(canvas, x, y, inner, inner, -90, 360 * std::min(share, 1.0f), 0);

    SetDrawStyle(canvas, VEL_STYLE_FILL);
    SetColor(canvas, 0xFF333845);
    canvas.SetFont(LACQUER_TEXT("sans-serif"), side / 5);
    const std::string digits = std::to_string(static_cast<int>(share * 100)) + "%";
    const std::basic_string<WCHAR> text(digits.begin(), digits.end());  // digits are the same in UTF-16
    lq::TextStyle middle;
    middle.align = lq::TextStyle::Align::Centre;
    middle.vertical = lq::TextStyle::VerticalAlign::Middle;
    lq::Text(text, middle).Draw(canvas, box);
}

}  // namespace

int main() {
    lq::Canvas canvas = lq::Canvas::Create(416, 112);
    canvas.Fill({0, 0, 416, 112}, 0xFFF4EEDD);
    int x = 8;
    for (const float share : {0.0f, 0.25f, 0.6f, 1.0f}) {
        DrawRing(canvas, {x, 8, x + 96, 104}, share);
        x += 101;
    }
    return lq::SavePng(canvas, "progress_ring.png") ? 0 : 1;
}
