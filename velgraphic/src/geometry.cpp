// Sine and cosine by degrees.

#include "geometry.h"

#include <numbers>

namespace lacquer::vel {
namespace {

double Rounded(double value) { return std::nearbyint(value * 0x1p30) * 0x1p-30; }

}  // namespace

Point UnitVector(double degrees) {
    const double turned = std::fmod(degrees, 360);
    const double quarters = std::nearbyint(turned / 90);
    const double radians = (turned - 90 * quarters) * (std::numbers::pi / 180);
    const double sine = Rounded(std::sin(radians)), cosine = Rounded(std::cos(radians));
    switch (static_cast<int>(quarters) & 3) {
        case 0: return {cosine, sine};
        case 1: return {-sine, cosine};
        case 2: return {-cosine, -sine};
        default: return {sine, -cosine};
    }
}

double ArcHandle(double degrees) { return Rounded(4.0 / 3 * std::tan(degrees * (std::numbers::pi / 720))); }

}  // namespace lacquer::vel
