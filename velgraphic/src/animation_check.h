// A check of animations that come from strangers, before a renderer that trusts them gets them.
#pragma once

#include <string_view>

namespace lacquer::vel {

/// How far from its origin anything of a Lottie animation reaches, at most, in the animation's own pixels. Negative
/// when it is refused: malformed, with bitmap images, with a composition that contains itself, or with amounts of
/// layers, repeated shapes, points or dashes beyond reason.
double ReachOfAnimation(std::string_view json);

}  // namespace lacquer::vel
