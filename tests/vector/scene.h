// What the tests of vector drawing draw on: canvases of one colour.
#pragma once

#include "draw/painting.h"

namespace lacquer {

constexpr LONG kSceneWidth = 48, kSceneHeight = 40;
constexpr uint32_t kGround = 0xFF808080, kRed = 0xFFFF0000, kBlue = 0xFF0000FF, kGreen = 0xFF00FF00;

/// A canvas of its own, every pixel of one premultiplied word.
OwnedCanvas PlainCanvas(LONG width = kSceneWidth, LONG height = kSceneHeight, uint32_t word = kGround);

Picture PixelsOn(HGCANVAS canvas);

/// The part of `drawn` that lies in `rect`, and the rest of `before`.
Picture Cropped(const Picture &before, const Picture &drawn, const RECT &rect);

/// The picture with a rectangle of one word.
Picture WithRectangle(Picture picture, const RECT &rect, uint32_t word);

}  // namespace lacquer
