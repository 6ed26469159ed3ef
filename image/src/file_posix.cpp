// Paths are bytes.

#include "file.h"

namespace lacquer::image {

std::FILE *OpenFile(const char *utf8Path, bool forWriting) { return std::fopen(utf8Path, forWriting ? "wb" : "rb"); }

void RemoveFile(const char *utf8Path) { std::remove(utf8Path); }

}  // namespace lacquer::image
