// Files among a program's resources.
#include "window/resources.h"

#include "common/png_file.h"

namespace lacquer::examples {

std::string_view ReadResource(const std::string &name) {
    const HRSRC resource = FindResourceA(nullptr, name.c_str(), MAKEINTRESOURCEA(10));  // RCDATA
    const HGLOBAL loaded = resource != nullptr ? LoadResource(nullptr, resource) : nullptr;
    const void *data = loaded != nullptr ? LockResource(loaded) : nullptr;
    if (data == nullptr) throw std::runtime_error("there is no resource " + name);
    return {static_cast<const char *>(data), SizeofResource(nullptr, resource)};
}

Image ReadPngResource(const std::string &name, Alpha alpha) {
    const std::string_view bytes = ReadResource(name);
    return ReadPng({reinterpret_cast<const BYTE *>(bytes.data()), bytes.size()}, name, alpha);
}

}  // namespace lacquer::examples
