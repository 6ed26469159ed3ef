// Many threads at once: each with its own objects, all with shared sources, and all at the handle table. What the
// thread sanitizer sees here is part of the test.

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "objects.h"

namespace lacquer {
namespace {

constexpr int kThreads = 8;

/// Calls `work(0)`, `work(1)` ... each on a thread of its own.
template <class Work>
void InThreads(int count, Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) threads.emplace_back(work, i);
    for (std::thread &thread : threads) thread.join();
}

/// Calls `prepare()`, then `first()` and `second()` on two threads at the same moment, or nearly so, then `check()`,
/// over and over.
template <class Prepare, class First, class Second, class Check>
void Race(int rounds, Prepare prepare, First first, Second second, Check check) {
    std::atomic<int> arrivals{0};
    const auto meet = [&arrivals](int meeting) {
        ++arrivals;
        for (int tries = 0; arrivals < 2 * meeting; ++tries) {
            if (tries > 2000) std::this_thread::yield();
        }
    };
    std::thread other([&] {
        for (int i = 0; i < rounds; ++i) {
            meet(2 * i + 1);
            for (std::atomic<int> delay = i % 40; delay > 0;) --delay;
            second();
            meet(2 * i + 2);
        }
    });
    for (int i = 0; i < rounds; ++i) {
        prepare();
        meet(2 * i + 1);
        first();
        meet(2 * i + 2);
        check();
    }
    other.join();
}

constexpr int kRaces = 8000;

/// A picture of draws of every kind from sources that others read as well.
std::vector<uint32_t> Paint(HGBITMAP bitmap, HGTEXTURE texture, HGCANVAS shared) {
    const OwnedCanvas memory(CreateCanvas(40, 30, {})), system(CreateSystemCanvas(40, 30, memory));
    const RECT whole{0, 0, 40, 30}, part{3, 2, 37, 29};
    for (const HGCANVAS canvas : {HGCANVAS(memory), HGCANVAS(system)}) {
        SetCanvasClipRect(canvas, &part);
        FillSolidRect(canvas, 0xFF204060, &whole);
        DrawBitmap(canvas, &part, bitmap, 4);
        DrawTexture(canvas, &whole, texture, 5);
    }
    // The contexts of the library and its regions; GDI looks after its own objects.
    const HDC to = GetCanvasHandle(memory), from = GetCanvasHandle(system);
    BitBlt(to, 0, 0, 40, 30, from, 2, 3, SRCCOPY);
    StretchBlt(to, 6, 6, 30, 5, from, 0, 0, 11, 13, SRCCOPY);
    const OwnedTexture borrowed(GetTexture(shared));
    DrawTexture(memory, &whole, borrowed, 2);
    return PixelsIn(memory);
}

TEST(ThreadTest, EachPaintsItsOwnPicturesFromSharedSources) {
    const OwnedBitmap bitmap = NoisyBitmap(9, 7, 1);
    const OwnedTexture texture = NoisyTexture(13, 11, 2);
    const OwnedCanvas shared = NoisyCanvas(20, 15, 3);
    const std::vector<uint32_t> expected = Paint(bitmap, texture, shared);
    InThreads(kThreads, [&](int) {
        for (int i = 0; i < 40; ++i) EXPECT_EQ(expected, Paint(bitmap, texture, shared));
    });
}

TEST(ThreadTest, NoHandleOfADeadParentIsEverGivenOutOrKept) {
    const OwnedCanvas child(CreateCanvas(2, 2, {})), other(CreateCanvas(2, 2, {}));
    HGCANVAS parent{}, given{};
    HGBITMAP bitmap{};
    HGTEXTURE texture{};
    Race(
        kRaces,
        [&] {
            parent = CreateCanvas(3, 3, {});
            SetCanvasParent(child, parent);
        },
        [&] {
            given = GetCanvasParent(child);
            bitmap = GetBitmap(given);
            texture = GetTexture(given);
            SetCanvasParent(other, parent);
        },
        [&] { DeleteCanvas(parent); },
        [&] {
            EXPECT_FALSE(IsLive(given) || IsLive(bitmap) || GetCanvasParent(child) || GetCanvasParent(other));
            EXPECT_TRUE(!texture || PixelsIn(texture) == std::vector<uint32_t>(9));
            DeleteTexture(texture);
        });
}

/// Two ways to end what one canvas and its bitmap are, at once. A call that makes something of the object makes it
/// whole.
TEST(ThreadTest, OfTwoDeletionsAtOnceOneDoesNothing) {
    struct Family {
        HGCANVAS canvas, alias;
        HGBITMAP bitmap, pixels;
        HGTEXTURE texture;
    } family{};
    // Each way tells whether it made something.
    using End = bool (*)(const Family &);
    static constexpr auto whole = [](auto made) {
        EXPECT_TRUE(!made || PixelsIn(made).size() == 9);
        DeleteAny(made);
        return static_cast<bool>(made);
    };
    const End deleteTexture = [](const Family &f) { return DeleteTexture(f.texture), false; },
              deleteCanvas = [](const Family &f) { return DeleteCanvas(f.canvas), false; },
              deleteAlias = [](const Family &f) { return DeleteCanvas(f.alias), false; },
              deletePixels = [](const Family &f) { return DeleteBitmap(f.pixels), false; },
              convertCanvas = [](const Family &f) { return whole(CanvasToBitmap(f.canvas)); },
              convertAlias = [](const Family &f) { return whole(CanvasToTexture(f.alias)); },
              convertBitmap = [](const Family &f) { return whole(BitmapToTexture(f.bitmap)); };
    const std::pair<End, End> pairs[] = {{deleteTexture, deleteTexture}, {deleteCanvas, deleteAlias},
                                         {deleteCanvas, deletePixels},   {deletePixels, deletePixels},
                                         {convertCanvas, convertAlias},  {convertBitmap, convertBitmap}};
    for (const auto &pair : pairs) {
        SCOPED_TRACE(testing::Message() << "pair " << &pair - pairs);
        const OwnedCanvas child(CreateCanvas(1, 1, {}));
        bool firstMade = false, secondMade = false;
        Race(
            kRaces / 16,
            [&] {
                family.canvas = CreateCanvas(3, 3, {});
                SetCanvasParent(child, family.canvas);
                family.alias = GetCanvasParent(child);
                family.pixels = GetBitmap(family.canvas);
                family.bitmap = CreateMemBitmap(3, 3);
                family.texture = CreateTexture(4, 4);
            },
            [&] { firstMade = pair.first(family); }, [&] { secondMade = pair.second(family); },
            [&] {
                EXPECT_FALSE(firstMade && secondMade);
                DeleteCanvas(family.canvas);
                DeleteBitmap(family.bitmap);
                DeleteTexture(family.texture);
                EXPECT_FALSE(IsLive(family.canvas) || IsLive(family.alias) || IsLive(family.bitmap) ||
                             IsLive(family.pixels) || IsLive(family.texture));
            });
    }
    // The first takes the slot that was freed last, whichever that is; the second takes the lowest free one.
    const OwnedBitmap recent(CreateMemBitmap(1, 1)), lowest(CreateMemBitmap(1, 1));
    EXPECT_GT(20u, HGBITMAP(lowest).value & 0xFFFF) << "every slot was freed, and freed once";
}

}  // namespace
}  // namespace lacquer
