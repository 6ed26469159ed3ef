// The names of members of a Lottie animation, and of its kinds of shapes.
#pragma once

#include <string_view>

namespace lacquer::vel {

namespace key {

// An animation, its layers and its assets.
inline constexpr std::string_view kWidth = "w", kHeight = "h", kFirstFrame = "ip", kEndFrame = "op", kFrameRate = "fr",
                                  kAssets = "assets", kLayers = "layers";
inline constexpr std::string_view kId = "id", kPictureFile = "p", kPictureFolder = "u", kAssetOfLayer = "refId",
                                  kShapesOfLayer = "shapes", kMasks = "masksProperties", kTransformOfLayer = "ks",
                                  kIndex = "ind", kParent = "parent";

// Shapes. Some names have two meanings.
inline constexpr std::string_view kType = "ty", kItems = "it", kSize = "s", kPosition = "p", kRoundness = "r",
                                  kStrokeWidth = "w", kMiterLimit = "ml", kCopies = "c", kFirstCopy = "o",
                                  kTransformOfCopy = "tr";
inline constexpr std::string_view kStarPoints = "pt", kOuterRadius = "or", kInnerRadius = "ir", kOuterRoundness = "os",
                                  kInnerRoundness = "is";
inline constexpr std::string_view kDashes = "d", kDashKind = "n", kDashLength = "v";
inline constexpr std::string_view kVertices = "v", kInTangents = "i", kOutTangents = "o";

// Transformations: scale in percent, position, and the point that stays.
inline constexpr std::string_view kScale = "s", kAnchor = "a";

// Keyframes.
inline constexpr std::string_view kEaseIn = "i", kEaseOut = "o", kEasedValue = "y";

/// What belongs to a keyframe or a property beside its values.
inline constexpr std::string_view kNoValues[] = {"t", "i", "o", "a", "ix", "h"};

}  // namespace key

namespace shape_type {

inline constexpr std::string_view kRepeater = "rp", kTransform = "tr", kStar = "sr", kEllipse = "el", kRectangle = "rc";

}  // namespace shape_type

/// The kind of a dash array's last entry, the offset.
inline constexpr std::string_view kDashOffset = "o";

}  // namespace lacquer::vel
