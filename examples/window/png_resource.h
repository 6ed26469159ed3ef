// PNG files among a program's resources, decoded by the system's imaging component.
#pragma once

#include <string>

#include "common/image.h"

namespace lacquer::examples {

/// Reads the resource `name` of type RCDATA into a 32-bit image. COM must be initialised on the thread. Throws
/// std::runtime_error when the resource is missing or can't be decoded.
Image ReadPngResource(const std::string &name, Alpha alpha);

}  // namespace lacquer::examples
