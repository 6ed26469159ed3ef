// What calls are kept below for the fuzzer's sake: numbers by which the work of a call grows, where the library itself
// sets no bound near enough for thousands of programs in a second. A cap goes when the library bounds the work.
#pragma once

namespace fuzz::caps {

constexpr int kSide = 64;           // of most surfaces
constexpr int kLargeSide = 500;     // of some, which are beyond what is walked without looking ahead
constexpr int kWideSide = 32767;    // of one side, the other one small
constexpr int kDepthOfLarge = 64;   // deeper surfaces are small
constexpr int kPaletteCount = 256;  // beyond it creation cuts anyway

// The companion.
constexpr int kGlyphs = 40;
constexpr int kAnimationChanges = 8;  // digits changed in the text of an animation

}  // namespace fuzz::caps
