// What the bridge leaves over when its companion refuses something: nothing. Its companion here draws nothing, keeps
// count, and lets one function refuse; functions that no operation below needs are the real companion's.

#include <gtest/gtest.h>
#include <lacquer/lacquer.h>

#include <iterator>

namespace {

struct Counts {
    int granted = -1;               ///< calls before the one whose function then refuses; below 0 none does
    const char *refused = nullptr;  ///< that function
    int objects = 0;                ///< made and not destroyed
    int saved = 0;                  ///< states saved and not restored
    int draws = 0;
    int attached = 0;  ///< bitmaps given to canvases
    int unlocked = 0;
} counts;

bool Grant(const char *function) {
    if (counts.granted-- == 0) counts.refused = function;
    return counts.refused != function;
}

int Draw(const char *function) {
    const bool granted = Grant(function);
    counts.draws += granted;
    return granted;
}

template <class Object>
Object *Make(const char *function, const Object &object) {
    if (!Grant(function)) return nullptr;
    ++counts.objects;
    return new Object(object);
}

template <class Object>
int Destroy(Object *object) {
    counts.objects -= object != nullptr;
    delete object;
    return object != nullptr;
}

}  // namespace

struct velBitmap {
    velBitmapData pixels;
};
struct velCanvas {
    velBitmapData pixels;
};
struct velPath {};
struct velGradient {};

velCanvas *velCanvasCreate() { return Make(__func__, velCanvas{}); }
int velCanvasDestroy(velCanvas *canvas) { return Destroy(canvas); }
velBitmap *velBitmapCreateFromData(void *bits, LONG width, LONG height, LONG stride) {
    return Make(__func__, velBitmap{{width, height, stride, bits}});
}
int velBitmapDestroy(velBitmap *bitmap) { return Destroy(bitmap); }
int velCanvasSetBitmap(velCanvas *canvas, velBitmap *bitmap) {
    if (!Grant(__func__)) return 0;
    canvas->pixels = bitmap->pixels;
    ++counts.attached;
    return 1;
}
int velCanvasLockBits(velCanvas *canvas, const RECT *, velBitmapData *out) {
    if (!canvas || !canvas->pixels.bits) return 0;
    *out = canvas->pixels;
    return 1;
}
int velCanvasUnlockBits(velCanvas *, const RECT *) { return ++counts.unlocked; }

int velCanvasSave(velCanvas *) {
    const bool granted = Grant(__func__);
    counts.saved += granted;
    return granted;
}
int velCanvasRestore(velCanvas *) { return counts.saved-- > 0; }
int velCanvasClipRect(velCanvas *, int, int, int, int) { return Grant(__func__); }
int velCanvasTranslate(velCanvas *, float, float) { return Grant(__func__); }
int velCanvasSetColor(velCanvas *canvas, DWORD) { return canvas ? Grant(__func__) : 0; }
int velCanvasSetDrawStyle(velCanvas *, DWORD) { return Grant(__func__); }
int velCanvasSetGradient(velCanvas *, velGradient *) { return Grant(__func__); }
int velCanvasDrawLine(velCanvas *, float, float, float, float) { return Draw(__func__); }
int velCanvasDrawRectangle(velCanvas *, float, float, float, float) { return Draw(__func__); }
int velCanvasDrawPath(velCanvas *, velPath *) { return Draw(__func__); }

velPath *velPathCreate() { return Make(__func__, velPath{}); }
int velPathDestroy(velPath *path) { return Destroy(path); }
int velPathBegin(velPath *) { return 1; }
int velPathClose(velPath *) { return Grant(__func__); }
int velPathMoveTo(velPath *, float, float) { return Grant(__func__); }
int velPathLineTo(velPath *, float, float) { return Grant(__func__); }
int velPathBezierCurveTo(velPath *, float, float, float, float, float, float) { return Grant(__func__); }

