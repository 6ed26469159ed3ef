// Files among a program's resources.
#pragma once

#include <string>
#include <string_view>

#include "common/image.h"

namespace lacquer::examples {

/// The bytes of the resource `name` of type RCDATA, which stay. Throws std::runtime_error when it is missing.
std::string_view ReadResource(const std::string &name);

/// ReadPng for the resource `name` of type RCDATA. Throws std::runtime_error when it is missing or can't be decoded.
Image ReadPngResource(const std::string &name, Alpha alpha);

}  // namespace lacquer::examples
