// A check of animations that come from strangers, before a renderer that trusts them gets them: what loading them, and
// preparing any of their frames, would take.
#pragma once

#include <cstddef>

#include "buffer.h"

namespace lacquer::vel {

/// Where a text has something.
struct TextRange {
    size_t begin, end;
};

/// A stroke with dashes: the name of its pattern, and the lengths in it, each a property.
struct DashedStroke {
    size_t patternName, end;  ///< `end`: of the stroke
    size_t firstLength, lengthCount;
};

/// What is known of an animation after the check.
struct CheckedAnimation {
    const char *refusal = nullptr;  ///< why the renderer must not get it
    double bytes = 0;               ///< what the renderer needs to load it, at most
    double frameBytes = 0;          ///< what it needs to prepare a frame
    Buffer<DashedStroke> strokes;   ///< in the order of the text
    Buffer<TextRange> lengths;
};

/// Checks the text of a Lottie animation, and changes it: without pictures, and with names spelt plainly.
void CheckAnimation(char *json, size_t length, CheckedAnimation &result);

}  // namespace lacquer::vel
