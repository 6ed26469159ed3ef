// A check of animations that come from strangers, before a renderer that trusts them gets them.
#pragma once

#include <string_view>

namespace lacquer::vel {

/// Whether the bytes are a Lottie animation that can be rendered in reasonable time and memory, without other files.
/// Refuses what is malformed, bitmap images, compositions that contain themselves, and amounts beyond reason of layers,
/// repeated shapes, points and dashes.
bool AnimationIsSafe(std::string_view json);

}  // namespace lacquer::vel
