/// @file
/// velGraphic for C++17: owners of paths, gradients, animations and canvases, over <velgraphic/velgraphic.h>, which
/// says how each function draws and what its limits are. Header-only; each member is one call of the C function that
/// its comment names, and gives true for done, false for refused. Coordinates and lengths are pixels, angles degrees,
/// colours straight 0xAARRGGBB. Members of an owner that owns nothing are refused.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef VELGRAPHIC_VELGRAPHIC_HPP
#define VELGRAPHIC_VELGRAPHIC_HPP

#include <velgraphic/velgraphic.h>
#include <velgraphic/owner.hpp>

#include <cmath>
#include <optional>
#include <string_view>

namespace lq {

/// @addtogroup cpp
/// @param x the left edge, pixels
/// @param y the top edge, pixels
/// @param width pixels, 0 and more
/// @param height pixels, 0 and more
/// @param centreX the centre, pixels
/// @param centreY the centre, pixels
/// @param radiusX half the width, pixels, 0 and more
/// @param radiusY half the height, pixels, 0 and more
/// @param startAngle where the arc begins, degrees clockwise from the right
/// @param sweepAngle how far it goes, degrees, negative for counter-clockwise
/// @return true for done; false when nothing is owned and for what the C function refuses
/// @{

/// Figures of lines and curves, filled or stroked by velCanvasDrawPath and DrawPath.
class Path : public Owner<velPath *, velPathDestroy> {
public:
    using Owner::Owner;

    /// velPathCreate: a new path without figures, with the fill type VEL_FILL_WINDING.
    /// @return the path; an empty owner when memory is short
    static Path Create() noexcept { return Path(velPathCreate()); }

    /// velPathBegin: empties the path; the fill type stays.
    bool Clear() noexcept { return velPathBegin(*this) != 0; }

    /// velPathSetFillType: sets which points the path encloses.
    /// @param type VEL_FILL_WINDING or VEL_FILL_EVEN_ODD
    bool SetFillType(DWORD type) noexcept { return velPathSetFillType(*this, type) != 0; }

    /// velPathMoveTo: begins a figure at a point.
    /// @param x the point, pixels
    /// @param y the point, pixels
    bool MoveTo(float x, float y) noexcept { return velPathMoveTo(*this, x, y) != 0; }

    /// velPathLineTo: adds a line.
    /// @param x where it ends, pixels
    /// @param y where it ends, pixels
    bool LineTo(float x, float y) noexcept { return velPathLineTo(*this, x, y) != 0; }

    /// velPathQuadraticCurveTo: adds a quadratic curve.
    /// @param x1 the control point, pixels
    /// @param y1 the control point, pixels
    /// @param x2 where it ends, pixels
    /// @param y2 where it ends, pixels
    bool QuadraticCurveTo(float x1, float y1, float x2, float y2) noexcept {
        return velPathQuadraticCurveTo(*this, x1, y1, x2, y2) != 0;
    }

    /// velPathBezierCurveTo: adds a cubic curve.
    /// @param x1 the first control point, pixels
    /// @param y1 the first control point, pixels
    /// @param x2 the second control point, pixels
    /// @param y2 the second control point, pixels
    /// @param x3 where it ends, pixels
    /// @param y3 where it ends, pixels
    bool BezierCurveTo(float x1, float y1, float x2, float y2, float x3, float y3) noexcept {
        return velPathBezierCurveTo(*this, x1, y1, x2, y2, x3, y3) != 0;
    }

    /// velPathClose: goes back to where the figure began, and ends it.
    bool Close() noexcept { return velPathClose(*this) != 0; }

    /// velPathArcTo: adds part of the ellipse in a rectangle.
    /// @param newFigure false for a line to where the arc begins, true for the arc as a new figure
    bool ArcTo(float x, float y, float width, float height, float startAngle, float sweepAngle,
               bool newFigure = false) noexcept {
        return velPathArcTo(*this, x, y, width, height, startAngle, sweepAngle, newFigure) != 0;
    }

    /// velPathOvalCurveTo: adds an arc along a turned ellipse, the elliptical arc of SVG path data.
    /// @param xAxisRotation how far the ellipse is turned, degrees clockwise
    /// @param largeArc false for the arc below 180 degrees, true for the other one
    /// @param clockwise false for the arc that goes counter-clockwise, true for the clockwise one
    /// @param x where it ends, pixels
    /// @param y where it ends, pixels
    bool OvalCurveTo(float radiusX, float radiusY, float xAxisRotation, bool largeArc, bool clockwise, float x,
                     float y) noexcept {
        return velPathOvalCurveTo(*this, radiusX, radiusY, xAxisRotation, largeArc, clockwise, x, y) != 0;
    }

    /// velPathAddArc: adds an open arc as a figure of its own.
    bool AddArc(float x, float y, float width, float height, float startAngle, float sweepAngle) noexcept {
        return velPathAddArc(*this, x, y, width, height, startAngle, sweepAngle) != 0;
    }

    /// velPathAddRectangle: adds a rectangle as a figure of its own.
    bool AddRectangle(float x, float y, float width, float height) noexcept {
        return velPathAddRectangle(*this, x, y, width, height) != 0;
    }

    /// velPathAddCircle: adds a circle as a figure of its own.
    /// @param radius pixels, 0 and more
    bool AddCircle(float centreX, float centreY, float radius) noexcept {
        return velPathAddCircle(*this, centreX, centreY, radius) != 0;
    }

