/// @file
/// Colour and blur in one call: what the filters of lacquer.h do to straight colours or in small steps, done for loaded
/// pictures and for blurs of any strength.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_EFFECTS_HPP
#define LACQUER_EFFECTS_HPP

#include <lacquer/objects.hpp>
#include <lacquer/pixels.hpp>

namespace lq {

/// @addtogroup cpp
/// @param texture the texture; a wrong handle is refused
/// @return true for done; false, with nothing changed, for a wrong handle and for other depths than 32 bits per pixel
/// @{

/// Turns premultiplied pixels into straight ones, the reverse of NormalizeTexture. Each channel becomes the smallest
/// that is premultiplied to the old one, or 255 where there is none; colours under alpha 0 become 0.
/// @see NormalizeTexture
inline bool Straighten(HGTEXTURE texture) noexcept {
    const auto pixels = Lock(texture);
    if (!pixels || pixels.BitsPerPixel() != 32) return false;
    for (LONG y = 0; y < pixels.Height(); ++y) {
        for (DWORD &word : pixels.Row(y)) {
            const DWORD alpha = word >> 24;
            DWORD straight = alpha << 24;
            for (int shift = 0; shift < 24 && alpha > 0; shift += 8) {
                const DWORD channel = ((word >> shift & 255) * 256 + alpha) / (alpha + 1);
                straight |= (channel < 255 ? channel : 255) << shift;
            }
            word = straight;
        }
    }
    return true;
}

/// Shifts the colours of premultiplied pixels, as loaded pictures have them: straightens, calls ColorizeTexture, and
/// premultiplies again. With all three shifts 0 nothing changes.
/// @param hue the shift of the hue, 1 being half the circle
/// @param saturation the shift of the saturation, -1 to 1: the fraction of the way to the least or the greatest value
/// @param lightness the shift of the lightness, likewise
/// @see ColorizeTexture
inline bool Tint(HGTEXTURE texture, float hue, float saturation, float lightness) noexcept {
    return Straighten(texture) && ColorizeTexture(texture, hue, saturation, lightness) && NormalizeTexture(texture);
}

/// Blurs all pixels of a canvas, alpha included, inside its clip. Strong blurs take less time than weak ones, because
/// they are made on a smaller copy. Each step rounds down: a few of 255 levels are lost.
/// @param canvas the canvas, at its initial origins; a wrong handle, and a canvas made from a device context, are
/// refused
/// @param deviation the standard deviation, pixels, which is half the blur of a ShadowStyle. The blur is within a
/// quarter of it, between 2.7 and 290.
/// @return true for done; false, with nothing changed, for a deviation that is not a positive number, when memory is
/// short, and for a canvas that is refused
/// @see GaussianBlurCanvas
inline bool Blur(HGCANVAS canvas, float deviation) noexcept {
    constexpr float kStep = 2.66f;  // standard deviation of one Gaussian blur of the library
    SIZE size{};
    DWORD filter = 0;
    if (!(deviation > 0) || !GetCanvasSize(canvas, &size) || !GetCanvasFilter(canvas, &filter)) return false;
    const RECT all = {0, 0, size.cx, size.cy};

    // Halved until three steps are enough; steps add up by the squares of their deviations.
    LONG shrink = 1;
    while (deviation > 1.7f * kStep * static_cast<float>(shrink) && shrink < 64) shrink *= 2;
    const RECT part = {0, 0, (size.cx + shrink - 1) / shrink, (size.cy + shrink - 1) / shrink};
    const float ratio = deviation / (kStep * static_cast<float>(shrink));
    const int steps = ratio < 1 ? 1 : ratio > 1.7f ? 3 : static_cast<int>(ratio * ratio + 0.5f);

    Canvas reduced = Canvas::Create(static_cast<DWORD>(part.right), static_cast<DWORD>(part.bottom));
    const Canvas scratch = Canvas::Create(static_cast<DWORD>(part.right), static_cast<DWORD>(part.bottom));
    const BitmapAlias source(GetBitmap(canvas)), blurred = reduced.AsBitmap();
    if (!source || !blurred || !scratch) return false;
    // Drawn as copies, whatever the canvas's own draw mode is.
    SetBitmapFilter(source, 0);
    bool done = reduced.Draw(source, part, LACQUER_AREA);
    for (int i = 0; i < steps && done; ++i) done = GaussianBlurCanvas(reduced, nullptr, scratch, nullptr) != 0;
    done = done && DrawBitmap(canvas, &all, blurred, LACQUER_BILINEAR) != 0;
    SetCanvasFilter(canvas, filter);
    return done;
}

/// @}

}  // namespace lq

#endif
