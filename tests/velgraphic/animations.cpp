// Lottie files by pieces.

#include "animations.h"

#include <cstdlib>

namespace lacquer {
namespace {

constexpr const char *kFill = "{'ty':'fl','c':<[1,0,0,1]>,'o':<100>,'r':1}";

std::string Transform(const std::string &position, const std::string &rotation = "<0>") {
    return "{'o':<90>,'r':" + rotation + ",'p':" + position + ",'a':<[0,0,0]>,'s':<[100,100,100]>}";
}

std::string Layer(int index, int type, const std::string &more, const std::string &transform) {
    return "{'ddd':0,'ind':" + std::to_string(index) + ",'ty':" + std::to_string(type) +
           ",'nm':'layer','sr':1,'ks':" + transform + ",'ao':0," + more + ",'ip':0,'op':60,'st':0,'bm':0}";
}

std::string Animated(const std::string &from, const std::string &to) {
    return "{'a':1,'k':[{'t':0,'s':" + from + ",'e':" + to +
           ",'i':{'x':[0.6],'y':[1]},'o':{'x':[0.4],'y':[0]}},{'t':60,'s':" + to + "}]}";
}

}  // namespace

bool ExpectsAnimations() { return !std::getenv("VELGRAPHIC_WITHOUT_ANIMATIONS"); }

std::string Json(const std::string &shorthand) {
    std::string json;
    for (const char c : shorthand) {
        json += c == '\'' ? "\"" : c == '<' ? R"({"a":0,"k":)" : c == '>' ? "}" : std::string(1, c);
    }
    return json;
}

std::string Group(const std::string &items, const std::string &position, const std::string &scale) {
    return Json("{'ty':'gr','it':[" + items + ",{'ty':'tr','p':<" + position + ">,'a':<[0,0]>,'s':<[" + scale + "," +
                scale + "]>,'r':<0>,'o':<100>}]}");
}

std::string RedSquare() { return Group(std::string("{'ty':'rc','d':1,'s':<[20,20]>,'p':<[20,20]>,'r':<0>},") + kFill); }

std::string Composition(const std::string &layers, const std::string &assets) {
    return Json("{'v':'5.5.2','fr':30,'ip':0,'op':10,'w':40,'h':40,'ddd':0,'assets':[" + assets + "],'layers':[" +
                layers + "]}");
}

std::string AnimationOf(const std::string &shapes, const std::string &transform) {
    return Composition("{'ddd':0,'ind':1,'ty':4,'sr':1,'ks':" + transform + ",'shapes':[" + shapes +
                       "],'ip':0,'op':10,'st':0}");
}

std::string RichAnimation() {
    const std::string fill = kFill;
    const std::string curve =
        "{'ty':'sh','ks':<{'i':[[0,0],[-5,-9],[4,0]],'o':[[5,0],[0,8],[-6,0]],"
        "'v':[[-18,-10],[16,-6],[2,15]],'c':true}>}";
    const std::string gradient =
        "{'ty':'gf','o':<100>,'r':1,'g':{'p':2,'k':<[0,1,0.9,0.1,1,0.9,0.1,0.2]>},"
        "'s':<[-20,0]>,'e':<[20,0]>,'t':1}";
    const std::string dashes =
        "{'ty':'st','c':<[0.1,0.3,0.8,1]>,'o':<100>,'w':<4>,'lc':2,'lj':2,"
        "'d':[{'n':'d','v':<9>},{'n':'g','v':<6>},{'n':'o','v':" +
        Animated("[0]", "[15]") + "}]}";
    const std::string star =
        "{'ty':'sr','sy':1,'d':1,'pt':<5>,'p':<[0,0]>,'r':<0>,'ir':<6>,'is':<0>,'or':<14>,"
        "'os':<0>}";
    const std::string ellipse = "{'ty':'el','d':1,'s':<[30,50]>,'p':<[0,0]>}";
    const std::string trim = "{'ty':'tm','s':<0>,'e':" + Animated("[20]", "[100]") + ",'o':<0>,'m':1}";
    const std::string repeater =
        "{'ty':'rp','c':<3>,'o':<0>,"
        "'tr':{'a':<[0,0]>,'p':<[12,0]>,'r':<10>,'s':<[90,90]>,'so':<100>,'eo':<40>}}";
    const std::string mask =
        "'hasMask':true,'masksProperties':[{'inv':false,'mode':'a','o':<100>,'pt':"
        "<{'i':[[0,0],[0,0],[0,0]],'o':[[0,0],[0,0],[0,0]],'v':[[0,0],[60,0],[30,50]],'c':true}>}],";
    const std::string inner = "'refId':'inner','w':60,'h':50";
    const auto shapes = [](const std::string &items) { return "'shapes':[" + items + "]"; };
    return Json("{'v':'5.5.2','fr':30,'ip':0,'op':60,'w':100,'h':80,'ddd':0,'assets':[{'id':'inner','layers':[" +
                Layer(1, 4, shapes(Group(curve + "," + gradient)), Transform("<[25,25,0]>", Animated("[0]", "[180]"))) +
                "," + Layer(2, 4, mask + shapes(Group(star + "," + fill) + "," + repeater), Transform("<[15,30,0]>")) +
                "]}],'layers':[" + Layer(1, 0, inner, Transform(Animated("[0,0,0]", "[40,20,0]"))) + "," +
                Layer(2, 0, "'parent':1," + inner, Transform("<[20,10,0]>")) + "," +
                Layer(3, 4, "'td':1," + shapes(Group(ellipse + "," + fill)), Transform("<[60,40,0]>")) + "," +
                Layer(4, 4, "'tt':1," + shapes(Group(star + "," + curve + "," + dashes)),
                      Transform("<[60,40,0]>", Animated("[0]", "[90]"))) +
                "," + Layer(5, 4, shapes(Group(curve + "," + trim + "," + dashes)), Transform("<[50,40,0]>")) + "]}");
}

}  // namespace lacquer
