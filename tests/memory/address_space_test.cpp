// The companion in a process with little memory left: each kind of drawing in child processes whose address space may
// grow by an amount of a sweep. The call then draws or refuses. The libraries that it stands on can't be trusted with
// that, so a few amounts may end the child.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <velgraphic/velgraphic.hpp>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "velgraphic/animations.h"

namespace lacquer {
namespace {

constexpr int kSide = 512;
uint32_t pixels[kSide * kSide];

int DrawPolygon(velCanvas *canvas) {
    const lq::Path path = lq::Path::Create();
    bool isBuilt = path && velPathMoveTo(path, 500, 256);
    for (int i = 1; i < 300; ++i) {
        // Each point lies across from the one before.
        const float angle = static_cast<float>(i) * 2.9f;
        isBuilt = isBuilt && velPathLineTo(path, 256 + 244 * std::cos(angle), 256 + 244 * std::sin(angle));
    }
    return isBuilt && velPathClose(path) && velCanvasDrawPath(canvas, path);
}

int DrawText(velCanvas *canvas) {
    constexpr WCHAR kText[] = {'Q', 'w', 'g', '&'};
    constexpr WCHAR kFace[] = {'D', 'e', 'j', 'a', 'V', 'u', ' ', 'S', 'a', 'n', 's', 0};
    constexpr velPointF kPlaces[] = {{9, 90}, {99, 90}, {199, 90}, {299, 90}};
    WORD glyphs[4];
    return velCanvasSetFontFaceName(canvas, kFace) && velCanvasSetTextSize(canvas, 90) &&
           velCanvasGetGlyphs(canvas, kText, 4, glyphs, nullptr) &&
           velCanvasDrawPosTextByGlyphs(canvas, glyphs, 4, kPlaces);
}

/// Text in three scripts, one of which most fonts lack.
int DrawRun(velCanvas *canvas) {
    constexpr WCHAR kText[] = {'T', 'o', ' ', 'f', 'i', 0x5D0, 0x5D1, ' ', 0x915, 0x94D, 0x937, 0x1EA8, 0};
    velTextExtent extent{};
    return velCanvasSetTextSize(canvas, 60) && velCanvasDrawTextRun(canvas, kText, -1, 9, 90) &&
           velCanvasMeasureTextRun(canvas, kText, -1, &extent);
}

/// The same when the fonts are known.
int DrawRunAgain(velCanvas *canvas) { return DrawRun(canvas); }

int DrawGradient(velCanvas *canvas) {
    const lq::Gradient gradient = lq::Gradient::Radial(256, 256, 200);
    bool isBuilt = gradient && velCanvasSetGradient(canvas, gradient);
    for (DWORD i = 0; i <= 20; ++i) {
        isBuilt = isBuilt && velGradientAddColorStop(gradient, static_cast<float>(i) / 20, 0xFF000000 | i * 0x050A0B);
    }
    return isBuilt && velCanvasDrawCircle(canvas, 256, 256, 250);
}

const std::string richAnimation = RichAnimation();

int DrawAnimation(velCanvas *canvas) {
    const lq::Lottie lottie = lq::Lottie::FromData(richAnimation);
    return lottie && velLottieDraw(canvas, lottie, 7, 0, 0, kSide, kSide);
}

const struct {
    const char *name;
    DWORD style;
    int (*draw)(velCanvas *);
    size_t step;  ///< from one amount to the next, kB
} kKinds[] = {
    {"stroked ellipse", VEL_STYLE_STROKE, [](velCanvas *c) { return velCanvasDrawEllipse(c, 256, 256, 240, 200); }, 4},
    {"stroked polygon", VEL_STYLE_STROKE, DrawPolygon, 8},
    {"filled polygon", VEL_STYLE_FILL, DrawPolygon, 8},
    {"gradient", VEL_STYLE_GRADIENT_FILL, DrawGradient, 4},
    {"text", VEL_STYLE_FILL, DrawText, 256},
    {"run", VEL_STYLE_FILL, DrawRun, 256},
    {"run again", VEL_STYLE_FILL, DrawRunAgain, 8},
    {"animation", VEL_STYLE_FILL, DrawAnimation, 1024},
};

rlim_t AddressSpace() {
    unsigned long pages = 0;
    if (std::FILE *file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%lu", &pages) != 1) pages = 0;
        std::fclose(file);
    }
    return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

void LimitAddressSpace(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_AS, &limit);
}

/// Leaves so much memory, in the heap what it would not ask the system for, and the rest with the system.
void LeaveOnly(size_t kilobytes) {
    constexpr size_t kHeapGrowth = 128;
    struct Piece {
        Piece *before;
        char rest[1000];  // with what the heap adds, 1 kB
    };
    LimitAddressSpace(AddressSpace() + 2 * kHeapGrowth * 1024);
    Piece *last = nullptr;
    while (Piece *piece = static_cast<Piece *>(std::malloc(sizeof(Piece)))) {
        piece->before = last;
        last = piece;
    }
    for (size_t size = 512; size >= 16; size /= 2) {
        while (void *volatile block = std::malloc(size)) (void)block;
    }
    LimitAddressSpace(AddressSpace() + kilobytes / kHeapGrowth * kHeapGrowth * 1024);
    for (size_t i = 0; i < kilobytes % kHeapGrowth && last; ++i) std::free(std::exchange(last, last->before));
}

/// Draws with so much memory left. Result: the status of the process that has done it.
int DrawWith(size_t kilobytes, velCanvas *canvas, int (*draw)(velCanvas *)) {
    const pid_t child = fork();
    if (child == 0) {
        LeaveOnly(kilobytes);
        _exit(draw(canvas));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(AddressSpaceTest, DrawingRefusesWithLittleLeft) {
    constexpr int kAmounts = 200, kMaxCrashes = 4;
    for (const auto &kind : kKinds) {
        if (kind.draw == DrawAnimation && !ExpectsAnimations()) continue;
        lq::VectorCanvas canvas = lq::VectorCanvas::Create();
        ASSERT_TRUE(canvas.DrawInto(pixels, kSide, kSide, kSide * 4) && velCanvasSetDrawStyle(canvas, kind.style) &&
                    velCanvasSetStrokeWidth(canvas, 9));
        if (kind.draw == DrawRunAgain) {
            velTextExtent extent{};
            constexpr WCHAR kOther[] = {'a', 0x5D2, 0x916, 0};
            EXPECT_TRUE(velCanvasMeasureTextRun(canvas, kOther, -1, &extent));
        }
        int crashed = 0, drawn = 0;
        for (size_t i = 0; i < kAmounts; ++i) {
            const int status = DrawWith(i * kind.step, canvas, kind.draw);
            crashed += !WIFEXITED(status);
            drawn += WIFEXITED(status) && WEXITSTATUS(status) == 1;
        }
        std::printf("%s: %d of %d crashed, %d were drawn\n", kind.name, crashed, kAmounts, drawn);
        EXPECT_LE(crashed, kMaxCrashes) << kind.name;
        EXPECT_GT(drawn, 0) << kind.name;
    }
}

}  // namespace
}  // namespace lacquer
