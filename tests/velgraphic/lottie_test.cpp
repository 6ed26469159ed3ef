// Animations: what is told about them, which frame is drawn and how, and what is refused. Pictures of frames are in the
// gallery, and the fuzzer damages animations.

#include <gtest/gtest.h>
#include <velgraphic/velgraphic.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <thread>

#include "animations.h"
#include "painting.h"

namespace lacquer {
namespace {

/// A triangle's outline.
std::string Outlined(const std::string &width, const std::string &scale, const std::string &position) {
    return Group(
        "{'ty':'sh','ks':<{'i':[[0,0],[0,0],[0,0]],'o':[[0,0],[0,0],[0,0]],"
        "'v':[[-9,-7],[8,-3],[1,6]],'c':true}>},{'ty':'st','c':<[0,0,1,1]>,'o':<100>,'w':<" +
            width + ">,'lc':2,'lj':2}",
        position, scale);
}

/// Each test has to be over in moments.
class VelLottieTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(ExpectsAnimations(), static_cast<bool>(square_));
        if (!square_) GTEST_SKIP() << "built without animations";
    }
    void TearDown() override { EXPECT_FALSE(clock_.IsLong()); }

    const lq::Lottie square_ = lq::Lottie::FromData(AnimationOf(RedSquare()));
    const PageClock clock_;
};

