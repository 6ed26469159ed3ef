// Animations: what is told about them, how frames are drawn, and what is refused. Pictures of frames are in the
// gallery.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <random>

#include "animations.h"
#include "painting.h"

namespace lacquer {
namespace {

/// An animation, or none when it was refused.
class Lottie {
public:
    explicit Lottie(const std::string &json) : lottie_(velLottieCreateFromData(json.data(), json.size())) {}
    ~Lottie() { EXPECT_EQ(lottie_ != nullptr, velLottieDestroy(lottie_) == 1); }
    Lottie(const Lottie &) = delete;
    Lottie &operator=(const Lottie &) = delete;
    operator velLottie *() const { return lottie_; }

private:
    velLottie *lottie_;
};

/// Each test has to be over in 20 seconds.
class VelLottieTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(ExpectsAnimations(), square_ != nullptr);
        if (!square_) GTEST_SKIP() << "built without animations";
    }
    void TearDown() override {
        EXPECT_LT(std::chrono::steady_clock::now() - started_, std::chrono::seconds(20)) << "in bounded time";
    }

    const Lottie square_{AnimationOf(RedSquare())};
    const std::chrono::steady_clock::time_point started_ = std::chrono::steady_clock::now();
};

TEST_F(VelLottieTest, TellsAboutAnimationsAndTakesTheNearestFrame) {
    const Lottie lottie(RichAnimation());
    velLottieInfo info{};
    ASSERT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(100, info.width);
    EXPECT_EQ(80, info.height);
    EXPECT_EQ(60.0f, info.frameCount);
    EXPECT_EQ(30.0f, info.frameRate);
    EXPECT_EQ(0, velLottieGetInfo(lottie, nullptr));

    const auto draw = [&](float frame) {
        Painting painting(50, 40);
        EXPECT_EQ(1, velLottieDraw(painting, lottie, frame, 0, 0, 50, 40));
        return painting.Pixels();
    };
    const auto first = draw(0), middle = draw(30), last = draw(59);
    EXPECT_NE(first, middle);
    EXPECT_NE(middle, last);
    for (const float frame : {-7.0f, 0.99f}) EXPECT_EQ(first, draw(frame));
    for (const float frame : {60.0f, 1e30f}) EXPECT_EQ(last, draw(frame));
    EXPECT_EQ(middle, draw(30.5f));
}

TEST_F(VelLottieTest, StretchesFramesByTheState) {
    Painting stretched(80, 60);
    EXPECT_EQ(1, velLottieDraw(stretched, square_, 0, 0, 0, 80, 40));
    ExpectBox(stretched, {20, 10, 60, 30});
    EXPECT_EQ(0xFFFF0000u, stretched.At(40, 20));
    EXPECT_NEAR(800, stretched.Area(), 4);

    Painting painting(40, 40, 0xFF0000FF);
    EXPECT_EQ(1, velCanvasClipRect(painting, 0, 0, 20, 40));
    EXPECT_EQ(1, velCanvasTranslate(painting, 3.4f, -2.4f));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 128));
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 0, 0, 40, 40));
    for (const auto &[x, y, red] : {std::array{12, 20, 0}, {20, 20, 0}, {13, 8, 128}, {19, 27, 128}}) {
        EXPECT_NEAR(red, painting.At(x, y) >> 16 & 0xFF, 2) << x;
        EXPECT_NEAR(255 - red, painting.At(x, y) & 0xFF, 2) << x;
    }
    EXPECT_EQ(1, velCanvasSetBlendMode(painting, VEL_BLEND_CLEAR));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 255));
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 4, 4, 4, 4));
    EXPECT_EQ(0u, painting.At(8, 2));
    EXPECT_EQ(0xFF0000FFu, painting.At(12, 2));
}

TEST_F(VelLottieTest, DrawsAtAnySizeInBoundedMemory) {
    const struct {
        std::array<float, 5> numbers;
        int result;
        double area;
    } kDraws[] = {{{0, -16000, -16000, 32767, 32767}, 1, 64 * 64},
                  {{0, 5, 5, 0, 20}, 1, 0},
                  {{0, 500, 5, 20, 20}, 1, 0},
                  {{0, 5, 9, 32768, 1}, 0, 0},
                  {{0, 5, 9, 1, -1}, 0, 0},
                  {{0, 5, 9, 32767, 1}, 1, 0}};
    for (const auto &[numbers, result, area] : kDraws) {
        Painting painting(64, 64);
        const auto &[frame, x, y, width, height] = numbers;
        EXPECT_EQ(result, velLottieDraw(painting, square_, frame, x, y, width, height));
        EXPECT_NEAR(area, painting.Area(), 0.5) << width;
    }
    for (size_t i = 0; i < 5; ++i) {
        for (const float bad : {NAN, INFINITY, -INFINITY}) {
            float numbers[] = {0, 1, 1, 20, 20};
            numbers[i] = bad;
            ExpectRefused("number " + std::to_string(i), [&](velCanvas *canvas) {
                return velLottieDraw(canvas, square_, numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]);
            });
        }
    }
}

