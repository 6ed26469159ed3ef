// Whole files.

#include "file.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace lacquer::image {
namespace {

constexpr size_t kFirstCapacity = 1 << 16;

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

}  // namespace

bool Content::Reserve(size_t count) {
    if (count <= capacity - size) return true;
    if (count > SIZE_MAX / 2 - size) return false;
    const size_t wanted = std::max({size + count, capacity * 2, kFirstCapacity});
    void *grown = std::realloc(data, wanted);
    if (!grown) return false;
    data = static_cast<uint8_t *>(grown);
    capacity = wanted;
    return true;
}

bool Content::Append(const void *bytes, size_t count) {
    if (!Reserve(count)) return false;
    std::memcpy(data + size, bytes, count);
    size += count;
    return true;
}

bool ReadFile(const char *utf8Path, uint64_t most, Extent extent, Content &content, Fault &fault) {
    const std::unique_ptr<std::FILE, CloseFile> file(OpenFile(utf8Path, false));
    if (!file) return Refuse(fault, LACQUER_IMAGE_BAD_FILE, "The file cannot be opened.");
    for (content.size = 0; content.size < most;) {
        if (!content.Reserve(1)) return Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short.");
        const size_t room = std::min<uint64_t>(content.capacity - content.size, most - content.size);
        const size_t count = std::fread(content.data + content.size, 1, room, file.get());
        content.size += count;
        if (count < room) break;
    }
    const bool isMore = extent == Extent::kWhole && content.size == most && std::fgetc(file.get()) != EOF;
    if (std::ferror(file.get()) != 0) return Refuse(fault, LACQUER_IMAGE_BAD_FILE, "The file cannot be read.");
    return !isMore || Refuse(fault, LACQUER_IMAGE_TOO_LARGE, "The file is longer than the limit.");
}

bool WriteFile(const char *utf8Path, Bytes bytes, Fault &fault) {
    std::FILE *const file = OpenFile(utf8Path, true);
    if (!file) return Refuse(fault, LACQUER_IMAGE_BAD_FILE, "The file cannot be opened for writing.");
    const bool isWritten = std::fwrite(bytes.data, 1, bytes.size, file) == bytes.size;
    if (std::fclose(file) == 0 && isWritten) return true;
    RemoveFile(utf8Path);
    return Refuse(fault, LACQUER_IMAGE_BAD_FILE, "The file cannot be written.");
}

}  // namespace lacquer::image