velGradient *velGradientCreateLinear(float, float, float, float) { return Make(__func__, velGradient{}); }
int velGradientAddColorStop(velGradient *, float, DWORD) { return Grant(__func__); }
int velGradientDestroy(velGradient *gradient) { return Destroy(gradient); }

namespace lacquer {
namespace {

constexpr RECT kRect{1, 1, 9, 9};

TEST(VectorRefusal, LeavesNothingOver) {
    int (*const kDrawings[])(HGCANVAS) = {
        [](HGCANVAS canvas) { return DrawLine(canvas, 1, 2, 3, 4); },
        [](HGCANVAS canvas) {
            const POINT triangle[] = {{1, 2}, {3, 4}, {-5, 6}};
            return DrawPolygon(canvas, 3, triangle);
        },
        [](HGCANVAS canvas) { return DrawBezier(canvas, 1, 2, 3, 4, 5, 6, 7, 8); },
        [](HGCANVAS canvas) {
            // Filled or not, this succeeds.
            const int before = counts.draws;
            EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000000, 0xFFFFFFFF, &kRect, 1));
            return counts.draws - before;
        },
    };
    for (size_t i = 0; i < std::size(kDrawings); ++i) {
        for (int granted = 0;; ++granted) {
            SCOPED_TRACE(testing::Message() << "drawing " << i << ", refusal after " << granted);
            counts = {.granted = granted};
            const HGCANVAS canvas = CreateCanvas(40, 30, HGCANVAS{});
            const int result = kDrawings[i](canvas);
            const bool refused = counts.refused != nullptr;
            EXPECT_EQ(!refused, result);
            EXPECT_EQ(!refused, counts.draws);
            EXPECT_LE(counts.objects, 1) << "the companion canvas";
            EXPECT_EQ(0, counts.saved);
            counts.granted = -1;
            counts.refused = nullptr;
            EXPECT_EQ(1, kDrawings[i](canvas)) << "asked again";
            DeleteCanvas(canvas);
            EXPECT_EQ(0, counts.objects);
            if (!refused) break;
        }
    }
}

TEST(VectorCompanion, IsMadeWhenItIsNeededAndGoesWithTheCanvas) {
    void (*const kEnds[])(HGCANVAS) = {[](HGCANVAS canvas) { DeleteCanvas(canvas); },
                                       [](HGCANVAS canvas) { DeleteBitmap(CanvasToBitmap(canvas)); },
                                       [](HGCANVAS canvas) { DeleteTexture(CanvasToTexture(canvas)); }};
    for (const auto end : kEnds) {
        counts = {};
        const HGCANVAS canvas = CreateCanvas(40, 30, HGCANVAS{});
        const RECT outside{40, 1, 50, 9};
        EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000001, 0x80000002, &outside, 1));
        EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000001, 0xFF000001, &kRect, 1));
        for (const int direction : {0, 3, -1, INT32_MIN}) {
            EXPECT_EQ(1, FillGradualRect(canvas, 0xFF000001, 0x80000002, &kRect, direction));
        }
        EXPECT_EQ(0, counts.objects);
        EXPECT_EQ(1, SetColor(canvas, 1));
        EXPECT_EQ(1, counts.objects);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(1, DrawLine(canvas, 1, 2, 3, 4));
        EXPECT_EQ(1, counts.attached) << "to pixels that stay where they are";
        end(canvas);
        EXPECT_EQ(0, counts.objects);
    }
}

TEST(VectorCompanion, IsUnlockedWhetherItHasPixelsOrNot) {
    counts = {};
    DWORD pixels[6] = {};
    velCanvas empty{}, companion{{2, 2, 12, pixels}};
    EXPECT_FALSE(GetTextureFromVelCanvas(nullptr));
    EXPECT_FALSE(GetTextureFromVelCanvas(&empty));
    DeleteTexture(GetTextureFromVelCanvas(&companion));
    EXPECT_EQ(3, counts.unlocked);
}

}  // namespace
}  // namespace lacquer
