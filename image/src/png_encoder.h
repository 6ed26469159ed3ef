// Pixels as a PNG file in memory.
#pragma once

#include "file.h"

namespace lacquer::image {

/// Encodes the pixels of a view of 8, 24 or 32 bits; its colours as they are and without alpha when `opaque`. Result:
/// false, with the reason written.
bool EncodePng(const SurfaceView &view, bool opaque, Content &content, Fault &fault);

}  // namespace lacquer::image
