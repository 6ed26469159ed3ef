// A companion canvas over pixels of the test's own, and what is found on them.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace lacquer {

/// A canvas over its own pixels, transparent at first.
class Painting {
public:
    explicit Painting(int width = 32, int height = 32, uint32_t background = 0);
    ~Painting();
    Painting(const Painting &) = delete;
    Painting &operator=(const Painting &) = delete;

    operator velCanvas *() const { return canvas_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    uint32_t &At(int x, int y) { return pixels_[static_cast<size_t>(y * width_ + x)]; }
    uint32_t AlphaAt(int x, int y) { return At(x, y) >> 24; }
    const std::vector<uint32_t> &Pixels() const { return pixels_; }
    std::vector<uint32_t> &Pixels() { return pixels_; }
    void Fill(uint32_t pixel);

    /// The sum of all alpha, in whole pixels: the area of what was drawn in an opaque colour on transparent ground.
    double Area() const;
    /// The rectangle around the pixels that are not 0; all 0 when there is none.
    RECT Box() const;
    bool IsEmpty() const;

private:
    int width_, height_;
    std::vector<uint32_t> pixels_;
    velCanvas *canvas_;
};

/// What a bad argument must not do: `attempt` is refused, draws nothing, and a drawing after it comes out as on a
/// canvas that never saw it.
void ExpectRefused(const std::string &what, const std::function<int(velCanvas *)> &attempt);

/// A null-terminated name, as canvases take it.
std::vector<WCHAR> Utf16(const char *ascii);

/// The largest difference of a channel of two pictures of one size.
int LargestDifference(const std::vector<uint32_t> &a, const std::vector<uint32_t> &b);

/// Compares with the picture data/<name>.pam, channel by channel, and writes the actual one to <name>.pam in the
/// working folder when it differs by more than `tolerance`.
void ExpectLikeReference(const Painting &painting, const std::string &name, int tolerance);

/// Compares with the digest in data/digests.txt, and writes the picture to <name>.pam when it differs.
void ExpectDigest(const Painting &painting, const std::string &name);

}  // namespace lacquer
