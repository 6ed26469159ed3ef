// Animations: what is told about them, how frames are drawn, and what is refused.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>

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

void ExpectNoAnimation(const std::string &json, const std::string &what) {
    EXPECT_EQ(nullptr, static_cast<velLottie *>(Lottie(json))) << what;
}

class VelLottieTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(ExpectsAnimations(), square_ != nullptr);
        if (!square_) GTEST_SKIP() << "built without animations";
    }

    const Lottie square_{AnimationOf(RedSquare())};
};

TEST_F(VelLottieTest, TellsAboutAnimations) {
    const Lottie lottie(RichAnimation());
    velLottieInfo info{};
    ASSERT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(100, info.width);
    EXPECT_EQ(80, info.height);
    EXPECT_EQ(60.0f, info.frameCount);
    EXPECT_EQ(30.0f, info.frameRate);
    EXPECT_EQ(0, velLottieGetInfo(lottie, nullptr));
}

TEST_F(VelLottieTest, StretchesFramesIntoTheRectangle) {
    Painting painting(80, 60);
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 0, 0, 80, 40));
    ExpectBox(painting, {20, 10, 60, 30});
    EXPECT_EQ(0xFFFF0000u, painting.At(40, 20));
    EXPECT_NEAR(800, painting.Area(), 4);
}

TEST_F(VelLottieTest, HonoursClipTranslationOpacityAndBlendMode) {
    Painting painting(40, 40, 0xFF0000FF);
    EXPECT_EQ(1, velCanvasClipRect(painting, 0, 0, 20, 40));
    EXPECT_EQ(1, velCanvasTranslate(painting, 3.4f, -2.4f));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 128));
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 0, 0, 40, 40));
    EXPECT_EQ(0xFF0000FFu, painting.At(12, 20));
    EXPECT_EQ(0xFF0000FFu, painting.At(20, 20));
    for (const auto &[x, y] : {std::pair{13, 8}, std::pair{19, 27}}) {
        EXPECT_NEAR(128, painting.At(x, y) >> 16 & 0xFF, 2);
        EXPECT_NEAR(127, painting.At(x, y) & 0xFF, 2);
    }
    EXPECT_EQ(1, velCanvasSetBlendMode(painting, VEL_BLEND_CLEAR));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 255));
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 4, 4, 4, 4));
    EXPECT_EQ(0u, painting.At(8, 2));
    EXPECT_EQ(0xFF0000FFu, painting.At(12, 2));
}

TEST_F(VelLottieTest, TakesTheNearestFrame) {
    const Lottie lottie(RichAnimation());
    const auto draw = [&](float frame) {
        Painting painting(50, 40);
        EXPECT_EQ(1, velLottieDraw(painting, lottie, frame, 0, 0, 50, 40));
        return painting.Pixels();
    };
    const auto first = draw(0), middle = draw(30), last = draw(59);
    EXPECT_NE(first, middle);
    EXPECT_NE(middle, last);
    EXPECT_EQ(first, draw(-7));
    EXPECT_EQ(first, draw(0.99f));
    EXPECT_EQ(last, draw(60));
    EXPECT_EQ(last, draw(1e30f));
    EXPECT_EQ(middle, draw(30.5f));
}

TEST_F(VelLottieTest, PicturesAgreeWithTheReference) {
    const Lottie lottie(RichAnimation());
    Painting painting(200, 80, 0xFFFFFFFF);
    for (int i = 0; i < 4; ++i) {
        const float x = static_cast<float>(i % 2) * 100, y = static_cast<float>(i / 2) * 40;
        EXPECT_EQ(1, velLottieDraw(painting, lottie, static_cast<float>(i * 17), x, y, 100, 40));
    }
    ExpectLikeReference(painting, "lottie", 2);
}

TEST_F(VelLottieTest, DrawsAtAnySizeInBoundedMemory) {
    Painting painting(64, 64);
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, -16000, -16000, 32767, 32767));
    EXPECT_EQ(64.0 * 64, painting.Area());
    painting.Fill(0);
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 5, 5, 0, 20));
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 500, 5, 20, 20));
    EXPECT_TRUE(painting.IsEmpty());
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 5, 5, 1, 1));
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 5, 9, 32767, 1));
    EXPECT_EQ(0, velLottieDraw(painting, square_, 0, 5, 9, 32768, 1));
    EXPECT_EQ(0, velLottieDraw(painting, square_, 0, 5, 9, 1, -1));
    for (int i = 0; i < 5; ++i) {
        float arguments[] = {0, 1, 1, 20, 20};
        for (const float bad : {NAN, INFINITY, -INFINITY}) {
            arguments[i] = bad;
            ExpectRefused("argument " + std::to_string(i), [&](velCanvas *canvas) {
                return velLottieDraw(canvas, square_, arguments[0], arguments[1], arguments[2], arguments[3],
                                     arguments[4]);
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
    const auto started = std::chrono::steady_clock::now();
    for (const char *width : {"40", "4000", "16000", "32000", "60000", "900000"}) {
        for (const char *scale : {"100", "10000", "900000"}) {
            const Lottie lottie = line(width, scale);
            Painting painting;
            if (!lottie) continue;
            EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, 0, 0, 32, 32));
            EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, -900, -900, 3000, 1500));
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20));
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

