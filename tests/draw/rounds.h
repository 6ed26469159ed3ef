// Draws with random rectangles inside random clips, on canvases of random kinds and origins, against nearest samples
// and the model of a rule.
#pragma once

#include "draw_rules.h"
#include "painting.h"

namespace lacquer {

constexpr RECT kCanvas{0, 0, 40, 36}, kSource{0, 0, 25, 22};

/// A canvas, and where something is drawn on it; rectangles are the device's.
class Round {
public:
    Round(uint32_t seed, int number)
        : random(seed * 100000 + static_cast<uint32_t>(number)),
          canvas(random.Of(kCanvasKinds), kCanvas.right, kCanvas.bottom, random.Word()),
          clip(random.Coin() ? kCanvas : random.Inside(kCanvas)),
          dest(random.Coin() ? random.Inside(kCanvas) : random.Inside({-20, -20, 60, 56})),
          expected_(canvas.Pixels()) {
        SetViewportOrg(canvas, kShift.x + 2, 1, nullptr);
        SetWindowOrg(canvas, 2, 1 - kShift.y, nullptr);
        const RECT logical = Logical(clip);
        SetCanvasClipRect(canvas, &logical);
    }

    RECT Logical(const RECT &rect) const { return Moved(rect, -kShift.x, -kShift.y); }

    /// A rectangle of the source, often of the destination's size.
    RECT Partner() {
        const LONG width = dest.right - dest.left, height = dest.bottom - dest.top;
        if (random.Coin() || width > kSource.right || height > kSource.bottom) return random.Inside(kSource);
        const int left = random.Between(0, kSource.right - width), top = random.Between(0, kSource.bottom - height);
        return {left, top, left + width, top + height};
    }

    /// Expects what d := rule(s, d) for the pixels of `dest` inside `within` makes of the canvas.
    template <class Rule>
    void Expect(const Picture &source, const RECT &from, const RECT &within, const Rule &rule) {
        DrawNearest(expected_, within, dest, source, from, rule);
        EXPECT_TRUE(Same(expected_, canvas.Pixels()));
    }

    Random random;
    const TestCanvas canvas;
    const RECT clip, dest;

private:
    static constexpr POINT kShift{9, -4};
    Picture expected_;
};

/// Runs `test(round)` until it fails.
template <class Test>
void ForRounds(uint32_t seed, int count, const Test &test) {
    for (int number = 0; number < count && !::testing::Test::HasFailure(); ++number) {
        SCOPED_TRACE(::testing::Message() << "round " << number);
        Round round(seed, number);
        test(round);
    }
}

}  // namespace lacquer
