// Gradients as patterns of the renderer, and their exports.

#include "gradient.h"

#include <limits>
#include <new>
#include <utility>

#include "colour.h"

using lacquer::vel::AreFinite;
using lacquer::vel::Buffer;
using lacquer::vel::Colour;
using lacquer::vel::ColourOf;

namespace {

/// The colours between the stops of a gradient.
class Ramp {
public:
    Ramp(const Buffer<velGradient::Stop> &stops, double opacity) : stops_(stops), opacity_(opacity) {}

    /// The premultiplied pixel at `t` between 0 and 1, or beyond.
    uint32_t At(double t) {
        if (!(low_ <= t && t < high_)) FindStops(t);
        const double s = (t - origin_) * perLength_;
        const auto between = [s](double a, double b) { return a + s * (b - a); };
        const double alpha = between(from_.alpha, to_.alpha);
        const auto byte = [](double value) { return static_cast<uint32_t>(255 * value + 0.5); };
        return byte(alpha) << 24 | byte(alpha * between(from_.red, to_.red)) << 16 |
               byte(alpha * between(from_.green, to_.green)) << 8 | byte(alpha * between(from_.blue, to_.blue));
    }

private:
    void FindStops(double t) {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        const auto *after = std::upper_bound(stops_.begin(), stops_.end(), t,
                                             [](double value, const auto &stop) { return value < stop.offset; });
        const bool isFirst = after == stops_.begin(), isLast = after == stops_.end();
        const auto *before = isFirst ? after : after - 1;
        if (isLast) after = before;
        from_ = ColourOf(before->colour, opacity_);
        to_ = ColourOf(after->colour, opacity_);
        low_ = isFirst ? -kInfinity : before->offset;
        high_ = isLast ? kInfinity : after->offset;
        origin_ = isFirst || isLast ? 0 : low_;
        perLength_ = isFirst || isLast ? 0 : 1 / (high_ - low_);
    }

    const Buffer<velGradient::Stop> &stops_;
    double opacity_;
    double low_ = 1, high_ = 0;  ///< where `from_` and `to_` are the colours around; nowhere at first
    double origin_ = 0, perLength_ = 0;
    Colour from_{}, to_{};
};

}  // namespace

bool velGradient::AddStop(float offset, DWORD colour) {
    if (stops_.Size() == kMaxStops || !stops_.Append({offset, colour})) return false;
    Stop *stop = stops_.Data() + stops_.Size() - 1;
    for (; stop != stops_.begin() && stop[-1].offset > offset; --stop) std::swap(stop[-1], stop[0]);
    return true;
}

bool velGradient::SuitsRenderer(Point offset, const Clip &visible) const {
    // About a second, if every pixel lies between other stops than the one before; less to insert the stops.
    constexpr double kMaxSearched = 1.2e10, kInsertion = 60;
    const double stops = static_cast<double>(stops_.Size());
    if (stops * (visible.Area() + kInsertion * stops) > kMaxSearched) return false;

    // Beyond this the renderer reduces the gradient and its coordinates, which it keeps in steps of 2^-16.
    constexpr double kLargest = 16383, kError = 0x1p-17;
    double largest = radius_;
    for (const Point p : {first_ + offset, second_ + offset}) {
        largest = std::max({largest, std::fabs(p.x), std::fabs(p.y)});
    }
    if (largest <= kLargest || Length() == 0) return true;

    const double distance = kError * (largest / kLargest) * (std::max(visible.right, visible.bottom) + 1);
    const double shift = distance / Length() + kError;
    constexpr double kHalfLevel = 1.0 / 512;
    for (size_t i = 1; i < stops_.Size(); ++i) {
        if (stops_[i].colour == stops_[i - 1].colour) continue;
        if (shift > kHalfLevel * static_cast<double>(stops_[i].offset - stops_[i - 1].offset)) return false;
    }
    return true;
}

