// The splash: a picture whose visible pixels make a shape of their own, and the same with a seal and a shadow for a
// screen that blends translucent pixels.
#pragma once

#include "common/skin.h"

namespace lacquer::examples {

/// A canvas of the splash's size with its picture; what is not part of its shape is clear. Throws std::runtime_error on
/// failure, as the other functions do.
Canvas MakeSplash(const Skin &skin, Scale px = Scale());

class SplashPicture {
public:
    SplashPicture(const Skin &skin, Scale px);

    /// The size of the picture, the room for its shadow included.
    SIZE size() const { return size_; }

    /// Replaces what is on a canvas of this size by the splash with a frame of an animation on its seal. Without an
    /// animation the seal stays empty.
    void Paint(const Canvas &canvas, const Lottie &animation, float frame) const;

private:
    Scale px_;
    SIZE size_;
    Texture still_;  // what is the same in all frames
};

}  // namespace lacquer::examples
