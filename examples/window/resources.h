// Files among a program's resources.
#pragma once

#include <string>
#include <string_view>

#include "common/image.h"

namespace lacquer::examples {

/// The bytes of the resource `name` of type RCDATA, which stay. Throws std::runtime_error when it is missing.
std::string_view ReadResource(const std::string &name);

/// Reads the resource `name` of type RCDATA into a 32-bit image: a PNG file, decoded by the system's imaging component.
/// COM must be initialised on the thread. Throws std::runtime_error when the resource is missing or can't be decoded.
Image ReadPngResource(const std::string &name, Alpha alpha);

}  // namespace lacquer::examples
