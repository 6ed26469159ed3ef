// The models, and pictures to feed them.

#include "models.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace lacquer {

namespace {

/// The detour through memory keeps compilers from fusing the step with the next one.
float Rounded(double exact) {
    const volatile float stored = static_cast<float>(exact);
    return stored;
}

/// Towards zero, modulo 256; 0 for what is not a 32-bit number.
int WrappedStep(double value) {
    const double whole = std::trunc(value);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) return 0;
    return static_cast<int>(static_cast<int64_t>(whole) & 255);
}

/// Seven taps along one axis, channel by channel.
Picture Smoothed(const Picture &source, LONG dx, LONG dy) {
    constexpr std::array<float, 4> kWeights{0.16656f, 0.1599f, 0.14147f, 0.11535f};
    Picture result = source;
    ForEachPixel(source, [&](LONG x, LONG y) {
        result.At(x, y) = WordOf([&](int channel) {
            float sum = 0;
            for (int k = -3; k <= 3; ++k) {
                const LONG column = std::clamp(x + k * dx, LONG{0}, source.width - 1);
                const LONG row = std::clamp(y + k * dy, LONG{0}, source.height - 1);
                const double weight = kWeights[static_cast<size_t>(std::abs(k))];
                sum = Rounded(double{sum} + Rounded(weight * ChannelOf(source.At(column, row), channel)));
            }
            return static_cast<uint32_t>(sum);
        });
    });
    return result;
}

}  // namespace

uint32_t ModelShifted(uint32_t ahsl, const Deltas &deltas) {
    const int h = static_cast<int>(ahsl >> 16 & 255), s = static_cast<int>(ahsl >> 8 & 255),
              l = static_cast<int>(ahsl & 255);
    const auto move = [](int channel, float delta, int least) {
        if (delta >= 0) return channel + WrappedStep(double{Rounded(double{delta} * (255 - channel))} + 0.5);
        if (delta > -1.001 && delta < -0.999) return least;
        return channel + WrappedStep(double{Rounded(double{delta} * channel)} - 0.5);
    };
    const int hue = h + WrappedStep(double{Rounded(double{Rounded(double{deltas.h} * 255)} * 0.5)} + 0.5);
    const int saturation = move(s, deltas.s, 1) & 255;
    const int channels[] = {move(l, deltas.l, 0), saturation == 0 ? 1 : saturation, hue, static_cast<int>(ahsl >> 24)};
    return WordOf([&](int i) { return channels[i]; });
}

uint32_t ModelColorized(uint32_t argb, const Deltas &deltas) {
    return AHSLtoARGB(ModelShifted(ARGBtoAHSL(argb), deltas));
}

Picture ModelBoxBlur(const Picture &source) {
    Picture result = source;
    ForEachPixel(source, [&](LONG x, LONG y) {
        result.At(x, y) = WordOf([&](int channel) {
            uint32_t sum = 0;
            for (int i = 0; i < 9; ++i) {
                const LONG column = std::clamp(x + i % 3 - 1, LONG{0}, source.width - 1);
                const LONG row = std::clamp(y + i / 3 - 1, LONG{0}, source.height - 1);
                sum += ChannelOf(source.At(column, row), channel);
            }
            return sum / 9;
        });
    });
    return result;
}

Picture ModelGaussianBlur(const Picture &source) {
    Picture result = source;
    for (int pass = 0; pass < 2; ++pass) result = Smoothed(Smoothed(result, 1, 0), 0, 1);
    return result;
}

Picture NoisePicture(LONG width, LONG height, uint32_t seed) {
    Picture picture{width, height, std::vector<uint32_t>(static_cast<size_t>(width) * static_cast<size_t>(height))};
    for (size_t i = 0; i < picture.pixels.size(); ++i) picture.pixels[i] = Noise(seed, static_cast<uint32_t>(i));
    return picture;
}

OwnedTexture TextureOf(const Picture &picture) {
    OwnedTexture texture(CreateTexture(static_cast<DWORD>(picture.width), static_cast<DWORD>(picture.height)));
    ForEachPixel(picture, [&](LONG x, LONG y) { PutPixel(ViewOf(texture), x, y, picture.At(x, y)); });
    return texture;
}

OwnedBitmap BitmapOf(const Picture &picture, bool isSystem) {
    const auto width = static_cast<DWORD>(picture.width), height = static_cast<DWORD>(picture.height);
    OwnedBitmap bitmap(isSystem ? CreateSystemBitmap(width, height) : CreateMemBitmap(width, height));
    ForEachPixel(picture, [&](LONG x, LONG y) { PutPixel(ViewOf(bitmap), x, y, picture.At(x, y)); });
    return bitmap;
}

void Paste(Picture &whole, LONG left, LONG top, const Picture &part) {
    ForEachPixel(part, [&](LONG x, LONG y) { whole.At(left + x, top + y) = part.At(x, y); });
}

Picture Cut(const Picture &whole, const RECT &rect) {
    Picture part = NoisePicture(rect.right - rect.left, rect.bottom - rect.top, 0);
    ForEachPixel(part, [&](LONG x, LONG y) { part.At(x, y) = whole.At(rect.left + x, rect.top + y); });
    return part;
}

}  // namespace lacquer
