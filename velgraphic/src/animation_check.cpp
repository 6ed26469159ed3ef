// Layers and compositions: what rendering an animation costs, estimated from above, without rendering it.

#include "animation_check.h"

#include <algorithm>

#include "buffer.h"
#include "geometry.h"
#include "lottie_keys.h"
#include "shape_cost.h"

namespace lacquer::vel {
namespace {

constexpr double kMaxFrames = 1e6;
constexpr double kMinFrameRate = 0.001, kMaxFrameRate = 1000;
constexpr double kAnyDirection = 1.5;  ///< a little more than the diagonal of a square
constexpr double kRefused = -1, kNoLayer = -1;
constexpr int kMaxCompositionNesting = 32;
constexpr int kMaxAttachments = 64;  ///< the renderer follows no more

/// A layer's transformation, and the index of the layer that it is attached to.
struct Attachment {
    double index, parent;
    Placement placement;
};

/// Reads the name of an asset. Result: false when it is none, or has an escape.
bool ReadId(const JsonDocument &document, const JsonNode &node, std::string_view &id) {
    id = document.Text(node);
    return (node.kind == JsonKind::String || node.kind == JsonKind::Number) && id.find('\\') == std::string_view::npos;
}

/// The transformations of a composition's layers.
class Attachments {
public:
    /// Result: false when memory is short.
    bool Collect(const LottieReader &reader, const JsonNode &layers) {
        const JsonDocument &document = reader.Document();
        for (const JsonNode *layer = document.First(layers); layer; layer = document.Next(*layer)) {
            const JsonNode *transform = document.Member(*layer, key::kTransformOfLayer);
            if (!byIndex_.Append({reader.NumberOr(*layer, key::kIndex, kNoLayer),
                                  reader.NumberOr(*layer, key::kParent, kNoLayer),
                                  transform ? reader.PlacementOf(*transform) : Placement{}})) {
                return false;
            }
        }
        std::sort(byIndex_.Data(), byIndex_.Data() + byIndex_.Size(),
                  [](const Attachment &a, const Attachment &b) { return a.index < b.index; });
        return true;
    }

    /// The reach of a layer with this parent, in the composition.
    double Placed(double reach, double parent) const {
        for (int i = 0; i < kMaxAttachments && parent >= 0; ++i) {
            const Attachment *found =
                std::lower_bound(byIndex_.begin(), byIndex_.end(), parent,
                                 [](const Attachment &attachment, double index) { return attachment.index < index; });
            if (found == byIndex_.end() || found->index != parent) break;
            reach = found->placement(reach);
            parent = found->parent;
        }
        return reach;
    }

private:
    Buffer<Attachment> byIndex_;
};

/// Adds up the costs of one animation. What can be refused gives false.
class AnimationCheck {
public:
    explicit AnimationCheck(const JsonDocument &document) : document_(document), reader_(document) {}

    /// The reach of all layers; negative when the animation is refused.
    double FindReach();

private:
    /// A composition that layers may show, with its cost once it is known.
    struct Asset {
        std::string_view id;
        const JsonNode *layers;
        Cost cost;
        bool isBeingCounted, isCounted;
    };

    bool HasSaneFrames() const;
    bool CollectAssets(const JsonNode &assets);
    bool AddLayers(const JsonNode &layers, int nesting, Cost &cost);
    bool AddContents(const JsonNode &layer, int nesting, Cost &cost);
    bool AddAssets(const JsonNode &name, int nesting, Cost &cost);
    bool AddAsset(Asset &asset, int nesting, Cost &cost);

