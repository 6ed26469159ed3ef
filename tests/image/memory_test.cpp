// Memory that runs short while a picture is read or written, at each allocation in turn, and what hostile sizes ask
// for.

#include <gtest/gtest.h>
#include <lacquer/image.hpp>

#include <algorithm>

#include "pictures.h"

extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);
void __libc_free(void *block);
}

namespace {

thread_local long untilFailure = -1, blocks = 0;
thread_local size_t largest = 0;

/// libwebp 1.2.4 frees what it has not set when one of its tables, of this size, cannot be allocated.
constexpr size_t kTableOfLibwebp = 512;

bool IsGranted(size_t size) {
    largest = std::max(largest, size);
    return untilFailure < 0 || size == kTableOfLibwebp || untilFailure-- > 0;
}
void *Counted(void *block) {
    blocks += block != nullptr;
    return block;
}

}  // namespace

void *malloc(size_t size) { return IsGranted(size) ? Counted(__libc_malloc(size)) : nullptr; }
void *calloc(size_t count, size_t size) {
    return IsGranted(count * size) ? Counted(__libc_calloc(count, size)) : nullptr;
}
void *realloc(void *block, size_t size) {
    if (!block) return malloc(size);
    return IsGranted(size) ? __libc_realloc(block, size) : nullptr;
}
void free(void *block) {
    blocks -= block != nullptr;
    __libc_free(block);
}

namespace lacquer {
namespace {

/// Fails each allocation of a call in turn, until none is left to fail.
template <class Call>
void FailEach(const std::string &name, Call call) {
    call();  // what is made once and stays
    for (long count = 0; count < 1000; ++count) {
        const long before = blocks;
        untilFailure = count;
        const bool isDone = call();
        const bool isOver = untilFailure >= 0;
        untilFailure = -1;
        ASSERT_EQ(before, blocks) << name << ": allocation " << count;
        ASSERT_TRUE(isDone || !isOver) << name << ": " << ImageLastError();
        if (isOver) return;
        // libjpeg tries with less; libwebp and the system's files do not always tell that memory was short.
        const int status = ImageLastStatus();
        const bool isMisled = (name.find("webp") != std::string::npos && status == LACQUER_IMAGE_DAMAGED) ||
                              (name == "a file" && status == LACQUER_IMAGE_BAD_FILE);
        ASSERT_TRUE(isDone || isMisled || status == LACQUER_IMAGE_NO_MEMORY)
            << name << ": allocation " << count << ": " << ImageLastError();
    }
    FAIL() << name;
}

TEST(ImageMemory, ShortMemoryIsAFailureAtEachAllocation) {
    std::vector<Picture> pictures = Pictures();
    pictures.push_back(TurnedJpeg(6, true));
    for (const Picture &picture : pictures) {
        const lq::Span<const BYTE> file(picture.file.data(), picture.file.size());
        FailEach(picture.name, [&] { return static_cast<bool>(lq::LoadTexture(file)); });
    }
    const lq::Bitmap bitmap = lq::Bitmap::CreateSystem(300, 200);
    FailEach("a png that is written", [&] { return static_cast<bool>(lq::EncodePng(bitmap)); });
    ASSERT_TRUE(lq::SavePng(bitmap, "memory.png"));
    FailEach("a file", [&] { return static_cast<bool>(lq::LoadTexture("memory.png")); });
    std::remove("memory.png");
}

TEST(ImageMemory, SizesAreComparedBeforeAnythingIsAllocated) {
    int count = 0;
    for (Picture &picture : Pictures()) {
        Bytes &file = picture.file;
        if (picture.name == "lossless webp") {
            std::fill_n(file.begin() + 21, 3, BYTE{0xFF});  // 16384 columns and a thousand rows
        } else if (picture.info.format == LACQUER_IMAGE_JPEG) {
            const BYTE frames[][3] = {{0xFF, 0xC0, 0}, {0xFF, 0xC2, 0}};  // baseline and progressive
            for (const auto &frame : frames) {
                const auto found = std::search(file.begin(), file.end(), frame, frame + 3);
                if (found != file.end()) std::fill_n(found + 5, 4, BYTE{0x70});
            }
        } else {
            continue;
        }
        largest = 0;
        EXPECT_FALSE(lq::LoadTexture({file.data(), file.size()}, {0, 0, 1 << 24})) << picture.name;
        EXPECT_EQ(LACQUER_IMAGE_TOO_LARGE, ImageLastStatus()) << picture.name << ImageLastError();
        EXPECT_LT(largest, size_t{1 << 16}) << picture.name;
        ++count;
    }
    EXPECT_EQ(16, count);
}

}  // namespace
}  // namespace lacquer
