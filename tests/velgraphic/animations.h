// Small animations, written by hand.
#pragma once

#include <string>

namespace lacquer {

/// Whether the library is to play animations; tests of one that is built without them set
/// VELGRAPHIC_WITHOUT_ANIMATIONS.
bool ExpectsAnimations();

/// Text with ' for each quotation mark, and <value> for a property that is not animated. The functions below take
/// pieces of such text, or of JSON itself.
std::string Json(const std::string &shorthand);

/// 60 frames of 100 x 80 pixels at 30 per second: a composition used twice, with groups, fills, strokes with dashes,
/// gradients, a star, trimmed and repeated shapes, masks, mattes, parents and keyframes.
std::string RichAnimation();

/// An animation of 10 frames whose one layer has these shapes, 40 x 40 pixels.
std::string AnimationOf(const std::string &shapes, const std::string &transform = "{}");

/// The same with any layers and assets.
std::string Composition(const std::string &layers, const std::string &assets = "");

/// A group, which may be moved and scaled.
std::string Group(const std::string &items, const std::string &position = "[0,0]", const std::string &scale = "100");

/// A filled rectangle of 20 x 20 pixels around (20, 20).
std::string RedSquare();

}  // namespace lacquer
