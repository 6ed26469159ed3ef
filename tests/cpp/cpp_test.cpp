// The layer for C++: that owners own, scopes end, skins draw what the C calls draw, and texts are broken where they
// should be. The tests need the DejaVu fonts installed.

// The layer has to live with the macros of this header, and with those that it makes for other compilers.
#ifdef _WIN32
#undef NOMINMAX
#undef WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#undef min
#undef max
#define min(a, b) ((a) < (b) ? (a) : (b))
#define max(a, b) ((a) > (b) ? (a) : (b))
#define near
#define far
#define small char
#include <lacquer/lacquer.hpp>

namespace {

using String = std::basic_string<WCHAR>;
using Pixels = std::vector<DWORD>;

String Units(const std::u16string &text) { return {text.begin(), text.end()}; }

template <typename Owner>
Pixels PixelsOf(const Owner &object) {
    Pixels pixels;
    const auto lock = lq::Lock(object);
    for (LONG y = 0; y < lock.Height(); ++y) pixels.insert(pixels.end(), lock.Row(y).begin(), lock.Row(y).end());
    return pixels;
}

/// Whether there is the object that a handle stands for. Leaks and second deletions are the sanitizers' to find.
template <typename Handle>
bool IsAlive(Handle handle) {
    if constexpr (std::is_pointer_v<Handle>) {
        return handle != nullptr;
    } else {
        return static_cast<bool>(lq::Lock(handle));
    }
}

template <typename Owner>
void ExpectOwnership(Owner owner) {
    static_assert(!std::is_copy_constructible_v<Owner> && std::is_nothrow_move_assignable_v<Owner>);
    ASSERT_TRUE(owner);
    const auto handle = owner.Handle();
    Owner other(std::move(owner));
    EXPECT_TRUE(!owner && other && other.Handle() == handle && IsAlive(handle));
    Owner &same = other;
    other = std::move(same);
    EXPECT_TRUE(other.Handle() == handle && IsAlive(handle));
    Owner adopted(other.Release());
    EXPECT_TRUE(!other && IsAlive(handle));
    adopted = Owner();
    if constexpr (!std::is_pointer_v<std::remove_const_t<decltype(handle)>>) {
        EXPECT_FALSE(IsAlive(handle));
    }
}

TEST(CppTest, OwnersOwn) {
    EXPECT_STREQ(LACQUER_EXPECTED_VERSION, LACQUER_VERSION_STRING);
    ExpectOwnership(lq::Bitmap::Create(3, 2));
    ExpectOwnership(lq::Texture::Create(3, 2));
    ExpectOwnership(lq::Canvas::Create(3, 2));
    ExpectOwnership(lq::Path::Create());
    ExpectOwnership(lq::Gradient::Linear(0, 0, 1, 1));
    ExpectOwnership(lq::VectorCanvas::Create());
    const lq::Bitmap none;
    EXPECT_FALSE(none.Size() || lq::Lock(none) || none.Resized(2, 2) || lq::Canvas::Create(0, 5) ||
                 lq::Gradient::Radial(0, 0, -1) || lq::Lottie::FromData("?") || lq::Path().LineTo(1, 1) ||
                 lq::Canvas().Fill(RECT{0, 0, 1, 1}, 0xFF000000) || lq::Texture::From(lq::Bitmap()) ||
                 lq::VectorCanvas().DrawInto(nullptr, 1, 1, 4) || lq::Tint(lq::Texture::Create(4, 4, 24), 1, 0, 0) ||
                 lq::Tint(HGTEXTURE{}, 1, 0, 0) || lq::Blur(lq::Canvas::Create(4, 4), 0) || lq::Blur(HGCANVAS{}, 3));
}

TEST(CppTest, ObjectsBecomeOthers) {
    lq::Canvas canvas = lq::Canvas::Create(4, 3);
    ASSERT_TRUE(canvas.Fill(RECT{1, 1, 3, 2}, 0xFF102030));
    {
        const lq::BitmapAlias alias = canvas.AsBitmap();
        EXPECT_EQ(0xFF102030, lq::Lock(alias).Row(1)[2]);
    }
    lq::Texture texture = lq::Texture::From(lq::Bitmap::From(std::move(canvas)));
    EXPECT_TRUE(!canvas && texture && texture.Size()->cx == 4);
    const RECT slices[] = {{0, 0, 1, 1}, {1, 1, 4, 3}};
    EXPECT_TRUE(texture.SetSlices(slices) && texture.SelectSlice(1) && texture.Slice()->right == 4);
    EXPECT_TRUE(!texture.SelectSlice(2) && !texture.SelectSlice(-1) && !texture.SetSlices({}));
    EXPECT_EQ(3, texture.Transformed(LACQUER_ROTATE_90).Size()->cx);

    const lq::Bitmap indexed = lq::Bitmap::Create(5, 2, 8, 16);
    const auto lock = lq::Lock(indexed);
    EXPECT_EQ(16u, lock.Palette().size());
    EXPECT_EQ(5u, lock.Row<BYTE>(1).size());
    EXPECT_TRUE(lock.Row(1).empty() && lock.Row<BYTE>(2).empty() && lock.Row<BYTE>(-1).empty());
#if __cplusplus >= 202002L
    EXPECT_EQ(5u, std::span<BYTE>(lock.Row<BYTE>(0)).size());
#endif
}

TEST(CppTest, ScopesEnd) {
    lq::Canvas canvas = lq::Canvas::Create(8, 4), expected = lq::Canvas::Create(8, 4);
    {
        const lq::ScopedOrigin origin(canvas, 2, 1);
        const lq::ScopedClip clip(canvas, RECT{0, 0, 3, 2});
        const lq::ScopedState state(canvas);
        EXPECT_TRUE(clip && clip.IsVisible() && origin && state && SetStrokeWidth(canvas, 5));
        canvas.Fill(RECT{-9, -9, 9, 9}, 0xFF0000FF);
        EXPECT_FALSE(lq::ScopedClip(canvas, RECT{3, 0, 9, 9}).IsVisible());
        EXPECT_FALSE(lq::ScopedOrigin(canvas, INT_MAX, 0));
    }
    expected.Fill(RECT{2, 1, 5, 3}, 0xFF0000FF);
    EXPECT_EQ(PixelsOf(expected), PixelsOf(canvas));
    EXPECT_EQ(1.0f, GetStrokeWidth(canvas));
    EXPECT_EQ(8, canvas.Clip()->right);
    POINT viewport{};
    EXPECT_TRUE(GetViewportOrg(canvas, &viewport) && viewport.x == 0 && viewport.y == 0);
    const HGCANVAS wrong{};
    EXPECT_FALSE(lq::ScopedClip(wrong, RECT{}) || lq::ScopedOrigin(wrong, 1, 1) || lq::ScopedState(wrong));
}

TEST(CppTest, CompanionObjectsDraw) {
    Pixels pixels(16);
    lq::VectorCanvas canvas = lq::VectorCanvas::Create();
    lq::Path path = lq::Path::Create();
    lq::Gradient gradient = lq::Gradient::Linear(0, 0, 4, 0);
    EXPECT_TRUE(canvas.DrawInto(pixels.data(), 4, 4, 16) && !canvas.DrawInto(pixels.data(), 4, 4, 2));
    EXPECT_TRUE(!path.Close() && path.AddRectangle(0, 0, 4, 2) && path.Bounds()->bottom == 2);
    EXPECT_TRUE(gradient.AddStop(0, 0xFFFF0000) && gradient.AddStop(1, 0xFF0000FF));
    {
        const lq::ScopedVectorState state(canvas);
        EXPECT_TRUE(state && velCanvasSetGradient(canvas, gradient));
        EXPECT_TRUE(velCanvasSetDrawStyle(canvas, VEL_STYLE_GRADIENT_FILL) && velCanvasDrawPath(canvas, path));
    }
    velCanvasDrawRectangle(canvas, 0, 3, 1, 1);
    EXPECT_TRUE(pixels[0] > pixels[3] && pixels[3] > 0xFF000000 && pixels[8] == 0 && pixels[12] == 0xFF000000);

    lq::Lottie animation = lq::Lottie::FromData(R"({"v":"5","fr":10,"ip":0,"op":20,"w":8,"h":6,"layers":[
        {"ty":4,"ind":1,"ip":0,"op":20,"st":0,"ks":{},"shapes":[]}]})");
    ASSERT_EQ(LACQUER_EXPECTED_ANIMATIONS, animation.Info().has_value());
    if (animation) {
        EXPECT_EQ(8, animation.Info()->width);
        EXPECT_NEAR(5, animation.FrameAt(2.5), 1e-3) << "it repeats after two seconds";
        EXPECT_EQ(0.0f, animation.FrameAt(-1));
        ExpectOwnership(std::move(animation));
    }
}

