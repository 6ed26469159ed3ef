// Files by UTF-8 paths.
#pragma once

#include <cstdio>

namespace lacquer::vel {

/// Opens a file for reading; the caller closes it. Null on failure.
std::FILE *OpenFile(const char *utf8Path);

}  // namespace lacquer::vel
