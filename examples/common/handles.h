// Lacquer's C++ layer, as the examples use it. The layer throws nothing: what an example can't go on without is checked
// here.
#pragma once

#include <lacquer/lacquer.hpp>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace lacquer::examples {

using lq::Bitmap;
using lq::Canvas;
using lq::Gradient;
using lq::Lottie;
using lq::Path;
using lq::ScopedClip;
using lq::ScopedState;
using lq::Texture;

/// Throws std::runtime_error when a call did not give 1.
inline void Check(int result, const char *call) {
    if (result != 1) throw std::runtime_error(std::string(call) + " failed");
}

/// What a call made. Throws std::runtime_error when that is nothing.
template <typename Made>
Made Need(Made made, const char *call) {
    if (!made) throw std::runtime_error(std::string(call) + " failed");
    return made;
}

/// The pixels of a bitmap, texture or canvas while it is locked. Throws std::runtime_error when it can't be locked.
template <typename Object>
auto Locked(const Object &object, const RECT *rect = nullptr) {
    return Need(lq::Lock(object, rect), "locking pixels");
}

}  // namespace lacquer::examples
