// Text from a string: shaping, directions, fonts for what a font lacks, and measures. The tests need the DejaVu fonts
// installed, and for Devanagari those of Lohit.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>
#include <thread>

#include "painting.h"

#ifndef _WIN32
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#endif

namespace lacquer {
namespace {

using Text = std::u16string;

const WCHAR *Units(const Text &text) { return reinterpret_cast<const WCHAR *>(text.c_str()); }

struct Shaped {
    std::vector<WORD> glyphs;
    std::vector<velPointF> positions;

    bool IsInOrder() const { return std::ranges::is_sorted(positions, {}, &velPointF::x); }
};

Shaped Shape(velCanvas *canvas, const Text &text) {
    const int count = velCanvasGetTextGlyphs(canvas, Units(text), -1, nullptr, nullptr, 0);
    Shaped shaped{std::vector<WORD>(static_cast<size_t>(count)), std::vector<velPointF>(static_cast<size_t>(count))};
    EXPECT_EQ(count,
              velCanvasGetTextGlyphs(canvas, Units(text), -1, shaped.glyphs.data(), shaped.positions.data(), count));
    return shaped;
}

std::vector<WORD> Unshaped(velCanvas *canvas, const Text &text) {
    std::vector<WORD> glyphs(text.size());
    EXPECT_EQ(1, velCanvasGetGlyphs(canvas, Units(text), static_cast<int>(text.size()), glyphs.data(), nullptr));
    return glyphs;
}

velTextExtent Measure(velCanvas *canvas, const Text &text) {
    velTextExtent extent{};
    EXPECT_EQ(1, velCanvasMeasureTextRun(canvas, Units(text), -1, &extent));
    return extent;
}

float Advance(velCanvas *canvas, const Text &text) { return Measure(canvas, text).advance; }

TEST(VelTextRunTest, LettersAreShaped) {
    const Painting painting;
    SetFont(painting, kSans, 48);
    EXPECT_NEAR(50.53f, Advance(painting, u"To"), 0.01f) << "kerned";
    EXPECT_NEAR(58.69f, Advance(painting, u"T") + Advance(painting, u"o"), 0.01f);
    // Letters with their marks, ligatures, and what UTF-16 has two units for are one glyph.
    for (const char16_t *text : {u"e\u0301", u"\u0644\u0627", u"\U0001F600"}) {
        const Shaped shaped = Shape(painting, text);
        EXPECT_EQ(1u, shaped.glyphs.size());
        EXPECT_NE(0, shaped.glyphs[0]);
    }
    EXPECT_EQ(Unshaped(painting, u"\u00E9"), Shape(painting, u"e\u0301").glyphs);
    // Arabic letters have another form at each end of a word, in it, and alone; also where the style changes the item.
    const Shaped word = Shape(painting, u"\u0628\u0628\u0628");
    std::vector<WORD> forms = word.glyphs;
    forms.push_back(Unshaped(painting, u"\u0628")[0]);
    std::ranges::sort(forms);
    EXPECT_EQ(4, std::unique(forms.begin(), forms.end()) - forms.begin());
    EXPECT_TRUE(word.IsInOrder());
    // Halves of surrogate pairs alone are replaced; the font lacks the last one.
    EXPECT_EQ(Unshaped(painting, u"\uFFFDa\uFFFD"), Shape(painting, {0xD83D, u'a', 0xDE00}).glyphs);
    EXPECT_EQ(std::vector<WORD>{0}, Shape(painting, u"\u0915").glyphs) << "others have it";
    EXPECT_LT(Shape(painting, u"Q\u0302").positions[1].y, -1) << "a mark above a capital letter";
}

TEST(VelTextRunTest, DirectionsAreOrdered) {
    const Painting painting;
    SetFont(painting, kSans);
    const struct {
        Text logical, visual;
    } kLines[] = {
        {u"ab \u05D0\u05D1 12", u"ab 12 \u05D1\u05D0"},
        {u"\u05D0\u05D1 ab 12", u"ab 12 \u05D1\u05D0"},
        {u"\u05D0(\u05D1)", u"(\u05D1)\u05D0"},
        {u"(ab) \u05D0", u"(ab) \u05D0"},
        {u"\u05D0 a\tb ", u" ba \u05D0"},
        {u"12 \u05D0\u05D1", u"\u05D1\u05D0 12"},
        {u"a \u05D0 b \u05D1", u"a \u05D0 b \u05D1"},
        {u"\u05D0\u05D1,\u05D2 x", u"x \u05D2,\u05D1\u05D0"},
    };
    for (const auto &[logical, visual] : kLines) {
        const Shaped shaped = Shape(painting, logical);
        EXPECT_EQ(Unshaped(painting, visual), shaped.glyphs) << &logical - &kLines[0].logical;
        EXPECT_TRUE(shaped.IsInOrder());
    }
    // An override turns letters round and draws nothing itself.
    EXPECT_FLOAT_EQ(Advance(painting, u"cba"), Advance(painting, u"\u202Eabc\u202C"));
}

TEST(VelTextRunTest, ControlCharactersDrawNothing) {
    const Painting painting;
    SetFont(painting, kSans);
    Text controls = u"\u0085\u009F\u2028\u2029";
    for (char16_t unit = 1; unit < 32; ++unit) controls += unit == u'\t' ? u'\x7F' : unit;
    EXPECT_EQ(Shape(painting, u"ab").glyphs, Shape(painting, controls + u"a" + controls + u"b" + controls).glyphs);
    EXPECT_EQ(0, velCanvasGetTextGlyphs(painting, Units(controls), -1, nullptr, nullptr, 0));
    EXPECT_FLOAT_EQ(4 * Advance(painting, u" "), Advance(painting, u"\t"));
    EXPECT_FLOAT_EQ(Advance(painting, u"T") + 4 * Advance(painting, u" ") + Advance(painting, u"o"),
                    Advance(painting, u"T\to"));
    const WCHAR zero[] = {'a', 0, 'b'};
    velTextExtent extent{};
    EXPECT_EQ(1, velCanvasMeasureTextRun(painting, zero, 3, &extent));
    EXPECT_FLOAT_EQ(Advance(painting, u"ab"), extent.advance);
}

TEST(VelTextRunTest, WhatAFontLacksComesFromOthers) {
    const auto pictureOf = [](const char *family, const Text &text) {
        Painting painting(48, 32);
        SetFont(painting, family, 20);
        EXPECT_EQ(1, velCanvasDrawTextRun(painting, Units(text), -1, 4, 22));
        return painting.Pixels();
    };
    Painting box(48, 32);
    SetFont(box, kSerif, 20);
    const WORD missing = 0;
    const velPointF origin{4, 22};
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(box, &missing, 1, &origin));
    EXPECT_EQ(box.Pixels(), pictureOf(kSerif, u"\uE123")) << "no font has it";
    for (const char16_t *text : {u"\U0001F60E", u"\u0645", u"\u0915\u094D\u0937"}) {
        EXPECT_NE(box.Pixels(), pictureOf(kSerif, text));
    }
    EXPECT_EQ(pictureOf(kSans, u"\U0001F60E"), pictureOf(kSerif, u"\U0001F60E"));