TEST_F(VelLottieTest, FarReachingShapesAreDrawnSmallerAndEnlarged) {
    // What reaches tens of thousands of pixels beyond the frame would take for ever at full size.
    const auto line = [](const std::string &width, const std::string &scale) {
        return Lottie(
            AnimationOf("{'ty':'gr','it':[{'ty':'sh','ks':<{'i':[[0,0],[0,0],[0,0]],'o':[[0,0],[0,0],[0,0]],"
                        "'v':[[-9,-7],[8,-3],[1,6]],'c':true}>},{'ty':'st','c':<[0,0,1,1]>,'o':<100>,'w':<" +
                        width + ">,'lc':2,'lj':2},{'ty':'tr','p':<[20,20]>,'a':<[0,0]>,'s':<[" + scale + "," + scale +
                        "]>,'r':<0>,'o':<100>}]}"));
    };
    for (const char *width : {"40", "4000", "16000", "32000", "60000", "900000"}) {
        for (const char *scale : {"100", "10000", "900000"}) {
            const Lottie lottie = line(width, scale);
            Painting painting;
            if (!lottie) continue;
            EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, 0, 0, 32, 32));
            EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, -900, -900, 3000, 1500));
        }
    }
    Painting covered, painting(400, 400);
    EXPECT_EQ(1, velLottieDraw(covered, line("40", "10000"), 0, 0, 0, 32, 32));
    EXPECT_EQ(32.0 * 32, covered.Area());
    // An ordinary one keeps its full size.
    EXPECT_EQ(1, velLottieDraw(painting, line("4", "100"), 0, 0, 0, 400, 400));
    const auto isPartlyCovered = [](uint32_t pixel) { return pixel != 0 && pixel >> 24 != 255; };
    EXPECT_LT(std::ranges::count_if(painting.Pixels(), isPartlyCovered), 1600) << "edges are not sharp";
}

TEST_F(VelLottieTest, ReadsFiles) {
    for (const char *missing : {"velgraphic_\xC3\xA4nimation.json", ".", "", "\xFF\xFE"}) {
        EXPECT_EQ(nullptr, velLottieCreateFromFile(missing));
    }
    // By way of its own bytes the name is another one on Windows, so this file's name is plain.
    const char *const plain = "velgraphic_animation.json";
    std::ofstream(plain, std::ios::binary) << AnimationOf(RedSquare());
    velLottie *lottie = velLottieCreateFromFile(plain);
    velLottieInfo info{};
    EXPECT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(10.0f, info.frameCount);
    EXPECT_EQ(1, velLottieDestroy(lottie));
    std::remove(plain);
}

void ExpectNoAnimation(const std::string &json, const std::string &what) {
    EXPECT_EQ(nullptr, static_cast<velLottie *>(Lottie(json))) << what;
}

TEST_F(VelLottieTest, RefusesTextThatIsNoJsonAndPropertiesThatMakeNoSense) {
    const std::string valid = AnimationOf(RedSquare());
    for (size_t length = 0; length < valid.size(); ++length) {
        ExpectNoAnimation(valid.substr(0, length), "cut off after " + std::to_string(length));
    }
    for (const std::string &end : {std::string("x"), std::string(1, '\0')}) ExpectNoAnimation(valid + end, "goes on");
    const struct {
        const char *piece;
        std::vector<const char *> others;
    } kReplacements[] = {
        {"'fr':30,", {"'fr':030,", "'fr':30.,", "'fr':1e999,", "'fr':NaN,", "'fr':+30,", "'fr':30,,", "fr:30,"}},
        {"'v':'5", {"'v':'\\x5", "'v':'\n5", "'\\u0076':'5"}},
        {"'v':'5.5.2',", {""}},
        {"'fr':30", {"'fr':0", "'fr':-1", "'fr':[30]"}},
        {"'op':10", {"'op':1e9", "'op':-10"}},
        {"'w':40", {"'w':0", "'w':-3"}},
        {"'h':40,", {"'h':40000,", "'h':'40',", ""}},
        {"'layers':[", {"'lawyers':[", "'layers':3,'x':["}},
        {"[20,20]", {"[1e30,20]"}},
        {"'sr':1", {"'sr':1e7"}},
    };
    for (const auto &[piece, others] : kReplacements) {
        for (const char *other : others) {
            std::string json = valid;
            json.replace(json.find(Json(piece)), std::string(piece).size(), Json(other));
            ExpectNoAnimation(json, other);
        }
    }
    for (const char *json : {"", " ", "{}", "[]", "null", "3", "\"animation\"", "{\"v\":\"5\"}", "[[[["}) {
        ExpectNoAnimation(json, json);
    }
}

