// Paths are UTF-16.

#include <windows.h>

#include <memory>
#include <new>

#include "open_file.h"

namespace lacquer::vel {

std::FILE *OpenFile(const char *utf8Path) {
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8Path, -1, nullptr, 0);
    if (length <= 0) return nullptr;
    const std::unique_ptr<wchar_t[]> path(new (std::nothrow) wchar_t[static_cast<size_t>(length)]);
    if (!path || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8Path, -1, path.get(), length) != length) {
        return nullptr;
    }
    return _wfopen(path.get(), L"rb");
}

}  // namespace lacquer::vel
