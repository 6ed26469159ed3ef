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
constexpr double kMaxFrameRate = 1000;
constexpr double kMaxCopies = 1000;
constexpr double kMaxShapes = 100'000;
constexpr int kMaxCompositionNesting = 32;
// The renderer counts the points of an outline in 16 bits.
constexpr double kMaxPoints = 24'000;
constexpr double kPointsPerDash = 4;

/// What a list of shapes comes to: how many there are, and the outline that a stroke or fill behind them all gets.
struct Cost {
    double shapes = 0, points = 0, length = 0;
};

class Check {
public:
    explicit Check(const JsonDocument &document) : document_(document) {}

    bool Animation();

private:
    struct Asset {
        std::string_view id;
        const JsonNode *layers;
        double shapes;
        bool isBeingCounted, isCounted;
    };

    bool NumbersAreSmall(const JsonNode &node) const;
    bool CollectAssets(const JsonNode &assets);
    bool IdOf(const JsonNode &node, std::string_view &id) const;
    bool Layers(const JsonNode &layers, int nesting, double &shapes);
    bool Composition(Asset &asset, int nesting, double &shapes);
    bool Shapes(const JsonNode &list, Cost &cost) const;
    bool Shape(const JsonNode &shape, Cost &cost) const;
    double Dashes(const JsonNode &stroke, bool &isSafe) const;
    Cost Curves(const JsonNode &node) const;
    bool EasesWithinBounds(const JsonNode &node) const;

    bool IsType(const JsonNode &shape, std::string_view type) const;
    /// Calls `use` with every number of a property's values; easing and timing are left out.
    template <typename Use>
    void ForEachValue(const JsonNode &node, Use use) const;
    double LargestValue(const JsonNode &node) const;

