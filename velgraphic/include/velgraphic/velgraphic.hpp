// velGraphic for C++17: owners of paths, gradients, animations and canvases, over <velgraphic/velgraphic.h>, which says
// how each function draws and what its limits are. Header-only; each member is one call of the C function that its
// comment names, and gives true for done, false for refused. Coordinates and lengths are pixels, angles degrees,
// colours straight 0xAARRGGBB. Members of an owner that owns nothing are refused. Any thread may use an owner, one at a
// time.
#ifndef VELGRAPHIC_VELGRAPHIC_HPP
#define VELGRAPHIC_VELGRAPHIC_HPP

#include <velgraphic/velgraphic.h>
#include <velgraphic/owner.hpp>

#include <cmath>
#include <optional>
#include <string_view>

namespace lq {

// Figures of lines and curves, filled or stroked by velCanvasDrawPath and DrawPath.
class Path : public Owner<velPath *, velPathDestroy> {
public:
    using Owner::Owner;

    // An empty path with the fill type VEL_FILL_WINDING; empty owner when memory is short.
    static Path Create() noexcept { return Path(velPathCreate()); }

    // velPathBegin: empties the path; the fill type stays.
    bool Clear() noexcept { return velPathBegin(*this) != 0; }

    // velPathSetFillType: `type` is VEL_FILL_WINDING or VEL_FILL_EVEN_ODD.
    bool SetFillType(DWORD type) noexcept { return velPathSetFillType(*this, type) != 0; }

    // Begin a figure at a point; go on with a line; go on along a curve with one or two control points to the last
    // point given; go back to where the figure began (refused before there is a point). velPathMoveTo and so on.
    bool MoveTo(float x, float y) noexcept { return velPathMoveTo(*this, x, y) != 0; }
    bool LineTo(float x, float y) noexcept { return velPathLineTo(*this, x, y) != 0; }
    bool QuadraticCurveTo(float x1, float y1, float x2, float y2) noexcept {
        return velPathQuadraticCurveTo(*this, x1, y1, x2, y2) != 0;
    }
    bool BezierCurveTo(float x1, float y1, float x2, float y2, float x3, float y3) noexcept {
        return velPathBezierCurveTo(*this, x1, y1, x2, y2, x3, y3) != 0;
    }
    bool Close() noexcept { return velPathClose(*this) != 0; }

    // velPathArcTo: part of the ellipse in a rectangle, after a line to where it begins, or as a new figure.
    bool ArcTo(float x, float y, float width, float height, float startAngle, float sweepAngle,
               bool newFigure = false) noexcept {
        return velPathArcTo(*this, x, y, width, height, startAngle, sweepAngle, newFigure) != 0;
    }

    // velPathOvalCurveTo: along an ellipse turned by `xAxisRotation` to (x, y), the elliptical arc of SVG path data.
    bool OvalCurveTo(float radiusX, float radiusY, float xAxisRotation, bool largeArc, bool clockwise, float x,
                     float y) noexcept {
        return velPathOvalCurveTo(*this, radiusX, radiusY, xAxisRotation, largeArc, clockwise, x, y) != 0;
    }

    // Figures of their own: an open arc and closed shapes. velPathAddArc and so on.
    bool AddArc(float x, float y, float width, float height, float startAngle, float sweepAngle) noexcept {
        return velPathAddArc(*this, x, y, width, height, startAngle, sweepAngle) != 0;
    }
    bool AddRectangle(float x, float y, float width, float height) noexcept {
        return velPathAddRectangle(*this, x, y, width, height) != 0;
    }
    bool AddCircle(float centreX, float centreY, float radius) noexcept {
        return velPathAddCircle(*this, centreX, centreY, radius) != 0;
    }
    bool AddEllipse(float centreX, float centreY, float radiusX, float radiusY) noexcept {
        return velPathAddEllipse(*this, centreX, centreY, radiusX, radiusY) != 0;
    }

