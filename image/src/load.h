// From a file in memory to a bitmap.
#pragma once

#include <lacquer/objects.hpp>

#include "codec.h"

namespace lacquer::image {

/// The limits of `options` with what stands for 0 filled in, or the defaults for null.
ImageLoadOptions Complete(const ImageLoadOptions *options);

/// What is known of a picture before its pixels are decoded, as the caller will see it. Result: false, with the reason
/// written.
bool ReadInfo(Bytes file, ImageFileInfo &info, Fault &fault);

/// A new bitmap, premultiplied, turned and with its draw mode, as completed options say. Empty on failure, with the
/// reason written.
lq::Bitmap LoadBitmap(Bytes file, const ImageLoadOptions &options, Fault &fault);

}  // namespace lacquer::image
