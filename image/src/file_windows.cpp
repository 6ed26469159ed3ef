// Paths are UTF-16.

#include <windows.h>

#include <memory>
#include <new>

#include "file.h"

namespace lacquer::image {
namespace {

/// Null when the path is no UTF-8, or memory is short.
std::unique_ptr<wchar_t[]> WidePath(const char *utf8Path) {
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8Path, -1, nullptr, 0);
    std::unique_ptr<wchar_t[]> path(length > 0 ? new (std::nothrow) wchar_t[static_cast<size_t>(length)] : nullptr);
    if (path && MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8Path, -1, path.get(), length) != length)
        path.reset();
    return path;
}

}  // namespace

std::FILE *OpenFile(const char *utf8Path, bool forWriting) {
    const std::unique_ptr<wchar_t[]> path = WidePath(utf8Path);
    return path ? _wfopen(path.get(), forWriting ? L"wb" : L"rb") : nullptr;
}

void RemoveFile(const char *utf8Path) {
    const std::unique_ptr<wchar_t[]> path = WidePath(utf8Path);
    if (path) _wremove(path.get());
}

}  // namespace lacquer::image
