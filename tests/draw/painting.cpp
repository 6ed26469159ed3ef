// Canvases, sources and models of the tests of drawing.

#include "painting.h"

namespace lacquer {

::testing::AssertionResult Same(const Picture &expected, const Picture &actual) {
    if (expected.width != actual.width || expected.height != actual.height) {
        return ::testing::AssertionFailure() << "the sizes differ";
    }
    size_t first = 0, count = 0;
    for (size_t i = 0; i < expected.pixels.size(); ++i) {
        if (expected.pixels[i] != actual.pixels[i] && count++ == 0) first = i;
    }
    if (count == 0) return ::testing::AssertionSuccess();
    const auto width = static_cast<size_t>(expected.width);
    return ::testing::AssertionFailure() << count << " pixels differ, first at (" << first % width << ", "
                                         << first / width << "): expected " << std::hex << expected.pixels[first]
                                         << ", not " << actual.pixels[first];
}

Picture PictureOf(const SurfaceView &view) { return {view.width, view.height, ColoursOf(view)}; }

void ExpectSameOutside(const RECT &rect, const Picture &before, const Picture &after) {
    Picture expected = before;
    ForEachPixel(after, [&](LONG x, LONG y) {
        if (Contains(rect, x, y)) expected.At(x, y) = after.At(x, y);
    });
    EXPECT_TRUE(Same(expected, after));
}

TestCanvas::TestCanvas(CanvasKind kind, LONG width, LONG height, uint32_t seed) : kind_(kind) {
    const auto w = static_cast<DWORD>(width), h = static_cast<DWORD>(height);
    switch (kind) {
        case CanvasKind::Memory: canvas_.emplace(CreateCanvas(w, h, {})); break;
        case CanvasKind::System: canvas_.emplace(CreateSystemCanvas(w, h, {})); break;
        default:
            dib_.emplace(width, height, kind == CanvasKind::Shallow ? WORD{24} : WORD{32});
            dc_.emplace(dib_->Handle());
#ifdef _WIN32
            if (kind == CanvasKind::Scaled) {
                SetMapMode(*dc_, MM_ANISOTROPIC);
                SetWindowExtEx(*dc_, 2, 2, nullptr);
                SetViewportExtEx(*dc_, 3, 3, nullptr);
            }
            if (kind == CanvasKind::Metafile) {
                const RECT screen{0, 0, GetDeviceCaps(*dc_, HORZSIZE) * 100, GetDeviceCaps(*dc_, VERTSIZE) * 100};
                metafile_ = CreateEnhMetaFileW(*dc_, nullptr, &screen, nullptr);
            }
#endif
            canvas_.emplace(CreateCanvasFromDC(Context()));
            SetClip({0, 0, width, height});
    }
    FillWithNoise(View(), seed);
}

SurfaceView TestCanvas::View() const {
    GdiFlush();
    return dib_ ? dib_->View() : lacquer::ViewOf(*canvas_);
}

void TestCanvas::SetClip(const RECT &clip) const {
    SetCanvasClipRect(*canvas_, &clip);
    if (kind_ >= CanvasKind::Holed && kind_ <= CanvasKind::Scaled) ExcludeClipRect(Context(), 12, 9, 17, 16);
}

void TestCanvas::Play() const {
#ifdef _WIN32
    if (!metafile_) return;
    HENHMETAFILE closed = CloseEnhMetaFile(std::exchange(metafile_, nullptr));
    // The whole screen, in pixels: nothing is scaled.
    const RECT screen{0, 0, GetDeviceCaps(*dc_, HORZRES), GetDeviceCaps(*dc_, VERTRES)};
    EXPECT_TRUE(PlayEnhMetaFile(*dc_, closed, &screen));
    DeleteEnhMetaFile(closed);
#endif
}

OwnedBitmap NoiseBitmap(LONG width, LONG height, WORD bitsPerPixel, uint32_t seed, DWORD filter) {
    OwnedBitmap bitmap(CreateMemBitmapEx(static_cast<DWORD>(width), static_cast<DWORD>(height), bitsPerPixel,
                                         bitsPerPixel == 8 ? 200 : 0));
    SetBitmapFilter(bitmap, filter);
    return Noisy(std::move(bitmap), seed, bitsPerPixel == 8);
}

OwnedTexture NoiseTexture(LONG width, LONG height, WORD bitsPerPixel, uint32_t seed, DWORD filter) {
    OwnedTexture texture(CreateTextureEx(static_cast<DWORD>(width), static_cast<DWORD>(height), bitsPerPixel,
                                         bitsPerPixel == 8 ? 200 : 0));
    SetTextureFilter(texture, filter);
    return Noisy(std::move(texture), seed, bitsPerPixel == 8);
}

RECT Ordered(RECT rect) {
    if (rect.left > rect.right) std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom) std::swap(rect.top, rect.bottom);
    return rect;
}

}  // namespace lacquer
