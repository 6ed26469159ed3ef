// window.png: a window that paints itself, frame, shadow and all, on a transparent canvas. Its file keeps the alpha, so
// that it can be laid over anything. desktop.png does so: windows in several states over a picture, one of them at half
// strength, and a splash.
#include "common/scene.h"
#include "common/splash.h"
#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

void Click(Scene &scene, Target target) {
    scene.MoveTo(scene.MiddleOf(target));
    scene.Press();
    scene.Release();
}

/// The scene on a shadow, which needs 20 pixels around.
Canvas PaintWithShadow(const Scene &scene) {
    const SIZE size = scene.size();
    const Canvas window = MakeCanvas(size.cx, size.cy);
    scene.Paint(window);
    Canvas canvas = MakeCanvas(size.cx + 40, size.cy + 40);
    DrawShadow(canvas, Box(20, 20, size.cx, size.cy), 8);
    DrawLayer(canvas, 20, 20, window);
    return canvas;
}

}  // namespace

Canvas PaintWindow(const Skin &skin) {
    Scene scene(skin, {600, 420});
    scene.Scroll(3);
    Click(scene, {Kind::kRow, 9});
    Click(scene, {Kind::kButton, kCoat});
    Click(scene, {Kind::kBox, kVisitor});
    Click(scene, {Kind::kButton, kFinish});
    scene.MoveTo(scene.MiddleOf({Kind::kEntry, 1}));
    return PaintWithShadow(scene);
}

Canvas PaintDesktop(const Skin &skin) {
    Canvas canvas = MakeCanvas(1080, 680);
    DrawInto(canvas, Box(0, 0, 1080, 680), skin.photo, LACQUER_BICUBIC);

    Scene bare(skin, Scene::kLeastSize);
    Click(bare, {Kind::kButton, kWipe});
    bare.MoveTo({-1, -1});
    DrawLayer(canvas, 20, 20, PaintWithShadow(bare), 170);

    Scene coated(skin, {640, 440});
    coated.Scroll(100);
    Click(coated, {Kind::kRow, 12});
    for (int i = 0; i < 3; ++i) Click(coated, {Kind::kButton, kCoat});
    coated.MoveTo(coated.MiddleOf({Kind::kCaptionButton, kClose}));
    DrawLayer(canvas, 390, 150, PaintWithShadow(coated));

    DrawLayer(canvas, 40, 440, MakeSplash(skin));
    DrawAt(canvas, 984, 590, skin.icon);
    const Typeface label(Family::kSans, 12);
    label.DrawCentred(canvas, 1016, 667, "Drop", 0xA0000000);
    label.DrawCentred(canvas, 1016, 666, "Drop", 0xFFFFFFFF);
    return canvas;
}

}  // namespace lacquer::examples
