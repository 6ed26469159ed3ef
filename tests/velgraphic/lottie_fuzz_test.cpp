// Animations damaged at random: refused or drawn, without a crash, and in bounded time.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <random>

#include "animations.h"
#include "painting.h"

namespace lacquer {
namespace {

using Random = std::mt19937;

size_t Below(Random &random, size_t limit) { return random() % limit; }

/// Changes, drops, doubles or moves a few bytes.
void DamageText(std::string &json, Random &random) {
    constexpr char kBytes[] = "0123456789-.,:[]{}\"eaktsnd";
    const size_t at = Below(random, json.size()), length = 1 + Below(random, 20);
    switch (Below(random, 4)) {
        case 0: json[at] = kBytes[Below(random, sizeof kBytes - 1)]; break;
        case 1: json.erase(at, length); break;
        case 2: json.insert(at, json.substr(Below(random, json.size()), length)); break;
        default: json[at] = static_cast<char>(random()); break;
    }
}

/// The end of the value that begins at `at`.
size_t EndOfValue(const std::string &json, size_t at) {
    int depth = 0;
    bool isQuoted = false;
    for (size_t i = at; i < json.size(); ++i) {
        const char c = json[i];
        if (c == '"') isQuoted = !isQuoted;
        if (isQuoted) continue;
        if (depth == 0 && (c == ',' || c == '}' || c == ']')) return i;
        if (c == '{' || c == '[') ++depth;
        if (c == '}' || c == ']') --depth;
        if (depth == 0 && (c == '}' || c == ']')) return i + 1;
    }
    return json.size();
}

/// Puts another value where one is, so that the text stays JSON: an odd number, another type, or a piece from
/// elsewhere.
void DamageValue(std::string &json, Random &random) {
    static const char *const kValues[] = {
        "0",  "-1",  "1e6",   "-999999", "0.0001",        "1e-30", "100000", "null",  "true",   "\"x\"",  "[]",
        "{}", "[1]", "[0,0]", "255",     "[[0,0],[1,1]]", "3.7",   "-0.5",   "60000", "\"rp\"", "\"sh\"", "\"gr\""};
    const auto someValue = [&] {
        const size_t colon = json.find(':', Below(random, json.size()));
        return colon == std::string::npos ? json.find(':') + 1 : colon + 1;
    };
    const size_t at = someValue(), end = EndOfValue(json, at), from = someValue();
    const std::string put = random() % 3 == 0 ? json.substr(from, EndOfValue(json, from) - from)
                                              : kValues[Below(random, std::size(kValues))];
    json.replace(at, end - at, put);
}

/// A number from the environment: VELGRAPHIC_FUZZ_ROUNDS and VELGRAPHIC_FUZZ_SEED ask for other and longer runs.
int Setting(const char *name, int standard) {
    const char *const value = std::getenv(name);
    return value ? std::atoi(value) : standard;
}

void Fuzz(void (*damage)(std::string &, Random &)) {
    const std::string valid = RichAnimation();
    Random random(static_cast<unsigned>(Setting("VELGRAPHIC_FUZZ_SEED", 1)));
    Painting painting(40, 40), fresh(40, 40);
    EXPECT_EQ(1, velCanvasDrawCircle(fresh, 20, 20, 9));
    int drawn = 0;
    for (int round = Setting("VELGRAPHIC_FUZZ_ROUNDS", 1500); round > 0; --round) {
        std::string json = valid;
        for (size_t i = 1 + Below(random, 4); i > 0 && !json.empty(); --i) damage(json, random);
        if (const char *const path = std::getenv("VELGRAPHIC_FUZZ_FILE")) std::ofstream(path, std::ios::binary) << json;
        const auto started = std::chrono::steady_clock::now();
        velLottie *lottie = velLottieCreateFromData(json.data(), json.size());
        if (lottie) {
            velLottieInfo info{};
            EXPECT_EQ(1, velLottieGetInfo(lottie, &info));
            EXPECT_GE(info.frameCount, 1.0f);
            for (const float part : {0.0f, 0.3f, 1.0f}) {
                EXPECT_EQ(1, velLottieDraw(painting, lottie, info.frameCount * part, 0, 0, 40, 40));
            }
            velLottieDestroy(lottie);
            ++drawn;
        }
        ASSERT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20)) << json;
    }
    EXPECT_EQ(ExpectsAnimations(), drawn > 0);
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasDrawCircle(painting, 20, 20, 9));
    EXPECT_EQ(fresh.Pixels(), painting.Pixels());
}

TEST(VelLottieFuzzTest, DamagedText) { Fuzz(DamageText); }

TEST(VelLottieFuzzTest, DamagedValues) { Fuzz(DamageValue); }

}  // namespace
}  // namespace lacquer
