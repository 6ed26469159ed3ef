// Dash patterns and their limits.

#include "dash.h"

#include <algorithm>
#include <new>
#include <numeric>

#include "geometry.h"

namespace lacquer::vel {
namespace {

constexpr int kLongestPattern = 10'000;
constexpr int kLongestStyle = 6;

}  // namespace

Reference<DashPattern> DashPattern::Create(const float *lengths, int count, float offset) {
    if (!lengths || count < 1 || count > kLongestPattern || !AreFinite(offset)) return {};
    auto pattern = Reference<DashPattern>::Adopt(new (std::nothrow) DashPattern);
    if (!pattern || !pattern->lengths.Reserve(static_cast<size_t>(count))) return {};
    bool isEmpty = true;
    for (int i = 0; i < count; ++i) {
        if (!(lengths[i] >= 0 && lengths[i] <= static_cast<float>(kMaxSize))) return {};
        isEmpty = isEmpty && lengths[i] == 0;
        pattern->lengths.Append(lengths[i]);
    }
    if (isEmpty) return {};
    pattern->offset = offset;
    return pattern;
}

Dashes Dashes::Of(DWORD style, double strokeWidth, const DashPattern *pattern) {
    static constexpr double kDash[] = {3, 1}, kDot[] = {1, 1}, kDashDot[] = {3, 1, 1, 1},
                            kDashDotDot[] = {3, 1, 1, 1, 1, 1};
    switch (style) {
        case VEL_DASH_DASH: return {kDash, 2, 0, strokeWidth};
        case VEL_DASH_DOT: return {kDot, 2, 0, strokeWidth};
        case VEL_DASH_DASH_DOT: return {kDashDot, 4, 0, strokeWidth};
        case VEL_DASH_DASH_DOT_DOT: return {kDashDotDot, 6, 0, strokeWidth};
        case VEL_DASH_PATTERN:
            if (!pattern) return {};
            return {pattern->lengths.begin(), static_cast<int>(pattern->lengths.Size()), pattern->offset, 1};
        default: return {};
    }
}

Dashes Dashes::Whole() {
    static constexpr double kLonger = 1e6;  // than any dash
    return {&kLonger, 1, 0, 1};
}

void Dashes::ApplyTo(cairo_t *context) const {
    if (scale == 1) {
        cairo_set_dash(context, lengths, count, offset);
        return;
    }
    double scaled[kLongestStyle];
    std::transform(lengths, lengths + count, scaled, [this](double length) { return scale * length; });
    cairo_set_dash(context, scaled, count, scale * offset);
}

double Dashes::MeanLength() const {
    // Half of the lengths are gaps.
    return 2 * scale * std::accumulate(lengths, lengths + count, 0.0) / count;
}

bool Dashes::AreTooMany(double length) const { return length > kMost * MeanLength(); }

bool DashCursor::Use(const Dashes &dashes) {
    dashes_ = dashes;
    // An odd number of lengths is gone through once more with on and off exchanged.
    const int count = dashes.count % 2 == 0 ? dashes.count : 2 * dashes.count;
    if (!ends_.Reserve(static_cast<size_t>(count))) return false;
    double end = 0;
    for (int i = 0; i < count; ++i) ends_.Append(end += dashes.scale * dashes.lengths[i % dashes.count]);
    return true;
}

bool DashCursor::GoOn(double length) {
    const bool isAtEnd = length >= left_;
    left_ -= length;
    if (isAtEnd) {
        index_ = (index_ + 1) % ends_.Size();
        left_ = dashes_.scale * dashes_.lengths[index_ % static_cast<size_t>(dashes_.count)];
    }
    return isAtEnd;
}

void DashCursor::Skip(double length) { GoTo(ends_[index_] - left_ + length); }

void DashCursor::GoTo(double position) {
    if (!dashes_) return;
    const double period = ends_.Last();
    double phase = std::fmod(position, period);
    if (phase < 0) phase += period;
    // A dash without length shows only at the very beginning, and where the stroke is followed from there.
    index_ = phase > 0 ? static_cast<size_t>(std::upper_bound(ends_.begin(), ends_.end(), phase) - ends_.begin()) : 0;
    if (index_ == ends_.Size()) index_ = 0, phase = 0;
    left_ = ends_[index_] - phase;
}

}  // namespace lacquer::vel
