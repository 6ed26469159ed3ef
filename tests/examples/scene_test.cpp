// The composed window under the mouse and the keys, and what it says has to be painted again.
#include "common/scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

class SceneTest : public testing::Test {
protected:
    /// A scene, painted afresh, or one part of it.
    static std::vector<DWORD> Paint(const Scene &scene) {
        return Paint(scene, Box(0, 0, scene.size().cx, scene.size().cy));
    }
    static std::vector<DWORD> Paint(const Scene &scene, const RECT &part) {
        const Canvas canvas = MakeCanvas(scene.size().cx, scene.size().cy);
        const ScopedClip clip(canvas, part);
        scene.Paint(canvas);
        return PixelsOf(canvas);
    }
    static void Click(Scene &scene, Target target) {
        scene.MoveTo(scene.MiddleOf(target));
        scene.Press();
        scene.Release();
    }
    int Pick(int count) { return std::uniform_int_distribution<>(0, count - 1)(random); }

    const Skin skin = LoadSkin();
    std::mt19937 random{7};
};

// Painting what is invalid onto the picture of before gives the picture of now, whatever happens.
TEST_F(SceneTest, PaintingTheInvalidPartsIsEnough) {
    constexpr std::pair<Kind, int> kinds[] = {{Kind::kButton, 4}, {Kind::kCaptionButton, 3}, {Kind::kBox, 2},
                                              {Kind::kRow, 18},   {Kind::kThumb, 1},         {Kind::kEntry, 3}};
    for (const Scale px : {Scale(1), Scale(1.25f)}) {
        Scene scene(skin, {600, 420}, true);
        const SIZE size = px(scene.size());
        scene.Resize(size, px);
        const Canvas canvas = MakeCanvas(size.cx, size.cy);
        int painted = 0;
        for (int i = 0; i < 300; ++i) {
            const auto &[kind, count] = kinds[Pick(6)];
            switch (Pick(7)) {
                case 0: scene.MoveTo({Pick(size.cx), Pick(size.cy)}); break;
                case 1: scene.MoveTo(scene.MiddleOf({kind, Pick(count)})); break;
                case 2: scene.Press(); break;
                case 3: scene.Release(); break;
                case 4: scene.KeyDown(static_cast<Key>(Pick(static_cast<int>(Key::kCancel) + 1))); break;
                case 5: scene.KeyUp(Key::kSpace); break;
                default: scene.Scroll(Pick(9) - 4);
            }
            std::vector<RECT> places = scene.TakeInvalid();
            // The system may ask for any rectangle, which then cuts letters and curves.
            places.push_back(Box(Pick(size.cx), Pick(size.cy), Pick(150), Pick(100)));
            for (const RECT &rect : places) {
                const ScopedClip clip(canvas, rect);
                scene.Paint(canvas);
                ++painted;
            }
            ASSERT_EQ(PixelsOf(canvas), Paint(scene)) << "after step " << i;
        }
        EXPECT_GT(painted, 600);
    }
}

// The rows' canvas is what painting all of its rows would give, and scrolling paints those that come into sight alone.
TEST_F(SceneTest, ScrollingPaintsTheStripThatComesIntoSight) {
    const Scale px(1.25f);
    const Controls controls(skin, px);
    const Layout layout({750, 525}, px, false, false);
    ColourList list;
    list.Place(layout, controls);
    for (int i = 0; i < 200; ++i) {
        switch (Pick(5)) {
            case 0: list.Scroll(Pick(9) - 4); break;
            case 1: list.DragThumbTo(Pick(500)); break;
            case 2: list.Choose(Pick(18)); break;
            case 3: list.SetHot(Pick(19) - 1); break;
            default: list.Reveal(Pick(18));
        }
        const std::vector<DWORD> scrolled = PixelsOf(list.canvas());
        list.Place(layout, controls);
        ASSERT_EQ(scrolled, PixelsOf(list.canvas())) << "after step " << i;
    }
    const auto isClear = [](DWORD word) { return word >> 24 != 255; };
    list.Place(Layout({750, 1000}, px, false, false), controls);
    EXPECT_EQ(std::ranges::count_if(PixelsOf(list.canvas()), isClear), 0);

    list.Place(layout, controls);
    list.Reveal(0);
    FillWithPoison(list.canvas());
    EXPECT_TRUE(list.Scroll(2));
    const RECT rows = layout.Rows();
    EXPECT_EQ(std::ranges::count(PixelsOf(list.canvas()), kPoison),
              (rows.right - rows.left) * (rows.bottom - rows.top - 2 * px(24)));
}

