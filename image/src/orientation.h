// Which way up a JPEG is meant to be seen.
#pragma once

#include "codec.h"

namespace lacquer::image {

/// What the Exif data of a JPEG say, 1 to 8; 1, upright, when they are missing or make no sense.
DWORD JpegOrientation(Bytes file);

/// The code of TransformBitmap that turns pixels of this orientation upright; 0 when they are.
DWORD TurnOf(DWORD orientation);

}  // namespace lacquer::image
