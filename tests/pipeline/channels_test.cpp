// The combine rules, fills and mixes over all combinations of source channel, destination channel and alpha, in every
// tier. A word's channels run through the 256 values in different orders, so that each lane meets every combination and
// its neighbours differ from it.

#include <algorithm>

#include "kernel_check.h"

namespace lacquer {
namespace {

constexpr int kValues = 256;

/// A word of an alpha whose colour channels are permutations of `value`; both modulo 256.
uint32_t Lanes(int value, int alpha) {
    return WordOf([=](int i) { return i == 3 ? alpha : i == 2 ? value * 11 + 1 : i == 1 ? value * 5 + 3 : value; });
}

/// What meets at pixel (x, y) of images of 256 × 256 pixels, while `third` runs through the 256 values.
struct Meeting {
    Row row;
    std::vector<int> depths;
    uint32_t (*source)(int x, int y, int third);  ///< 8-bit sources have the words of column 0
    uint32_t (*dest)(int x, int y, int third);
    int step = 1;
    uint32_t (*parameter)(int third) = [](int third) { return static_cast<uint32_t>(third); };
};

uint32_t AnyDest(int x, int y, int) { return Lanes(x, x ^ y); }
uint32_t AnySource(int, int y, int third) { return Lanes(y, third); }

// The rules of 8- and 32-bit sources are called in two ways; that of 24-bit ones is the 8-bit sources' way.
const Meeting kMeetings[] = {
    // Every source channel, destination channel and source alpha; then every destination alpha.
    {Row::OverRow, {8, 32}, AnySource, AnyDest},
    {Row::BehindRow,
     {8, 32},
     [](int, int y, int third) { return Lanes(y, third ^ 0x81); },
     [](int x, int, int third) { return Lanes(x, third); }},
    // Every constant alpha with every source alpha and source channel, then with every source alpha and destination
    // channel; and with every source channel and destination channel.
    {Row::ConstAlphaRow,
     {32},
     [](int x, int y, int) { return Lanes(x, y); },
     [](int x, int y, int third) { return Lanes(x * 7 + y * 13, x + third); }},
    {Row::ConstAlphaRow, {32}, [](int x, int y, int third) { return Lanes(x * 5 + third, y); }, AnyDest},
    {Row::ConstAlphaRow, {8}, [](int, int y, int third) { return Lanes(y, third ^ 0x33); }, AnyDest},
    // Every pair of channels.
    {Row::OverRow, {24}, AnySource, AnyDest, 85},
    {Row::BehindRow, {24}, AnySource, AnyDest, 85},
    {Row::ConstAlphaRow, {24}, AnySource, AnyDest, 17},
    {Row::ModulateRow, {8, 24, 32}, AnySource, AnyDest, 85},
    {Row::CopyRow, {8, 24, 32}, AnySource, AnyDest, 85},
    // Keys that match a line of pixels, and keys of another alpha.
    {Row::ColorKeyRow,
     {8, 24, 32},
     [](int, int y, int third) { return Lanes(y, third & 0xAA); },
     AnyDest,
     85,
     [](int third) { return Lanes(77, third); }},
};

TestImage SourceOf(const Meeting &meeting, int depth, int third) {
    TestImage source(kValues, kValues, depth);
    if (depth == 8) {
        std::vector<DWORD> palette;
        for (int i = 0; i < kValues; ++i) palette.push_back(meeting.source(0, i, third));
        source.SetPalette(std::move(palette));
    }
    source.FillBy([&](int x, int y) { return depth == 8 ? static_cast<uint32_t>(y) : meeting.source(x, y, third); });
    return source;
}

class Channels : public testing::TestWithParam<std::size_t> {
protected:
    const TableUnderTest &Table() const { return TablesUnderTest()[GetParam()]; }
};
INSTANTIATE_TEST_SUITE_P(Tables, Channels, testing::Range(std::size_t{0}, TablesUnderTest().size()),
                         [](const auto &test) { return TablesUnderTest()[test.param].name; });

TEST_P(Channels, OfRowsMeetInEveryCombination) {
    TestImage dest(kValues, kValues);
    for (const Meeting &meeting : kMeetings) {
        for (const Kernel &kernel : AllKernels()) {
            const bool meets = std::count(meeting.depths.begin(), meeting.depths.end(), kernel.depth) > 0;
            if (kernel.row != meeting.row || !meets || !Table().Replaces(kernel)) continue;
            for (int third = 0; third < kValues; third += meeting.step * (meeting.step == 1 ? kSlice : 1)) {
                const TestImage source = SourceOf(meeting, kernel.depth, third);
                dest.FillBy([&](int x, int y) { return meeting.dest(x, y, third); });
                ASSERT_TRUE(DrawsAsModel(Table(), kernel, dest, source, {.parameter = meeting.parameter(third)}));
            }
        }
    }
}

/// For every channel of the colour or the source and every one of the destination: every alpha of the colour, every
/// alpha of the destination, and every weight.
TEST_P(Channels, OfSingleSlotsMeetInEveryCombination) {
    TestImage source(kValues, 1), dest(kValues, 1);
    for (const Kernel &kernel : AllKernels()) {
        if (kernel.row || !Table().Replaces(kernel)) continue;
        const bool isOfPairs = kernel.combine == CombineKind::Copy || kernel.combine == CombineKind::Modulate ||
                               kernel.combine == CombineKind::Or || kernel.combine == CombineKind::Opaque;
        for (int value = 0; value < kValues; value += kSlice) {
            for (int third = 0; third < kValues; third += isOfPairs ? 85 : kSlice) {
                source.FillWith(Lanes(value, third));
                dest.FillBy([&](int x, int) { return Lanes(x, x ^ value ^ third); });
                ASSERT_TRUE(DrawsAsModel(Table(), kernel, dest, source, {.parameter = static_cast<DWORD>(third)}));
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
