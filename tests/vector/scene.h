// What the tests of vector drawing draw: a scene with every kind of shape, and canvases of one colour.
#pragma once

#include "draw/painting.h"

namespace lacquer {

constexpr LONG kSceneWidth = 48, kSceneHeight = 40;

/// Shapes of every kind, stroked and filled, opaque and translucent, in the logical rectangle (0, 0) to (48, 40). The
/// vector state is afterwards what it was.
void DrawScene(HGCANVAS canvas);

/// A canvas of its own, every pixel of one premultiplied word.
OwnedCanvas PlainCanvas(LONG width, LONG height, uint32_t word);

/// How far the channel that differs most differs.
int Difference(uint32_t a, uint32_t b);

/// Says where two pictures differ first by more than `levels`, and by how much they do at most.
::testing::AssertionResult Near(const Picture &expected, const Picture &actual, int levels);

/// The part of `drawn` that lies in `rect`, and the rest of `before`.
Picture Cropped(const Picture &before, const Picture &drawn, const RECT &rect);

/// The picture moved by (dx, dy) over `ground`.
Picture Shifted(const Picture &ground, const Picture &picture, LONG dx, LONG dy);

}  // namespace lacquer