    const JsonDocument &document_;
    Buffer<Asset> assets_;
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

double Check::LargestValue(const JsonNode &node) const {
    double largest = 0;
    ForEachValue(node, [&](double value) { largest = std::max(largest, std::fabs(value)); });
    return largest;
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

bool Check::Animation() {
    const JsonNode &root = document_.Root();
    const auto number = [&](std::string_view name, double low, double high) {
        const JsonNode *member = document_.Member(root, name);
        return member && member->kind == JsonKind::kNumber && member->number >= low && member->number <= high;
    };
    if (!number("w", 1, kMaxSide) || !number("h", 1, kMaxSide) || !number("ip", -kMaxFrames, kMaxFrames) ||
        !number("op", -kMaxFrames, kMaxFrames) || !number("fr", 0.001, kMaxFrameRate)) {
        return false;
    }
    double shapes = 0;
    for (const JsonNode *member = document_.First(root); member; member = document_.Next(*member)) {
        if (document_.Name(*member) == "assets" && !CollectAssets(*member)) return false;
    }
    bool hasLayers = false;
    for (const JsonNode *member = document_.First(root); member; member = document_.Next(*member)) {
        if (document_.Name(*member) != "layers") continue;
        hasLayers = true;
        if (!Layers(*member, 0, shapes)) return false;
    }
    return hasLayers && shapes <= kMaxShapes;
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
        Asset asset{{}, nullptr, 0, false, false};
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

bool Check::Composition(Asset &asset, int nesting, double &shapes) {
    if (asset.isBeingCounted || nesting > kMaxCompositionNesting) return false;
    if (!asset.isCounted) {
        asset.isBeingCounted = true;
        if (!Layers(*asset.layers, nesting, asset.shapes)) return false;
        asset.isBeingCounted = false;
        asset.isCounted = true;
    }
    shapes += asset.shapes;
    return true;
}

bool Check::Layers(const JsonNode &layers, int nesting, double &shapes) {
    if (layers.kind != JsonKind::kArray || !NumbersAreSmall(layers)) return false;
    for (const JsonNode *layer = document_.First(layers); layer; layer = document_.Next(*layer)) {
        if (layer->kind != JsonKind::kObject) return false;
        shapes += 1;
        for (const JsonNode *member = document_.First(*layer); member; member = document_.Next(*member)) {
            const std::string_view name = document_.Name(*member);
            if (name == "shapes" || name == "masksProperties") {
                Cost cost;
                if (!Shapes(*member, cost)) return false;
                shapes += cost.shapes;
            } else if (name == "refId") {
                std::string_view id;
                if (!IdOf(*member, id)) return false;
                for (size_t i = 0; i < assets_.Size(); ++i) {
                    Asset &asset = assets_.Data()[i];
                    if (asset.id == id && !Composition(asset, nesting + 1, shapes)) return false;
                }
            }
        }
        if (shapes > kMaxShapes) return false;
    }
    return true;
}

bool Check::Shapes(const JsonNode &list, Cost &cost) const {
    if (list.kind != JsonKind::kArray) return false;
    double copies = 1, scale = 1, dashesPerLength = 0;
    for (const JsonNode *shape = document_.First(list); shape; shape = document_.Next(*shape)) {
        if (shape->kind != JsonKind::kObject || !Shape(*shape, cost)) return false;
        if (IsType(*shape, "rp")) {
            const JsonNode *count = document_.Member(*shape, "c");
            copies *= 1 + (count ? LargestValue(*count) : 0);
        } else if (IsType(*shape, "tr")) {
            const JsonNode *size = document_.Member(*shape, "s");
            scale *= std::max(1.0, size ? LargestValue(*size) / 100 : 1);
        } else {
            bool isSafe = true;
            dashesPerLength += Dashes(*shape, isSafe);
            if (!isSafe) return false;
        }
    }
    if (copies > kMaxCopies) return false;
    cost = {cost.shapes * copies, cost.points * copies, cost.length * copies * scale};
    return cost.shapes <= kMaxShapes && cost.points + kPointsPerDash * dashesPerLength * cost.length <= kMaxPoints;
}

bool Check::Shape(const JsonNode &shape, Cost &cost) const {
    cost.shapes += 1;
    for (const JsonNode *member = document_.First(shape); member; member = document_.Next(*member)) {
        if (document_.Name(*member) != "it") continue;
        Cost inner;
        if (!Shapes(*member, inner)) return false;
        cost = {cost.shapes + inner.shapes, cost.points + inner.points, cost.length + inner.length};
    }
    if (IsType(shape, "sr")) {
        const JsonNode *count = document_.Member(shape, "pt");
        const double corners = 2 * std::max(3.0, count ? LargestValue(*count) : 0);
        cost.points += 3 * corners;
        cost.length += 2 * corners * LargestValue(shape);
    } else if (IsType(shape, "el") || IsType(shape, "rc")) {
        const JsonNode *size = document_.Member(shape, "s");
        cost.points += 20;
        cost.length += size ? 4 * LargestValue(*size) : 0;
    }
    const Cost curves = Curves(shape);
    cost.points += curves.points;
    cost.length += curves.length;
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
            longest = std::max(longest, LargestValue(*value));
            period += least;
            ++count;
        }
        if (longest > 0) perLength += count / std::max(period, 1e-9);
    }
    return perLength;
}

/// Whether eased values stay between those of the keyframes.
bool Check::EasesWithinBounds(const JsonNode &node) const {
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        if (document_.Name(*item) == "y") {
            bool isWithin = true;
            ForEachValue(*item, [&](double y) { isWithin = isWithin && y >= 0 && y <= 1; });
            if (!isWithin) return false;
        }
        if (!EasesWithinBounds(*item)) return false;
    }
    return true;
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
        }
        for (const JsonNode *tangents : {in, out}) {
            for (const JsonNode *tangent = document_.First(*tangents); tangent; tangent = document_.Next(*tangent)) {
                largest.length += 2 * distance(nullptr, *tangent);
            }
        }
    }
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        if (document_.Name(*item) == "it") continue;
        const Cost inner = Curves(*item);
        largest.points = std::max(largest.points, inner.points);
        largest.length = std::max(largest.length, inner.length);
    }
    return largest;
}

}  // namespace

bool AnimationIsSafe(std::string_view json) {
    JsonDocument document;
    return document.Parse(json) && document.Root().kind == JsonKind::kObject && Check(document).Animation();
}

}  // namespace lacquer::vel
