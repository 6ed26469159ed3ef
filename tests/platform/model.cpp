// Points one by one, centres of pixels, and channels.
#include "model.h"

#include <algorithm>
#include <cstdlib>

namespace lacquer {

Points::Points(const RECT &rect) {
    const auto [left, right] = std::minmax(rect.left, rect.right);
    const auto [top, bottom] = std::minmax(rect.top, rect.bottom);
    for (LONG y = top; y < bottom; ++y) {
        for (LONG x = left; x < right; ++x) points_.set(Index(x, y));
    }
}

Points Points::Combined(const Points &other, int mode) const {
    Points result = *this;
    switch (mode) {
        case RGN_AND: result.points_ &= other.points_; break;
        case RGN_OR: result.points_ |= other.points_; break;
        case RGN_XOR: result.points_ ^= other.points_; break;
        case RGN_DIFF: result.points_ &= ~other.points_; break;
        default: break;  // RGN_COPY
    }
    return result;
}

Points Points::Moved(int x, int y) const {
    const int by = y * kSide + x;
    Points result;
    result.points_ = by < 0 ? points_ >> static_cast<size_t>(-by) : points_ << static_cast<size_t>(by);
    return result;
}

std::vector<RECT> Points::Bands() const {
    std::vector<RECT> bands, band;
    for (LONG y = kLow; y < kLow + kSide; ++y) {
        std::vector<RECT> row;
        for (LONG x = kLow + 1; x < kLow + kSide; ++x) {
            if (Has(x, y) && !Has(x - 1, y)) row.push_back({x, y, x, y + 1});
            if (Has(x, y)) row.back().right = x + 1;
        }
        const auto areAsWide = [](const RECT &a, const RECT &b) { return a.left == b.left && a.right == b.right; };
        if (std::ranges::equal(row, band, areAsWide)) {
            for (RECT &rect : band) rect.bottom = y + 1;
        } else {
            bands.insert(bands.end(), band.begin(), band.end());
            band = row;
        }
    }
    return bands;
}

RECT Points::Box() const {
    RECT box{};
    for (const RECT &band : Bands()) UnionRect(&box, &box, &band);
    return box;
}

int Points::Kind() const {
    const size_t count = Bands().size();
    return count == 0 ? NULLREGION : count == 1 ? SIMPLEREGION : COMPLEXREGION;
}

OwnedRegion Points::Region() const {
    OwnedRegion region(0, 0, 0, 0);
    for (const RECT &band : Bands()) {
        const OwnedRegion part(band.left, band.top, band.right, band.bottom);
        CombineRgn(region, region, part, RGN_OR);
    }
    return region;
}

Points Random::Shape() {
    Points shape;
    for (int i = Between(0, 3); i > 0; --i) shape = shape.Combined(Points(Rect()), RGN_OR);
    return shape;
}

namespace {

/// Whether a pixel's centre lies in another pixel, where `count` pixels cover `otherCount` others. A centre on an edge
/// belongs to the lower pixel.
bool CentreLiesIn(int pixel, int count, int other, int otherCount) {
    const int centre = (2 * pixel + 1) * otherCount;
    return centre > 2 * other * count && centre <= 2 * (other + 1) * count;
}

}  // namespace

std::vector<int> Stretch::PixelsOf(int position, int limit, bool isBlt) const {
    const int count = std::abs(destLength), number = destLength < 0 ? dest - position : position - dest;
    int sourceCount = std::abs(sourceLength);
    if (number < 0 || number >= count) return {};

    const int low = sourceLength < 0 ? source + sourceLength + 1 : source, high = low + sourceCount;
    // A source that begins one pixel beyond the bitmap and goes back counts as inside.
    const bool isInside = low >= 0 && high <= limit + (sourceLength < 0 ? 1 : 0);
    if (isBlt && IsMirrored() && !isInside) {
        // The part inside is mirrored where it would be drawn without mirroring.
        const int along = destLength < 0 ? count - 1 - number : number;
        const int first = std::max(low, 0), end = std::min(high, limit);
        const int pixel = first + end - 1 - low - along * sourceCount / count;
        return pixel >= first && pixel < end ? std::vector{pixel} : std::vector<int>{};
    }
    // Shrinking to one pixel leaves the last source pixel out, unless a side is mirrored.
    if (isBlt && destLength == 1 && sourceLength > 1) --sourceCount;

    std::vector<int> pixels;
    for (int i = 0; i < sourceCount; ++i) {
        // Growing takes the pixel in which the centre of the destination pixel lies. Shrinking gives a source pixel to
        // the destination pixel in which its centre lies.
        const bool belongs = count >= sourceCount ? CentreLiesIn(number, count, i, sourceCount)
                                                  : CentreLiesIn(i, sourceCount, number, count);
        const int pixel = sourceLength < 0 ? source - i : source + i;
        if (belongs && pixel >= 0 && pixel < limit) pixels.push_back(pixel);
    }
    return pixels;
}

uint32_t Blended(uint32_t source, uint32_t dest, uint32_t constant, bool hasPixelAlpha) {
    const auto rounded = [](uint32_t product) { return (product + 127) / 255; };
    const uint32_t rest = 255 - rounded((source >> 24) * constant);
    uint32_t word = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const uint32_t s = source >> shift & 0xFF, d = dest >> shift & 0xFF;
        word |=
            (hasPixelAlpha ? rounded(s * constant) + rounded(d * rest) : rounded(s * constant + d * (255 - constant)))
            << shift;
    }
    return word;
}

}  // namespace lacquer
