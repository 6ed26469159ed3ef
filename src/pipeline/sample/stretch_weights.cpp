// Weight tables in both forms, made at compile time for the initial mode. Evaluation is in single precision, in the
// orders written here: the last bit of a weight depends on them.

#include "pipeline/sample/stretch_weights.h"

namespace lacquer {
namespace {

constexpr DWORD kBSplineMode = 1;
constexpr int kStepsPerPixel = 256;

constexpr float PositiveCube(float base) { return base > 0.0f ? base * base * base : 0.0f; }

/// ((x+2)³ − 4(x+1)³ + 6x³ − 4(x−1)³) / 6, where a cube counts only when its base is positive.
constexpr float BSpline(float x) {
    const float sum =
        PositiveCube(x + 2.0f) - 4.0f * PositiveCube(x + 1.0f) + 6.0f * PositiveCube(x) - 4.0f * PositiveCube(x - 1.0f);
    return sum * 0.16666667f;
}

/// x³ − 2x² + 1 up to 1, −x³ + 5x² − 8x + 4 beyond.
constexpr float Convolution(float x) {
    const float square = x * x;
    const float cube = square * x;
    if (x > 1.0f) return (-8.0f * x + (5.0f * square - cube)) + 4.0f;
    return (cube - 2.0f * square) + 1.0f;
}

/// The same cubic, summed in the order of mode 0.
constexpr float ConvolutionMode0(float x) {
    const float square = x * x;
    const float cube = square * x;
    if (x >= 1.0f) return (5.0f * square + (-8.0f * x + 4.0f)) - cube;
    return (1.0f - 2.0f * square) + cube;
}

constexpr float Weight(DWORD mode, float x) {
    if (mode == kBSplineMode) return BSpline(x);
    return mode == 0 ? ConvolutionMode0(x) : Convolution(x);
}

/// Truncation after adding a half: negative weights round towards zero.
constexpr int32_t Quantise(float weight, float scale) {
    return static_cast<int32_t>(static_cast<double>(weight * scale) + 0.5);
}

constexpr StretchWeightTable Build(DWORD mode, WeightForm form) {
    StretchWeightTable table{};
    for (int i = 0; i < 2 * kStepsPerPixel; ++i) {
        const float weight = Weight(mode, static_cast<float>(i * (1.0 / kStepsPerPixel)));
        int32_t &entry = table[static_cast<std::size_t>(i)];
        if (form == WeightForm::Q8) {
            entry = Quantise(weight, 256.0f);
        } else {
            const uint32_t half = static_cast<uint32_t>(Quantise(weight, 16384.0f)) & 0xFFFF;
            entry = static_cast<int32_t>(half << 16 | half);
        }
    }
    return table;
}

constexpr ByteClampTable BuildClamps() {
    ByteClampTable table{};
    for (int i = 0; i < 768; ++i) {
        const int value = i - 256;
        table[static_cast<std::size_t>(i)] = static_cast<BYTE>(value < 0 ? 0 : value > 255 ? 255 : value);
    }
    return table;
}

struct Setting {
    DWORD mode;
    StretchWeightTable q8, q14;
};

constinit Setting setting = {kBSplineMode, Build(kBSplineMode, WeightForm::Q8), Build(kBSplineMode, WeightForm::Q14)};
constexpr ByteClampTable kClamps = BuildClamps();

}  // namespace

StretchWeightTable BuildStretchWeightTable(DWORD mode, WeightForm form) { return Build(mode, form); }

const StretchWeightTable &CurrentStretchWeights(WeightForm form) {
    return form == WeightForm::Q8 ? setting.q8 : setting.q14;
}

bool RebuildStretchWeights(DWORD mode) {
    if (mode == setting.mode) return false;
    setting = {mode, Build(mode, WeightForm::Q8), Build(mode, WeightForm::Q14)};
    return true;
}

DWORD StretchWeightsMode() { return setting.mode; }

const ByteClampTable &ByteClamps() { return kClamps; }

}  // namespace lacquer
