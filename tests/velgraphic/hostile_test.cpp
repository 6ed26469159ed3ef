// Animations made to take gigabytes or minutes: each is refused or drawn in little time and memory, in a process of its
// own. HOSTILE_ANIMATIONS in the environment says how many (90).

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "animations.h"
#include "painting.h"

namespace lacquer {
namespace {

constexpr double kMaxPages = 200;
// Sanitizers keep what is freed.
#ifdef LACQUER_HEAP_OF_SANITIZER
constexpr long kMaxKilobytes = 2'000'000;
#else
constexpr long kMaxKilobytes = 200'000;
#endif

/// Writes one of a family of animations by its seed.
class Hostile {
public:
    explicit Hostile(unsigned seed) : family_(seed % kFamilies), random_(seed) {}
    std::string Write();

private:
    static constexpr unsigned kFamilies = 9;

    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    /// Small amounts are as likely as large ones.
    int Amount(int most) {
        return 1 + static_cast<int>(std::pow(most, std::uniform_real_distribution<>(0, 1)(random_)));
    }
    std::string Number(int most) { return std::to_string(Below(2 * most) - most); }
    std::string Many(int count, const std::function<std::string(int)> &piece) {
        std::string all;
        for (int i = 0; i < count; ++i) all += (i ? "," : "") + piece(i);
        return all;
    }
    std::string Layer(const std::string &more, const std::string &opacity = "<100>") {
        return "{'ty':4,'sr':1,'ks':{'o':" + opacity + ",'s':<[" + std::to_string(Amount(300)) +
               ",100]>},'ip':0,'op':10," + more + "}";
    }
    std::string Shapes(const std::string &shapes) { return "'shapes':[" + shapes + "]"; }
    std::string Show(int composition, const std::string &more = "'bm':0") {
        return "'ty':0,'refId':'" + std::to_string(composition) + "','w':1000,'h':1000," + more;
    }
    std::string Assets(int count, const std::function<std::string(int)> &layers) {
        return Many(count, [&](int i) { return "{'id':'" + std::to_string(i) + "','layers':[" + layers(i) + "]}"; });
    }
    std::string Curve(int points, int size) {
        const auto vertices = [&](int reach) {
            return Many(points, [&](int) { return "[" + Number(reach) + "," + Number(reach) + "]"; });
        };
        const int bulge = Below(2) * size / 4 + 1;
        return "{'ty':'sh','ks':<{'i':[" + vertices(bulge) + "],'o':[" + vertices(bulge) + "],'v':[" + vertices(size) +
               "],'c':true}>}";
    }
    std::string Fill() {
        return Below(3) ? "{'ty':'fl','c':<[1,0,0]>,'o':<" + Number(100) + ">}"
                        : "{'ty':'gf','t':" + Number(3) +
                              ",'o':<90>,'s':<[0,0]>,'e':<[9,9]>,'g':{'p':2,'k':<[0,1,0,0,1,0,1,0]>}}";
    }
    std::string Stroke(int width) {
        std::string dashes =
            Many(Below(5), [&](int) { return "{'v':<" + std::to_string(Amount(1000) / 500.0 - 0.01) + ">}"; });
        return "{'ty':'st','c':<[0,0,1]>,'o':<100>,'w':<" + std::to_string(width) + ">,'lc':" + Number(3) +
               ",'lj':" + Number(3) + ",'ml':" + Number(50) + (Below(2) ? ",'d':[" + dashes + "]" : "") + "}";
    }

