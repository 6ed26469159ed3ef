// The splash: a picture whose visible pixels make a shape of their own.
#pragma once

#include "common/skin.h"

namespace lacquer::examples {

/// A canvas of the splash's size with its picture; what is not part of its shape is clear. Throws std::runtime_error on
/// failure.
Canvas MakeSplash(const Skin &skin);

}  // namespace lacquer::examples
