// Shapes, their outlines, and what repeaters, transformations and dashes make of them.

#include "shape_cost.h"

#include <cmath>

#include "lottie_keys.h"

namespace lacquer::vel {
namespace {

constexpr double kMaxCopies = 1000;
/// The renderer counts the points of an outline in 16 bits.
constexpr double kMaxPoints = 24'000, kPointsPerDash = 4;

/// A point of two numbers; what is missing is 0.
struct Vertex {
    double x = 0, y = 0;

    Vertex(const JsonDocument &document, const JsonNode &node) {
        const JsonNode *first = document.First(node), *second = first ? document.Next(*first) : nullptr;
        if (first) x = first->number;
        if (second) y = second->number;
    }
    double Length() const { return std::hypot(x, y); }
    double Distance(const Vertex &other) const { return std::hypot(other.x - x, other.y - y); }
};

/// The curve that a node with vertices and tangents is; nothing for others.
Cost CurveOf(const LottieReader &reader, const JsonNode &node) {
    const JsonDocument &document = reader.Document();
    const JsonNode *vertices = document.Member(node, key::kVertices);
    const JsonNode *in = document.Member(node, key::kInTangents), *out = document.Member(node, key::kOutTangents);
    if (!vertices || !in || !out) return {};
    Cost cost;
    // Twice the polygon is more than the polygon with its closing line.
    const JsonNode *previous = document.First(*vertices);
    for (const JsonNode *item = previous; item; previous = item, item = document.Next(*item)) {
        const Vertex vertex(document, *item);
        cost.length += 2 * Vertex(document, *previous).Distance(vertex);
        cost.points += 3;
        cost.reach = std::max(cost.reach, vertex.Length());
    }
    double longest = 0;
    for (const JsonNode *tangents : {in, out}) {
        for (const JsonNode *tangent = document.First(*tangents); tangent; tangent = document.Next(*tangent)) {
            const double length = Vertex(document, *tangent).Length();
            cost.length += 2 * length;
            longest = std::max(longest, length);
        }
    }
    cost.reach = reader.Overshoot() * (cost.reach + longest);
    return cost;
}

/// The largest of the curves below a node, outside groups: one after the other is a keyframe of the same shape.
Cost LargestCurve(const LottieReader &reader, const JsonNode &node) {
    const JsonDocument &document = reader.Document();
    Cost largest = CurveOf(reader, node);
    for (const JsonNode *item = document.First(node); item; item = document.Next(*item)) {
        if (document.Name(*item) == key::kItems) continue;
        const Cost inner = LargestCurve(reader, *item);
        largest.points = std::max(largest.points, inner.points);
        largest.length = std::max(largest.length, inner.length);
        largest.reach = std::max(largest.reach, inner.reach);
    }
    return largest;
}

bool AddShape(const LottieReader &reader, const JsonNode &shape, Cost &cost) {
    const JsonDocument &document = reader.Document();
    const auto largest = [&](std::string_view name) { return reader.LargestMember(shape, name); };
    Cost own{.shapes = 1};
    for (const JsonNode *member = document.First(shape); member; member = document.Next(*member)) {
        if (document.Name(*member) != key::kItems) continue;
        Cost inner;
        if (!AddShapes(reader, *member, inner)) return false;
        own.Add(inner);
    }
    const double position = 2 * largest(key::kPosition);
    if (reader.HasType(shape, shape_type::kStar)) {
        const double corners = 2 * std::max(3.0, largest(key::kStarPoints));
        const double radius = largest(key::kOuterRadius) + largest(key::kInnerRadius);
        const double bulge = 1 + (largest(key::kOuterRoundness) + largest(key::kInnerRoundness)) / 100;
        own.Add({0, 3 * corners, 4 * corners * radius * bulge, position + 2 * radius * bulge});
    } else if (reader.HasType(shape, shape_type::kEllipse) || reader.HasType(shape, shape_type::kRectangle)) {
        const double size = largest(key::kSize);
        own.Add({0, 20, 4 * size, position + size + largest(key::kRoundness)});
    }
    own.Add(LargestCurve(reader, shape));
    cost.Add(own);
    return true;
}

/// Adds how many dashes a stroke has per unit of length, at most; a solid one has none. Result: false for dashes that
/// can become negative.
bool AddDashes(const LottieReader &reader, const JsonNode &stroke, double &perLength) {
    const JsonDocument &document = reader.Document();
    for (const JsonNode *member = document.First(stroke); member; member = document.Next(*member)) {
        if (document.Name(*member) != key::kDashes || member->kind != JsonKind::Array) continue;
        double period = 0, longest = 0;
        int count = 0;
        for (const JsonNode *entry = document.First(*member); entry; entry = document.Next(*entry)) {
            const JsonNode *length = document.Member(*entry, key::kDashLength);
            const JsonNode *kind = document.Member(*entry, key::kDashKind);
            if (!length || (kind && document.Text(*kind) == kDashOffset)) continue;
            const double least = reader.LeastValue(*length);
            if (least < 0 || !reader.EasesWithinBounds(*length)) return false;
            longest = std::max(longest, reader.LargestValue(length));
            period += least;
            ++count;
        }
        if (longest > 0) perLength += count / std::max(period, 1e-9);
    }
    return true;
}

/// What a repeater makes of the transformation of the shapes before it: each copy is moved and scaled once more than
/// the one before.
Placement Repeated(const LottieReader &reader, const JsonNode &repeater, double count, const Placement &group) {
    const double steps = count + reader.LargestMember(repeater, key::kFirstCopy);
    const JsonNode *transform = reader.Document().Member(repeater, key::kTransformOfCopy);
    const Placement step = transform ? reader.PlacementOf(*transform) : Placement{};
    const double growth = std::pow(std::max(1.0, step.scale), steps);
    return {group.scale * growth, group.offset * growth + step.offset * std::max(1.0, steps) * growth};
}

}  // namespace

bool AddShapes(const LottieReader &reader, const JsonNode &list, Cost &cost) {
    const JsonDocument &document = reader.Document();
    if (list.kind != JsonKind::Array) return false;
    double copies = 1, dashesPerLength = 0, strokeReach = 0;
    Placement group;
    for (const JsonNode *shape = document.First(list); shape; shape = document.Next(*shape)) {
        if (shape->kind != JsonKind::Object || !AddShape(reader, *shape, cost)) return false;
        if (reader.HasType(*shape, shape_type::kRepeater)) {
            const double count = reader.LargestMember(*shape, key::kCopies);
            group = Repeated(reader, *shape, count, group);
            copies *= 1 + count;
        } else if (reader.HasType(*shape, shape_type::kTransform)) {
            const Placement placement = reader.PlacementOf(*shape);
            group = {group.scale * placement.scale, placement(group.offset)};
        } else {
            if (!AddDashes(reader, *shape, dashesPerLength)) return false;
            strokeReach = std::max(strokeReach, reader.LargestMember(*shape, key::kStrokeWidth) *
                                                    std::max(4.0, reader.LargestMember(*shape, key::kMiterLimit)));
        }
    }
    if (copies > kMaxCopies) return false;
    cost = {cost.shapes * copies, cost.points * copies, cost.length * copies * std::max(1.0, group.scale),
            group(cost.reach + strokeReach)};
    return cost.shapes <= kMaxShapes && cost.reach <= kMaxReach &&
           cost.points + kPointsPerDash * dashesPerLength * cost.length <= kMaxPoints;
}

}  // namespace lacquer::vel