TEST(CppTest, SkinsDrawAsTheCCallsDo) {
    const lq::Texture sheet = lq::Texture::Create(40, 40);
    const auto lock = lq::Lock(sheet);
    for (LONG y = 0; y < 40; ++y) {
        for (DWORD &pixel : lock.Row(y)) pixel = 0xFF000000 | static_cast<DWORD>(&pixel - lock.Row(0).begin()) * 9973;
    }
    const RECT dest{3, 2, 61, 50};
    for (int row = 0; row < 24; ++row) {
        const auto layout = static_cast<DWORD>(row % 6);
        const bool downwards = row % 4 < 2;
        const float scale = row < 12 ? 1.0f : 1.5f;
        lq::SkinPiece piece{sheet, {2, 3, 14, 15}, {3, 4, 2, 5}, layout, 3};
        piece.order = downwards ? lq::SkinPiece::Order::Downwards : lq::SkinPiece::Order::ToTheRight;
        lq::Canvas drawn = lq::Canvas::Create(64, 56), expected = lq::Canvas::Create(64, 56);
        EXPECT_TRUE(piece.Draw(drawn, dest, 2, scale, 200));

        const RECT slice = downwards ? RECT{2, 27, 14, 39} : RECT{26, 3, 38, 15};
        lq::Texture direct = sheet.Resized(40, 40, LACQUER_NEAREST);
        ASSERT_TRUE(direct.SetSlices({&slice, 1}) && direct.SetLayout({layout, 0x1F, piece.margins}));
        expected.Draw(direct, dest, LACQUER_BILINEAR, 200, scale);
        EXPECT_EQ(PixelsOf(expected), PixelsOf(drawn)) << layout << " at " << scale;

        EXPECT_FALSE(piece.Draw(drawn, dest, 3) || piece.Draw(drawn, dest, -1) || piece.Draw(drawn, dest, 0, 0));
        piece.states = 4;
        EXPECT_FALSE(piece.Draw(drawn, dest, 3)) << "beyond the sheet";
        piece.states = 2;
        EXPECT_FALSE(piece.Draw(drawn, dest, 2)) << "beyond the states";
    }
    lq::SkinPiece piece;
    piece.frame = {0, 0, 11, 7};
    EXPECT_EQ(17, piece.NaturalSize(lq::ScaleForDpi(144)).cx);
    EXPECT_EQ(0, piece.NaturalSize(-1).cx);
    piece.margins = {10, 4, 6, 4};
    EXPECT_EQ(0.5f, piece.FittingScale({0, 0, 8, 100}));
    EXPECT_EQ(0.25f, piece.FittingScale({0, 0, 8, 2}));
    EXPECT_EQ(2.0f, piece.FittingScale({0, 0, 40, 40}, 2));
    EXPECT_FALSE(piece.Draw(lq::Canvas::Create(9, 9), dest)) << "without a sheet";
}