size_t velGradient::Bytes(Point offset, const Clip &visible) const {
    constexpr size_t kStop = 256;  // as a growing list, and as the renderer's own
    return SuitsRenderer(offset, visible) ? kStop * stops_.Size() : 4 * static_cast<size_t>(visible.Area());
}

cairo_pattern_t *velGradient::Pattern(Point offset, double opacity) const {
    const Point first = first_ + offset, second = second_ + offset;
    cairo_pattern_t *pattern = radius_ > 0 ? cairo_pattern_create_radial(first.x, first.y, 0, first.x, first.y, radius_)
                                           : cairo_pattern_create_linear(first.x, first.y, second.x, second.y);
    for (const Stop &stop : stops_) {
        const Colour colour = ColourOf(stop.colour, opacity);
        cairo_pattern_add_color_stop_rgba(pattern, static_cast<double>(stop.offset), colour.red, colour.green,
                                          colour.blue, colour.alpha);
    }
    return pattern;
}

cairo_pattern_t *velGradient::Painted(const Clip &part, Point offset, double opacity) const {
    const int columns = std::max(part.right - part.left, 0), rows = std::max(part.bottom - part.top, 0);
    cairo_surface_t *image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows);
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) {
        Ramp ramp(stops_, opacity);
        const Point direction = second_ - first_, from = first_ + offset;
        const Point step = 1 / (Length() * Length()) * direction;
        unsigned char *pixels = cairo_image_surface_get_data(image);
        const ptrdiff_t stride = cairo_image_surface_get_stride(image);
        for (int y = 0; y < rows; ++y) {
            uint32_t *pixel = reinterpret_cast<uint32_t *>(pixels + y * stride);
            for (int x = 0; x < columns; ++x) {
                const Point p = Point{part.left + x + 0.5, part.top + y + 0.5} - from;
                *pixel++ = ramp.At(radius_ > 0 ? lacquer::vel::Length(p) / radius_ : p.x * step.x + p.y * step.y);
            }
        }
        cairo_surface_mark_dirty(image);
    }
    cairo_pattern_t *pattern = cairo_pattern_create_for_surface(image);
    cairo_surface_destroy(image);
    cairo_matrix_t matrix;
    cairo_matrix_init_translate(&matrix, -part.left, -part.top);
    cairo_pattern_set_matrix(pattern, &matrix);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_NEAREST);
    return pattern;
}

namespace lacquer::vel {

cairo_pattern_t *KeptPattern::Of(const Reference<velGradient> &gradient, Point offset, double opacity) {
    const bool isSame = gradient.Get() == gradient_.Get() && gradient->StopCount() == stopCount_ && offset == offset_ &&
                        opacity == opacity_;
    if (!isSame || !pattern_ || cairo_pattern_status(pattern_) != CAIRO_STATUS_SUCCESS) {
        Drop();
        pattern_ = gradient->Pattern(offset, opacity);
        gradient_ = gradient;
        stopCount_ = gradient->StopCount();
        offset_ = offset;
        opacity_ = opacity;
    }
    return cairo_pattern_reference(pattern_);
}

void KeptPattern::Drop() {
    if (pattern_) cairo_pattern_destroy(std::exchange(pattern_, nullptr));
}

}  // namespace lacquer::vel

velGradient *velGradientCreateLinear(float x0, float y0, float x1, float y1) {
    if (!AreFinite(x0, y0, x1, y1)) return nullptr;
    return new (std::nothrow) velGradient({x0, y0}, {x1, y1}, 0);
}

velGradient *velGradientCreateRadial(float centreX, float centreY, float radius) {
    if (!AreFinite(centreX, centreY, radius) || radius <= 0) return nullptr;
    return new (std::nothrow) velGradient({centreX, centreY}, {centreX, centreY}, radius);
}

int velGradientAddColorStop(velGradient *gradient, float offset, DWORD colour) {
    return gradient && offset >= 0 && offset <= 1 && gradient->AddStop(offset, colour);
}

int velGradientDestroy(velGradient *gradient) {
    if (!gradient) return 0;
    gradient->Release();
    return 1;
}