    const JsonDocument &document_;
    const LottieReader reader_;
    Buffer<Asset> assets_;
};

bool AnimationCheck::HasSaneFrames() const {
    const auto isBetween = [&](std::string_view name, double low, double high) {
        const double number = reader_.NumberOr(document_.Root(), name, low - 1);
        return number >= low && number <= high;
    };
    return isBetween(key::kWidth, 1, kMaxSize) && isBetween(key::kHeight, 1, kMaxSize) &&
           isBetween(key::kFirstFrame, -kMaxFrames, kMaxFrames) && isBetween(key::kEndFrame, -kMaxFrames, kMaxFrames) &&
           isBetween(key::kFrameRate, kMinFrameRate, kMaxFrameRate);
}

double AnimationCheck::FindReach() {
    const JsonNode &root = document_.Root();
    if (!HasSaneFrames()) return kRefused;
    for (const JsonNode *member = document_.First(root); member; member = document_.Next(*member)) {
        if (document_.Name(*member) == key::kAssets && !CollectAssets(*member)) return kRefused;
    }
    Cost cost;
    bool hasLayers = false;
    for (const JsonNode *member = document_.First(root); member; member = document_.Next(*member)) {
        if (document_.Name(*member) != key::kLayers) continue;
        hasLayers = true;
        if (!AddLayers(*member, 0, cost)) return kRefused;
    }
    return hasLayers ? cost.reach * kAnyDirection : kRefused;
}

bool AnimationCheck::CollectAssets(const JsonNode &assets) {
    if (assets.kind != JsonKind::Array) return false;
    for (const JsonNode *item = document_.First(assets); item; item = document_.Next(*item)) {
        if (item->kind != JsonKind::Object) return false;
        // A name or a folder of a picture's file, or the picture itself.
        if (document_.Member(*item, key::kPictureFile) || document_.Member(*item, key::kPictureFolder)) return false;
        Asset asset{{}, nullptr, {}, false, false};
        for (const JsonNode *member = document_.First(*item); member; member = document_.Next(*member)) {
            const std::string_view name = document_.Name(*member);
            if (name == key::kId && (!asset.id.empty() || !ReadId(document_, *member, asset.id))) return false;
            if (name != key::kLayers) continue;
            if (asset.layers) return false;
            asset.layers = member;
        }
        if (asset.layers && !assets_.Append(asset)) return false;
    }
    return true;
}

bool AnimationCheck::AddLayers(const JsonNode &layers, int nesting, Cost &cost) {
    Attachments attachments;
    if (layers.kind != JsonKind::Array || !reader_.HasSmallNumbers(layers)) return false;
    if (!attachments.Collect(reader_, layers)) return false;
    for (const JsonNode *layer = document_.First(layers); layer; layer = document_.Next(*layer)) {
        if (layer->kind != JsonKind::Object) return false;
        Cost own{.shapes = 1};
        if (!AddContents(*layer, nesting, own)) return false;
        if (const JsonNode *transform = document_.Member(*layer, key::kTransformOfLayer)) {
            own.reach = reader_.PlacementOf(*transform)(own.reach);
        }
        own.reach = attachments.Placed(own.reach, reader_.NumberOr(*layer, key::kParent, kNoLayer));
        cost.Add(own);
        if (cost.shapes > kMaxShapes || !(cost.reach <= kMaxReach)) return false;
    }
    return true;
}

bool AnimationCheck::AddContents(const JsonNode &layer, int nesting, Cost &cost) {
    for (const JsonNode *member = document_.First(layer); member; member = document_.Next(*member)) {
        const std::string_view name = document_.Name(*member);
        if (name == key::kShapesOfLayer || name == key::kMasks) {
            Cost inner;
            if (!AddShapes(reader_, *member, inner)) return false;
            cost.Add(inner);
        } else if (name == key::kAssetOfLayer && !AddAssets(*member, nesting + 1, cost)) {
            return false;
        }
    }
    return true;
}

/// All assets of a name: which of them the renderer takes is its own affair.
bool AnimationCheck::AddAssets(const JsonNode &name, int nesting, Cost &cost) {
    std::string_view id;
    if (!ReadId(document_, name, id)) return false;
    for (size_t i = 0; i < assets_.Size(); ++i) {
        Asset &asset = assets_.Data()[i];
        if (asset.id == id && !AddAsset(asset, nesting, cost)) return false;
    }
    return true;
}

bool AnimationCheck::AddAsset(Asset &asset, int nesting, Cost &cost) {
    if (asset.isBeingCounted || nesting > kMaxCompositionNesting) return false;
    if (!asset.isCounted) {
        asset.isBeingCounted = true;
        if (!AddLayers(*asset.layers, nesting, asset.cost)) return false;
        asset.isBeingCounted = false;
        asset.isCounted = true;
    }
    cost.Add(asset.cost);
    return true;
}

}  // namespace

double ReachOfAnimation(std::string_view json) {
    JsonDocument document;
    if (!document.Parse(json) || document.Root().kind != JsonKind::Object) return kRefused;
    return AnimationCheck(document).FindReach();
}

}  // namespace lacquer::vel
