// Values, easing and transformations of a Lottie animation.

#include "lottie_reader.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "lottie_keys.h"

namespace lacquer::vel {

template <class Use>
void LottieReader::ForEachValue(const JsonNode &node, Use use) const {
    if (node.kind == JsonKind::Number) use(node.number);
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        const bool hasValues = std::find(std::begin(key::kNoValues), std::end(key::kNoValues), document_.Name(*item)) ==
                               std::end(key::kNoValues);
        if (hasValues) ForEachValue(*item, use);
    }
}

double LottieReader::LargestValue(const JsonNode *property) const {
    double largest = 0;
    if (property) ForEachValue(*property, [&](double value) { largest = std::max(largest, std::fabs(value)); });
    return largest * overshoot_;
}

double LottieReader::LeastValue(const JsonNode &property) const {
    double least = kMaxNumber;
    ForEachValue(property, [&](double number) { least = std::min(least, number); });
    return least;
}

double LottieReader::NumberOr(const JsonNode &object, std::string_view name, double otherwise) const {
    const JsonNode *member = document_.Member(object, name);
    return member && member->kind == JsonKind::Number ? member->number : otherwise;
}

bool LottieReader::HasType(const JsonNode &shape, std::string_view type) const {
    for (const JsonNode *member = document_.First(shape); member; member = document_.Next(*member)) {
        if (document_.Name(*member) == key::kType && document_.Text(*member) == type) return true;
    }
    return false;
}

bool LottieReader::HasSmallNumbers(const JsonNode &node) const {
    if (node.kind == JsonKind::Number) return std::fabs(node.number) <= kMaxNumber;
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        if (!HasSmallNumbers(*item)) return false;
    }
    return true;
}

/// A path between positions stays within twice its ends and tangents.
Placement LottieReader::PlacementOf(const JsonNode &transform) const {
    const JsonNode *size = document_.Member(transform, key::kScale);
    const double scale = size ? LargestValue(size) / 100 : 1;
    return {scale, 2 * LargestMember(transform, key::kPosition) + scale * LargestMember(transform, key::kAnchor)};
}

double LottieReader::Overshoot(const JsonNode &node) const {
    double most = 1;
    for (const JsonNode *item = document_.First(node); item; item = document_.Next(*item)) {
        const std::string_view name = document_.Name(*item);
        const bool isEase = name == key::kEaseIn || name == key::kEaseOut;
        if (const JsonNode *ease = isEase ? document_.Member(*item, key::kEasedValue) : nullptr) {
            ForEachValue(*ease, [&](double y) {
                if (y < 0 || y > 1) most = std::max(most, 1 + 2 * std::fabs(y));
            });
        }
        most = std::max(most, Overshoot(*item));
    }
    return most;
}

}  // namespace lacquer::vel