TEST_F(SceneTest, KeysDoWhatTheMouseDoes) {
    using enum Key;
    const Target wipe{Kind::kButton, kWipe}, coat{Kind::kButton, kCoat}, finish{Kind::kButton, kFinish};
    const std::pair<std::vector<Key>, std::vector<Target>> kWays[] = {
        {{kNext, kNext, kNext, kSpace}, {wipe}},
        {{kNext, kNext, kNext, kSpace, kEnter}, {wipe, coat}},  // the focus leaves what is disabled
        {{kPrevious, kPrevious, kPrevious, kEnter, kEnter}, {coat, coat}},
        {{kNext, kNext, kNext, kRight, kSpace, kLeft, kEnter}, {coat, wipe}},
        {{kNext, kSpace}, {{Kind::kBox, kDusk}}},
        {{kNext, kUp, kSpace}, {{Kind::kBox, kVisitor}}},
        {{kDown, kDown, kUp, kDown}, {{Kind::kRow, 2}}},
        {{kPageDown, kPageDown, kHome, kDown}, {{Kind::kRow, 1}}},
        {{kEnd, kPageUp, kDown, kUp}, {{Kind::kRow, 7}}},
        {{kPrevious, kEnter, kUp, kUp, kEnter}, {finish, {Kind::kEntry, 0}}},
        {{kPrevious, kSpace, kDown, kCancel}, {finish, coat}},  // a click beside the menu closes it
    };
    for (const auto &[keys, targets] : kWays) {
        Scene byKeys(skin, {600, 420}), byMouse(skin, {600, 420});
        for (const Key key : keys) {
            byKeys.KeyDown(key);
            byKeys.KeyUp(key);
        }
        for (const Target target : targets) Click(byMouse, target);
        const RECT board = byKeys.layout().Preview();
        EXPECT_EQ(Paint(byKeys, board), Paint(byMouse, board)) << &keys - &kWays[0].first;
    }
}

TEST_F(SceneTest, PlacesScaleAndEveryAreaIsWhereTheSystemExpectsIt) {
    Scene scene(skin, {600, 420}, true);
    const auto places = [&] {
        const Layout &layout = scene.layout();
        std::vector<RECT> result{layout.Preview(), layout.Bar(), layout.Track(), layout.Popup()};
        for (const Kind kind : {Kind::kButton, Kind::kCaptionButton, Kind::kBox, Kind::kRow, Kind::kThumb, Kind::kList})
            for (int i = 0; i < (kind == Kind::kBox ? 2 : 3); ++i) result.push_back(scene.PlaceOf({kind, i}));
        return result;
    };
    const std::vector<RECT> design = places();
    for (const float factor : {1.0f, 1.25f, 1.5f, 2.0f}) {
        const Scale px(factor);
        scene.Resize(px({600, 420}), px);
        const std::vector<RECT> now = places();
        for (std::size_t i = 0; i < now.size(); ++i)
            for (const auto edge : {&RECT::left, &RECT::top, &RECT::right, &RECT::bottom})
                EXPECT_NEAR(static_cast<float>(design[i].*edge) * factor, static_cast<float>(now[i].*edge), 2) << i;
        const LONG right = scene.size().cx - 1, bottom = scene.size().cy - 1;
        const std::pair<POINT, Area> areas[] = {{{0, 0}, Area::kTopLeft},
                                                {{right, 0}, Area::kTopRight},
                                                {{0, bottom}, Area::kBottomLeft},
                                                {{right, bottom}, Area::kBottomRight},
                                                {{px(300), px(5)}, Area::kTop},
                                                {{300, bottom}, Area::kBottom},
                                                {{px(5), 200}, Area::kLeft},
                                                {{right, 200}, Area::kRight},
                                                {{px(200), px(31)}, Area::kTitle},
                                                {{px(200), px(33)}, Area::kClient},
                                                {scene.MiddleOf({Kind::kCaptionButton, kMaximise}), Area::kClient}};
        for (const auto &[place, area] : areas) EXPECT_EQ(scene.AreaAt(place), area) << place.x << ", " << place.y;
        scene.Resize(scene.size(), px, true);
        EXPECT_EQ(scene.AreaAt({0, 0}), Area::kTitle);
        EXPECT_EQ(scene.AreaAt({right, bottom}), Area::kClient);
    }
}

TEST_F(SceneTest, WishesAreToldOnceAndSizesHaveALeast) {
    Scene scene(skin, {600, 420});
    Click(scene, {Kind::kCaptionButton, kClose});
    EXPECT_EQ(scene.TakeWish(), Scene::Wish::kClose);
    EXPECT_EQ(scene.TakeWish(), Scene::Wish::kNothing);
    scene.Scroll(1000);
    scene.Resize({900, 700});
    EXPECT_EQ(Paint(scene).size(), 900u * 700u);
    EXPECT_EQ(scene.PlaceOf({Kind::kRow, 17}).bottom, scene.layout().Rows().top + 18 * 24);
    scene.Resize({1, 1}, Scale(2));
    EXPECT_EQ(scene.size().cx, 2 * Scene::kLeastSize.cx);
    EXPECT_EQ(scene.size().cy, 2 * Scene::kLeastSize.cy);
}

}  // namespace
}  // namespace lacquer::examples
