// Painting the splash.
#include "common/splash.h"

#include "common/vector.h"

namespace lacquer::examples {

Canvas MakeSplash(const Skin &skin) {
    const SIZE size = SizeOf(skin.splash);
    Canvas canvas = MakeCanvas(size.cx, size.cy);
    DrawAt(canvas, 0, 0, skin.splash);
    const Typeface title(Family::kSerif, 40, VEL_FONT_BOLD);
    const Typeface line(Family::kSans, 12);
    const float centre = static_cast<float>(size.cx) / 2;
    title.DrawCentred(canvas, centre, 64, "Lacquer", 0xB0400008);
    {
        const ScopedState keep(canvas);
        const Gradient shine = MakeLinearGradient(
            {0, 32}, {0, 64}, {{0, 0xFFFFFFFF}, {0.5f, 0xFFFFF4EC}, {0.5f, 0xFFFFD8C8}, {1, 0xFFFFECE0}});
        Check(SetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL), "SetDrawStyle");
        Check(SetGradient(canvas, shine), "SetGradient");
        title.Draw(canvas, title.Lay(centre - title.Width("Lacquer") / 2, 62, "Lacquer"));
    }
    line.DrawCentred(canvas, centre, 84, "paints windows, pixel by pixel", 0xFFFFE0C8);
    return canvas;
}

}  // namespace lacquer::examples
