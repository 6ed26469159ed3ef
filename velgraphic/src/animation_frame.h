// What it takes to draw a frame of an animation, from the renderer's own tree of its shapes.
#pragma once

/// A layer of the renderer's tree.
struct LOTLayerNode;

namespace lacquer::vel {

/// The prefix of the names of strokes that stand for a length in a dash pattern; the last of a pattern goes on with 0.
inline constexpr char kDashName[] = "~dash";

/// A frame's size, and the animation's.
struct FrameSize {
    int width, height, ownWidth, ownHeight;
};

struct FrameNeeds {
    const char *refusal = nullptr;  ///< why the frame is not to be drawn
    double reduction = 1;           ///< so much smaller the renderer's numbers can hold the frame
    double bytes = 0;               ///< what the renderer needs and keeps for it, beside the frame's own pixels
};

/// The tree is the one for this size.
FrameNeeds MeasureFrame(const LOTLayerNode &tree, const FrameSize &size);

}  // namespace lacquer::vel
