// Painting the splash.
#include "common/splash.h"

namespace lacquer::examples {

Canvas MakeSplash(const Skin &skin) {
    const SIZE size = SizeOf(skin.splash);
    Canvas canvas = MakeCanvas(size.cx, size.cy);
    DrawAt(canvas, 0, 0, skin.splash);
    skin.font.DrawCentred(canvas, size.cx / 2, 36, "Lacquer", 0xA0400008, 4);
    skin.font.DrawCentred(canvas, size.cx / 2, 34, "Lacquer", 0xFFFFFFFF, 4);
    skin.font.DrawCentred(canvas, size.cx / 2, 76, "paints windows, pixel by pixel", 0xFFFFE0C8);
    return canvas;
}

}  // namespace lacquer::examples
