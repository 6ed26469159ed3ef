// Estimates what rendering an animation costs, from above, without rendering it.

#include "animation_check.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <new>

#include "buffer.h"
#include "json.h"

namespace lacquer::vel {
namespace {

constexpr double kMaxNumber = 1e6;
constexpr double kMaxSide = 32767;
constexpr double kMaxFrames = 1e6;
constexpr double kMinFrameRate = 0.001, kMaxFrameRate = 1000;
constexpr double kMaxReach = 1e9;
constexpr double kAnyDirection = 1.5;  // a little more than the diagonal of a square
constexpr double kMaxCopies = 1000;
constexpr double kMaxShapes = 100'000;
constexpr int kMaxCompositionNesting = 32;
constexpr int kMaxAttachments = 64;  // the renderer follows no more
// The renderer counts the points of an outline in 16 bits.
constexpr double kMaxPoints = 24'000;
constexpr double kPointsPerDash = 4;

/// What shapes come to, at most: how many there are, the outline that a stroke or fill behind them all gets, and how
/// far from the origin they reach with their strokes.
struct Cost {
    double shapes = 0, points = 0, length = 0, reach = 0;

    void Add(const Cost &other) {
        *this = {shapes + other.shapes, points + other.points, length + other.length, std::max(reach, other.reach)};
    }
};

/// A transformation: how much it enlarges, and how far it moves.
struct Placement {
    double scale = 1, offset = 0;

    double operator()(double reach) const { return reach * scale + offset; }
};

/// A layer's transformation, and the index of the layer that it is attached to.
struct Attachment {
    double index, parent;
    Placement placement;
};

class Check {
public:
    explicit Check(const JsonDocument &document) : document_(document) {}

    /// The reach of all layers; negative when the animation is refused.
    double Animation();

private:
    struct Asset {
        std::string_view id;
        const JsonNode *layers;
        Cost cost;
        bool isBeingCounted, isCounted;
    };

    bool NumbersAreSmall(const JsonNode &node) const;
    bool CollectAssets(const JsonNode &assets);
    bool IdOf(const JsonNode &node, std::string_view &id) const;
    bool Layers(const JsonNode &layers, int nesting, Cost &cost);
    bool Layer(const JsonNode &layer, int nesting, Cost &cost);
    bool Attach(const JsonNode &layers, Buffer<Attachment> &attachments) const;
    bool Composition(Asset &asset, int nesting, Cost &cost);
    bool Shapes(const JsonNode &list, Cost &cost) const;
    bool Shape(const JsonNode &shape, Cost &cost) const;
    double Dashes(const JsonNode &stroke, bool &isSafe) const;
    Cost Curves(const JsonNode &node) const;
    Placement PlacementOf(const JsonNode &transform) const;
    bool EasesWithinBounds(const JsonNode &node) const;
    double Overshoot(const JsonNode &node) const;

    bool IsType(const JsonNode &shape, std::string_view type) const;
    /// Calls `use` with every number of a property's values; easing and timing are left out.
    template <typename Use>
    void ForEachValue(const JsonNode &node, Use use) const;
    /// The largest that a property gets, either way; 0 without the property.
    double LargestValue(const JsonNode *property) const;
    double LargestMember(const JsonNode &object, std::string_view name) const {
        return LargestValue(document_.Member(object, name));
    }
    double NumberOr(const JsonNode &object, std::string_view name, double otherwise) const;

    const JsonDocument &document_;
    Buffer<Asset> assets_;
    double overshoot_ = 1;
};

template <typename Use>
void Check::ForEachValue(const JsonNode &node, Use use) const {
    if (node.kind == JsonKind::kNumber) use(node.number);
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        const std::string_view name = document_.Name(*item);
        if (name == "t" || name == "i" || name == "o" || name == "a" || name == "ix" || name == "h") continue;
        ForEachValue(*item, use);
    }
}

double Check::LargestValue(const JsonNode *property) const {
    double largest = 0;
    if (property) ForEachValue(*property, [&](double value) { largest = std::max(largest, std::fabs(value)); });
    return largest * overshoot_;
}

double Check::NumberOr(const JsonNode &object, std::string_view name, double otherwise) const {
    const JsonNode *member = document_.Member(object, name);
    return member && member->kind == JsonKind::kNumber ? member->number : otherwise;
}

bool Check::IsType(const JsonNode &shape, std::string_view type) const {
    for (const JsonNode *member = document_.First(shape); member; member = document_.Next(*member)) {
        if (document_.Name(*member) == "ty" && document_.Text(*member) == type) return true;
    }
    return false;
}

bool Check::NumbersAreSmall(const JsonNode &node) const {
    if (node.kind == JsonKind::kNumber) return std::fabs(node.number) <= kMaxNumber;
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        if (!NumbersAreSmall(*item)) return false;
    }
    return true;
}