/// Nothing is an animation that has one of `others` in place of a piece of one.
void ExpectNoneWith(const std::string &piece, std::initializer_list<const char *> others) {
    for (const char *other : others) {
        std::string json = AnimationOf(RedSquare());
        json.replace(json.find(Json(piece)), piece.size(), Json(other));
        ExpectNoAnimation(json, other);
    }
}

TEST_F(VelLottieTest, RefusesTextThatIsNoJson) {
    const std::string valid = AnimationOf(RedSquare());
    for (size_t length = 0; length < valid.size(); ++length) {
        ExpectNoAnimation(valid.substr(0, length), "cut off after " + std::to_string(length));
    }
    ExpectNoAnimation(valid + "x", "more after the end");
    ExpectNoAnimation(valid + std::string(1, '\0'), "a zero after the end");
    ExpectNoneWith("'fr':30,",
                   {"'fr':030,", "'fr':30.,", "'fr':1e999,", "'fr':NaN,", "'fr':+30,", "'fr':30,,", "fr:30,"});
    ExpectNoneWith("'v':'5", {"'v':'\\x5", "'v':'\n5", "'\\u0076':'5"});
}

TEST_F(VelLottieTest, RefusesAnimationsThatMakeNoSense) {
    ExpectNoneWith("'v':'5.5.2',", {""});
    ExpectNoneWith("'fr':30", {"'fr':0", "'fr':-1", "'fr':[30]"});
    ExpectNoneWith("'op':10", {"'op':1e9", "'op':-10"});
    ExpectNoneWith("'w':40", {"'w':0", "'w':-3"});
    ExpectNoneWith("'h':40,", {"'h':40000,", "'h':'40',", ""});
    ExpectNoneWith("'layers':[", {"'lawyers':[", "'layers':3,'x':["});
    ExpectNoneWith("[20,20]", {"[1e30,20]"});
    for (const char *json : {"", " ", "{}", "[]", "null", "3", "\"animation\"", "{\"v\":\"5\"}", "[[[["}) {
        ExpectNoAnimation(json, json);
    }
    ExpectNoAnimation(std::string(100000, '['), "nested arrays");
    std::string nested = RedSquare();
    for (int i = 0; i < 200; ++i) nested = Group(nested);
    ExpectNoAnimation(AnimationOf(nested), "nested groups");
}

TEST_F(VelLottieTest, RefusesAnimationsThatWouldTakeForEver) {
    const auto started = std::chrono::steady_clock::now();
    const std::string square = RedSquare() + ",";
    const auto repeated = [](int copies) { return "{'ty':'rp','c':<" + std::to_string(copies) + ">,'o':<0>,'tr':{}}"; };
    ExpectNoAnimation(AnimationOf(square + repeated(100000)), "copies");
    ExpectNoAnimation(AnimationOf(square + repeated(300) + "," + repeated(300)), "copies of copies");
    ExpectNoAnimation(AnimationOf(Group(Group(square + repeated(900)) + "," + repeated(900))), "nested copies");

    const auto use = [](const std::string &id) {
        return "{'ddd':0,'ty':0,'refId':'" + id + "','sr':1,'ks':{},'w':40,'h':40,'ip':0,'op':10,'st':0}";
    };
    const auto asset = [](const std::string &id, const std::string &layers) {
        return "{'id':'" + id + "','layers':[" + layers + "]}";
    };
    ExpectNoAnimation(Composition(use("a"), asset("a", use("a"))), "contains itself");
    ExpectNoAnimation(Composition(use("a"), asset("a", use("b")) + "," + asset("b", use("a"))), "contain each other");
    std::string assets = asset("0", use("none"));
    for (int i = 1; i < 8; ++i) {
        std::string layers = use(std::to_string(i - 1));
        for (int k = 0; k < 9; ++k) layers.append(",").append(use(std::to_string(i - 1)));
        assets.append(",").append(asset(std::to_string(i), layers));
    }
    ExpectNoAnimation(Composition(use("7"), assets), "ten to the eighth");
    for (const char *image : {"{'id':'a','w':9,'h':9,'u':'/etc/','p':'passwd','e':0}",
                              "{'id':'a','w':9,'h':9,'p':'data:image/png;base64,AAAA','e':1}"}) {
        ExpectNoAnimation(Composition(use("a"), image), "picture");
    }

    const auto dashed = [](const std::string &dash, const std::string &gap) {
        return AnimationOf(
            Group("{'ty':'el','d':1,'s':<[900,900]>,'p':<[20,20]>},{'ty':'st','c':<[0,0,0,1]>,'o':<100>,"
                  "'w':<2>,'d':[{'n':'d','v':" +
                  dash + "},{'n':'g','v':" + gap + "},{'n':'o','v':<0>}]}"));
    };
    ExpectNoAnimation(dashed("<0.01>", "<0.01>"), "tiny dashes");
    ExpectNoAnimation(dashed("<-5>", "<4>"), "negative dashes");
    ExpectNoAnimation(
        dashed("{'a':1,'k':[{'t':0,'s':[9],'e':[2],'i':{'x':[0.5],'y':[1]},'o':{'x':[0.5],'y':[-9]}},{'t':9}]}", "<4>"),
        "dashes that become negative in between");
    EXPECT_NE(nullptr, static_cast<velLottie *>(Lottie(dashed("<5>", "<4>"))));
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20));
}

}  // namespace
}  // namespace lacquer
