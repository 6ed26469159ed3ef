// Animations: what is told about them, how frames are drawn, and what is refused.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdio>

#include "animations.h"
#include "painting.h"

namespace lacquer {
namespace {

velLottie *Load(const std::string &json) { return velLottieCreateFromData(json.data(), json.size()); }

void ExpectNoAnimation(const std::string &json, const std::string &what) {
    velLottie *lottie = Load(json);
    EXPECT_EQ(nullptr, lottie) << what;
    velLottieDestroy(lottie);
}

class VelLottieTest : public testing::Test {
protected:
    void SetUp() override {
        square_ = Load(AnimationOf(RedSquare()));
        ASSERT_EQ(ExpectsAnimations(), square_ != nullptr);
        if (!square_) GTEST_SKIP() << "built without animations";
    }
    void TearDown() override { velLottieDestroy(square_); }

    velLottie *square_ = nullptr;
};

TEST_F(VelLottieTest, TellsAboutAnimations) {
    velLottie *lottie = Load(RichAnimation());
    velLottieInfo info{};
    ASSERT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(100, info.width);
    EXPECT_EQ(80, info.height);
    EXPECT_EQ(60.0f, info.frameCount);
    EXPECT_EQ(30.0f, info.frameRate);
    EXPECT_EQ(0, velLottieGetInfo(lottie, nullptr));
    EXPECT_EQ(1, velLottieDestroy(lottie));
}

TEST_F(VelLottieTest, StretchesFramesIntoTheRectangle) {
    Painting painting(80, 60);
    EXPECT_EQ(1, velLottieDraw(painting, square_, 0, 0, 0, 80, 40));
    const RECT box = painting.Box();
    EXPECT_EQ(20, box.left);
    EXPECT_EQ(10, box.top);
    EXPECT_EQ(60, box.right);
    EXPECT_EQ(30, box.bottom);
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
    velLottie *lottie = Load(RichAnimation());
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
    velLottieDestroy(lottie);
}

TEST_F(VelLottieTest, PicturesAgreeWithTheReference) {
    velLottie *lottie = Load(RichAnimation());
    Painting painting(200, 80, 0xFFFFFFFF);
    for (int i = 0; i < 4; ++i) {
        const float x = static_cast<float>(i % 2) * 100, y = static_cast<float>(i / 2) * 40;
        EXPECT_EQ(1, velLottieDraw(painting, lottie, static_cast<float>(i * 17), x, y, 100, 40));
    }
    ExpectLikeReference(painting, "lottie", 2);
    velLottieDestroy(lottie);
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
        return AnimationOf(
            R"({"ty":"gr","it":[{"ty":"sh","ks":{"a":0,"k":{"i":[[0,0],[0,0],[0,0]],"o":[[0,0],[0,0],[0,0]],)"
            R"("v":[[-9,-7],[8,-3],[1,6]],"c":true}}},{"ty":"st","c":{"a":0,"k":[0,0,1,1]},"o":{"a":0,"k":100},"w":{"a":0,"k":)" +
            width + R"(},"lc":2,"lj":2},{"ty":"tr","p":{"a":0,"k":[20,20]},"a":{"a":0,"k":[0,0]},"s":{"a":0,"k":[)" +
            scale + "," + scale + R"(]},"r":{"a":0,"k":0},"o":{"a":0,"k":100}}]})");
    };
    const auto started = std::chrono::steady_clock::now();
    for (const char *width : {"40", "4000", "16000", "32000", "60000", "900000"}) {
        for (const char *scale : {"100", "10000", "900000"}) {
            velLottie *lottie = Load(line(width, scale));
            Painting painting;
            if (lottie) {
                EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, 0, 0, 32, 32));
                EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, -900, -900, 3000, 1500));
            }
            velLottieDestroy(lottie);
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20));
    velLottie *wide = Load(line("40", "10000"));
    Painting covered;
    EXPECT_EQ(1, velLottieDraw(covered, wide, 0, 0, 0, 32, 32));
    EXPECT_EQ(32.0 * 32, covered.Area());
    velLottieDestroy(wide);
    // An ordinary one keeps its full size.
    velLottie *lottie = Load(line("4", "100"));
    Painting painting(400, 400);
    EXPECT_EQ(1, velLottieDraw(painting, lottie, 0, 0, 0, 400, 400));
    int partly = 0;
    for (const uint32_t pixel : painting.Pixels()) partly += pixel != 0 && pixel >> 24 != 255;
    EXPECT_LT(partly, 1600) << "edges are not sharp";
    velLottieDestroy(lottie);
}

TEST_F(VelLottieTest, ReadsFiles) {
    const char *const path = "velgraphic_\xC3\xA4nimation.json";
    EXPECT_EQ(nullptr, velLottieCreateFromFile(path));
    EXPECT_EQ(nullptr, velLottieCreateFromFile("."));
    EXPECT_EQ(nullptr, velLottieCreateFromFile(""));
    EXPECT_EQ(nullptr, velLottieCreateFromFile("\xFF\xFE"));
    // By way of its own bytes the name is another one on Windows, so this file's name is plain.
    const char *const plain = "velgraphic_animation.json";
    std::FILE *file = std::fopen(plain, "wb");
    ASSERT_NE(nullptr, file);
    const std::string json = AnimationOf(RedSquare());
    std::fwrite(json.data(), 1, json.size(), file);
    std::fclose(file);
    velLottie *lottie = velLottieCreateFromFile(plain);
    velLottieInfo info{};
    EXPECT_EQ(1, velLottieGetInfo(lottie, &info));
    EXPECT_EQ(10.0f, info.frameCount);
    EXPECT_EQ(1, velLottieDestroy(lottie));
    std::remove(plain);
}