double Check::Animation() {
    constexpr double kRefused = -1;
    const JsonNode &root = document_.Root();
    const auto isBetween = [&](std::string_view name, double low, double high) {
        const double number = NumberOr(root, name, low - 1);
        return number >= low && number <= high;
    };
    if (!isBetween("w", 1, kMaxSide) || !isBetween("h", 1, kMaxSide) || !isBetween("ip", -kMaxFrames, kMaxFrames) ||
        !isBetween("op", -kMaxFrames, kMaxFrames) || !isBetween("fr", kMinFrameRate, kMaxFrameRate)) {
        return kRefused;
    }
    overshoot_ = Overshoot(root);
    for (const JsonNode *member = document_.First(root); member; member = document_.Next(*member)) {
        if (document_.Name(*member) == "assets" && !CollectAssets(*member)) return kRefused;
    }
    Cost cost;
    bool hasLayers = false;
    for (const JsonNode *member = document_.First(root); member; member = document_.Next(*member)) {
        if (document_.Name(*member) != "layers") continue;
        hasLayers = true;
        if (!Layers(*member, 0, cost)) return kRefused;
    }
    return hasLayers ? cost.reach * kAnyDirection : kRefused;
}

bool Check::IdOf(const JsonNode &node, std::string_view &id) const {
    id = document_.Text(node);
    return (node.kind == JsonKind::kString || node.kind == JsonKind::kNumber) &&
           id.find('\\') == std::string_view::npos;
}

bool Check::CollectAssets(const JsonNode &assets) {
    if (assets.kind != JsonKind::kArray) return false;
    for (const JsonNode *item = document_.First(assets); item; item = document_.Next(*item)) {
        if (item->kind != JsonKind::kObject) return false;
        // A name or a folder of a picture's file, or the picture itself.
        if (document_.Member(*item, "p") || document_.Member(*item, "u")) return false;
        Asset asset{{}, nullptr, {}, false, false};
        for (const JsonNode *member = document_.First(*item); member; member = document_.Next(*member)) {
            const std::string_view name = document_.Name(*member);
            if (name == "id" && (!asset.id.empty() || !IdOf(*member, asset.id))) return false;
            if (name != "layers") continue;
            if (asset.layers) return false;
            asset.layers = member;
        }
        if (asset.layers && !assets_.Append(asset)) return false;
    }
    return true;
}

bool Check::Composition(Asset &asset, int nesting, Cost &cost) {
    if (asset.isBeingCounted || nesting > kMaxCompositionNesting) return false;
    if (!asset.isCounted) {
        asset.isBeingCounted = true;
        if (!Layers(*asset.layers, nesting, asset.cost)) return false;
        asset.isBeingCounted = false;
        asset.isCounted = true;
    }
    cost.Add(asset.cost);
    return true;
}

/// Lists the layers' transformations, by their indices.
bool Check::Attach(const JsonNode &layers, Buffer<Attachment> &attachments) const {
    for (const JsonNode *layer = document_.First(layers); layer; layer = document_.Next(*layer)) {
        const JsonNode *transform = document_.Member(*layer, "ks");
        if (!attachments.Append({NumberOr(*layer, "ind", -1), NumberOr(*layer, "parent", -1),
                                 transform ? PlacementOf(*transform) : Placement{}})) {
            return false;
        }
    }
    std::sort(attachments.Data(), attachments.Data() + attachments.Size(),
              [](const Attachment &a, const Attachment &b) { return a.index < b.index; });
    return true;
}

