// What the tests of vector drawing draw: a scene with every kind of shape, and canvases of one colour.
#pragma once

#include <memory>

#include "draw/painting.h"

namespace lacquer {

constexpr LONG kSceneWidth = 48, kSceneHeight = 40;
constexpr uint32_t kGround = 0xFF808080, kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kGreen = 0xFF00FF00;

/// Shapes of several kinds, stroked and filled, opaque and translucent, in the logical rectangle (0, 0) to (48, 40).
/// The vector state is afterwards what it was.
void DrawScene(HGCANVAS canvas);

/// The scene on a plain canvas, where nothing was done to it.
Picture Scene();

/// A canvas of its own, every pixel of one premultiplied word.
OwnedCanvas PlainCanvas(LONG width = kSceneWidth, LONG height = kSceneHeight, uint32_t word = kGround);

Picture PixelsOn(HGCANVAS canvas);

/// A canvas of the companion that draws on someone else's pixels.
using OwnedCompanion = std::unique_ptr<velCanvas, int (*)(velCanvas *)>;
OwnedCompanion CompanionOn(void *bits, LONG width, LONG height, LONG stride);

/// The part of `drawn` that lies in `rect`, and the rest of `before`.
Picture Cropped(const Picture &before, const Picture &drawn, const RECT &rect);

/// The picture with a rectangle of one word.
Picture WithRectangle(Picture picture, const RECT &rect, uint32_t word);

}  // namespace lacquer
