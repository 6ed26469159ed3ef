// Dashes of equal length along a closed line.
#pragma once

#include <algorithm>
#include <cstdint>

namespace lacquer {

/// Positions and lengths along the line are in 1/65536 pixel.
class Dashes {
public:
    static constexpr int64_t kLongestLine = int64_t{65536} << 16;

    /// `line`: its length, at most kLongestLine. `dash` and `gap` are above 0, at most 16384 pixels and at least 1/256.
    /// The line carries as many dashes as fit best; the first has its middle at 0.
    Dashes(int64_t line, int64_t dash, int64_t gap)
        : line_(line),
          count_(std::max<int64_t>(1, (2 * line + dash + gap) / (2 * (dash + gap)))),
          scaledDash_(line * (dash >> 8) / ((dash + gap) >> 8)) {}

    /// How much of the line between two positions is dashes. -line <= from <= to <= 2 × line.
    int64_t Between(int64_t from, int64_t to) const { return (ScaledBefore(to) - ScaledBefore(from)) / count_; }

    /// The mean of it for `count` stretches of one length that begin evenly spaced; they are short.
    int64_t MeanBetween(int64_t from, int64_t spacing, int count, int64_t length) const {
        // Mostly they all lie in one dash, or in one gap.
        const int64_t place = InPeriod(ScaledPlace(from), &period_);
        const int64_t end = place + (spacing * (count - 1) / count + length) * count_;
        if (end <= scaledDash_) return length;
        if (place >= scaledDash_ && end <= line_) return 0;
        int64_t sum = 0, beginPeriod = period_, endPeriod = period_;
        for (int i = 0; i < count; ++i) {
            const int64_t begin = from + spacing * i / count;
            sum += ScaledBefore(begin + length, &endPeriod) - ScaledBefore(begin, &beginPeriod);
        }
        return sum / count_ / count;
    }

    bool Contains(int64_t position) const { return ScaledPlace(position) % line_ < scaledDash_; }

private:
    /// Times the number of dashes, so that periods are whole: the line's length is the period.
    int64_t ScaledPlace(int64_t position) const { return (position + line_) * count_ + scaledDash_ / 2; }

    /// Most positions lie in the period of the one before.
    int64_t InPeriod(int64_t place, int64_t *period) const {
        if (static_cast<uint64_t>(place - *period * line_) >= static_cast<uint64_t>(line_)) *period = place / line_;
        return place - *period * line_;
    }

    int64_t ScaledBefore(int64_t position, int64_t *period) const {
        const int64_t place = InPeriod(ScaledPlace(position), period);
        return *period * scaledDash_ + std::min(place, scaledDash_);
    }

    int64_t ScaledBefore(int64_t position) const { return ScaledBefore(position, &period_); }

    int64_t line_, count_, scaledDash_;
    mutable int64_t period_ = 0;  ///< that of the last position
};

}  // namespace lacquer
