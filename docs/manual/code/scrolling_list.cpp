// A list of a thousand rows that scrolls by moving its pixels: only the rows that come into sight are painted.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <algorithm>
#include <string>

namespace {

constexpr int kRows = 1000, kRowHeight = 24;

class List {
public:
    List(int listWidth, int listHeight)
        : width(listWidth),
          height(listHeight),
          canvas(lq::Canvas::Create(static_cast<DWORD>(width), static_cast<DWORD>(height))) {
        canvas.SetFont(LACQUER_TEXT("sans-serif"), 13);
        PaintRows(0, height);
    }

    // Shows the list from pixel `wanted` on.
    void ScrollTo(int wanted) {
        wanted = std::clamp(wanted, 0, kRows * kRowHeight - height);
        const int up = wanted - top;
        top = wanted;
        if (up == 0) return;
        if (!CanvasScroll(canvas, 0, -up)) {
            PaintRows(0, height);  // refused: nothing of what is seen stays in sight
        } else if (up > 0) {
            PaintRows(height - up, height);
        } else {
            PaintRows(0, -up);
        }
    }

    const lq::Canvas &Picture() const { return canvas; }
    int Painted() const { return painted; }

private:
    // Paints what the list shows between two heights of the canvas.
    void PaintRows(int from, int to) {
        const lq::ScopedClip clip(canvas, {0, from, width, to});
        for (int row = (top + from) / kRowHeight; row * kRowHeight < top + to; ++row) {
            const int y = row * kRowHeight - top;
            canvas.Fill({0, y, width, y + kRowHeight}, row % 2 ? 0xFFF4F1EA : 0xFFFFFFFF);
            const std::string name = "Row " + std::to_string(row + 1);
            const std::basic_string<WCHAR> text(name.begin(), name.end());
            SetColor(canvas, 0xFF333845);
            lq::TextStyle style;
            style.vertical = lq::TextStyle::VerticalAlign::Middle;
            lq::Text(text, style).Draw(canvas, {10, y, width, y + kRowHeight});
            ++painted;
        }
    }

    int width, height, top = 0, painted = 0;
    lq::Canvas canvas;
};

}  // namespace

int main() {
    List list(200, 140);
    for (int i = 1; i <= 90; ++i) list.ScrollTo(7 * i);  // 90 small steps down
    // Without scrolling, every step would paint at least 6 rows.
    if (list.Painted() >= 90 * 6 / 3) return 1;

    lq::Canvas canvas = lq::Canvas::Create(232, 172);
    canvas.Fill({0, 0, 232, 172}, 0xFF39415A);
    canvas.Blend({16, 16, 216, 156}, list.Picture(), {0, 0, 200, 140});
    return lq::SavePng(canvas, "scrolling_list.png") ? 0 : 1;
}