TEST_F(VelLottieTest, RefusesTextThatIsNoJson) {
    const std::string valid = AnimationOf(RedSquare());
    for (size_t length = 0; length < valid.size(); ++length) {
        ExpectNoAnimation(valid.substr(0, length), "cut off after " + std::to_string(length));
    }
    ExpectNoAnimation(valid + "x", "more after the end");
    ExpectNoAnimation(valid + std::string(1, '\0'), "a zero after the end");
    const struct {
        const char *find, *put;
    } kFaults[] = {{"\"fr\":30", "\"fr\":030"},     {"\"fr\":30", "\"fr\":30."}, {"\"fr\":30", "\"fr\":1e999"},
                   {"\"fr\":30", "\"fr\":NaN"},     {"\"fr\":30", "\"fr\":+30"}, {"\"v\":\"5", "\"v\":\"\\x5"},
                   {"\"v\":\"5", "\"v\":\"\n5"},    {"\"fr\":30", "\"fr\":30,"}, {"\"fr\"", "fr"},
                   {"\"v\":\"5", "\"\\u0076\":\"5"}};
    for (const auto &[find, put] : kFaults) {
        std::string json = valid;
        json.replace(json.find(find), std::string(find).size(), put);
        ExpectNoAnimation(json, put);
    }
}

TEST_F(VelLottieTest, RefusesAnimationsThatMakeNoSense) {
    const std::string valid = AnimationOf(RedSquare());
    const struct {
        const char *find, *put;
    } kFaults[] = {{"\"w\":40", "\"w\":0"},
                   {"\"w\":40", "\"w\":-3"},
                   {"\"h\":40", "\"h\":40000"},
                   {"\"h\":40", "\"h\":\"40\""},
                   {"\"h\":40,", ""},
                   {"\"fr\":30", "\"fr\":0"},
                   {"\"fr\":30", "\"fr\":-1"},
                   {"\"fr\":30", "\"fr\":[30]"},
                   {"\"op\":10", "\"op\":1e9"},
                   {"\"op\":10", "\"op\":-10"},
                   {"\"v\":\"5.5.2\",", ""},
                   {"\"layers\"", "\"lawyers\""},
                   {"\"layers\":[", "\"layers\":3,\"x\":["},
                   {"[20,20]", "[1e30,20]"}};
    for (const auto &[find, put] : kFaults) {
        std::string json = valid;
        json.replace(json.find(find), std::string(find).size(), put);
        ExpectNoAnimation(json, put);
    }
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
    const std::string square = RedSquare();
    const auto repeated = [&](const std::string &copies) {
        return R"({"ty":"rp","c":{"a":0,"k":)" + copies + R"(},"o":{"a":0,"k":0},"tr":{}})";
    };
    ExpectNoAnimation(AnimationOf(square + "," + repeated("100000")), "copies");
    ExpectNoAnimation(AnimationOf(square + "," + repeated("300") + "," + repeated("300")), "copies of copies");
    ExpectNoAnimation(AnimationOf(Group(Group(square + "," + repeated("900")) + "," + repeated("900"))),
                      "nested copies");

    const auto use = [](const std::string &id) {
        return R"({"ddd":0,"ty":0,"refId":")" + id + R"(","sr":1,"ks":{},"w":40,"h":40,"ip":0,"op":10,"st":0})";
    };
    const auto asset = [](const std::string &id, const std::string &layers) {
        return R"({"id":")" + id + R"(","layers":[)" + layers + "]}";
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
    for (const char *image : {R"({"id":"a","w":9,"h":9,"u":"/etc/","p":"passwd","e":0})",
                              R"({"id":"a","w":9,"h":9,"p":"data:image/png;base64,AAAA","e":1})"}) {
        ExpectNoAnimation(Composition(use("a"), image), "picture");
    }

    const auto dashed = [](const std::string &dash, const std::string &gap) {
        return AnimationOf(Group(
            R"({"ty":"el","d":1,"s":{"a":0,"k":[900,900]},"p":{"a":0,"k":[20,20]}},{"ty":"st","c":{"a":0,"k":[0,0,0,1]},)"
            R"("o":{"a":0,"k":100},"w":{"a":0,"k":2},"d":[{"n":"d","v":)" +
            dash + R"(},{"n":"g","v":)" + gap + R"(},{"n":"o","v":{"a":0,"k":0}}]})"));
    };
    const auto fixed = [](const std::string &value) { return R"({"a":0,"k":)" + value + "}"; };
    ExpectNoAnimation(dashed(fixed("0.01"), fixed("0.01")), "tiny dashes");
    ExpectNoAnimation(dashed(fixed("-5"), fixed("4")), "negative dashes");
    ExpectNoAnimation(
        dashed(R"({"a":1,"k":[{"t":0,"s":[9],"e":[2],"i":{"x":[0.5],"y":[1]},"o":{"x":[0.5],"y":[-9]}},{"t":9}]})",
               fixed("4")),
        "dashes that become negative in between");
    velLottie *reasonable = Load(dashed(fixed("5"), fixed("4")));
    EXPECT_NE(nullptr, reasonable);
    velLottieDestroy(reasonable);
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(20));
}

}  // namespace
}  // namespace lacquer