    /// velPathAddEllipse: adds an ellipse as a figure of its own.
    bool AddEllipse(float centreX, float centreY, float radiusX, float radiusY) noexcept {
        return velPathAddEllipse(*this, centreX, centreY, radiusX, radiusY) != 0;
    }

    /// velPathGetBounds: the smallest rectangle around all lines and curves.
    /// @return pixels, all 0 for an empty path; none without a path
    std::optional<velRectF> Bounds() const noexcept {
        velRectF bounds{};
        if (!velPathGetBounds(*this, &bounds)) return std::nullopt;
        return bounds;
    }
};

/// Colours along a line or outwards from a point, for the gradient styles.
class Gradient : public Owner<velGradient *, velGradientDestroy> {
public:
    using Owner::Owner;

    /// velGradientCreateLinear: a new gradient along a line, without stops.
    /// @param x0 the place of offset 0, pixels
    /// @param y0 the place of offset 0, pixels
    /// @param x1 the place of offset 1, pixels
    /// @param y1 the place of offset 1, pixels
    /// @return the gradient; an empty owner on failure
    static Gradient Linear(float x0, float y0, float x1, float y1) noexcept {
        return Gradient(velGradientCreateLinear(x0, y0, x1, y1));
    }

    /// velGradientCreateRadial: a new gradient outwards from a point to a circle, without stops.
    /// @param radius the circle, pixels, positive
    /// @return the gradient; an empty owner on failure
    static Gradient Radial(float centreX, float centreY, float radius) noexcept {
        return Gradient(velGradientCreateRadial(centreX, centreY, radius));
    }

    /// velGradientAddColorStop: adds a colour.
    /// @param offset 0 at the first point or the centre, 1 at the second or the circle
    /// @param colour straight 0xAARRGGBB
    bool AddStop(float offset, DWORD colour) noexcept { return velGradientAddColorStop(*this, offset, colour) != 0; }
};

/// An animation, drawn frame by frame by velLottieDraw, and on Lacquer's canvases by DrawLottie.
class Lottie : public Owner<velLottie *, velLottieDestroy> {
public:
    using Owner::Owner;

    /// velLottieCreateFromData: a new animation from Lottie JSON.
    /// @param json the text in UTF-8, which need not stay
    /// @return the animation; an empty owner when it is refused: see velLottieLastError
    static Lottie FromData(std::string_view json) noexcept {
        return Lottie(velLottieCreateFromData(json.data(), json.size()));
    }

    /// velLottieCreateFromFile: a new animation from a file of Lottie JSON.
    /// @param utf8Path its path in UTF-8, on every system; null is refused
    /// @return the animation; an empty owner when it is refused: see velLottieLastError
    static Lottie FromFile(const char *utf8Path) noexcept { return Lottie(velLottieCreateFromFile(utf8Path)); }

    /// velLottieGetInfo: size, number of frames and speed.
    /// @return these; none without an animation
    std::optional<velLottieInfo> Info() const noexcept {
        velLottieInfo info{};
        if (!velLottieGetInfo(*this, &info)) return std::nullopt;
        return info;
    }

    /// The frame to show at a time when the animation plays again and again.
    /// @param seconds since the beginning
    /// @return the number of the frame, from 0; 0 without an animation, and for a time that is negative, infinite or
    /// not a number
    float FrameAt(double seconds) const noexcept {
        const auto info = Info();
        if (!info || !(info->frameCount > 0) || !(seconds > 0) || !std::isfinite(seconds)) return 0;
        return static_cast<float>(std::fmod(seconds * info->frameRate, info->frameCount));
    }
};

/// The companion's own canvas, for pixels that are not Lacquer's. All velCanvas... functions take it as it stands.
class VectorCanvas : public Owner<velCanvas *, velCanvasDestroy> {
public:
    using Owner::Owner;

    /// velCanvasCreate: a new canvas without pixels.
    /// @return the canvas; an empty owner when memory is short
    static VectorCanvas Create() noexcept { return VectorCanvas(velCanvasCreate()); }

    /// velCanvasSetBitmap: draws from now on into premultiplied pixels of the caller's. They are not copied and must
    /// stay as long as the canvas draws on them.
    /// @param bits the first byte of the top-left pixel, a multiple of 4; null is refused
    /// @param width pixels in a row, positive
    /// @param height rows, positive
    /// @param stride bytes from one row to the next, a multiple of 4
    /// @return true for done; false, and the canvas draws where it did, for what velBitmapCreateFromData refuses and
    /// when nothing is owned
    bool DrawInto(void *bits, LONG width, LONG height, LONG stride) noexcept {
        const Owner<velBitmap *, velBitmapDestroy> bitmap(velBitmapCreateFromData(bits, width, height, stride));
        return velCanvasSetBitmap(*this, bitmap) != 0;
    }
};

/// Saves the state of a canvas (velCanvasSave) and goes back to it at the end of the scope.
class ScopedVectorState {
public:
    /// Saves the state.
    /// @param canvas the canvas; with null nothing is saved or restored
    explicit ScopedVectorState(velCanvas *canvas) noexcept : saved(velCanvasSave(canvas) ? canvas : nullptr) {}
    ScopedVectorState(const ScopedVectorState &) = delete;
    ScopedVectorState &operator=(const ScopedVectorState &) = delete;
    /// Restores the state.
    ~ScopedVectorState() {
        if (saved) velCanvasRestore(saved);
    }

    /// Whether the state was saved, and will be restored.
    /// @return false for a null canvas and when memory is short
    explicit operator bool() const noexcept { return saved != nullptr; }

private:
    velCanvas *saved;
};

/// @}

}  // namespace lq

#endif
