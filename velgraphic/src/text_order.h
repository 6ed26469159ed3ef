// The characters of a text, and which way they run.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstdint>
#include <span>

#include "buffer.h"

namespace lacquer::vel {

/// Appends the code points of a text, without control characters and line ends, but with tabs. Half a surrogate pair
/// becomes U+FFFD. False when memory is short.
bool AppendCharacters(std::span<const WCHAR> text, Buffer<uint32_t> &characters);

/// Appends each character's embedding level, which is even where text runs from left to right. The base direction is
/// that of the first strong character. False when memory is short.
bool AppendLevels(const Buffer<uint32_t> &characters, Buffer<int8_t> &levels);

}  // namespace lacquer::vel
