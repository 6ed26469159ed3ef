// Picture files that are damaged at random, and what loading them must keep to. The seeds are small files of every kind
// and those of the folders that are named. The same arguments give the same files.

#include <lacquer/image.hpp>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>
#include <span>

#include "children.h"
#include "choices.h"
#include "image/pictures.h"

namespace fuzz {
namespace {

using Bytes = std::vector<BYTE>;

constexpr uint64_t kMaxBytes = 16 << 20;

struct Options {
    uint64_t seed = 1, seconds = 3;
    bool whole = false;
};

/// Where a run is; in memory that outlives a child that fails.
struct Progress {
    uint64_t files, loaded, calls;
};

void Expect(bool isKept, const char *rule) {
    if (isKept) return;
    std::fprintf(stderr, "lacquer_image_fuzz: not kept: %s\n", rule);
    std::abort();
}

std::vector<DWORD> Words(HGBITMAP bitmap) {
    std::vector<DWORD> words;
    const auto lock = lq::Lock(bitmap);
    for (LONG y = 0; y < lock.Height(); ++y) words.insert(words.end(), lock.Row(y).begin(), lock.Row(y).end());
    return words;
}

/// What a loaded bitmap has to be.
void CheckBitmap(const lq::Bitmap &bitmap, const ImageFileInfo &info, DWORD flags, Progress &progress) {
    const auto lock = lq::Lock(bitmap);
    const bool turns = (flags & LACQUER_IMAGE_KEEP_ORIENTATION) != 0 && info.orientation > 4;
    Expect(lock.Width() == static_cast<LONG>(turns ? info.height : info.width), "the width is the one that was told");
    Expect(lock.Height() == static_cast<LONG>(turns ? info.width : info.height), "the height is the one that was told");
    Expect(uint64_t{info.width} * info.height * 4 <= kMaxBytes, "limits hold");
    const bool keepsDepth = (flags & LACQUER_IMAGE_KEEP_DEPTH) != 0;
    Expect(lock.BitsPerPixel() == (keepsDepth ? info.bitsPerPixel : 32), "the depth is the one that was told");
    if (lock.BitsPerPixel() != 32 || (flags & LACQUER_IMAGE_STRAIGHT) != 0) return;
    const std::vector<DWORD> words = Words(bitmap);
    for (const DWORD word : words)
        for (int shift = 0; shift < 24; shift += 8)
            Expect((word >> shift & 255) <= word >> 24, "colours are premultiplied");
    progress.calls += 2;
    const lq::ImageData data = lq::EncodePng(bitmap);
    Expect(static_cast<bool>(data), "what was loaded can be written");
    Expect(Words(lq::LoadBitmapOf(data.Bytes())) == words, "what is written reads back as the same pixels");
}

/// Result: whether the file was loaded.
bool RunFile(std::span<const BYTE> file, DWORD flags, Progress &progress) {
    // In a block of exactly its size, so that a sanitizer sees a byte too many.
    const Bytes exact(file.begin(), file.end());
    const lq::Span<const BYTE> bytes(exact.data(), exact.size());
    const auto info = lq::ReadImageInfo(bytes);
    Expect(info.has_value() == (ImageLastStatus() == LACQUER_IMAGE_DONE), "the status tells the result");
    const lq::Bitmap bitmap = lq::LoadBitmapOf(bytes, {flags, 0, kMaxBytes});
    Expect(static_cast<bool>(bitmap) == (ImageLastStatus() == LACQUER_IMAGE_DONE), "the status tells the result");
    Expect(static_cast<bool>(bitmap) == (*ImageLastError() == 0), "a refusal has a reason");
    progress.calls += 2;
    ++progress.files;
    if (!bitmap) return false;
    Expect(info.has_value(), "what can be loaded can be described");
    CheckBitmap(bitmap, *info, flags, progress);
    ++progress.loaded;
    return true;
}

/// A checksum as PNG has it.
uint32_t Crc(std::span<const BYTE> bytes) {
    uint32_t crc = ~0u;
    for (const BYTE byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

/// Makes the checksums of a PNG file right again, as far as its chunks can be followed.
void MendChecksums(Bytes &file) {
    constexpr BYTE kSignature[] = {0x89, 'P', 'N', 'G'};
    if (file.size() < 8 || !std::equal(kSignature, kSignature + 4, file.begin())) return;
    for (size_t at = 8; file.size() - at >= 12;) {
        const BYTE *head = file.data() + at;
        const size_t length = size_t{head[0]} << 24 | size_t{head[1]} << 16 | size_t{head[2]} << 8 | head[3];
        if (length > file.size() - at - 12) return;
        const uint32_t crc = Crc({head + 4, length + 4});
        for (size_t i = 0; i < 4; ++i) file[at + 8 + length + i] = static_cast<BYTE>(crc >> (24 - 8 * i));
        at += 12 + length;
    }
}

/// File `index` of a run: one of the seeds with some changes.
Bytes Damaged(const std::vector<Bytes> &seeds, uint64_t seed, uint64_t index, DWORD &flags) {
    uint64_t state = seed * 0x100000001B3 + index;
    const auto below = [&](size_t count) { return static_cast<size_t>(NextRandom(state) % count); };
    Bytes file = seeds[below(seeds.size())];
    flags = static_cast<DWORD>(below(8));
    constexpr BYTE kValues[] = {0, 1, 2, 0x7F, 0x80, 0xFE, 0xFF};
    // Where it matters most as often as anywhere.
    const auto place = [&] { return below(below(2) == 0 ? std::min<size_t>(file.size(), 64) : file.size()); };
    for (size_t changes = 1 + below(6); changes-- > 0 && !file.empty();) {
        const size_t at = place(), size = std::min(1 + below(below(8) == 0 ? 4096 : 8), file.size() - at);
        const auto begin = file.begin() + static_cast<ptrdiff_t>(at), end = begin + static_cast<ptrdiff_t>(size);
        switch (below(7)) {
            case 0: file[at] ^= static_cast<BYTE>(1u << below(8)); break;
            case 1: file[at] = static_cast<BYTE>(below(256)); break;
            case 2: std::fill(begin, end, kValues[below(std::size(kValues))]); break;
            case 3: file.erase(begin, end); break;
            case 4: {  // something again
                const Bytes piece(begin, end);
                file.insert(file.begin() + static_cast<ptrdiff_t>(place()), piece.begin(), piece.end());
                break;
            }
            case 5: {  // something of another file
                const Bytes &other = seeds[below(seeds.size())];
                const auto from =
                    other.begin() + static_cast<ptrdiff_t>(std::min(below(other.size() + 1), other.size()));
                const auto count = std::min<ptrdiff_t>(static_cast<ptrdiff_t>(size), other.end() - from);
                file.insert(begin, from, from + count);
                break;
            }
            default:
                if (below(4) == 0) file.resize(at);
        }
    }
    if (below(8) != 0) MendChecksums(file);
    return file;
}

void RunFrom(const Options &options, const std::vector<Bytes> &seeds, double until, Progress &progress) {
    while (Now() < until) {
        LimitTime();
        DWORD flags = 0;
        const Bytes file = Damaged(seeds, options.seed, progress.files, flags);
        RunFile(file, flags, progress);
    }
}

/// Runs in children, so that one failing file does not hide the next. Result: how many failed; each is kept.
int RunAll(const Options &options, const std::vector<Bytes> &seeds, Progress &progress) {
    const double until = Now() + static_cast<double>(options.seconds);
    int failures = 0;
    for (; failures < kMaxFailures; ++failures) {
        std::fflush(stdout);
        if (Succeeds(false, [&] { RunFrom(options, seeds, until, progress); })) break;
        DWORD flags = 0;
        const Bytes file = Damaged(seeds, options.seed, progress.files, flags);
        const std::string name = "failed-image-" + std::to_string(options.seed) + "-" + std::to_string(progress.files);
        WriteFile(name, file);
        std::printf("%s has a file that fails with the flags %u\n", name.c_str(), static_cast<unsigned>(flags));
        ++progress.files;
    }
    return failures;
}

int Main(int count, char **arguments) {
    Options options;
    std::vector<Bytes> seeds;
    for (const lacquer::Picture &picture : lacquer::Pictures()) seeds.push_back(picture.file);
    Progress &progress = Shared<Progress>();
    const std::vector<std::string> words(arguments + 1, arguments + count);
    for (size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "--whole") {
            options.whole = true;
        } else if (words[i].starts_with("--") && i + 1 < words.size()) {
            (words[i] == "--seed" ? options.seed : options.seconds) = std::stoull(words[i + 1]);
            ++i;
        } else {
            std::set<std::filesystem::path> files;
            for (const auto &entry : std::filesystem::recursive_directory_iterator(words[i]))
                if (entry.is_regular_file()) files.insert(entry.path());
            for (const auto &path : files) {
                std::ifstream file(path, std::ios::binary);
                seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
                if (!options.whole) continue;
                const bool isLoaded = RunFile(seeds.back(), 0, progress);
                std::printf("%s %s %s\n", isLoaded ? "loaded" : "refused", path.c_str(), ImageLastError());
            }
        }
    }
    const double start = Now();
    const int failures = options.whole ? 0 : RunAll(options, seeds, progress);
    std::printf("%llu files of %zu seeds, %llu loaded, %llu calls, %.1f s\n",
                static_cast<unsigned long long>(progress.files), seeds.size(),
                static_cast<unsigned long long>(progress.loaded), static_cast<unsigned long long>(progress.calls),
                Now() - start);
    return failures != 0;
}

}  // namespace
}  // namespace fuzz

int main(int count, char **arguments) { return fuzz::Main(count, arguments); }
