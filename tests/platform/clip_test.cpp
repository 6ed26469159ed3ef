// Clip regions: kinds, boxes and origins. That they bound what is drawn is tested with the draws.
#include <gtest/gtest.h>

#include <optional>

#include "model.h"

namespace lacquer {
namespace {

/// A device context and what its clip should be, changed in the same steps.
class Clip : public ::testing::Test {
protected:
    void ChangeAtRandom() {
        const RECT rect = random_.Rect(), device = Moved(rect, offset_.x, offset_.y);
        // The system calls a clip of a rectangle without area simple.
        if (kIsSystem && Points(rect) == Points()) return;
        const Points shape = random_.Shape();
        const OwnedRegion region = shape.Region();
        const int mode = random_.Between(RGN_AND, RGN_COPY), x = random_.Between(-1, 1), y = random_.Between(-1, 1);
        switch (random_.Between(0, 6)) {
            case 0:
                if (clip_) clip_ = clip_->Moved(x, y);
                EXPECT_EQ(OffsetClipRgn(picture_, x, y), clip_ ? clip_->Kind() : NULLREGION);
                break;
            case 1:
                clip_ = clip_ ? clip_->Combined(Points(device), RGN_AND) : Points(device);
                EXPECT_EQ(IntersectClipRect(picture_, rect.left, rect.top, rect.right, rect.bottom), clip_->Kind());
                break;
            case 2:
                clip_ = clip_.value_or(bitmap_).Combined(Points(device), RGN_DIFF);
                EXPECT_EQ(ExcludeClipRect(picture_, rect.left, rect.top, rect.right, rect.bottom), clip_->Kind());
                break;
            case 3:
                clip_.reset();
                EXPECT_EQ(ExtSelectClipRgn(picture_, nullptr, RGN_COPY), SIMPLEREGION);
                break;
            case 4:
                SetViewportOrgEx(picture_, 3 + x, 2 - y, nullptr);
                SetWindowOrgEx(picture_, 1 - y, 2 * x, nullptr);
                offset_ = {2 + x + y, 2 - y - 2 * x};
                break;
            default:
                clip_ = mode == RGN_COPY ? shape : clip_.value_or(bitmap_).Combined(shape, mode);
                EXPECT_EQ(ExtSelectClipRgn(picture_, region, mode), clip_->Kind());
        }
    }

    void ExpectClip() {
        const OwnedRegion region(3, 3, 4, 4);
        EXPECT_EQ(GetClipRgn(picture_, region), clip_ ? 1 : 0);
        EXPECT_EQ(region.Rects(), clip_.value_or(Points({3, 3, 4, 4})).Bands());
        const Points visible = clip_.value_or(bitmap_).Combined(bitmap_, RGN_AND);
        RECT box{1, 1, 2, 2};
        const int kind = GetClipBox(picture_, &box);
        // The system's own answers reckon with more than is visible of several rectangles.
        const bool isExact = !kIsSystem || clip_.value_or(bitmap_).Kind() != COMPLEXREGION;
        if (isExact) {
            EXPECT_EQ(kind, visible.Kind());
            const RECT device = Moved(box, offset_.x, offset_.y);
            EXPECT_EQ(kind == NULLREGION ? RECT{} : device, visible.Box());
            EXPECT_EQ(IsRectEmpty(&box) != FALSE, kind == NULLREGION);
        }
        const int x = random_.Between(-1, 12), y = random_.Between(-1, 10);
        EXPECT_EQ(PtVisible(picture_, x - offset_.x, y - offset_.y) != 0, visible.Has(x, y));
        const RECT rect = random_.Rect();
        const Points place(Moved(rect, offset_.x, offset_.y));
        if (!kIsSystem) {
            EXPECT_EQ(RectVisible(picture_, &rect) != 0, visible.Combined(place, RGN_AND).Kind() != NULLREGION);
        }
    }

    Picture picture_{10, -8};
    const Points bitmap_{RECT{0, 0, 10, 8}};
    std::optional<Points> clip_;
    POINT offset_{0, 0};
    Random random_{2};
};

TEST_F(Clip, IsCombinedMovedAndCutToTheBitmap) {
    for (int step = 0; step < 2000 && !HasFailure(); ++step) {
        ExpectClip();
        ChangeAtRandom();
    }
}

TEST_F(Clip, IsACopyThatOutlivesBitmaps) {
    const OwnedRegion region(2, 2, 20, 20);
    EXPECT_EQ(SelectObject(picture_, static_cast<HRGN>(region)), reinterpret_cast<HGDIOBJ>(uintptr_t{SIMPLEREGION}));
    SetRectRgn(region, 0, 0, 1, 1);
    const HBITMAP larger = NewSection(30, -15, 32);
    SelectObject(picture_, larger);
    RECT box{};
    EXPECT_EQ(GetClipBox(picture_, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{2, 2, 20, 15}));
    SelectObject(picture_, picture_.Bitmap());
    DeleteObject(larger);

    const RECT touching{9, 9, 1, 1}, beside{0, 0, 2, 9};
    EXPECT_NE(RectVisible(picture_, &touching), FALSE);
    EXPECT_EQ(RectVisible(picture_, &beside), FALSE);
    EXPECT_EQ(ExtSelectClipRgn(picture_, nullptr, RGN_OR), ERROR);
    EXPECT_EQ(ExtSelectClipRgn(picture_, region, 9), ERROR);
    clip_ = Points({2, 2, 20, 20});
    ExpectClip();
    const OwnedDC fresh;
    EXPECT_EQ(GetClipBox(fresh, &box), SIMPLEREGION);
    EXPECT_EQ(box, (RECT{0, 0, 1, 1}));
}

}  // namespace
}  // namespace lacquer