    // The measures are those of all fonts that a run uses.
    const Painting painting;
    const auto heightOf = [&](const char *family, const Text &text) {
        SetFont(painting, family, 100);
        return Measure(painting, text).ascent;
    };
    const Text letter = u"\u0915";
    const float sans = heightOf(kSans, u"a"), lohit = heightOf("Lohit Devanagari", letter);
    EXPECT_NE(sans, lohit);
    EXPECT_FLOAT_EQ(std::max(sans, lohit), heightOf(kSans, u"a" + letter));
    EXPECT_FLOAT_EQ(lohit, heightOf(kSans, letter));
    EXPECT_FLOAT_EQ(sans, heightOf(kSans, u""));
}

TEST(VelTextRunTest, FontsHaveGenericNames) {
    const Painting painting;
    const float initial = Advance(painting, u"Any text");
    EXPECT_GT(initial, 0);
    SetFont(painting, "monospace");
    EXPECT_FLOAT_EQ(Advance(painting, u"i"), Advance(painting, u"W"));
    const float monospace = Advance(painting, u"Any text");
    for (const char *family : {"serif", "Sans-Serif", "system-ui"}) {
        SetFont(painting, family);
        EXPECT_NE(monospace, Advance(painting, u"Any text")) << family;
    }
    constexpr WCHAR kEmpty[] = {0};
    for (const WCHAR *none : {static_cast<const WCHAR *>(nullptr), kEmpty}) {
        SetFont(painting, "No Such Family");
        velTextExtent extent{-1, 0, 0, 0, {}};
        EXPECT_EQ(0, velCanvasMeasureTextRun(painting, Units(u"x"), 1, &extent));
        EXPECT_EQ(-1.0f, extent.advance);
        EXPECT_EQ(1, velCanvasSetFontFaceName(painting, none));
        EXPECT_FLOAT_EQ(initial, Advance(painting, u"Any text"));
    }
}

TEST(VelTextRunTest, RunsAreDrawnAsMeasured) {
    const Text text = u"fjW \u05D0\U0001F60E\u0301";
    for (int i = 0; i < 60; ++i) {
        // Many sizes, because most texts would be as wide elsewhere; every style of some.
        const float size = i == 0 ? 300 : i == 1 ? 40 : 8 + 0.1f * static_cast<float>(i);
        for (DWORD style = 0; style < (i < 3 ? 16u : 1u); ++style) {
            const int margin = static_cast<int>(size) + 4;
            Painting painting(margin * 7, margin * 3);
            SetFont(painting, kSans, size, style);
            const auto x = static_cast<float>(margin), y = static_cast<float>(2 * margin);
            ASSERT_EQ(1, velCanvasDrawTextRun(painting, Units(text), static_cast<int>(text.size()), x, y));
            const velTextExtent extent = Measure(painting, text);
            const RECT box = painting.Box();
            const float slack[] = {static_cast<float>(box.left) - x - extent.ink.left,
                                   static_cast<float>(box.top) - y - extent.ink.top,
                                   extent.ink.right + x - static_cast<float>(box.right),
                                   extent.ink.bottom + y - static_cast<float>(box.bottom)};
            for (const float each : slack) EXPECT_TRUE(each >= 0 && each <= 1) << size << ' ' << style << ' ' << each;
            EXPECT_LE(extent.ascent + extent.descent, extent.lineHeight + 0.001f);
        }
    }
    // The glyphs of a run, put where they are said to be, are the run.
    Painting run(160, 40), glyphs(160, 40);
    const Text line = u"AV To \u05D0\u05D1 (fi)";
    for (const Painting *each : {&run, &glyphs}) SetFont(*each, kSans, 18);
    EXPECT_EQ(1, velCanvasDrawTextRun(run, Units(line), -1, 3, 25));
    Shaped shaped = Shape(glyphs, line);
    for (velPointF &position : shaped.positions) position = {position.x + 3, position.y + 25};
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(glyphs, shaped.glyphs.data(), static_cast<int>(shaped.glyphs.size()),
                                              shaped.positions.data()));
    EXPECT_EQ(glyphs.Pixels(), run.Pixels());
    std::ranges::fill(shaped.glyphs, WORD{7});
    EXPECT_EQ(12, velCanvasGetTextGlyphs(glyphs, Units(line), -1, shaped.glyphs.data(), shaped.positions.data(), 2));
    EXPECT_EQ(7, shaped.glyphs[2]) << "beyond the capacity";
}

