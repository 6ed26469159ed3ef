// Reads the properties of a Lottie animation: what their values come to, at most, at any time.
#pragma once

#include <string_view>

#include "json.h"

namespace lacquer::vel {

/// No number of an animation is larger, either way.
inline constexpr double kMaxNumber = 1e6;

/// A transformation: how much it enlarges, and how far it moves.
struct Placement {
    double scale = 1, offset = 0;

    double operator()(double reach) const { return reach * scale + offset; }
};

class LottieReader {
public:
    /// The document has to stay as long as the reader.
    explicit LottieReader(const JsonDocument &document) : document_(document), overshoot_(Overshoot(document.Root())) {}

    const JsonDocument &Document() const { return document_; }

    /// How many times the larger of two keyframes' values an eased value of the animation can be.
    double Overshoot() const { return overshoot_; }

    bool HasType(const JsonNode &shape, std::string_view type) const;
    double NumberOr(const JsonNode &object, std::string_view name, double otherwise) const;

    /// Whether all numbers below a node are small enough to be reckoned with.
    bool HasSmallNumbers(const JsonNode &node) const;

    /// The largest value that a property gets, either way; 0 without the property.
    double LargestValue(const JsonNode *property) const;
    double LargestMember(const JsonNode &object, std::string_view name) const {
        return LargestValue(document_.Member(object, name));
    }

    /// The smallest value that a property's keyframes have, at most kMaxNumber.
    double LeastValue(const JsonNode &property) const;

    /// Whether eased values stay between those of the keyframes.
    bool EasesWithinBounds(const JsonNode &property) const { return Overshoot(property) == 1; }

    Placement PlacementOf(const JsonNode &transform) const;

private:
    /// Calls `use` with every number of a property's values; easing and timing are left out.
    template <class Use>
    void ForEachValue(const JsonNode &node, Use use) const;

    double Overshoot(const JsonNode &node) const;

    const JsonDocument &document_;
    double overshoot_;
};

}  // namespace lacquer::vel
