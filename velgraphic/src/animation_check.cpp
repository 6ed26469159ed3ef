// One walk through the text counts what the renderer would make of it; then compositions are multiplied by their uses.
// The counts are upper bounds: members that the renderer skips count as if it knew them.

#include "animation_check.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "json.h"

namespace lacquer::vel {
namespace {

// Beyond these an animation is refused. Work is in nanoseconds, very roughly, of preparing a frame.
constexpr double kMaxItems = 100'000, kMaxGathered = 4e6, kMaxWork = 5e8;
constexpr double kFreeBytes = 32 << 20, kBytesPerByte = 8;
constexpr int kMaxCompositionNesting = 32;
constexpr size_t kMaxDashes = 64;

// What the renderer keeps of an animation, in bytes, in each of two models.
constexpr double kLayerBytes = 2800, kShapeBytes = 1400, kObjectBytes = 128, kNumberBytes = 8;
/// What it keeps of each layer and shape that a use of a composition or a repeater makes, and of points in a frame.
constexpr double kItemBytes = 2000, kItemFrameBytes = 1000, kGatheredBytes = 64;

// What it takes to look at an object, to move a point, to search for a layer by its number, to follow the layers that
// one is attached to, and to look for a place on a curve that is not there.
constexpr double kObjectWork = 2, kMoveWork = 1.5, kSearchWork = 2, kMaxAttachments = 64, kLostWork = 4e6;
/// On longer curves places are not found either.
constexpr double kLongCurve = 1e5;

constexpr const char *kMalformed = "The animation is not well-formed JSON.";
constexpr const char *kShort = "Memory is short.";
constexpr const char *kTooLarge = "The animation would take too much memory.";
constexpr const char *kTooMany = "The animation has too many layers, shapes or points.";
constexpr const char *kTooSlow = "A frame of the animation would take too much time.";
constexpr const char *kEndless = "A composition of the animation contains itself, or is nested too deeply.";
constexpr const char *kOddName = "The name of a composition of the animation has escapes.";

bool Is(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// What a value of the text comes to.
struct Part {
    double objects = 0, numbers = 0, low = 0, high = 0;
    double items = 0;  ///< layers, shapes and masks
    double paths = 0, points = 0;
    double gathered = 0;  ///< points that paints and trims go through
    double moved = 0;     ///< the same, each as often as the renderer moves it while it gathers more paths
    double lost = 0;      ///< searches on curves that fail
    bool isSpatial = false, startsBackwards = false;

    // What an object is to the list that it is in.
    double gathers = 0;  ///< how often it goes through the points of the list
    double copies = 1;
    bool isAttached = false;

    void Add(const Part &other) {
        objects += other.objects;
        numbers += other.numbers;
        low = std::min(low, other.low);
        high = std::max(high, other.high);
        items += other.items;
        paths += other.paths;
        points += other.points;
        gathered += other.gathered;
        moved += other.moved;
        lost += other.lost;
        isSpatial |= other.isSpatial;
        startsBackwards |= other.startsBackwards;
    }
    bool IsLong() const { return !(std::max(high, -low) <= kLongCurve); }
};

/// A composition: the animation's own layers, or an asset with layers.
struct Composition {
    std::string_view id;
    size_t order = 0;
    double layers = 0, attached = 0, keyframes = 0;
    double items = 0, gathered = 0, work = 0;
    size_t firstUse = 0, useEnd = 0;
    int depth = 0;  ///< of the compositions inside, once they are counted
    bool isBeingCounted = false;
};

/// A layer that shows a composition.
struct Use {
    size_t user;  ///< the order of a composition
    std::string_view id;
};

class Walk {
public:
    Walk(char *json, size_t length, CheckedAnimation &result)
        : json_(json), length_(length), reader_(json, length), result_(result) {}

    void Run();

private:
    bool Refuse(const char *reason) {
        if (!result_.refusal) result_.refusal = reason;
        return false;
    }
    template <class Record>
    void Append(Buffer<Record> &records, const Record &record) {
        if (!records.Append(record)) Refuse(kShort);
    }
    void Spend(double bytes) {
        result_.bytes += bytes;
        if (result_.bytes > kFreeBytes + kBytesPerByte * static_cast<double>(length_)) Refuse(kTooLarge);
    }

    Part Value(std::string_view name);
    Part List(std::string_view name);
    Part Object(std::string_view name);
    Part Assets();
    double Dashes(size_t nameAt);
    void CloseComposition(const Part &part);

    void CountUses();
    bool Count(Composition &composition);

    char *const json_;
    const size_t length_;
    JsonReader reader_;
    CheckedAnimation &result_;
    Buffer<Composition> compositions_;
    Buffer<Use> uses_;
    Composition current_;
    size_t lastOrder_ = 0;
    double resolved_ = 0;
};

Part Walk::Value(std::string_view name) {
    if (result_.refusal) return {};
    switch (reader_.Kind()) {
        case JsonKind::Object: return Object(name);
        case JsonKind::Array: return List(name);
        case JsonKind::Number: {
            double number = 0;
            if (!reader_.Read(number)) Refuse(kMalformed);
            Spend(kNumberBytes);
            return {.numbers = 1, .low = std::min(number, 0.0), .high = std::max(number, 0.0)};
        }
        default: reader_.SkipScalar(); return {};
    }
}

/// A paint goes through the points of all shapes before it in its list, and a repeater repeats those.
Part Walk::List(std::string_view name) {
    const bool isLayers = name == "layers", isShapes = Is(name, {"shapes", "it"}), isMasks = name == "masksProperties";
    Part list;
    double count = 0, gathers = 0, copies = 1, attached = 0, mostNumbers = 0;
    reader_.Enter();
    for (; !result_.refusal && reader_.NextItem(); ++count) {
        const Part item = Value(isLayers ? "layer" : isShapes ? "shape" : isMasks ? "mask" : "");
        list.Add(item);
        gathers += item.gathers;
        copies *= item.copies;
        attached += item.isAttached;
        mostNumbers = std::max(mostNumbers, item.numbers);
    }
    if (name == "k" && list.objects > 0) {
        // Of keyframes one is looked at, and the next.
        list.numbers = mostNumbers;
        list.lost += list.isSpatial && (list.startsBackwards || list.IsLong());
        list.isSpatial = list.startsBackwards = false;
    }
    if (isLayers) {
        list.items += 3 * count;
        Spend(count * kLayerBytes);
        current_.layers += count;
        current_.attached += attached;
    } else if (isShapes || isMasks) {
        list.items += count;
        Spend(count * kShapeBytes);
    }
    if (isShapes) {
        if (gathers > 0 && list.IsLong()) list.lost += count;
        for (double *repeated : {&list.items, &list.paths, &list.points, &list.gathered, &list.moved})
            *repeated *= copies;
        list.gathered += gathers * list.points;
        list.moved += gathers * list.points * list.paths;
    }
    return list;
}

Part Walk::Object(std::string_view name) {
    const bool isEasing = Is(name, {"i", "o"});
    const size_t firstStroke = result_.strokes.Size();
    Part object{.objects = 1}, copies, corners;
    std::string_view member, type, text;
    double dashes = 0;
    reader_.Enter();
    Spend(kObjectBytes);
    while (!result_.refusal && reader_.NextMember(member)) {
        const JsonKind kind = reader_.Kind();
        const size_t memberAt = static_cast<size_t>(member.data() - json_), valueAt = reader_.At();
        Part part;
        if (kind == JsonKind::String) {
            if (!reader_.Read(text)) Refuse(kMalformed);
        } else if (name == "shape" && member == "d" && kind == JsonKind::Array) {
            dashes += Dashes(memberAt);
        } else {
            part = name == "animation" && member == "assets" ? Assets() : Value(member);
            text = {json_ + valueAt, reader_.At() - valueAt};
        }
        object.Add(part);
        if (name == (member == "id" ? "asset" : "layer") && Is(member, {"id", "refId"}) &&
            text.find('\\') != text.npos) {
            Refuse(kOddName);
        }
        if (name == "asset" && member == "id") current_.id = text;
        // The name of a picture's file, or the picture itself: an unknown member from now on.
        if (name == "asset" && member == "p") json_[memberAt] = '-';
        if (name == "layer") {
            if (member == "ty" && text == "2") json_[valueAt] = '3';  // a picture becomes a layer that shows nothing
            if (member == "refId") Append(uses_, {current_.order, text});
            if (member == "parent") object.isAttached = true;
            if (member == "ks") current_.keyframes = std::max(current_.keyframes, part.objects);
        }
        if (member == "ty") type = text;
        if (member == "c") copies = part;
        if (member == "pt") corners = part;
        object.isSpatial |= Is(member, {"to", "ti"});
        object.startsBackwards |= isEasing && member == "y" && part.low < 0;
    }
    if (isEasing) object.low = object.high = object.numbers = 0;
    if (name == "mask") object.points = object.gathered = object.numbers;
    if (name != "shape") return object;

    if (Is(type, {"sh", "sr", "el", "rc"})) ++object.paths;
    if (type == "sh") object.points += object.numbers / 2 + 4;
    if (type == "sr") object.points += 6 * std::min(1024.0, corners.high) + 20;
    if (Is(type, {"el", "rc"})) object.points += 20;
    if (Is(type, {"fl", "gf"})) object.gathers = 1;
    if (Is(type, {"st", "gs"})) object.gathers = 1 + dashes;
    if (type == "tm") object.gathers = 4;
    if (type == "rp") object.copies = 1 + copies.high;
    for (size_t i = firstStroke; i < result_.strokes.Size(); ++i) {
        size_t &end = result_.strokes.Data()[i].end;
        if (end == 0) end = reader_.At();
    }
    return object;
}

/// A stroke's pattern. Result: how many lengths it has.
double Walk::Dashes(size_t nameAt) {
    const size_t first = result_.lengths.Size();
    std::string_view name;
    reader_.Enter();
    while (!result_.refusal && reader_.NextItem()) {
        if (reader_.Kind() != JsonKind::Object) {
            Value("");
            continue;
        }
        reader_.Enter();
        Spend(kShapeBytes);
        while (!result_.refusal && reader_.NextMember(name)) {
            const bool isLength = name == "v" && reader_.Kind() == JsonKind::Object;
            const size_t at = reader_.At();
            Value(name);
            if (isLength) Append(result_.lengths, {at, reader_.At()});
        }
    }
    const size_t count = result_.lengths.Size() - first;
    if (count > kMaxDashes) Refuse(kTooMany);
    Append(result_.strokes, {nameAt, 0, first, count});
    return static_cast<double>(count);
}

Part Walk::Assets() {
    if (reader_.Kind() != JsonKind::Array) return Value("");
    const Composition own = current_;
    reader_.Enter();
    while (!result_.refusal && reader_.NextItem()) {
        current_ = {};
        current_.order = ++lastOrder_;
        Spend(sizeof(Composition));
        CloseComposition(Value("asset"));
    }
    current_ = own;
    return {};
}

void Walk::CloseComposition(const Part &part) {
    current_.items = part.items;
    current_.gathered = part.gathered;
    current_.work = kObjectWork * part.objects + kMoveWork * part.moved +
                    kLostWork * part.lost * (1 + current_.attached) +
                    current_.attached * (kSearchWork * current_.layers + kMaxAttachments * current_.keyframes);
    Append(compositions_, current_);
}

void Walk::CountUses() {
    const auto byId = [](const Composition &a, const Composition &b) {
        return a.id != b.id ? a.id < b.id : a.order < b.order;
    };
    std::sort(compositions_.Data(), compositions_.Data() + compositions_.Size(), byId);
    std::sort(uses_.Data(), uses_.Data() + uses_.Size(), [](const Use &a, const Use &b) { return a.user < b.user; });
    for (size_t i = 0; i < compositions_.Size(); ++i) {
        Composition &composition = compositions_.Data()[i];
        const auto [first, end] = std::equal_range(uses_.begin(), uses_.end(), Use{composition.order, {}},
                                                   [](const Use &a, const Use &b) { return a.user < b.user; });
        composition.firstUse = static_cast<size_t>(first - uses_.begin());
        composition.useEnd = static_cast<size_t>(end - uses_.begin());
    }
    for (size_t i = 0; i < compositions_.Size() && Count(compositions_.Data()[i]); ++i) {
        const Composition &composition = compositions_[i];
        if (composition.order > 0) continue;
        result_.bytes += kItemBytes * composition.items;
        result_.frameBytes = kItemFrameBytes * composition.items + kGatheredBytes * composition.gathered;
    }
}

/// Adds the compositions that one shows to its own counts.
bool Walk::Count(Composition &composition) {
    if (composition.depth > 0) return true;
    if (composition.isBeingCounted) return Refuse(kEndless);
    composition.isBeingCounted = true;
    int depth = 1;
    for (size_t i = composition.firstUse; i < composition.useEnd; ++i) {
        Composition *const end = compositions_.Data() + compositions_.Size();
        // Of two with one name the renderer takes the last.
        Composition *found =
            std::upper_bound(compositions_.Data(), end, uses_[i].id,
                             [](std::string_view id, const Composition &other) { return id < other.id; });
        if (found == compositions_.Data() || (--found)->id != uses_[i].id || found->order == 0) continue;
        if (!Count(*found)) return false;
        depth = std::max(depth, found->depth + 1);
        composition.items += found->items;
        composition.gathered += found->gathered;
        composition.work += found->work;
        // The renderer looks for the layer in all that it is to show.
        resolved_ += kObjectWork * found->items;
    }
    composition.depth = depth;
    if (depth > kMaxCompositionNesting) return Refuse(kEndless);
    if (!(composition.items <= kMaxItems && composition.gathered <= kMaxGathered)) return Refuse(kTooMany);
    return (composition.work <= kMaxWork && resolved_ <= kMaxWork) || Refuse(kTooSlow);
}

void Walk::Run() {
    const Part animation = Value("animation");
    if (!reader_.IsComplete()) Refuse(kMalformed);
    if (result_.refusal) return;
    CloseComposition(animation);
    CountUses();
    std::sort(result_.strokes.Data(), result_.strokes.Data() + result_.strokes.Size(),
              [](const DashedStroke &a, const DashedStroke &b) { return a.end < b.end; });
}

}  // namespace

void CheckAnimation(char *json, size_t length, CheckedAnimation &result) { Walk(json, length, result).Run(); }

}  // namespace lacquer::vel
