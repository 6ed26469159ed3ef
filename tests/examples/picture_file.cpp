// PNG by hand: chunks with their checksums, and a zlib stream of blocks that are stored as they are.
#include "picture_file.h"

#include <algorithm>
#include <fstream>

namespace lacquer::examples {

namespace {

std::string BigEndian(DWORD number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
    return bytes;
}

std::string Chunk(const std::string &name, const std::string &content) {
    DWORD crc = 0xFFFFFFFF;
    for (const char c : name + content) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return BigEndian(static_cast<DWORD>(content.size())) + name + content + BigEndian(~crc);
}

std::string Stored(const std::string &bytes) {
    std::string stream = "\x78\x01";
    DWORD a = 1, b = 0;
    for (const char c : bytes) {
        a = (a + static_cast<unsigned char>(c)) % 65521;
        b = (b + a) % 65521;
    }
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = std::min<std::size_t>(bytes.size() - at, 0xFFFF);
        stream += static_cast<char>(at + length == bytes.size());
        for (const std::size_t number : {length, ~length})
            stream += {static_cast<char>(number), static_cast<char>(number >> 8)};
        stream += bytes.substr(at, length);
        at += length;
    }
    return stream + BigEndian(b << 16 | a);
}

}  // namespace

bool WritePlainPicture(const std::string &path, const PlainPicture &picture) {
    std::string rows;
    for (std::size_t i = 0; i < picture.words.size(); ++i) {
        if (i % static_cast<std::size_t>(picture.width) == 0) rows += '\0';  // no filter
        const DWORD word = picture.words[i];
        rows += BigEndian(word << 8 | word >> 24);
    }
    std::ofstream file(path, std::ios::binary);
    file << "\x89PNG\r\n\x1A\n"
         << Chunk("IHDR", BigEndian(static_cast<DWORD>(picture.width)) + BigEndian(static_cast<DWORD>(picture.height)) +
                              std::string("\x08\x06\0\0\0", 5))
         << Chunk("IDAT", Stored(rows)) << Chunk("IEND", "");
    return static_cast<bool>(file.flush());
}

}  // namespace lacquer::examples