TEST(VelTextRunTest, WhatIsNoRunIsRefused) {
    const Text longest(65535, u' '), tooLong(65536, u' ');
    const struct {
        const char *name;
        const Text *text;
        int length;
        float x = 1, y = 1;
    } kRuns[] = {{"negative", &longest, -2},        {"too long", &tooLong, 65536},       {"never ends", &tooLong, -1},
                 {"no text", nullptr, 1},           {"no text to its end", nullptr, -1}, {"NaN", &longest, 1, NAN, 1},
                 {"distant", &longest, 1, 1, -2e6f}};
    for (const auto &run : kRuns) {
        const WCHAR *units = run.text ? Units(*run.text) : nullptr;
        ExpectRefused(run.name,
                      [&](velCanvas *canvas) { return velCanvasDrawTextRun(canvas, units, run.length, run.x, run.y); });
        if (run.x != 1 || run.y != 1) continue;
        velTextExtent extent{};
        const Painting painting;
        EXPECT_EQ(0, velCanvasMeasureTextRun(painting, units, run.length, &extent)) << run.name;
        EXPECT_EQ(0, velCanvasGetTextGlyphs(painting, units, run.length, nullptr, nullptr, 0)) << run.name;
    }
    const Painting painting;
    velTextExtent extent{};
    WORD glyph = 0;
    velPointF position{};
    EXPECT_EQ(1, velCanvasDrawTextRun(painting, Units(longest), -1, 1, 1));
    EXPECT_EQ(1, velCanvasDrawTextRun(painting, nullptr, 0, 1, 1));
    EXPECT_EQ(0, velCanvasMeasureTextRun(painting, Units(longest), 1, nullptr) |
                     velCanvasMeasureTextRun(nullptr, Units(longest), 1, &extent) |
                     velCanvasGetTextGlyphs(painting, Units(longest), 1, nullptr, &position, 1) |
                     velCanvasGetTextGlyphs(painting, Units(longest), 1, &glyph, nullptr, 1) |
                     velCanvasGetTextGlyphs(painting, Units(longest), 1, &glyph, &position, -1));
    velCanvas *bare = velCanvasCreate();
    EXPECT_EQ(0, velCanvasDrawTextRun(bare, Units(longest), 1, 1, 1)) << "no bitmap";
    EXPECT_EQ(1, velCanvasMeasureTextRun(bare, Units(longest), 1, &extent));
    velCanvasDestroy(bare);
}

