// Layout: [misalignment][row][guard][row][guard] ... [row]; nothing behind the last row.

#include "test_image.h"

namespace lacquer {

TestImage::TestImage(int width, int height, int bitsPerPixel, int padding, int misalignment)
    : width_(width),
      height_(height),
      bitsPerPixel_(bitsPerPixel),
      stride_(width * (bitsPerPixel / 8) + padding),
      misalignment_(misalignment),
      block_(PlaceOf(0, height) - static_cast<std::size_t>(padding), BYTE{0xA5}) {}

void TestImage::Fill(Random &random, bool premultiplied) {
    const auto word = [&] { return premultiplied ? random.PremultipliedWord() : random.Word(); };
    if (bitsPerPixel_ == 8) {
        palette_.resize(256);
        for (DWORD &entry : palette_) entry = word();
    }
    FillBy([&](int, int) { return word(); });
}

SurfaceView TestImage::View(RECT rect) const {
    SurfaceView view = {};
    view.width = rect.right - rect.left;
    view.height = rect.bottom - rect.top;
    view.stride = stride_;
    view.planes = 1;
    view.bitsPerPixel = static_cast<WORD>(bitsPerPixel_);
    view.bits = const_cast<BYTE *>(block_.data()) + PlaceOf(rect.left, rect.top);
    // A count without colours means nothing.
    view.paletteCount = palette_.empty() ? 256 : static_cast<DWORD>(palette_.size());
    view.palette = palette_.empty() ? nullptr : const_cast<DWORD *>(palette_.data());
    return view;
}

uint32_t TestImage::ShallowAt(int64_t x, int64_t y) const {
    const BYTE *const pixel = block_.data() + PlaceOf(x, y);
    if (bitsPerPixel_ == 24) return 0xFF000000 | uint32_t{pixel[2]} << 16 | uint32_t{pixel[1]} << 8 | pixel[0];
    if (palette_.empty()) return 0xFF000000u + *pixel * 0x10101u;
    return *pixel < palette_.size() ? palette_[*pixel] : 0;
}

}  // namespace lacquer
