// Walks the renderer's tree. Times are in nanoseconds, and rather too long.

#include "animation_frame.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

#include <rlottiecommon.h>

namespace lacquer::vel {
namespace {

constexpr double kMaxBytes = 256 << 20, kMaxPoints = 2e6, kMaxShapes = 100'000;
/// For a frame of kMegapixel; larger ones get more.
constexpr double kMaxTime = 6e8, kMegapixel = 1 << 20;

/// The rasteriser loses a straight line that is longer, width and height together, and what is farther away.
constexpr double kMaxLine = 32000, kMaxDistance = 4e6;
/// On curves farther away, looking for the end of a dash can take very long.
constexpr double kMaxDashDistance = 16384;

// The rasteriser goes through an outline once per band of rows, and divides a band in which there are too many pixels
// on edges.
constexpr double kBandRows = 85, kBandPixels = 200;
constexpr double kTimePerPoint = 10, kTimePerStep = 1.2, kTimePerSpan = 3;
constexpr double kTimePerPixel = 1, kTimePerGradientPixel = 8, kTimePerLayerPixel = 3;
constexpr double kTimePerStrokedLine = 2000, kTimePerStrokedCurve = 16000;
constexpr double kTimePerLineDash = 500, kTimePerCurveDash = 20000, kTimePerLostDash = 1e8;
constexpr double kMaxOutlinePoints = 65534;
constexpr double kBytesPerPoint = 64, kBytesPerEdgePixel = 16;

/// The way of an outline through the frame.
struct Outline {
    double points = 0, lines = 0, curves = 0;
    double length = 0, longestLine = 0, distance = 0;
    double left = HUGE_VAL, top = HUGE_VAL, right = -HUGE_VAL, bottom = -HUGE_VAL;
    double steps = 0;     ///< the length of what enters the frame's rows
    double crossing = 0;  ///< the same, each piece by the share of the rows that it crosses
    double inside = 0;    ///< pixels on edges, at most
    double joints = 0;    ///< corners near the rows
};

class FrameMeter {
public:
    explicit FrameMeter(const FrameSize &size) : width_(size.width), height_(size.height), pixels_(width_ * height_) {
        const double scaleX = width_ / size.ownWidth, scaleY = height_ / size.ownHeight,
                     scale = std::min(scaleX, scaleY);
        left_ = (width_ - size.ownWidth * scale) / 2;
        top_ = (height_ - size.ownHeight * scale) / 2;
        stretchX_ = scaleX / scale;
        stretchY_ = scaleY / scale;
    }

    FrameNeeds Measure(const LOTLayerNode &tree) {
        Layers(tree, 0);
        FrameNeeds needs;
        needs.reduction = std::min({1.0, kMaxLine / longestLine_, kMaxDistance / distance_});
        needs.bytes =
            (keptLayers_ + deepest_) * pixels_ * 4 + points_ * kBytesPerPoint + edgePixels_ * kBytesPerEdgePixel;
        const double maxTime = kMaxTime * std::max(1.0, pixels_ / kMegapixel);
        if (!(shapes_ <= kMaxShapes && points_ <= kMaxPoints))
            needs.refusal = "The frame has too many shapes or points.";
        // Layers that may be translucent without the tree's showing it get twice as much.
        if (!(needs.bytes <= kMaxBytes && deepestComposition_ * pixels_ * 4 <= 2 * kMaxBytes)) {
            needs.refusal = "The frame would take too much memory.";
        }
        if (!(time_ <= maxTime)) needs.refusal = "The frame would take too much time.";
        if (hasNegativeDash_) needs.refusal = "The frame has a dash of a negative length.";
        return needs;
    }

private:
    void Layers(const LOTLayerNode &layer, double spans);
    void Layer(const LOTLayerNode &layer, double spans);
    void Node(const LOTNode &node, double spans);
    void Dash(const LOTNode &node, const Outline &outline);
    template <class Path>
    Outline Follow(const Path &path, size_t pointCount, double margin);
    double Rasterize(const Outline &outline, double margin);