TEST(CppTest, BlursAreTheSameInEveryDrawMode) {
    lq::Canvas over = lq::Canvas::Create(60, 8), copied = lq::Canvas::Create(60, 8);
    over.SetDrawMode(LACQUER_DRAW_OVER);
    for (lq::Canvas *canvas : {&over, &copied}) {
        canvas->Fill({30, 0, 60, 8}, 0x80FFFFFF);
        EXPECT_TRUE(lq::Blur(*canvas, 7));
    }
    EXPECT_EQ(PixelsOf(copied), PixelsOf(over));
    DWORD filter = 0;
    EXPECT_TRUE(GetCanvasFilter(over, &filter) && filter == static_cast<DWORD>(LACQUER_DRAW_OVER) << 24);
}

class CppTextTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(canvas.SetFont(Units(u"DejaVu Sans").c_str(), 16)); }

    float Advance(lq::TextView text) const {
        velTextExtent extent{};
        EXPECT_TRUE(MeasureTextRun(canvas, text.data(), static_cast<int>(text.size()), &extent));
        return extent.advance;
    }

    std::vector<String> Lines(const String &text, float width, const lq::TextStyle &style = {}) const {
        std::vector<String> lines;
        EXPECT_TRUE(lq::Text(text, style).ForEachLine(canvas, width, 1e6f, [&](lq::TextView line, float advance) {
            EXPECT_FLOAT_EQ(Advance(line), advance);
            lines.emplace_back(line);
            return true;
        }));
        return lines;
    }

    lq::Canvas canvas = lq::Canvas::Create(120, 60);
};