bool Check::Layers(const JsonNode &layers, int nesting, Cost &cost) {
    Buffer<Attachment> attachments;
    if (layers.kind != JsonKind::kArray || !NumbersAreSmall(layers) || !Attach(layers, attachments)) return false;
    for (const JsonNode *layer = document_.First(layers); layer; layer = document_.Next(*layer)) {
        if (layer->kind != JsonKind::kObject) return false;
        Cost own{.shapes = 1};
        if (!Layer(*layer, nesting, own)) return false;
        if (const JsonNode *transform = document_.Member(*layer, "ks")) own.reach = PlacementOf(*transform)(own.reach);
        double parent = NumberOr(*layer, "parent", -1);
        for (int i = 0; i < kMaxAttachments && parent >= 0; ++i) {
            const Attachment *found =
                std::lower_bound(attachments.begin(), attachments.end(), parent,
                                 [](const Attachment &attachment, double index) { return attachment.index < index; });
            if (found == attachments.end() || found->index != parent) break;
            own.reach = found->placement(own.reach);
            parent = found->parent;
        }
        cost.Add(own);
        if (cost.shapes > kMaxShapes || !(cost.reach <= kMaxReach)) return false;
    }
    return true;
}

bool Check::Layer(const JsonNode &layer, int nesting, Cost &cost) {
    for (const JsonNode *member = document_.First(layer); member; member = document_.Next(*member)) {
        const std::string_view name = document_.Name(*member);
        if (name == "shapes" || name == "masksProperties") {
            Cost inner;
            if (!Shapes(*member, inner)) return false;
            cost.Add(inner);
        } else if (name == "refId") {
            std::string_view id;
            if (!IdOf(*member, id)) return false;
            for (size_t i = 0; i < assets_.Size(); ++i) {
                Asset &asset = assets_.Data()[i];
                if (asset.id == id && !Composition(asset, nesting + 1, cost)) return false;
            }
        }
    }
    return true;
}

/// A path between positions stays within twice its ends and tangents.
Placement Check::PlacementOf(const JsonNode &transform) const {
    const JsonNode *size = document_.Member(transform, "s");
    const double scale = size ? LargestValue(size) / 100 : 1;
    return {scale, 2 * LargestMember(transform, "p") + scale * LargestMember(transform, "a")};
}

bool Check::Shapes(const JsonNode &list, Cost &cost) const {
    if (list.kind != JsonKind::kArray) return false;
    double copies = 1, dashesPerLength = 0, strokeReach = 0;
    Placement group;
    for (const JsonNode *shape = document_.First(list); shape; shape = document_.Next(*shape)) {
        if (shape->kind != JsonKind::kObject || !Shape(*shape, cost)) return false;
        if (IsType(*shape, "rp")) {
            // Each copy is moved and scaled once more than the one before.
            const double count = LargestMember(*shape, "c");
            const double steps = count + LargestMember(*shape, "o");
            const JsonNode *transform = document_.Member(*shape, "tr");
            const Placement step = transform ? PlacementOf(*transform) : Placement{};
            const double growth = std::pow(std::max(1.0, step.scale), steps);
            group = {group.scale * growth, group.offset * growth + step.offset * std::max(1.0, steps) * growth};
            copies *= 1 + count;
        } else if (IsType(*shape, "tr")) {
            const Placement placement = PlacementOf(*shape);
            group = {group.scale * placement.scale, placement(group.offset)};
        } else {
            bool isSafe = true;
            dashesPerLength += Dashes(*shape, isSafe);
            if (!isSafe) return false;
            strokeReach =
                std::max(strokeReach, LargestMember(*shape, "w") * std::max(4.0, LargestMember(*shape, "ml")));
        }
    }
    if (copies > kMaxCopies) return false;
    cost = {cost.shapes * copies, cost.points * copies, cost.length * copies * std::max(1.0, group.scale),
            group(cost.reach + strokeReach)};
    return cost.shapes <= kMaxShapes && cost.reach <= kMaxReach &&
           cost.points + kPointsPerDash * dashesPerLength * cost.length <= kMaxPoints;
}

bool Check::Shape(const JsonNode &shape, Cost &cost) const {
    Cost own{.shapes = 1};
    for (const JsonNode *member = document_.First(shape); member; member = document_.Next(*member)) {
        if (document_.Name(*member) != "it") continue;
        Cost inner;
        if (!Shapes(*member, inner)) return false;
        own.Add(inner);
    }
    const double position = 2 * LargestMember(shape, "p");
    if (IsType(shape, "sr")) {
        const double corners = 2 * std::max(3.0, LargestMember(shape, "pt"));
        const double radius = LargestMember(shape, "or") + LargestMember(shape, "ir");
        const double bulge = 1 + (LargestMember(shape, "os") + LargestMember(shape, "is")) / 100;
        own.Add({0, 3 * corners, 4 * corners * radius * bulge, position + 2 * radius * bulge});
    } else if (IsType(shape, "el") || IsType(shape, "rc")) {
        const double size = LargestMember(shape, "s");
        own.Add({0, 20, 4 * size, position + size + LargestMember(shape, "r")});
    }
    own.Add(Curves(shape));
    cost.Add(own);
    return true;
}