    // velPathGetBounds: the smallest rectangle around all lines and curves, all 0 for an empty path; none without a
    // path.
    std::optional<velRectF> Bounds() const noexcept {
        velRectF bounds{};
        if (!velPathGetBounds(*this, &bounds)) return std::nullopt;
        return bounds;
    }
};

// Colours along a line or outwards from a point, for the gradient styles.
class Gradient : public Owner<velGradient *, velGradientDestroy> {
public:
    using Owner::Owner;

    // From (x0, y0) to (x1, y1), without stops yet; empty owner on failure.
    static Gradient Linear(float x0, float y0, float x1, float y1) noexcept {
        return Gradient(velGradientCreateLinear(x0, y0, x1, y1));
    }

    // From a point outwards to a circle, whose radius must be positive; empty owner on failure.
    static Gradient Radial(float centreX, float centreY, float radius) noexcept {
        return Gradient(velGradientCreateRadial(centreX, centreY, radius));
    }

    // velGradientAddColorStop: `offset` is 0 at the first point or the centre and 1 at the second or the circle.
    bool AddStop(float offset, DWORD colour) noexcept { return velGradientAddColorStop(*this, offset, colour) != 0; }
};

// An animation, drawn frame by frame by velLottieDraw, and on Lacquer's canvases by DrawLottie.
class Lottie : public Owner<velLottie *, velLottieDestroy> {
public:
    using Owner::Owner;

    // velLottieCreateFromData: from Lottie JSON, which need not stay; empty owner when it is refused.
    static Lottie FromData(std::string_view json) noexcept {
        return Lottie(velLottieCreateFromData(json.data(), json.size()));
    }

    // velLottieCreateFromFile: from a file, its path in UTF-8 on every system; empty owner when it is refused.
    static Lottie FromFile(const char *utf8Path) noexcept { return Lottie(velLottieCreateFromFile(utf8Path)); }

    // velLottieGetInfo: size in pixels, number of frames, frames per second; none without an animation.
    std::optional<velLottieInfo> Info() const noexcept {
        velLottieInfo info{};
        if (!velLottieGetInfo(*this, &info)) return std::nullopt;
        return info;
    }

    // The number of the frame to show `seconds` after the beginning when the animation plays again and again; 0 without
    // an animation, and for a time that is negative or not a number.
    float FrameAt(double seconds) const noexcept {
        const auto info = Info();
        if (!info || !(info->frameCount > 0) || !(seconds > 0) || !std::isfinite(seconds)) return 0;
        return static_cast<float>(std::fmod(seconds * info->frameRate, info->frameCount));
    }
};

// The companion's own canvas, for pixels that are not Lacquer's. All velCanvas... functions take it as it stands.
class VectorCanvas : public Owner<velCanvas *, velCanvasDestroy> {
public:
    using Owner::Owner;

    // A canvas without pixels in the initial state of velCanvasCreate; empty owner when memory is short.
    static VectorCanvas Create() noexcept { return VectorCanvas(velCanvasCreate()); }

    // Draws from now on into `width` x `height` premultiplied pixels at `bits`, rows `stride` bytes apart, all
    // multiples of 4. They are not copied and must stay as long as the canvas draws on them. Refused by
    // velBitmapCreateFromData's limits, and without a canvas; it then draws where it did.
    bool DrawInto(void *bits, LONG width, LONG height, LONG stride) noexcept {
        const Owner<velBitmap *, velBitmapDestroy> bitmap(velBitmapCreateFromData(bits, width, height, stride));
        return velCanvasSetBitmap(*this, bitmap) != 0;
    }
};

// Saves the state of a canvas (velCanvasSave) and goes back to it at the end of the scope.
class ScopedVectorState {
public:
    explicit ScopedVectorState(velCanvas *canvas) noexcept : saved(velCanvasSave(canvas) ? canvas : nullptr) {}
    ScopedVectorState(const ScopedVectorState &) = delete;
    ScopedVectorState &operator=(const ScopedVectorState &) = delete;
    ~ScopedVectorState() {
        if (saved) velCanvasRestore(saved);
    }

    // Whether the state was saved, and will be restored.
    explicit operator bool() const noexcept { return saved != nullptr; }

private:
    velCanvas *saved;
};

}  // namespace lq

#endif
