// Sine and cosine by degrees.

#include "geometry.h"

#include <numbers>

namespace lacquer::vel {
namespace {

constexpr double kRadians = std::numbers::pi / 180;

/// The sum of 1, of the first factor times x^2, of both first factors times x^4, and so on.
template <int terms>
double Series(const double (&factors)[terms], double x) {
    double sum = 1;
    for (int i = terms - 1; i >= 0; --i) sum = 1 + factors[i] * (x * x) * sum;
    return sum;
}

// Sine and cosine of at most pi / 4: C libraries differ in the last bits of theirs.

double Sine(double x) {
    constexpr double kFactors[] = {-1.0 / 6,   -1.0 / 20,  -1.0 / 42,  -1.0 / 72,
                                   -1.0 / 110, -1.0 / 156, -1.0 / 210, -1.0 / 272};
    return x * Series(kFactors, x);
}

double Cosine(double x) {
    constexpr double kFactors[] = {-1.0 / 2,   -1.0 / 12,  -1.0 / 30,  -1.0 / 56, -1.0 / 90,
                                   -1.0 / 132, -1.0 / 182, -1.0 / 240, -1.0 / 306};
    return Series(kFactors, x);
}

double Rounded(double value, Precision precision) {
    return precision == Precision::Steps ? std::nearbyint(value * 0x1p30) * 0x1p-30 : value;
}

}  // namespace

Point UnitVector(double degrees, Precision precision) {
    const double turned = std::fmod(degrees, 360);
    const double quarters = std::nearbyint(turned / 90);
    const double radians = (turned - 90 * quarters) * kRadians;
    const double sine = Rounded(Sine(radians), precision), cosine = Rounded(Cosine(radians), precision);
    switch (static_cast<int>(quarters) & 3) {
        case 0: return {cosine, sine};
        case 1: return {-sine, cosine};
        case 2: return {-cosine, -sine};
        default: return {sine, -cosine};
    }
}

double ArcHandle(double degrees, Precision precision) {
    const double quarter = degrees / 4 * kRadians;
    return Rounded(4.0 / 3 * Sine(quarter) / Cosine(quarter), precision);
}

}  // namespace lacquer::vel
