// Lottie files by pieces.

#include "animations.h"

#include <cstdlib>

namespace lacquer {
namespace {

std::string Fixed(const std::string &value) { return R"({"a":0,"k":)" + value + "}"; }

std::string Transform(const std::string &position, const std::string &rotation) {
    return R"({"o":)" + Fixed("90") + R"(,"r":)" + rotation + R"(,"p":)" + position + R"(,"a":)" + Fixed("[0,0,0]") +
           R"(,"s":)" + Fixed("[100,100,100]") + "}";
}

std::string Layer(int index, int type, const std::string &more, const std::string &transform) {
    return R"({"ddd":0,"ind":)" + std::to_string(index) + R"(,"ty":)" + std::to_string(type) +
           R"(,"nm":"layer","sr":1,"ks":)" + transform + R"(,"ao":0,)" + more + R"(,"ip":0,"op":60,"st":0,"bm":0})";
}

std::string Animated(const std::string &from, const std::string &to) {
    return R"({"a":1,"k":[{"t":0,"s":)" + from + R"(,"e":)" + to +
           R"(,"i":{"x":[0.6],"y":[1]},"o":{"x":[0.4],"y":[0]}},{"t":60,"s":)" + to + "}]}";
}

const std::string kFill = R"({"ty":"fl","c":)" + Fixed("[1,0,0,1]") + R"(,"o":)" + Fixed("100") + R"(,"r":1})";

}  // namespace

bool ExpectsAnimations() { return !std::getenv("VELGRAPHIC_WITHOUT_ANIMATIONS"); }

std::string Group(const std::string &items) {
    return R"({"ty":"gr","it":[)" + items + R"(,{"ty":"tr","p":)" + Fixed("[0,0]") + R"(,"a":)" + Fixed("[0,0]") +
           R"(,"s":)" + Fixed("[100,100]") + R"(,"r":)" + Fixed("0") + R"(,"o":)" + Fixed("100") + "}]}";
}

std::string RedSquare() {
    return Group(R"({"ty":"rc","d":1,"s":)" + Fixed("[20,20]") + R"(,"p":)" + Fixed("[20,20]") + R"(,"r":)" +
                 Fixed("0") + "}," + kFill);
}

std::string Composition(const std::string &layers, const std::string &assets) {
    return R"({"v":"5.5.2","fr":30,"ip":0,"op":10,"w":40,"h":40,"ddd":0,"assets":[)" + assets + R"(],"layers":[)" +
           layers + "]}";
}

std::string AnimationOf(const std::string &shapes) {
    return Composition(R"({"ddd":0,"ind":1,"ty":4,"sr":1,"ks":{},"shapes":[)" + shapes + R"(],"ip":0,"op":10,"st":0})");
}

std::string RichAnimation() {
    const std::string curve =
        R"({"ty":"sh","ks":)" +
        Fixed(R"({"i":[[0,0],[-5,-9],[4,0]],"o":[[5,0],[0,8],[-6,0]],"v":[[-18,-10],[16,-6],[2,15]],"c":true})") + "}";
    const std::string gradient = R"({"ty":"gf","o":)" + Fixed("100") + R"(,"r":1,"g":{"p":2,"k":)" +
                                 Fixed("[0,1,0.9,0.1,1,0.9,0.1,0.2]") + R"(},"s":)" + Fixed("[-20,0]") + R"(,"e":)" +
                                 Fixed("[20,0]") + R"(,"t":1})";
    const std::string dashes = R"({"ty":"st","c":)" + Fixed("[0.1,0.3,0.8,1]") + R"(,"o":)" + Fixed("100") +
                               R"(,"w":)" + Fixed("4") + R"(,"lc":2,"lj":2,"d":[{"n":"d","v":)" + Fixed("9") +
                               R"(},{"n":"g","v":)" + Fixed("6") + R"(},{"n":"o","v":)" + Animated("[0]", "[15]") +
                               "}]}";
    const std::string star = R"({"ty":"sr","sy":1,"d":1,"pt":)" + Fixed("5") + R"(,"p":)" + Fixed("[0,0]") +
                             R"(,"r":)" + Fixed("0") + R"(,"ir":)" + Fixed("6") + R"(,"is":)" + Fixed("0") +
                             R"(,"or":)" + Fixed("14") + R"(,"os":)" + Fixed("0") + "}";
    const std::string trim = R"({"ty":"tm","s":)" + Fixed("0") + R"(,"e":)" + Animated("[20]", "[100]") + R"(,"o":)" +
                             Fixed("0") + R"(,"m":1})";
    const std::string repeater = R"({"ty":"rp","c":)" + Fixed("3") + R"(,"o":)" + Fixed("0") + R"(,"tr":{"a":)" +
                                 Fixed("[0,0]") + R"(,"p":)" + Fixed("[12,0]") + R"(,"r":)" + Fixed("10") + R"(,"s":)" +
                                 Fixed("[90,90]") + R"(,"so":)" + Fixed("100") + R"(,"eo":)" + Fixed("40") + "}}";
    const std::string mask =
        R"("hasMask":true,"masksProperties":[{"inv":false,"mode":"a","o":)" + Fixed("100") + R"(,"pt":)" +
        Fixed(R"({"i":[[0,0],[0,0],[0,0]],"o":[[0,0],[0,0],[0,0]],"v":[[0,0],[60,0],[30,50]],"c":true})") + "}],";
    const std::string still = Fixed("0");
    const std::string inner = Layer(1, 4, R"("shapes":[)" + Group(curve + "," + gradient) + "]",
                                    Transform(Fixed("[25,25,0]"), Animated("[0]", "[180]"))) +
                              "," +
                              Layer(2, 4, mask + R"("shapes":[)" + Group(star + "," + kFill) + "," + repeater + "]",
                                    Transform(Fixed("[15,30,0]"), still));
    const std::string outer =
        Layer(1, 0, R"("refId":"inner","w":60,"h":50)", Transform(Animated("[0,0,0]", "[40,20,0]"), still)) + "," +
        Layer(2, 0, R"("parent":1,"refId":"inner","w":60,"h":50)", Transform(Fixed("[20,10,0]"), still)) + "," +
        Layer(3, 4,
              R"("td":1,"shapes":[)" +
                  Group(R"({"ty":"el","d":1,"s":)" + Fixed("[30,50]") + R"(,"p":)" + Fixed("[0,0]") + "}," + kFill) +
                  "]",
              Transform(Fixed("[60,40,0]"), still)) +
        "," +
        Layer(4, 4, R"("tt":1,"shapes":[)" + Group(star + "," + curve + "," + dashes) + "]",
              Transform(Fixed("[60,40,0]"), Animated("[0]", "[90]"))) +
        "," +
        Layer(5, 4, R"("shapes":[)" + Group(curve + "," + trim + "," + dashes) + "]",
              Transform(Fixed("[50,40,0]"), still));
    return R"({"v":"5.5.2","fr":30,"ip":0,"op":60,"w":100,"h":80,"ddd":0,"assets":[{"id":"inner","layers":[)" + inner +
           R"(]}],"layers":[)" + outer + "]}";
}

}  // namespace lacquer
