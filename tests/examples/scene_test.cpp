// The window example's scene under the mouse.
#include "window/scene.h"

#include <gtest/gtest.h>

#include "example_skin.h"

namespace lacquer::examples {
namespace {

class SceneTest : public testing::Test {
protected:
    SceneTest() { Paint(); }

    std::vector<DWORD> Paint() {
        scene.Paint(canvas, {640, 400});
        return PixelsOf(canvas);
    }

    bool Click(POINT position) {
        scene.MoveTo(position);
        scene.Press();
        return scene.Release();
    }

    const Skin skin = LoadSkin();
    Scene scene{skin};
    const Canvas canvas = MakeCanvas(640, 400);
};

TEST_F(SceneTest, HoverShowsAndGoesAway) {
    const std::vector<DWORD> calm = Paint();
    EXPECT_FALSE(scene.MoveTo({0, 0}));
    EXPECT_TRUE(scene.MoveTo(scene.addButton()));
    EXPECT_FALSE(scene.MoveTo(scene.addButton()));
    EXPECT_NE(Paint(), calm);
    EXPECT_TRUE(scene.MoveTo({-1, -1}));
    EXPECT_EQ(Paint(), calm);
}

TEST_F(SceneTest, AReleaseElsewhereUsesNothing) {
    const std::vector<DWORD> calm = Paint();
    scene.MoveTo(scene.addButton());
    EXPECT_TRUE(scene.Press());
    scene.MoveTo({0, 0});
    EXPECT_TRUE(scene.Release());
    EXPECT_EQ(Paint(), calm);
}

TEST_F(SceneTest, CheckBoxesToggle) {
    const std::vector<DWORD> calm = Paint();
    EXPECT_TRUE(Click(scene.firstCheckBox()));
    scene.MoveTo({0, 0});
    EXPECT_NE(Paint(), calm);
    Click(scene.firstCheckBox());
    scene.MoveTo({0, 0});
    EXPECT_EQ(Paint(), calm);
}

TEST_F(SceneTest, CoatsEndWhenTheButtonIsUsedUp) {
    EXPECT_TRUE(Click(scene.addButton()));
    EXPECT_TRUE(Click(scene.addButton()));
    EXPECT_TRUE(Click(scene.addButton()));
    EXPECT_FALSE(Click(scene.addButton()));
    EXPECT_FALSE(scene.isClosed());
    EXPECT_TRUE(Click({scene.addButton().x + 122, scene.addButton().y}));
    EXPECT_TRUE(scene.isClosed());
}

}  // namespace
}  // namespace lacquer::examples