TEST(VelTextRunTest, TheWorkOfARunIsBounded) {
    const Text patterns[] = {u"(",
                             u"\u0301",
                             u"\u0915\u094D",
                             u"a\u05D0",
                             u"\u202B\u05D0\u202A",
                             u"\u2067(",
                             u"\u05D0\u05B0\u05B1",
                             u"\u0915\u094D\u200D",
                             u"\t\u0628",
                             u"\u0E33\uE000"};
    Painting painting;
    for (const Text &pattern : patterns) {
        Text text;
        while (text.size() + pattern.size() <= 65535) text += pattern;
        const PageClock clock;
        EXPECT_EQ(1, velCanvasDrawTextRun(painting, Units(text), -1, 3, 20));
        EXPECT_FALSE(clock.IsLong());
    }
}

TEST(VelTextRunTest, ThreadsShareFonts) {
    constexpr int kThreads = 4, kRounds = 60;
    const auto pictureOf = [](int number) {
        constexpr const char *kFamilies[] = {kSans, kSerif, "DejaVu Sans Mono", "No Such Family"};
        Painting painting(64, 32);
        SetFont(painting, kFamilies[number % 4], static_cast<float>(9 + number % 5), static_cast<DWORD>(number % 8));
        const Text text = u"Run \u05D0\u0628\u0915" + Text(1, static_cast<char16_t>(u'a' + number % 20));
        EXPECT_EQ(number % 4 != 3, velCanvasDrawTextRun(painting, Units(text), -1, 2, 20));
        return painting.Pixels();
    };
    std::vector<std::vector<uint32_t>> drawn(kThreads * kRounds);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < kRounds; ++i) drawn[static_cast<size_t>(thread * kRounds + i)] = pictureOf(i);
        });
    }
    for (std::thread &thread : threads) thread.join();
    for (int i = 0; i < kThreads * kRounds; ++i) EXPECT_EQ(pictureOf(i % kRounds), drawn[static_cast<size_t>(i)]) << i;
}

#ifndef _WIN32
/// Every file under a folder, with the time of its last change.
std::map<std::string, std::filesystem::file_time_type> FilesIn(const std::filesystem::path &folder) {
    std::map<std::string, std::filesystem::file_time_type> files;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
        files[entry.path()] = entry.last_write_time();
    }
    return files;
}

/// Draws with fonts in a folder of its own. The result of the process is 0 when everything is right.
[[noreturn]] void DrawWithFontsIn(const std::filesystem::path &folder) {
    namespace fs = std::filesystem;
    fs::remove_all(folder);
    for (const char *part : {"fonts/more", "cache", "home/.fonts.conf.d"}) fs::create_directories(folder / part);
    const auto write = [](const fs::path &path, const std::string &text) {
        std::FILE *file = std::fopen(path.c_str(), "w");
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
    };
    write(folder / "fonts/no font.ttf", "no font");
    write(folder / "home/.fonts.conf", "<fontconfig></fontconfig>");
    write(folder / "fonts.conf", "<fontconfig><dir>" + (folder / "fonts").string() + "</dir><cachedir>" +
                                     (folder / "cache").string() + "</cachedir></fontconfig>");
    fs::create_symlink("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", folder / "fonts/more/Sans.ttf");
    setenv("FONTCONFIG_FILE", (folder / "fonts.conf").c_str(), 1);
    setenv("HOME", (folder / "home").c_str(), 1);

    const Painting painting;
    const auto before = FilesIn(folder);
    const auto isInstalled = [&](const char *family) {
        velCanvasSetFontFaceName(painting, Utf16(family).data());
        return velCanvasDrawTextRun(painting, Units(u"T\u05D0\u0915"), -1, 2, 20) == 1;
    };
    const bool isRight = isInstalled(kSans) && !isInstalled(kSerif) && FilesIn(folder) == before;
    // A family that is added later is found, though not at once.
    fs::create_symlink("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf", folder / "fonts/more/Serif.ttf");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    bool isFound = false;
    while (!isFound && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        isFound = isInstalled(kSerif);
    }
    fs::remove_all(folder);
    _exit(isRight && isFound ? 0 : 1);
}

TEST(VelTextRunDeathTest, NothingIsWrittenOrPrinted) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string folder = "lacquer_fonts_" + std::to_string(getpid());
    EXPECT_EXIT(DrawWithFontsIn(std::filesystem::temp_directory_path() / folder), testing::ExitedWithCode(0), "^$");
}
#endif

}  // namespace
}  // namespace lacquer
