// Animations: what is told about them, which frame is drawn and how, and what is refused. Pictures of frames are in the
// gallery, and the fuzzer damages animations.

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>

#include "animations.h"
#include "painting.h"

namespace lacquer {
namespace {

/// A triangle's outline.
std::string Outlined(const std::string &width, const std::string &scale) {
    return AnimationOf(
        Group("{'ty':'sh','ks':<{'i':[[0,0],[0,0],[0,0]],'o':[[0,0],[0,0],[0,0]],"
              "'v':[[-9,-7],[8,-3],[1,6]],'c':true}>},{'ty':'st','c':<[0,0,1,1]>,'o':<100>,'w':<" +
                  width + ">,'lc':2,'lj':2}",
              "[20,20]", scale));
}

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
    const Lottie lottie(AnimationOf(RedSquare(),
                                    "{'p':{'a':1,'k':[{'t':0,'s':[-9,0],'e':[9,0],'i':{'x':1,'y':1},"
                                    "'o':{'x':0,'y':0}},{'t':9,'s':[9,0]}]}}"));
    velLottieInfo info{};
    ASSERT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(std::tuple(40, 40, 10.0f, 30.0f), std::tuple(info.width, info.height, info.frameCount, info.frameRate));
    EXPECT_EQ(0, velLottieGetInfo(lottie, nullptr));
    for (const auto &[frame, whole] :
         {std::pair{-7.0f, 0}, {0.99f, 0}, {4, 4}, {4.5f, 4}, {9, 9}, {10, 9}, {1e30f, 9}}) {
        Painting painting(40, 40);
        EXPECT_EQ(1, velLottieDraw(painting, lottie, frame, 0, 0, 40, 40));
        EXPECT_EQ(1 + 2 * whole, painting.Box().left) << frame;
    }
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
    EXPECT_EQ(0u, painting.At(8, 2)) << "to the edge of the frame";
}

TEST_F(VelLottieTest, DrawsAtAnySizeInBoundedTimeAndMemory) {
    const struct {
        std::array<float, 5> numbers;
        int result;
        double area;
    } kDraws[] = {{{0, -16000, -16000, 32767, 32767}, 1, 64 * 64},
                  {{0, 5, 5, 0, 20}, 1, 0},
                  {{0, 5, 9, 32768, 1}, 0, 0},
                  {{0, 5, 9, 1, -1}, 0, 0},
                  {{0, 5, 9, 32767, 1}, 1, 0},
                  {{NAN, 1, 1, 20, 20}, 0, 0},
                  {{0, 1, -INFINITY, 20, 20}, 0, 0},
                  {{0, 1, 1, 20, INFINITY}, 0, 0}};
    for (const auto &[numbers, result, area] : kDraws) {
        Painting painting(64, 64);
        const auto &[frame, x, y, width, height] = numbers;
        EXPECT_EQ(result, velLottieDraw(painting, square_, frame, x, y, width, height));
        EXPECT_NEAR(area, painting.Area(), 0.5) << width;
    }
    // What reaches tens of thousands of pixels beyond the frame would take for ever at full size.
    for (const char *width : {"40", "4000", "16000", "32000", "60000", "900000"}) {
        for (const char *scale : {"10000", "100", "900000"}) {
            Painting painting;
            const Lottie distant(Outlined(width, scale));
            if (!distant) continue;
            EXPECT_EQ(1, velLottieDraw(painting, distant, 0, 0, 0, 32, 32));
            EXPECT_TRUE(scale != std::string("10000") || painting.Area() == 1024);
            EXPECT_EQ(1, velLottieDraw(painting, distant, 0, -900, -900, 3000, 1500));
        }
    }
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

TEST_F(VelLottieTest, RefusesWhatIsNoAnimationOrWouldTakeForEver) {
    const auto repeated = [](int copies) {
        return ",{'ty':'rp','c':<" + std::to_string(copies) + ">,'o':<0>,'tr':{}}";
    };
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
    std::string nested = RedSquare();
    for (int i = 0; i < 200; ++i) nested = Group(nested);
    const std::string valid = AnimationOf(RedSquare());
    std::vector<std::pair<std::string, std::string>> refused = {
        {"goes on", valid + "x"},
        {"goes on invisibly", valid + '\0'},
        {"nested arrays", std::string(100000, '[')},
        {"nested groups", AnimationOf(nested)},
        {"copies", AnimationOf(RedSquare() + repeated(100000))},
        {"copies of copies", AnimationOf(RedSquare() + repeated(300) + repeated(300))},
        {"nested copies", AnimationOf(Group(Group(RedSquare() + repeated(900)) + repeated(900)))},
        {"far", Outlined("900000", "900000")},
        {"contains itself", Composition(use("a"), asset("a", use("a")))},
        {"picture", Composition(use("a"), "{'id':'a','w':9,'h':9,'p':'data:image/png;base64,AAAA','e':1}")},
        {"tiny dashes", dashed("<0.01>", "<0.01>")},
        {"negative dashes", dashed("<-1>", "<40>")},
        {"dashes that become negative in between",
         dashed("{'a':1,'k':[{'t':0,'s':[9],'e':[2],'i':{'x':[0.5],'y':[4]},'o':{'x':[0.5],'y':[0]}},{'t':9}]}",
                "<4>")},
    };
    const std::pair<const char *, std::vector<const char *>> kReplacements[] = {
        {"'fr':30,", {"'fr':030,", "'fr':30.,", "'fr':1e999,", "'fr':NaN,", "'fr':30,,", "fr:30,", "'fr':0,"}},
        {"'v':'5", {"'v':'\\x5", "'v':'\n5", "'\\u0076':'5"}},
        {"'v':'5.5.2',", {""}},
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
            refused.emplace_back(other, json.replace(json.find(Json(piece)), std::string(piece).size(), Json(other)));
        }
    }
    for (size_t length = 0; length < valid.size(); ++length) refused.emplace_back("cut off", valid.substr(0, length));
    for (const auto &[what, json] : refused) EXPECT_EQ(nullptr, static_cast<velLottie *>(Lottie(json))) << what;
    EXPECT_NE(nullptr, static_cast<velLottie *>(Lottie(dashed("<5>", "<4>"))));
}

}  // namespace
}  // namespace lacquer
