// A companion canvas over pixels of the test's own, and what is found on them.
#pragma once

#include <velgraphic/velgraphic.hpp>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace lacquer {

/// A canvas over its own pixels, transparent at first.
class Painting {
public:
    explicit Painting(int width = 32, int height = 32, uint32_t background = 0);

    operator velCanvas *() const { return canvas_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    uint32_t At(int x, int y) const { return pixels_[static_cast<size_t>(y * width_ + x)]; }
    uint32_t AlphaAt(int x, int y) const { return At(x, y) >> 24; }
    const std::vector<uint32_t> &Pixels() const { return pixels_; }
    void Fill(uint32_t pixel);

    /// The sum of all alpha, in whole pixels: the area of what was drawn in an opaque colour on transparent ground.
    double Area() const;
    /// The rectangle around the pixels that are not 0; all 0 when there is none.
    RECT Box() const;
    bool IsEmpty() const;

private:
    int width_, height_;
    std::vector<uint32_t> pixels_;
    lq::VectorCanvas canvas_;
};

/// A path, destroyed with the object.
struct Path : lq::Path {
    Path() : lq::Path(lq::Path::Create()) {}
    velRectF Bounds() const;
};

/// Sets a gradient and then gives it its stops; afterwards it is the canvas's alone.
void UseGradient(velCanvas *canvas, velGradient *gradient, std::initializer_list<std::pair<float, DWORD>> stops);

/// How many pixels differ by more than `tolerance` in one of the channels that `mask` has.
int Differing(const Painting &a, const Painting &b, int tolerance, uint32_t mask = 0xFFFFFFFF);

constexpr const char *kSans = "DejaVu Sans", *kSerif = "DejaVu Serif";
void SetFont(velCanvas *canvas, const char *family, float size = 16, DWORD style = 0);

/// What is drawn reaches to these edges.
void ExpectBox(const Painting &painting, const RECT &expected);

/// What a bad argument must not do: `attempt` is refused, draws nothing, and a drawing after it comes out as on a
/// canvas that never saw it.
void ExpectRefused(const std::string &what, const std::function<int(velCanvas *)> &attempt);

/// A null-terminated name, as canvases take it.
std::vector<WCHAR> Utf16(const std::string &ascii);

/// Measures work in pages: one is the processor time, of all threads, in which this build draws a page of figures and
/// small text on this machine. So a limit holds for slow machines and under sanitizers too.
class PageClock {
public:
    static constexpr double kLong = 1000;  ///< more than any call takes

    PageClock();
    double Pages() const;
    bool IsLong() const { return Pages() > kLong; }

private:
    double page_, start_;
};

}  // namespace lacquer
