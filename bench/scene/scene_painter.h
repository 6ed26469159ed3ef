// What a library has to offer for a window's scene: six verbs over the pieces of a skin. Each library implements them
// by its fastest plain means, so that the scene itself is written once.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "pieces.h"

namespace lacquer::bench {

/// A rectangle of whole pixels.
struct Place {
    int x, y, width, height;
};

class ScenePainter {
public:
    ScenePainter() = default;
    virtual ~ScenePainter() = default;
    ScenePainter(const ScenePainter &) = delete;
    ScenePainter &operator=(const ScenePainter &) = delete;

    virtual const char *Name() const = 0;

    /// Replaces the pixels of a place by a straight colour 0xAARRGGBB, or lays it over them.
    virtual void Fill(const Place &place, std::uint32_t colour) = 0;
    virtual void Blend(const Place &place, std::uint32_t colour) = 0;

    /// Lays a piece over a place of its own size. Opaque pieces replace what is there, in all verbs.
    virtual void Picture(Piece piece, const Place &place) = 0;

    /// Lays a piece over a place of another size, sampled bilinearly.
    virtual void Stretch(Piece piece, const Place &place) = 0;

    /// Lays a piece over a place in nine cells, with its margins multiplied by a scale. Cells of another size are
    /// sampled bilinearly, each for itself.
    virtual void NineGrid(Piece piece, const Place &place, int scale) = 0;

    /// Repeats a piece from the left top corner of a place.
    virtual void Tile(Piece piece, const Place &place) = 0;

    /// The premultiplied pixels, row by row without padding.
    virtual std::vector<std::uint32_t> Pixels() const = 0;
};

/// Painters on a canvas of their own. The pictures must outlive them.
using Pictures = std::span<const PieceOfSkin>;
std::unique_ptr<ScenePainter> MakeLacquerPainter(int width, int height, Pictures pictures);
std::unique_ptr<ScenePainter> MakeCairoPainter(int width, int height, Pictures pictures);
std::unique_ptr<ScenePainter> MakeQtPainter(int width, int height, Pictures pictures);

/// Calls a function on a thread on which Qt paints alone. From others it hands parts of high pictures to a pool of
/// threads, for up to half as much processor time again.
void CallWithoutMoreThreads(const std::function<void()> &call);

}  // namespace lacquer::bench