TEST_F(VelLottieTest, RefusesAnimationsThatWouldTakeForEver) {
    const auto repeated = [](int copies) { return "{'ty':'rp','c':<" + std::to_string(copies) + ">,'o':<0>,'tr':{}}"; };
    const auto use = [](const std::string &id) {
        return "{'ddd':0,'ty':0,'refId':'" + id + "','sr':1,'ks':{},'w':40,'h':40,'ip':0,'op':10,'st':0}";
    };
    const auto asset = [](const std::string &id, const std::string &layers) {
        return "{'id':'" + id + "','layers':[" + layers + "]}";
    };
    const auto dashed = [](const std::string &dash, const std::string &gap) {
        return AnimationOf(
            Group("{'ty':'el','d':1,'s':<[90,90]>,'p':<[20,20]>},{'ty':'st','c':<[0,0,0,1]>,'o':<100>,"
                  "'w':<2>,'d':[{'n':'d','v':" +
                  dash + "},{'n':'g','v':" + gap + "},{'n':'o','v':<0>}]}"));
    };
    const std::string square = RedSquare() + ",";
    std::string nested = RedSquare(), assets = asset("0", use("none"));
    for (int i = 0; i < 200; ++i) nested = Group(nested);
    for (int i = 1; i < 8; ++i) {
        std::string layers = use(std::to_string(i - 1));
        for (int k = 0; k < 9; ++k) layers.append(",").append(use(std::to_string(i - 1)));
        assets.append(",").append(asset(std::to_string(i), layers));
    }
    const std::pair<const char *, std::string> kEndless[] = {
        {"nested arrays", std::string(100000, '[')},
        {"nested groups", AnimationOf(nested)},
        {"copies", AnimationOf(square + repeated(100000))},
        {"copies of copies", AnimationOf(square + repeated(300) + "," + repeated(300))},
        {"nested copies", AnimationOf(Group(Group(square + repeated(900)) + "," + repeated(900)))},
        {"contains itself", Composition(use("a"), asset("a", use("a")))},
        {"contain each other", Composition(use("a"), asset("a", use("b")) + "," + asset("b", use("a")))},
        {"ten to the eighth", Composition(use("7"), assets)},
        {"picture's file", Composition(use("a"), "{'id':'a','w':9,'h':9,'u':'/etc/','p':'passwd','e':0}")},
        {"picture", Composition(use("a"), "{'id':'a','w':9,'h':9,'p':'data:image/png;base64,AAAA','e':1}")},
        {"tiny dashes", dashed("<0.01>", "<0.01>")},
        {"negative dashes", dashed("<-1>", "<40>")},
        {"dashes that become negative in between",
         dashed("{'a':1,'k':[{'t':0,'s':[9],'e':[2],'i':{'x':[0.5],'y':[1]},'o':{'x':[0.5],'y':[-9]}},{'t':9}]}",
                "<4>")},
    };
    for (const auto &[what, json] : kEndless) ExpectNoAnimation(json, what);
    EXPECT_NE(nullptr, static_cast<velLottie *>(Lottie(dashed("<5>", "<4>"))));
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

TEST_F(VelLottieTest, DamagedAnimationsAreRefusedOrDrawn) {
    // Each has other values where some were, so that it stays JSON: odd numbers, other types, and pieces from
    // elsewhere. The fuzzer damages single bytes.
    static const char *const kValues[] = {
        "0",  "-1",  "1e6",   "-999999", "0.0001",        "1e-30", "100000", "null",  "true",   "\"x\"",  "[]",
        "{}", "[1]", "[0,0]", "255",     "[[0,0],[1,1]]", "3.7",   "-0.5",   "60000", "\"rp\"", "\"sh\"", "\"gr\""};
    std::mt19937 random(1);
    Painting painting(40, 40);
    int drawn = 0;
    for (int round = 0; round < 1500; ++round) {
        std::string json = RichAnimation();
        for (size_t i = random() % 4; i < 4; ++i) {
            const size_t at = json.find(':', random() % (json.size() / 2)) + 1,
                         from = json.find(':', random() % 200) + 1;
            const std::string put = random() % 3 == 0 ? json.substr(from, EndOfValue(json, from) - from)
                                                      : kValues[random() % std::size(kValues)];
            json.replace(at, EndOfValue(json, at) - at, put);
        }
        const Lottie lottie(json);
        velLottieInfo info{};
        if (!velLottieGetInfo(lottie, &info)) continue;
        EXPECT_GE(info.frameCount, 1.0f);
        for (const float part : {0.0f, 0.3f, 1.0f}) {
            EXPECT_EQ(1, velLottieDraw(painting, lottie, info.frameCount * part, 0, 0, 40, 40)) << json;
        }
        ++drawn;
    }
    EXPECT_GT(drawn, 100);
}

}  // namespace
}  // namespace lacquer