TEST_F(CppTextTest, LinesAreBroken) {
    // A bar stands where a line has to end when there is room for the widest line, or, after a tilde, for a tenth of
    // it.
    const std::u16string kTexts[] = {
        u"one two |three",
        u"one   |two   ",
        u"the quick brown fox jumps over the |lazy dog, which never minded as it |slept on in the afternoon sun",
        u"  in |depth",
        u"a |b\u00A0c",
        u"well-|known |fact",
        u"ab |-12345",
        u"x |--option",
        u"a |1999-2024",
        u"\u6F22\u5B57|\u4EEE\u540D",
        u"\u6F22|\u5B57\u3002|\u6F22\u5B57",
        u"\u6F22|\u300C\u5B57\u300D",
        u"\U00020000\U00020001|\U00020002",
        u"abcdefgh|ijk",
        u"-a|b",
        u"  abc|d",
        u"~a|e\u0301|\U0001F600|b",
        u"~a   |b ",
        u"a\n|\r\n|b\u2028|\r|",
        u""};
    for (const std::u16string &row : kTexts) {
        SCOPED_TRACE(&row - kTexts);
        const float room = row[0] == '~' ? 0.1f : 1.0f;
        String text;
        std::vector<String> lines(1);
        for (const WCHAR unit : Units(row)) {
            if (unit == '|') lines.emplace_back();
            if (unit == '|' || unit == '~') continue;
            text += unit;
            lines.back() += unit;
        }
        float width = 0;
        for (String &line : lines) {
            line.erase(line.find_last_not_of(Units(u" \r\n\u2028")) + 1);
            width = std::fmax(width, Advance(line));
        }
        EXPECT_EQ(lines, Lines(text, width * room));
        const auto size = lq::Text(text).Measure(canvas, width * room);
        ASSERT_TRUE(size);
        EXPECT_EQ(lines.size(), static_cast<size_t>(size->lines));
        EXPECT_FLOAT_EQ(width, size->width);
        // The height that was measured is enough.
        const auto again = lq::Text(text).Measure(canvas, width * room, size->height);
        EXPECT_TRUE(again && again->complete && again->lines == size->lines);
    }
}

TEST_F(CppTextTest, WhatDoesNotFitIsReplaced) {
    const String text = Units(u"one two three\nfour e\u0301e\u0301e\u0301e\u0301"), ellipsis = Units(u"\u2026");
    for (int row = 0; row < 4 * 70; ++row) {
        lq::TextStyle style;
        style.wrap = row % 2 == 0;
        style.maxLines = 1 + row / 2 % 2;
        const auto width = static_cast<float>(20 + row / 4);
        const std::vector<String> lines = Lines(text, width, style);
        const auto size = lq::Text(text, style).Measure(canvas, width);
        ASSERT_EQ(static_cast<size_t>(style.maxLines), lines.size());
        EXPECT_EQ(size->complete, lines.front().back() != 0x2026 && lines.back().back() != 0x2026) << row;
        EXPECT_LE(size->width, width);
        if (lines.back().back() != 0x2026) continue;
        // One character more is too much.
        const size_t begin = text.find(lines.back().substr(0, lines.back().size() - 1));
        size_t end = begin + lines.back().size() - 1;
        EXPECT_NE(0x301, text[end]);
        while (text[end] == ' ') ++end;
        EXPECT_TRUE(text[end] == '\n' || Advance(text.substr(begin, end + 1 - begin) + ellipsis) > width) << row;
    }
    lq::TextStyle style;
    style.ellipsis = false;
    style.maxLines = 1;
    EXPECT_EQ(std::vector<String>{Units(u"one")}, Lines(text, 40, style));
    // A text without spaces is not measured whole for each of its lines, nor refused for its length.
    const String manyLetters(1000000, 'm');
    style.wrap = false;
    EXPECT_FALSE(lq::Text(manyLetters, style).Measure(canvas));
    style.ellipsis = true;
    EXPECT_EQ(1u, Lines(manyLetters, 100, style).size());
    EXPECT_LT(400u, Lines(manyLetters.substr(0, 4000), 100).size());
    EXPECT_FALSE(lq::Text(text).Measure(HGCANVAS{}) || lq::Text(text).Draw(HGCANVAS{}, RECT{0, 0, 9, 9}));
}

TEST_F(CppTextTest, LinesAreAligned) {
    const String first = Units(u"To be"), second = Units(u"or");
    float ascent = 0, descent = 0, lineHeight = 0;
    ASSERT_TRUE(GetFontMetrics(canvas, &ascent, &descent, &lineHeight));
    const RECT box{5, 3, 115, 58};
    for (const int part : {0, 1, 2}) {
        lq::Canvas drawn = lq::Canvas::Create(120, 60), expected = lq::Canvas::Create(120, 60);
        const auto family = Units(u"DejaVu Sans");
        ASSERT_TRUE(drawn.SetFont(family.c_str(), 16) && expected.SetFont(family.c_str(), 16));
        const lq::TextStyle style{static_cast<lq::TextStyle::Align>(part),
                                  static_cast<lq::TextStyle::VerticalAlign>(part)};
        EXPECT_TRUE(lq::Text(first + WCHAR{'\n'} + second, style).Draw(drawn, box));
        const float share = static_cast<float>(part) / 2;
        float baseline = 3 + share * (55 - lineHeight - ascent - descent) + ascent;
        for (const String &line : {first, second}) {
            DrawTextRun(expected, line.c_str(), -1, 5 + share * (110 - Advance(line)), baseline);
            baseline += lineHeight;
        }
        EXPECT_EQ(PixelsOf(expected), PixelsOf(drawn)) << part;
    }
}

}  // namespace
