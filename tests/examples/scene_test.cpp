// The composed window under the mouse, and what it says has to be painted again.
#include "common/scene.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

using Kind = Scene::Kind;

constexpr Scene::Target kCoatButton{Kind::kButton, Scene::kCoat};
constexpr Scene::Target kFinishButton{Kind::kButton, Scene::kFinish};

class SceneTest : public testing::Test {
protected:
    /// The whole scene, painted afresh.
    std::vector<DWORD> Paint(const Scene &painted) const {
        const Canvas canvas = MakeCanvas(painted.size().cx, painted.size().cy);
        painted.Paint(canvas);
        return PixelsOf(canvas);
    }
    std::vector<DWORD> Paint() const { return Paint(scene); }

    void Click(Scene::Target target) {
        scene.MoveTo(scene.MiddleOf(target));
        scene.Press();
        scene.Release();
    }
    void Leave() { scene.MoveTo({-1, -1}); }

    const Skin skin = LoadSkin();
    Scene scene{skin, {600, 420}};
};

// Painting what is invalid onto the picture of before gives the picture of now, whatever happens.
TEST_F(SceneTest, PaintingTheInvalidPartsIsEnough) {
    std::mt19937 random(7);
    const auto pick = [&](int count) {
        return static_cast<int>(std::uniform_int_distribution<>(0, count - 1)(random));
    };
    const SIZE size = scene.size();
    const Canvas canvas = MakeCanvas(size.cx, size.cy);
    scene.Paint(canvas);
    scene.TakeInvalid();
    constexpr std::pair<Kind, int> kinds[] = {{Kind::kButton, 4}, {Kind::kCaptionButton, 2}, {Kind::kBox, 2},
                                              {Kind::kRow, 18},   {Kind::kThumb, 1},         {Kind::kEntry, 3}};
    int painted = 0;
    for (int i = 0; i < 600; ++i) {
        const auto &[kind, count] = kinds[pick(6)];
        switch (pick(5)) {
            case 0: scene.MoveTo({pick(size.cx), pick(size.cy)}); break;
            case 1: scene.MoveTo(scene.MiddleOf({kind, pick(count)})); break;
            case 2: scene.Press(); break;
            case 3: scene.Release(); break;
            default: scene.Scroll(pick(9) - 4);
        }
        for (const RECT &rect : scene.TakeInvalid()) {
            const ClipTo clip(canvas, rect);
            scene.Paint(canvas);
            ++painted;
        }
        ASSERT_EQ(PixelsOf(canvas), Paint()) << "after step " << i;
    }
    EXPECT_GT(painted, 300);
}

// The system may ask for any rectangle, which then cuts letters and curves.
TEST_F(SceneTest, EveryClipShowsTheSamePixels) {
    Click(kFinishButton);
    const std::vector<DWORD> whole = Paint();
    const SIZE size = scene.size();
    const Canvas canvas = MakeCanvas(size.cx, size.cy);
    std::mt19937 random(7);
    const auto pick = [&](LONG limit) { return std::uniform_int_distribution<LONG>(0, limit)(random); };
    for (int i = 0; i < 200; ++i) {
        const RECT rect = Box(pick(size.cx), pick(size.cy), pick(150), pick(100));
        Check(FillSolidRectEx(canvas.get(), 0, &rect, LACQUER_DRAW_COPY), "FillSolidRectEx");
        const ClipTo clip(canvas, rect);
        scene.Paint(canvas);
        const std::vector<DWORD> pixels = PixelsOf(canvas);
        for (LONG y = rect.top; y < std::min(rect.bottom, size.cy); ++y) {
            const auto from = y * size.cx + rect.left;
            const auto to = y * size.cx + std::min(rect.right, size.cx);
            ASSERT_TRUE(std::equal(pixels.begin() + from, pixels.begin() + to, whole.begin() + from)) << i << ": " << y;
        }
    }
}

TEST_F(SceneTest, AReleaseElsewhereUsesNothing) {
    const std::vector<DWORD> calm = Paint();
    scene.MoveTo(scene.MiddleOf(kCoatButton));
    scene.Press();
    EXPECT_NE(Paint(), calm);
    Leave();
    scene.Release();
    EXPECT_EQ(Paint(), calm);
}

// Scrolled step by step and at once, the rows are the same.
TEST_F(SceneTest, ScrollingByAnyWayShowsTheSameRows) {
    Scene other(skin, scene.size());
    for (const int rows : {1, 1, 2, -3, 5, -1}) scene.Scroll(rows);
    other.Scroll(5);
    EXPECT_EQ(Paint(), Paint(other));
    scene.Scroll(1000);
    const POINT grip = other.MiddleOf({Kind::kThumb});
    other.MoveTo(grip);
    other.Press();
    other.MoveTo({grip.x, grip.y + 1000});
    other.MoveTo({-1, -1});
    other.MoveTo({grip.x, grip.y + 1000});
    other.Release();
    other.MoveTo({-1, -1});
    EXPECT_EQ(Paint(), Paint(other));
    EXPECT_EQ(scene.PlaceOf({Kind::kRow, 17}).bottom, scene.Rows().bottom);
}

TEST_F(SceneTest, TheMenuHidesWhatIsBelow) {
    Click(kFinishButton);
    scene.MoveTo({-1, -1});
    const std::vector<DWORD> open = Paint();
    scene.MoveTo(scene.MiddleOf(kCoatButton));
    scene.Scroll(2);
    EXPECT_EQ(Paint(), open);
    Click({Kind::kEntry, 0});
    Leave();
    const std::vector<DWORD> matt = Paint();
    Click(kFinishButton);
    Click(kCoatButton);  // closes the menu only
    Leave();
    EXPECT_EQ(Paint(), matt);
}

TEST_F(SceneTest, EveryAreaIsWhereTheSystemExpectsIt) {
    using Area = Scene::Area;
    const LONG right = scene.size().cx - 1, bottom = scene.size().cy - 1;
    const std::pair<POINT, Area> kAreas[] = {
        {{0, 0}, Area::kTopLeft},
        {{right, 0}, Area::kTopRight},
        {{0, bottom}, Area::kBottomLeft},
        {{right, bottom}, Area::kBottomRight},
        {{300, 0}, Area::kTop},
        {{300, bottom}, Area::kBottom},
        {{0, 200}, Area::kLeft},
        {{right, 200}, Area::kRight},
        {{200, 16}, Area::kTitle},
        {{200, 200}, Area::kClient},
        {scene.MiddleOf({Kind::kCaptionButton, 1}), Area::kClient},
    };
    for (const auto &[place, area] : kAreas) EXPECT_EQ(scene.AreaAt(place), area) << place.x << ", " << place.y;
}

TEST_F(SceneTest, WishesAreToldOnceAndSizesHaveALeast) {
    Click({Kind::kCaptionButton, static_cast<int>(CaptionButton::kClose)});
    EXPECT_EQ(scene.TakeWish(), Scene::Wish::kClose);
    EXPECT_EQ(scene.TakeWish(), Scene::Wish::kNothing);
    scene.Scroll(1000);
    scene.Resize({900, 700});
    EXPECT_EQ(Paint().size(), 900u * 700u);
    EXPECT_EQ(scene.PlaceOf({Kind::kRow, 17}).bottom, scene.Rows().top + 18 * 24);
    scene.Resize({1, 1});
    EXPECT_EQ(scene.size().cx, Scene::kLeastSize.cx);
    EXPECT_EQ(scene.size().cy, Scene::kLeastSize.cy);
}

}  // namespace
}  // namespace lacquer::examples