    double width_, height_, pixels_, left_, top_, stretchX_, stretchY_;
    double time_ = 0, shapes_ = 0, points_ = 0, edgePixels_ = 0, longestLine_ = 1, distance_ = 1;
    double keptLayers_ = 0, layers_ = 0, deepest_ = 0, compositions_ = 0, deepestComposition_ = 0;
    double period_ = 0, dashes_ = 0;  ///< of the stroke that comes next
    bool hasNegativeDash_ = false;
};

template <class Path>
Outline FrameMeter::Follow(const Path &path, size_t pointCount, double margin) {
    enum : char { kMove, kLine, kCurve, kClose };
    Outline outline;
    outline.points = static_cast<double>(pointCount);
    points_ += outline.points;
    const float *at = path.ptPtr, *const end = at ? at + 2 * pointCount : nullptr;
    double x = 0, y = 0, startX = 0, startY = 0;
    const auto go = [&](int points, bool isLine) {
        double length = 0, low = y, high = y;
        for (; points > 0 && at < end; --points, at += 2) {
            const double toX = (at[0] - left_) * stretchX_, toY = (at[1] - top_) * stretchY_;
            if (std::isnan(toX) || std::isnan(toY)) continue;
            length += std::fabs(toX - x) + std::fabs(toY - y);
            x = toX;
            y = toY;
            low = std::min(low, y);
            high = std::max(high, y);
            outline.left = std::min(outline.left, x);
            outline.right = std::max(outline.right, x);
            outline.top = std::min(outline.top, y);
            outline.bottom = std::max(outline.bottom, y);
        }
        if (isLine) outline.longestLine = std::max(outline.longestLine, length);
        outline.length += length;
        const double rows = std::min(high + margin, height_) - std::max(low - margin, 0.0);
        if (rows < 0) return;
        outline.steps += length;
        outline.crossing += length * std::min(1.0, (rows + 1) / height_);
        outline.inside += std::min(length, width_ + height_) + 2;
        ++outline.joints;
    };
    // What is left open is closed by a line when it is filled.
    const auto close = [&] {
        outline.longestLine = std::max(outline.longestLine, std::fabs(startX - x) + std::fabs(startY - y));
    };
    for (size_t i = 0; i < path.elmCount; ++i) {
        if (path.elmPtr[i] == kMove && at < end) {
            close();
            if (!std::isnan(at[0]) && !std::isnan(at[1])) {
                x = startX = (at[0] - left_) * stretchX_;
                y = startY = (at[1] - top_) * stretchY_;
            }
            go(1, false);
        } else if (path.elmPtr[i] == kLine) {
            ++outline.lines;
            go(1, true);
        } else if (path.elmPtr[i] == kCurve) {
            ++outline.curves;
            go(3, false);
        }
    }
    close();
    outline.distance = std::max({std::fabs(outline.left), std::fabs(outline.right), std::fabs(outline.top),
                                 std::fabs(outline.bottom)}) +
                       margin;
    return outline;
}

/// Result: how many pixels of the frame are on edges, at most.
double FrameMeter::Rasterize(const Outline &outline, double margin) {
    const double columns = std::min(outline.right + margin, width_) - std::max(outline.left - margin, 0.0) + 1;
    const double rows = std::min(outline.bottom + margin, height_) - std::max(outline.top - margin, 0.0) + 1;
    if (!(outline.points > 0) || columns <= 0 || rows <= 0) return 0;
    longestLine_ = std::max(longestLine_, outline.longestLine);
    distance_ = std::max(distance_, outline.distance);
    const double edges = std::min(outline.inside, columns * rows);
    const double passes = std::min(2 * rows, rows / kBandRows + edges / kBandPixels) + 1;
    time_ += passes * (outline.points * kTimePerPoint + outline.crossing * kTimePerStep) +
             outline.steps * kTimePerStep + edges * std::min(edges / rows, kBandPixels);
    edgePixels_ += edges + rows;
    return edges + rows;
}

/// All of the layers of a composition, drawn through a mask of so many spans.
void FrameMeter::Layers(const LOTLayerNode &layer, double spans) {
    if (!layer.mVisible) return;
    for (size_t i = 0; i < layer.mMaskList.size; ++i) {
        const auto &path = layer.mMaskList.ptr[i].mPath;
        spans += 2 * Rasterize(Follow(path, path.ptCount, 0), 0);
    }
    if (layer.mClipPath.elmCount > 0) {
        spans += Rasterize(Follow(layer.mClipPath, layer.mClipPath.ptCount / 2, 0), 0);
    }
    time_ += spans * kTimePerSpan;
    for (size_t i = 0; i < layer.mNodeList.size; ++i) Node(*layer.mNodeList.ptr[i], spans);
    // Each of a matte and what it shows is drawn into pixels of its own, which the renderer keeps.
    const LOTLayerNode *matte = nullptr;
    for (size_t i = 0; i < layer.mLayerList.size; ++i) {
        const LOTLayerNode &inner = *layer.mLayerList.ptr[i];
        if (inner.mMatte != MatteNone) {
            matte = &inner;
            continue;
        }
        if (!matte) {
            Layer(inner, spans);
        } else if (inner.mVisible && matte->mVisible) {
            keptLayers_ += 2;
            time_ += 4 * pixels_ * kTimePerLayerPixel;
            Layer(inner, spans);
            Layer(*matte, spans);
        }
        matte = nullptr;
    }
}

/// A layer inside a composition: one with several layers is drawn into pixels of its own while it is translucent.
void FrameMeter::Layer(const LOTLayerNode &layer, double spans) {
    const bool isComposition = layer.mVisible && layer.mLayerList.size > 1;
    const bool isTranslucent = isComposition && layer.mAlpha != 255;
    layers_ += isTranslucent;
    compositions_ += isComposition;
    deepest_ = std::max(deepest_, layers_);
    deepestComposition_ = std::max(deepestComposition_, compositions_);
    if (isTranslucent) time_ += pixels_ * kTimePerLayerPixel;
    ++shapes_;
    Layers(layer, spans);
    layers_ -= isTranslucent;
    compositions_ -= isComposition;
}

void FrameMeter::Node(const LOTNode &node, double spans) {
    ++shapes_;
    const bool isStroke = node.mStroke.enable != 0;
    const double radius = isStroke ? std::fabs(double{node.mStroke.width}) / 2 * std::max(stretchX_, stretchY_) : 0;
    const double miter =
        isStroke && node.mStroke.join == JoinMiter ? std::max(1.0, double{node.mStroke.miterLimit}) : 1;
    const double margin = radius * miter * 1.5;
    Outline outline = Follow(node.mPath, node.mPath.ptCount / 2, margin);
    const bool isDash = node.keypath && std::strncmp(node.keypath, kDashName, sizeof kDashName - 1) == 0;
    if (isDash) Dash(node, outline);
    double area = HUGE_VAL;
    if (isStroke && !isDash) {
        // Each dash is a line with two ends.
        (outline.curves > 0 ? outline.curves : outline.lines) += dashes_;
        outline.joints += 2 * dashes_;
        dashes_ = 0;
    }
    if (isStroke) {
        // Both sides of the line, and what goes around its corners.
        const double corner = radius * (4 + 2 * miter);
        time_ += outline.lines * kTimePerStrokedLine + outline.curves * kTimePerStrokedCurve;
        outline.longestLine = outline.lines > 0 ? outline.longestLine : 0;
        outline.longestLine += 1.5 * radius * std::max(2.0, miter);
        outline.points = std::min(kMaxOutlinePoints, 10 * outline.lines + 60 * outline.curves + 20);
        area = 2 * (outline.inside + outline.joints * corner) * (2 * radius + 2);
        outline.inside = 2 * outline.inside + outline.joints * std::min(corner, width_ + height_);
        outline.steps = 2 * outline.steps + outline.joints * corner;
        outline.crossing = 2 * outline.crossing + outline.joints * corner * std::min(1.0, (margin + 1) / height_);
    }
    const double edges = Rasterize(outline, margin);
    const double columns = std::min(outline.right + margin, width_) - std::max(outline.left - margin, 0.0) + 1;
    const double rows = std::min(outline.bottom + margin, height_) - std::max(outline.top - margin, 0.0) + 1;
    if (!(columns > 0 && rows > 0)) return;
    time_ +=
        std::min(area, columns * rows) * (node.mBrushType == BrushGradient ? kTimePerGradientPixel : kTimePerPixel) +
        (spans + edges) * kTimePerSpan;
}

/// A length in the pattern of the stroke whose path this is.
void FrameMeter::Dash(const LOTNode &node, const Outline &outline) {
    const double length = double{node.mStroke.width};
    hasNegativeDash_ |= length < 0;
    period_ += std::max(length, 0.0);
    if (node.keypath[sizeof kDashName - 1] != '0') return;
    if (period_ > 1e-6) {
        const double perDash = outline.curves == 0                   ? kTimePerLineDash
                               : outline.distance > kMaxDashDistance ? kTimePerLostDash
                                                                     : kTimePerCurveDash;
        dashes_ = outline.length / period_ * 2;
        time_ += dashes_ * perDash;
        points_ += dashes_ * 2;
    }
    period_ = 0;
}

}  // namespace

FrameNeeds MeasureFrame(const LOTLayerNode &tree, const FrameSize &size) { return FrameMeter(size).Measure(tree); }

}  // namespace lacquer::vel
