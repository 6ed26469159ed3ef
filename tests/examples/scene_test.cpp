// The composed window under the mouse, and what it says has to be painted again.
#include "common/scene.h"

#include <gtest/gtest.h>

#include <random>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

using Kind = Scene::Kind;

class SceneTest : public testing::Test {
protected:
    /// The whole scene, painted afresh.
    std::vector<DWORD> Paint() const {
        const Canvas canvas = MakeCanvas(scene.size().cx, scene.size().cy);
        scene.Paint(canvas);
        return PixelsOf(canvas);
    }

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
        std::vector<RECT> places = scene.TakeInvalid();
        // The system may ask for any rectangle, which then cuts letters and curves.
        places.push_back(Box(pick(size.cx), pick(size.cy), pick(150), pick(100)));
        for (const RECT &rect : places) {
            const ScopedClip clip(canvas, rect);
            scene.Paint(canvas);
            ++painted;
        }
        ASSERT_EQ(PixelsOf(canvas), Paint()) << "after step " << i;
    }
    EXPECT_GT(painted, 900);
}

TEST_F(SceneTest, EveryAreaIsWhereTheSystemExpectsIt) {
    using Area = Scene::Area;
    const LONG right = scene.size().cx - 1, bottom = scene.size().cy - 1;
    const std::pair<POINT, Area> kAreas[] = {{{0, 0}, Area::kTopLeft},
                                             {{right, 0}, Area::kTopRight},
                                             {{0, bottom}, Area::kBottomLeft},
                                             {{right, bottom}, Area::kBottomRight},
                                             {{300, 0}, Area::kTop},
                                             {{300, bottom}, Area::kBottom},
                                             {{0, 200}, Area::kLeft},
                                             {{right, 200}, Area::kRight},
                                             {{200, 16}, Area::kTitle},
                                             {{200, 200}, Area::kClient},
                                             {scene.MiddleOf({Kind::kCaptionButton, 1}), Area::kClient}};
    for (const auto &[place, area] : kAreas) EXPECT_EQ(scene.AreaAt(place), area) << place.x << ", " << place.y;
}

TEST_F(SceneTest, WishesAreToldOnceAndSizesHaveALeast) {
    scene.MoveTo(scene.MiddleOf({Kind::kCaptionButton, static_cast<int>(CaptionButton::kClose)}));
    scene.Press();
    scene.Release();
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
