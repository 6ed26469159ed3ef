// What the tests of drawing share: canvases of every kind, sources full of noise, pictures that the library can't
// reach, and a model of nearest draws.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

#include "pipeline/words.h"
#include "support/memory_dc.h"
#include "support/objects.h"

namespace lacquer {

/// The filter word of draws over.
constexpr DWORD kOver = LACQUER_DRAW_OVER << 24;

constexpr int64_t WidthOf(const RECT &rect) { return int64_t{rect.right} - rect.left; }
constexpr int64_t HeightOf(const RECT &rect) { return int64_t{rect.bottom} - rect.top; }
constexpr bool Contains(const RECT &rect, int64_t x, int64_t y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}
inline RECT Moved(const RECT &rect, LONG dx, LONG dy) {
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

/// The rectangle with exchanged edges put right.
RECT Ordered(RECT rect);

/// Colour words of a rectangle of pixels.
struct Picture {
    LONG width = 0, height = 0;
    std::vector<uint32_t> pixels;

    uint32_t &At(int64_t x, int64_t y) { return pixels[static_cast<size_t>(y * width + x)]; }
    uint32_t At(int64_t x, int64_t y) const { return pixels[static_cast<size_t>(y * width + x)]; }
    RECT Bounds() const { return {0, 0, width, height}; }
};

/// Says where two pictures differ first, and how often.
::testing::AssertionResult Same(const Picture &expected, const Picture &actual);

Picture PictureOf(const SurfaceView &view);

/// Calls `function(x, y)` for every pixel of a picture.
template <class Function>
void ForEachPixel(const Picture &picture, const Function &function) {
    for (LONG y = 0; y < picture.height; ++y) {
        for (LONG x = 0; x < picture.width; ++x) function(x, y);
    }
}

/// Outside `rect` nothing has changed.
void ExpectSameOutside(const RECT &rect, const Picture &before, const Picture &after);

/// `FromDC` is made around a memory device context with a DIB section. The others have a device context, too, that
/// draws reach through copies only: its clip has a hole, `Shallow` has 24 bits per pixel and `Scaled` larger units; a
/// `Metafile` can't be read at all.
enum class CanvasKind { Memory, System, FromDC, Holed, Shallow, Scaled, Metafile };
constexpr std::initializer_list<CanvasKind> kCanvasKinds{CanvasKind::Memory, CanvasKind::System, CanvasKind::FromDC};
constexpr std::initializer_list<CanvasKind> kAllCanvasKinds{CanvasKind::Memory, CanvasKind::System,  CanvasKind::FromDC,
                                                            CanvasKind::Holed,  CanvasKind::Shallow,
#ifdef _WIN32
                                                            CanvasKind::Scaled, CanvasKind::Metafile
#endif
};

/// A canvas filled with premultiplied noise.
class TestCanvas {
public:
    TestCanvas(CanvasKind kind, LONG width, LONG height, uint32_t seed);
    ~TestCanvas() { Play(); }

    operator HGCANVAS() const { return *canvas_; }

    /// Every pixel, clip and origins apart.
    SurfaceView View() const;

    /// Ends a metafile, which is drawn on no more then, and plays it.
    Picture Pixels() const {
        Play();
        return PictureOf(View());
    }

    /// The caller's context, null without one.
    HDC Context() const { return metafile_ ? metafile_ : dc_ ? HDC(*dc_) : nullptr; }

    /// Makes a rectangle the clip, with a hole where the kind says so.
    void SetClip(const RECT &clip) const;

private:
    void Play() const;

    CanvasKind kind_;
    std::optional<Dib> dib_;
    std::optional<MemoryDC> dc_;
    mutable HDC metafile_ = nullptr;
    std::optional<OwnedCanvas> canvas_;
};

/// Noise, with a palette of noise for 8 bits. Equal arguments give equal pixels.
OwnedBitmap NoiseBitmap(LONG width, LONG height, WORD bitsPerPixel, uint32_t seed, DWORD filter = 0);
OwnedTexture NoiseTexture(LONG width, LONG height, WORD bitsPerPixel, uint32_t seed, DWORD filter = 0);

/// A texture, and a bitmap with the same pixels for drawing its pieces one by one.
struct Sheet {
    OwnedTexture texture;
    OwnedBitmap bitmap;

    Sheet(LONG width, LONG height, WORD bits, uint32_t seed, DWORD filter)
        : texture(NoiseTexture(width, height, bits, seed, filter)),
          bitmap(NoiseBitmap(width, height, bits, seed, filter)) {}
};

/// Two canvases with the same pixels, origins and clip: one for the operation under test, one for what it must equal.
struct Twins {
    TestCanvas drawn, expected;

    Twins(CanvasKind kind, const RECT &clip, uint32_t seed) : drawn(kind, 40, 36, seed), expected(kind, 40, 36, seed) {
        for (const TestCanvas *canvas : {&drawn, &expected}) {
            SetViewportOrg(*canvas, static_cast<int>(seed % 7), -2, nullptr);
            SetWindowOrg(*canvas, 3, static_cast<int>(seed % 5) - 4, nullptr);
            canvas->SetClip(clip);
        }
    }
    void ExpectSame() const { EXPECT_TRUE(Same(expected.Pixels(), drawn.Pixels())); }
};

/// Draws `from` of the source into `dest` by nearest samples (1:1 for equal sizes), inside `clip`:
/// d := combine(s, d).
template <class Combine>
void DrawNearest(Picture &canvas, const RECT &clip, const RECT &dest, const Picture &source, const RECT &from,
                 const Combine &combine) {
    ForEachPixel(canvas, [&](LONG x, LONG y) {
        if (!Contains(dest, x, y) || !Contains(clip, x, y)) return;
        const int64_t stepX = (WidthOf(from) << 16) / WidthOf(dest), stepY = (HeightOf(from) << 16) / HeightOf(dest);
        const int64_t sourceX = from.left + ((int64_t{x} - dest.left) * stepX >> 16);
        const int64_t sourceY = from.top + ((int64_t{y} - dest.top) * stepY >> 16);
        canvas.At(x, y) = combine(source.At(sourceX, sourceY), canvas.At(x, y));
    });
}

}  // namespace lacquer