    const unsigned family_;
    std::mt19937 random_;
};

std::string Hostile::Write() {
    const int depth = Amount(40), width = Amount(12);
    const std::string square = Layer(Shapes("{'ty':'rc','s':<[900,900]>,'p':<[500,500]>}," + Fill()));
    std::string layers = Layer(Show(0)), assets;
    switch (family_) {
        case 0:  // mattes of mattes
            assets = Assets(depth, [&](int i) {
                const std::string inner = i + 1 < depth ? Layer(Show(i + 1)) : square;
                return Many(2 * (1 + width % 3), [&](int k) {
                    std::string layer = inner;
                    return k % 2 ? layer
                                 : layer.replace(layer.size() - 1, 1, ",'tt':" + std::to_string(1 + Below(4)) + "}");
                });
            });
            break;
        case 1:  // translucent layers in each other
            assets = Assets(depth, [&](int i) {
                return square + "," + (i + 1 < depth ? Layer(Show(i + 1), "<" + Number(101) + ">") : square);
            });
            break;
        case 2:  // compositions used several times, over and over
            assets = Assets(depth, [&](int i) {
                return Many(width, [&](int) { return i + 1 < depth ? Layer(Show(i + 1)) : square; });
            });
            break;
        case 3:  // thick strokes, long paths
            layers = Many(Amount(60), [&](int) {
                return Layer(
                    Shapes(Curve(Amount(4000), Amount(20000)) + "," + (Below(3) ? Stroke(Amount(5000)) : Fill())));
            });
            break;
        case 4:  // many assets, many uses
            assets = Assets(Amount(100'000), [&](int i) { return Below(2) ? Layer(Show(i + 1)) : square; });
            layers = Many(Amount(100'000), [&](int i) { return Layer(Show(i)); });
            break;
        case 5: {  // much of little
            const char *const pieces[] = {"0",      "[]",          "{}",     "'':0", "{'ks':{}}",
                                          "[[[]]]", "{'ty':'fl'}", "1.5e-9", "''"};
            const std::string piece = pieces[Below(9)];
            const char *const places[] = {"'x'", "'layers'", "'assets'", "'markers'", "'fonts'"};
            const bool isMember = piece.find(':') == 3;
            const std::string many = Many(Amount(12'000'000) / (Below(4) ? 8 : 1), [&](int) { return piece; });
            return Json("{'v':'5','fr':30,'ip':0,'op':9,'w':1000,'h':1000," + std::string(places[Below(5)]) + ":" +
                        (isMember ? "{" : "[") + many + (isMember ? "}" : "]") + ",'layers':[" + square + "]}");
        }
        case 6: {  // paints, trims and repeaters over many points
            const std::string shapes = Many(Amount(300), [&](int) { return Curve(Amount(300), 500); });
            const std::string repeater =
                "{'ty':'rp','c':<" + std::to_string(Amount(2000)) + ">,'o':<0>,'tr':{'p':<[3,1]>}}";
            const std::string trim =
                "{'ty':'tm','s':<" + Number(150) + ">,'e':<70>,'o':<0>,'m':" + std::to_string(1 + Below(2)) + "}";
            layers =
                Layer(Shapes(shapes + "," + Many(Amount(200), [&](int) {
                                 return Below(3) ? Fill() : Below(2) ? Stroke(Amount(30)) : Below(2) ? trim : repeater;
                             })));
            break;
        }
        case 7: {  // complicated masks before many shapes
            const std::string masks = Many(Amount(30), [&](int) {
                const std::string curve = Curve(Amount(3000), 1000);
                return "{'mode':'" + std::string(1, "asif"[Below(4)]) + "','o':<80>,'pt':" + curve.substr(16);
            });
            assets = Assets(1, [&](int) { return Many(Amount(2000), [&](int) { return square; }); });
            layers = Layer("'hasMask':true,'masksProperties':[" + masks + "]," + Show(0));
            break;
        }
        default: {  // layers attached to each other, with many keyframes on curves
            const std::string keys = Many(Amount(3000), [&](int i) {
                return "{'t':" + std::to_string(i % 12) + ",'s':[" + Number(1'000'000) +
                       ",0],'e':[9,9],'ti':[9,4],'to':[" + Number(500) +
                       ",0],'i':{'x':0.5,'y':1},'o':{'x':0.5,'y':" + Number(2) + "}}";
            });
            layers = Many(Amount(5000), [&](int i) {
                return "{'ty':4,'ind':" + std::to_string(i) + ",'parent':" + std::to_string(i ? Below(i) : 0) +
                       ",'ks':{'p':{'a':1,'k':[" + (i % 50 ? "" : keys) + "]}},'ip':0,'op':10,'shapes':[]}";
            });
        }
    }
    return Json("{'v':'5','fr':30,'ip':0,'op':10,'w':1000,'h':1000,'assets':[" + assets + "],'layers':[" + layers +
                "]}");
}

/// Loads and draws two frames. Result: whether any was drawn, for the process to end with.
int Play(const std::string &json) {
    Painting painting(1024, 1024);
    const lq::Lottie lottie = lq::Lottie::FromData(json);
    int drawn = 0;
    for (const float frame : {0.0f, 5.0f}) drawn |= velLottieDraw(painting, lottie, frame, 0, 0, 1024, 1024);
    return drawn;
}

TEST(VelHostileAnimations, TakeBoundedTimeAndMemory) {
    if (!ExpectsAnimations()) GTEST_SKIP() << "built without animations";
    const char *const wanted = std::getenv("HOSTILE_ANIMATIONS");
    const unsigned count = wanted ? static_cast<unsigned>(std::atoi(wanted)) : 90;
    unsigned played = 0;
    double longest = 0;
    long most = 0;
    const PageClock drawsThePageOnce;
    for (unsigned seed = 0; seed < count; ++seed) {
        int ends[2];
        ASSERT_EQ(0, pipe(ends));
        const pid_t child = fork();
        if (child == 0) {
            const std::string json = Hostile(seed).Write();
            rusage before{}, after{};
            getrusage(RUSAGE_SELF, &before);
            const PageClock clock;
            alarm(60);
            const int drawn = Play(json);
            const double pages = clock.Pages();
            getrusage(RUSAGE_SELF, &after);
            const double report[] = {1.0 * drawn, pages, static_cast<double>(after.ru_maxrss - before.ru_maxrss)};
            _exit(write(ends[1], report, sizeof report) == sizeof report ? 0 : 1);
        }
        close(ends[1]);
        double report[3] = {};
        int status = 0;
        const bool hasReport = read(ends[0], report, sizeof report) == sizeof report;
        close(ends[0]);
        waitpid(child, &status, 0);
        EXPECT_TRUE(hasReport && status == 0) << "seed " << seed;
        EXPECT_LE(report[1], kMaxPages) << "seed " << seed;
        EXPECT_LE(report[2], kMaxKilobytes) << "seed " << seed;
        played += report[0] > 0;
        longest = std::max(longest, report[1]);
        most = std::max(most, static_cast<long>(report[2]));
    }
    std::printf("%u of %u played, at most %.0f pages and %ld kB\n", played, count, longest, most);
    EXPECT_GT(played, count / 5);
}

}  // namespace
}  // namespace lacquer