/// How many dashes a stroke has per unit of length, at most; 0 when it is solid. A dash array's last value is the
/// offset.
double Check::Dashes(const JsonNode &stroke, bool &isSafe) const {
    double perLength = 0;
    for (const JsonNode *member = document_.First(stroke); member; member = document_.Next(*member)) {
        if (document_.Name(*member) != "d" || member->kind != JsonKind::kArray) continue;
        double period = 0, longest = 0;
        int count = 0;
        for (const JsonNode *entry = document_.First(*member); entry; entry = document_.Next(*entry)) {
            const JsonNode *value = document_.Member(*entry, "v");
            const JsonNode *kind = document_.Member(*entry, "n");
            if (!value || (kind && document_.Text(*kind) == "o")) continue;
            double least = kMaxNumber;
            ForEachValue(*value, [&](double number) { least = std::min(least, number); });
            isSafe = isSafe && least >= 0 && EasesWithinBounds(*value);
            longest = std::max(longest, LargestValue(value));
            period += least;
            ++count;
        }
        if (longest > 0) perLength += count / std::max(period, 1e-9);
    }
    return perLength;
}

/// Whether eased values stay between those of the keyframes.
bool Check::EasesWithinBounds(const JsonNode &node) const { return Overshoot(node) == 1; }

/// How many times the larger of two keyframes' values an eased value can be.
double Check::Overshoot(const JsonNode &node) const {
    double most = 1;
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        const std::string_view name = document_.Name(*item);
        const JsonNode *ease = name == "i" || name == "o" ? document_.Member(*item, "y") : nullptr;
        if (ease) {
            ForEachValue(*ease, [&](double y) {
                if (y < 0 || y > 1) most = std::max(most, 1 + 2 * std::fabs(y));
            });
        }
        most = std::max(most, Overshoot(*item));
    }
    return most;
}

/// The largest of the curves (objects with the arrays v, i and o) below a node, outside groups: one after the other is
/// a keyframe of the same shape.
Cost Check::Curves(const JsonNode &node) const {
    Cost largest;
    const auto distance = [&](const JsonNode *from, const JsonNode &to) {
        const auto axis = [&](const JsonNode *point, bool second) {
            const JsonNode *number = point ? document_.First(*point) : nullptr;
            if (number && second) number = document_.Next(*number);
            return number ? number->number : 0;
        };
        return std::hypot(axis(&to, false) - axis(from, false), axis(&to, true) - axis(from, true));
    };
    const JsonNode *vertices = document_.Member(node, "v");
    const JsonNode *in = document_.Member(node, "i"), *out = document_.Member(node, "o");
    if (vertices && in && out) {
        // Twice the polygon is more than the polygon with its closing line.
        const JsonNode *previous = document_.First(*vertices);
        for (const JsonNode *vertex = previous; vertex; previous = vertex, vertex = document_.Next(*vertex)) {
            largest.length += 2 * distance(previous, *vertex);
            largest.points += 3;
            largest.reach = std::max(largest.reach, distance(nullptr, *vertex));
        }
        double longest = 0;
        for (const JsonNode *tangents : {in, out}) {
            for (const JsonNode *tangent = document_.First(*tangents); tangent; tangent = document_.Next(*tangent)) {
                const double tangentLength = distance(nullptr, *tangent);
                largest.length += 2 * tangentLength;
                longest = std::max(longest, tangentLength);
            }
        }
        largest.reach = overshoot_ * (largest.reach + longest);
    }
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        if (document_.Name(*item) == "it") continue;
        const Cost inner = Curves(*item);
        largest.points = std::max(largest.points, inner.points);
        largest.length = std::max(largest.length, inner.length);
        largest.reach = std::max(largest.reach, inner.reach);
    }
    return largest;
}

}  // namespace

double ReachOfAnimation(std::string_view json) {
    JsonDocument document;
    if (!document.Parse(json) || document.Root().kind != JsonKind::kObject) return -1;
    return Check(document).Animation();
}

}  // namespace lacquer::vel
