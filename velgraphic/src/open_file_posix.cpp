// Paths are bytes.

#include "open_file.h"

namespace lacquer::vel {

std::FILE *OpenFile(const char *utf8Path) { return std::fopen(utf8Path, "rb"); }

}  // namespace lacquer::vel
