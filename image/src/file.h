// Whole files, by UTF-8 paths.
#pragma once

#include <cstdio>
#include <cstdlib>

#include "codec.h"

namespace lacquer::image {

/// Bytes that grow, and whose growth can fail.
struct Content {
    Content() = default;
    Content(const Content &) = delete;
    Content &operator=(const Content &) = delete;
    ~Content() { std::free(data); }

    Bytes View() const { return {data, size}; }

    /// Makes room for `count` more bytes. Result: false when memory is short.
    bool Reserve(size_t count);

    /// False, and nothing changed, when memory is short.
    bool Append(const void *bytes, size_t count);

    uint8_t *data = nullptr;
    size_t size = 0, capacity = 0;
};

enum class Extent { kWhole, kBeginning };

/// Reads a file of at most `most` bytes, or with Extent::kBeginning up to `most` bytes of any file. Result: false, with
/// the reason written.
bool ReadFile(const char *utf8Path, uint64_t most, Extent extent, Content &content, Fault &fault);

/// Result: false, with the reason written and no such file left.
bool WriteFile(const char *utf8Path, Bytes bytes, Fault &fault);

/// The system's: opens a file for reading or for writing anew. Null on failure.
std::FILE *OpenFile(const char *utf8Path, bool forWriting);
void RemoveFile(const char *utf8Path);

}  // namespace lacquer::image