TEST_F(VelLottieTest, TellsAboutAnimationsAndTakesTheNearestFrame) {
    const lq::Lottie lottie =
        lq::Lottie::FromData(AnimationOf(RedSquare(),
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
}

TEST_F(VelLottieTest, DrawsAtFullResolutionWhateverReachesFar) {
    const std::string star =
        Group("{'ty':'sr','sy':1,'pt':<9>,'p':<[20,20]>,'r':<7>,'ir':<4>,'is':<0>,'or':<19>,'os':<0>}," +
              std::string("{'ty':'fl','c':<[0,0,1]>,'o':<100>}"));
    const auto drawn = [&](const std::string &shapes, int size) {
        Painting painting(size, size);
        EXPECT_EQ(1, velLottieDraw(painting, lq::Lottie::FromData(AnimationOf(shapes)), 0, 0, 0,
                                   static_cast<float>(size), static_cast<float>(size)))
            << shapes;
        return painting.Pixels();
    };
    // Curves may be longer than straight lines.
    const std::string distant[] = {Group(RedSquare(), "[9000,0]", "20000"), Outlined("9", "100", "[-99999,0]"),
                                   Outlined("3000", "100", "[2500,0]"), Outlined("0.1", "99999", "[20,20]")};
    for (const std::string &shape : distant) {
        for (const int size : {32, 200}) EXPECT_EQ(drawn(star, size), drawn(star + "," + shape, size)) << shape;
    }
    // What the renderer cannot hold is there all the same, only less sharp.
    for (const int scale : {100, 1000, 3000, 20000}) {
        const std::string place = std::to_string(-20 * scale);
        const std::vector<uint32_t> pixels =
            drawn(Group(RedSquare(), "[" + place + "," + place + "]", std::to_string(100 * scale)), 40);
        EXPECT_EQ(1600, std::count(pixels.begin(), pixels.end(), 0xFFFF0000u)) << scale;
    }
}

TEST_F(VelLottieTest, LeavesPicturesOut) {
    // One opaque pixel.
    const std::string picture =
        "'p':'data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhf"
        "DwAChwGA60e6kgAAAABJRU5ErkJggg==','e':1,'u':''";
    const std::string layers =
        "{'ty':2,'refId':'missing','ks':{},'ip':0,'op':10},"
        "{'ty':2,'refId':'a','ks':{},'ip':0,'op':10},{'ty':4,'ks':{},'ip':0,'op':10,'shapes':[" +
        RedSquare() + "]}";
    Painting painting(40, 40);
    EXPECT_EQ(1, velLottieDraw(painting,
                               lq::Lottie::FromData(Composition(layers, "{'id':'a','w':40,'h':40," + picture + "}")), 0,
                               0, 0, 40, 40));
    ExpectBox(painting, {10, 10, 30, 30});
}

TEST_F(VelLottieTest, ReadsFiles) {
    EXPECT_EQ(nullptr, velLottieCreateFromData(nullptr, 10));
    for (const char *missing :
         {static_cast<const char *>(nullptr), "velgraphic_\xC3\xA4nimation.json", ".", "", "\xFF\xFE"}) {
        EXPECT_EQ(nullptr, velLottieCreateFromFile(missing));
    }
    // By way of its own bytes the name is another one on Windows, so this file's name is plain.
    const char *const plain = "velgraphic_animation.json";
    std::ofstream(plain, std::ios::binary) << AnimationOf(RedSquare());
    const lq::Lottie lottie(velLottieCreateFromFile(plain));
    velLottieInfo info{};
    EXPECT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(10.0f, info.frameCount);
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
        {"copies side by side",
         AnimationOf(Group(RedSquare() + repeated(10000)) + "," + Group(RedSquare() + repeated(10000)))},
        {"nested copies", AnimationOf(Group(Group(RedSquare() + repeated(900)) + repeated(900)))},
        {"contains itself, spelt otherwise", Composition("", asset("a", "{'ty':0,'re\\u0066Id':'a','ks':{}}"))},
        {"contains itself", Composition(use("a"), asset("a", use("b")) + "," + asset("b", use("a")))},
    };
    const std::pair<const char *, std::vector<const char *>> kReplacements[] = {
        {"'fr':30,", {"'fr':030,", "'fr':30.,", "'fr':1e999,", "'fr':NaN,", "'fr':30,,", "fr:30,"}},
        {"'v':'5", {"'v':'\\x5", "'v':'\n5", "'v':'\\u0000", "'\\u00776':'5"}},
        {"'v':'5.5.2',", {""}},
        {"'op':10", {"'op':1e9", "'op':-10"}},
        {"'w':40", {"'w':0", "'w':-3"}},
        {"'h':40,", {"'h':40000,", "'h':'40',", ""}},
        {"'layers':[", {"'lawyers':[", "'layers':3,'x':["}},
    };
    for (const auto &[piece, others] : kReplacements) {
        for (const char *other : others) {
            std::string json = valid;
            refused.emplace_back(other, json.replace(json.find(Json(piece)), std::string(piece).size(), Json(other)));
        }
    }
    for (size_t length = 0; length < valid.size(); ++length) refused.emplace_back("cut off", valid.substr(0, length));
    for (const auto &[what, json] : refused) {
        EXPECT_FALSE(lq::Lottie::FromData(json)) << what;
        EXPECT_STRNE("", velLottieLastError());
    }
}

TEST_F(VelLottieTest, RefusesFramesOfEndlessDashes) {
    const std::pair<const char *, int> kDashes[] = {{"<5>", 1},
                                                    {"<0.0001>", 0},
                                                    {"<0>", 0},
                                                    {"<-9>", 0},
                                                    {"{'a':1,'k':[{'t':0,'s':[9],'e':[2],'i':{'x':0.5,'y':4},"
                                                     "'o':{'x':0.5,'y':0}},{'t':9}]}",
                                                     0}};
    for (const auto &[dash, result] : kDashes) {
        const lq::Lottie lottie = lq::Lottie::FromData(
            AnimationOf(Group("{'ty':'el','d':1,'s':<[90,90]>,'p':<[20,20]>},"
                              "{'ty':'st','c':<[0,0,0,1]>,'o':<100>,'w':<2>,'d':[{'n':'d','v':" +
                              std::string(dash) + "},{'n':'g','v':<0.0001>},{'n':'o','v':<-1>}]}")));
        Painting painting(40, 40);
        EXPECT_EQ(result, velLottieDraw(painting, lottie, 6, 0, 0, 40, 40)) << dash;
    }
    std::thread([] { EXPECT_STREQ("", velLottieLastError()) << "of another thread"; }).join();
    EXPECT_STREQ("The frame has a dash of a negative length.", velLottieLastError());
}

}  // namespace
}  // namespace lacquer
