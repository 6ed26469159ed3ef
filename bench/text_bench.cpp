// Text of the companion against the renderer that it is built on: the same glyphs of the same font, unhinted.

#include <cairo.h>
#include <velgraphic/velgraphic.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "ratio.h"

namespace {

constexpr int kWidth = 2400, kHeight = 160;
constexpr std::string_view kText = "The quick brown fox jumps over the lazy dog, and more.";

std::vector<WCHAR> Widened(std::string_view text) {
    std::vector<WCHAR> units(text.begin(), text.end());
    units.push_back(0);
    return units;
}

struct Bitmap {
    std::vector<uint32_t> pixels = std::vector<uint32_t>(size_t{kWidth} * kHeight);
    velBitmap *const described = velBitmapCreateFromData(pixels.data(), kWidth, kHeight, kWidth * 4);

    Bitmap() = default;
    ~Bitmap() { velBitmapDestroy(described); }
    Bitmap(const Bitmap &) = delete;
    Bitmap &operator=(const Bitmap &) = delete;
};

velCanvas *MakeCanvas(const Bitmap &bitmap, float size, DWORD colour) {
    velCanvas *canvas = velCanvasCreate();
    velCanvasSetBitmap(canvas, bitmap.described);
    velCanvasSetFontFaceName(canvas, Widened("DejaVu Sans").data());
    velCanvasSetTextSize(canvas, size);
    velCanvasSetColor(canvas, colour);
    return canvas;
}

cairo_t *MakePeer(Bitmap &bitmap, float size, double alpha) {
    cairo_surface_t *surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char *>(bitmap.pixels.data()), CAIRO_FORMAT_ARGB32, kWidth, kHeight, kWidth * 4);
    cairo_t *context = cairo_create(surface);
    cairo_surface_destroy(surface);
    cairo_select_font_face(context, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context, static_cast<double>(size));
    cairo_font_options_t *options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
    cairo_set_source_rgba(context, 0, 0, 0, alpha);
    return context;
}

/// A line of text for both.
struct Line {
    std::vector<WORD> glyphs = std::vector<WORD>(kText.size());
    std::vector<velPointF> positions = std::vector<velPointF>(kText.size());
    std::vector<cairo_glyph_t> peers;

    Line(velCanvas *canvas, float size) {
        velCanvasGetGlyphs(canvas, Widened(kText).data(), Count(), glyphs.data(), positions.data());
        velPointF pen{4, size};
        for (size_t i = 0; i < kText.size(); ++i) {
            const float advance = positions[i].x;
            positions[i] = pen;
            peers.push_back({glyphs[i], static_cast<double>(pen.x), static_cast<double>(pen.y)});
            pen.x += advance;
        }
    }
    int Count() const { return static_cast<int>(kText.size()); }
    void Draw(velCanvas *canvas) const {
        velCanvasDrawPosTextByGlyphs(canvas, glyphs.data(), Count(), positions.data());
    }
    void Draw(cairo_t *peer) const { cairo_show_glyphs(peer, peers.data(), Count()); }
};

/// Arguments: the size in pixels, and the percents of opacity.
void DrawLineOfText(benchmark::State &state) {
    const auto size = static_cast<float>(state.range(0));
    const double alpha = static_cast<double>(state.range(1)) / 100;
    Bitmap bitmap, peerBitmap;
    velCanvas *canvas = MakeCanvas(bitmap, size, static_cast<DWORD>(255 * alpha) << 24);
    cairo_t *peer = MakePeer(peerBitmap, size, alpha);
    const Line line(canvas, size);
    lacquer::bench::MeasureAgainst(
        state, [&] { line.Draw(canvas); }, [&] { line.Draw(peer); });
    cairo_destroy(peer);
    velCanvasDestroy(canvas);
}
BENCHMARK(DrawLineOfText)->ArgsProduct({{12, 24, 64}, {50, 100}})->UseManualTime();

/// The same on a canvas that has drawn nothing yet, by a process that has drawn this text before.
void DrawFirstLineOfACanvas(benchmark::State &state) {
    Bitmap bitmap;
    velCanvas *measure = MakeCanvas(bitmap, 12, 0);
    const Line line(measure, 12);
    velCanvasDestroy(measure);
    lacquer::bench::MeasureAgainst(
        state,
        [&] {
            velCanvas *canvas = MakeCanvas(bitmap, 12, 0xFF000000);
            line.Draw(canvas);
            velCanvasDestroy(canvas);
        },
        [&] {
            cairo_t *peer = MakePeer(bitmap, 12, 1);
            line.Draw(peer);
            cairo_destroy(peer);
        });
}
BENCHMARK(DrawFirstLineOfACanvas)->UseManualTime();

}  // namespace
