// Every exported function, with each of its allocations failing in turn: alone, with the one after it, and with all
// after it. Then the call has done nothing, and says so, or everything; nothing is lost, and every object can be used.

#include <climits>
#include <string_view>

#include "calls.h"
#include "failing_allocations.h"
#include "handle_world.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr RECT kRect{1, 1, 3, 3};

/// What the calls work on.
class Scene : public HandleWorld {
public:
    /// `kind`: of the first canvas and of the bitmaps and textures. 0: all in process memory, 32 bits; 1: a system
    /// canvas, 8 bits, and the device contexts exchanged; 2: a device context's, reached by copying only, and 24 bits.
    explicit Scene(int kind) : kind_(kind) {
        SelectClipWithHole(contexts_[0], {0, 0, 8, 8}, {3, 3, 4, 4});
        for (const HGCANVAS canvas : {Canvas(0), Canvas(1)}) SetDashStyle(canvas, 2);
        HRGN corner = CreateRectRgn(5, 0, 8, 2);
        for (HRGN region : regions_) {
            CombineRgn(region, region, corner, RGN_OR);
            OffsetRgn(corner, 1, 4);
        }
        DeleteObject(corner);
    }
    ~Scene() override {
        DeleteObject(bitmap_);
        for (HRGN region : regions_) DeleteObject(region);
    }

    /// Whether every object is still there.
    bool IsWhole() const {
        for (size_t i = 0; i < 2; ++i) {
            if (!IsLive(Canvas(i)) || !IsLive(Bitmap(i)) || !IsLive(Texture(i))) return false;
        }
        return true;
    }

    /// What calls change of the objects, and the slot that the next handle would take.
    std::vector<uint32_t> Snapshot() const {
        std::vector<uint32_t> state = HandleWorld::Snapshot();
        const auto add = [&](const std::vector<uint32_t> &words) {
            state.insert(state.end(), words.begin(), words.end());
        };
        HRGN clip = CreateRectRgn(0, 0, 0, 0);
        GetClipRgn(contexts_[0], clip);
        for (HRGN region : {clip, regions_[0], regions_[1]}) {
            std::vector<uint32_t> words(GetRegionData(region, 0, nullptr) / 4);
            GetRegionData(region, static_cast<DWORD>(words.size() * 4), reinterpret_cast<RGNDATA *>(words.data()));
            add(words);
        }
        DeleteObject(clip);
        for (const Dib &dib : dibs_) add(PixelsOf(dib.View()));
        for (const OwnedBitmap &bitmap : bitmaps_) add(PixelsIn(bitmap));
        for (const OwnedTexture &texture : textures_) add(PixelsIn(texture));
        return state;
    }

    /// Locks, draws and combines whatever is still there.
    void ExpectUsable() const {
        SurfaceView view{};
        for (size_t i = 0; i < 2; ++i) {
            const HGCANVAS canvas = Canvas(i);
            const bool isLive = IsLive(canvas);
            EXPECT_EQ(isLive, SetViewportOrg(canvas, 0, 0, nullptr) && SetWindowOrg(canvas, 0, 0, nullptr));
            EXPECT_EQ(isLive, SetCanvasClipRect(canvas, &kRect) && FillSolidRect(canvas, 0xFF112233, &kRect));
            EXPECT_EQ(isLive, LockCanvasBits(canvas, &view, &kRect) && UnlockCanvasBits(canvas));
            EXPECT_EQ(isLive && canvas != canvas_, DrawLine(canvas, 0, 0, 3, 3) == 1);
            EXPECT_EQ(isLive, GetCanvasHandle(canvas) != nullptr);
            EXPECT_EQ(isLive && IsLive(Bitmap(i)), DrawBitmap(canvas, &kRect, Bitmap(i), 1) == 1);
            EXPECT_EQ(isLive && IsLive(Texture(i)),
                      DrawTextureCenter(canvas, &kRect, Texture(i), nullptr, 1, 255) == 1);
            EXPECT_NE(ERROR, ExcludeClipRect(contexts_[i], 1, 1, 2, 2));
        }
        EXPECT_NE(ERROR, CombineRgn(regions_[0], regions_[1], regions_[0], RGN_OR));
    }

private:
    HGCANVAS Canvas(size_t argument) const { return {Valid('c', argument)}; }
    HGBITMAP Bitmap(size_t argument) const { return {Valid('b', argument)}; }
    HGTEXTURE Texture(size_t argument) const { return {Valid('t', argument)}; }

