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

uint32_t Byte(int value) { return static_cast<uint32_t>(value) & 255; }

uint32_t Word(uint32_t alpha, uint32_t third, uint32_t second, uint32_t first) {
    return alpha << 24 | third << 16 | second << 8 | first;
}

float HueChannel(float t, float p, float q) {
    if (t > 360) {
        t = Rounded(double{t} - 360);
    } else if (t < 0) {
        t = Rounded(double{t} + 360);
    }
    const float span = Rounded(double{q} - p);
    if (t < 60) return Rounded(double{Rounded(Rounded(double{span} * t) / 60.0)} + p);
    if (t < 180) return q;
    if (t < 240) {
        const float left = Rounded(240.0 - t);
        return Rounded(double{Rounded(Rounded(double{left} * span) / 60.0)} + p);
    }
    return p;
}

uint32_t Cut255(float value) { return Byte(static_cast<int>(Rounded(double{value} * 255))); }

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

uint32_t ModelAhslOf(uint32_t argb) {
    const int b = static_cast<int>(argb & 255), g = static_cast<int>(argb >> 8 & 255);
    const int r = static_cast<int>(argb >> 16 & 255);
    const int largest = std::max(r, std::max(g, b)), smallest = std::min(r, std::min(g, b));
    const int sum = largest + smallest, d = largest - smallest;
    const auto l = static_cast<int>((static_cast<uint64_t>(sum * 255 + 255) * 8421505) >> 32);
    if (d == 0) return Word(argb >> 24, 170, 0, Byte(l));
    const int den = l >= 128 ? 510 - sum : sum;
    const int s = (d * 255 + den / 2) / den;
    const int hR = ((largest - r) * 42 + d / 2) / d, hG = ((largest - g) * 42 + d / 2) / d;
    const int hB = ((largest - b) * 42 + d / 2) / d;
    const int h = largest == r ? hB - hG : largest == g ? hR - hB + 85 : hG - hR + 170;
    return Word(argb >> 24, Byte(h), Byte(s), Byte(l));
}

uint32_t ModelArgbOf(uint32_t ahsl) {
    const float s = Rounded((ahsl >> 8 & 255) / 255.0), l = Rounded((ahsl & 255) / 255.0);
    if ((ahsl >> 8 & 255) == 0) return Word(ahsl >> 24, Cut255(l), Cut255(l), Cut255(l));
    const float q = l <= 0.5f ? Rounded(double{Rounded(double{s} + 1)} * l)
                              : Rounded(double{Rounded(double{l} + s)} - Rounded(double{l} * s));
    const float p = Rounded(double{Rounded(double{l} + l)} - q);
    const float h = Rounded((ahsl >> 16 & 255) * 360 / 255.0);
    return Word(ahsl >> 24, Cut255(HueChannel(Rounded(double{h} + 120), p, q)), Cut255(HueChannel(h, p, q)),
                Cut255(HueChannel(Rounded(double{h} - 120), p, q)));
}

uint32_t ModelShifted(uint32_t ahsl, const Deltas &deltas) {
    int h = static_cast<int>(ahsl >> 16 & 255), s = static_cast<int>(ahsl >> 8 & 255), l = static_cast<int>(ahsl & 255);
    h += WrappedStep(double{Rounded(double{Rounded(double{deltas.h} * 255)} * 0.5)} + 0.5);
    const auto move = [](int channel, float delta, int least) {
        if (delta >= 0) return channel + WrappedStep(double{Rounded(double{delta} * (255 - channel))} + 0.5);
        if (delta > -1.001 && delta < -0.999) return least;
        return channel + WrappedStep(double{Rounded(double{delta} * channel)} - 0.5);
    };
    s = move(s, deltas.s, 1) & 255;
    l = move(l, deltas.l, 0);
    return Word(ahsl >> 24, Byte(h), s == 0 ? 1 : Byte(s), Byte(l));
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

void FillBytes(const SurfaceView &view, BYTE value) {
    std::fill_n(static_cast<BYTE *>(view.bits), view.stride * view.height, value);
}

bool HasOnlyBytes(const SurfaceView &view, BYTE value) {
    const auto *bytes = static_cast<const BYTE *>(view.bits);
    return std::all_of(bytes, bytes + view.stride * view.height, [=](BYTE byte) { return byte == value; });
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