    uintptr_t Valid(char letter, size_t argument) const override {
        const auto number = [](const void *handle) { return reinterpret_cast<uintptr_t>(handle); };
        const size_t exchanged = kind_ == 1 ? 1 - argument : argument;
        if (letter == 'D') return number(contexts_[exchanged]);
        if (letter == 'H') return number(bitmap_);
        if (letter == 'R') return number(regions_[argument % 2]);
        if (letter == 'b' && kind_ > 0) return HGBITMAP(bitmaps_[argument]).value;
        if (letter == 't' && kind_ > 0) return HGTEXTURE(textures_[argument]).value;
        if (letter == 'c' && kind_ == 2 && argument == 0) return HGCANVAS(canvas_).value;
        return HandleWorld::Valid(letter, letter == 'c' ? exchanged : argument);
    }

    const int kind_;
    const DWORD depth_ = kind_ == 2 ? 24 : 8;
    const OwnedBitmap bitmaps_[2]{Noisy(OwnedBitmap(CreateMemBitmapEx(4, 4, depth_, 16)), 6, depth_ == 8),
                                  Noisy(OwnedBitmap(CreateMemBitmapEx(4, 4, depth_, 16)), 7, depth_ == 8)};
    const OwnedTexture textures_[2]{Noisy(OwnedTexture(CreateTextureEx(4, 4, depth_, 16)), 8, depth_ == 8),
                                    Noisy(OwnedTexture(CreateTextureEx(4, 4, depth_, 16)), 9, depth_ == 8)};
    const Dib dibs_[2]{Dib(8, 8), Dib(8, 8)};
    const MemoryDC contexts_[2]{MemoryDC(dibs_[0].Handle()), MemoryDC(dibs_[1].Handle())};
    const OwnedCanvas canvas_{CreateCanvasFromDC(contexts_[0])};
    const HBITMAP bitmap_ = CreateBitmap(4, 4, 1, 32, nullptr);
    const HRGN regions_[2]{CreateRectRgn(0, 0, 4, 4), CreateRectRgn(2, 1, 6, 6)};
};

/// One call in a scene of its own.
struct Outcome {
    std::vector<uint32_t> before, after;
    int refused;
    bool worked;
};

Outcome Call(const ExportedCall &row, int kind, int count, int failures) {
    const Scene scene(kind);
    const std::vector<Argument> arguments = scene.ArgumentsFor(row);
    Outcome outcome{};
    outcome.before = scene.Snapshot();
    FailAllocations(count, failures);
    const uint64_t result = row.call(arguments);
    outcome.refused = StopFailing();
    outcome.worked = HasWorked(row, result, arguments);
    if (scene.IsWhole()) outcome.after = scene.Snapshot();
    scene.ExpectUsable();
    return outcome;
}

/// Nothing has changed, or, when the call did not say that it failed, what it changes else. Of a layout single pieces
/// may be missing.
bool IsAllOrNothing(const ExportedCall &row, const Outcome &outcome, const Outcome &whole) {
    const bool isLayout = std::string_view(row.name).starts_with("DrawTexture");
    return outcome.after == outcome.before ||
           (outcome.worked == whole.worked && (isLayout || outcome.after == whole.after));
}

void FailEverywhere(const ExportedCall &row, int kind) {
    const Outcome whole = Call(row, kind, INT_MAX, 1);
    ASSERT_TRUE(kind > 0 || whole.worked) << "the call does not work at all";
    // What is made once and kept is there in the second round.
    for (const bool keeps : {true, false}) {
        for (const int failures : {1, 2, INT_MAX}) {
            for (int count = 0, refused = 1; refused > 0; ++count) {
                SCOPED_TRACE(testing::Message() << "kind " << kind << ", " << failures << " after " << count);
                const long live = LiveBlocks();
                const Outcome outcome = Call(row, kind, count, failures);
                refused = outcome.refused;
                EXPECT_TRUE(IsAllOrNothing(row, outcome, whole));
                EXPECT_TRUE(keeps || live == LiveBlocks()) << "blocks are lost";
                ASSERT_FALSE(testing::Test::HasFailure());
            }
        }
    }
}

class AllocationFailure : public testing::TestWithParam<ExportedCall> {};

TEST_P(AllocationFailure, IsARefusalOrDoesNoHarm) {
    for (int kind = 0; kind < 3; ++kind) FailEverywhere(GetParam(), kind);
}

INSTANTIATE_TEST_SUITE_P(Exports, AllocationFailure, testing::ValuesIn(ExportedCalls()),
                         testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Headless, AllocationFailure, testing::ValuesIn(GdiCalls()), testing::PrintToStringParamName());
INSTANTIATE_TEST_SUITE_P(Deep, AllocationFailure, testing::ValuesIn(DeepCalls()), testing::PrintToStringParamName());

TEST(Allocations, AreRefusedAndCounted) {
    const long live = LiveBlocks();
    FailAllocations(0, 1);
    EXPECT_FALSE(CreateTexture(9, 9));
    EXPECT_EQ(1, StopFailing());
    const OwnedTexture texture(CreateTexture(9, 9));
    EXPECT_LT(live, LiveBlocks());
}

}  // namespace
}  // namespace lacquer
