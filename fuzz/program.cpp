// Making and running programs.

#include "program.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#ifndef _WIN32
extern "C" __attribute__((weak)) size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace fuzz {

const std::vector<Row> &Calls() {
    static const std::vector<Row> calls = [] {
        std::vector<Row> all;
        for (const auto &part : {SurfaceCalls(), VectorCalls(), TextCalls(), ContextCalls(), GdiCalls()}) {
            all.insert(all.end(), part.begin(), part.end());
        }
        std::sort(all.begin(), all.end(), [](const Row &a, const Row &b) { return a.code < b.code; });
        return all;
    }();
    return calls;
}

const Row &RowFor(uint32_t code) {
    const auto &calls = Calls();
    const auto found =
        std::lower_bound(calls.begin(), calls.end(), code, [](const Row &row, uint32_t at) { return row.code < at; });
    return found == calls.end() ? calls.front() : *found;
}

void NameRow(uint8_t *record, const Row &row) {
    for (int i = 0; i < 4; ++i) record[i] = static_cast<uint8_t>(row.code >> 8 * i);
}

Program MakeProgram(uint64_t seed, uint64_t index, const Rules &rules) {
    std::vector<const Row *> rows, creations;
    for (const Row &row : Calls()) {
        if (!(row.group & rules.groups)) continue;
        rows.push_back(&row);
        if (std::string_view(row.name).find("Create") != std::string_view::npos) creations.push_back(&row);
    }
    uint64_t state = seed * 0xD1342543DE82EF95 + index;
    // Every other program knows few calls only, which meet more often then.
    if (NextRandom(state) & 1) {
        const size_t few = std::min(6 + NextRandom(state) % 40, rows.size());
        for (size_t i = 0; i < few; ++i) std::swap(rows[i], rows[i + NextRandom(state) % (rows.size() - i)]);
        rows.resize(few);
    }
    const size_t count = 20 + NextRandom(state) % (kMaxCalls - 20), opening = 8 + NextRandom(state) % 16;
    Program program(count * kRecordSize);
    for (size_t i = 0; i < program.size(); i += 8) {
        const uint64_t word = NextRandom(state);
        std::memcpy(&program[i], &word, 8);
    }
    for (size_t i = 0; i < count; ++i) {
        const auto &from = i < opening || NextRandom(state) % 16 == 0 ? creations : rows;
        NameRow(&program[i * kRecordSize], *from[NextRandom(state) % from.size()]);
    }
    return program;
}

size_t BytesInUse() {
#ifndef _WIN32
    if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
#endif
    return 0;
}

namespace {

/// Whether views that were locked before a call may be invalid after it: an object ends, or pixels move.
bool MayEndViews(std::string_view name) {
    for (const char *part :
         {"Del", "Release", "Handle", "CanvasTo", "BitmapTo", "Unlock", "Blend", "Trans", "Select", "Restore"}) {
        if (name.find(part) != std::string_view::npos) return true;
    }
    return false;
}

[[noreturn]] void Fail(const char *what) {
    std::fprintf(stderr, "lacquer_fuzz: %s\n", what);
    std::abort();
}

void RunOnce(std::span<const uint8_t> program, const Rules &rules, std::ostream *text, const Listener &listener) {
    World world(rules);
    const size_t count = std::min(program.size() / kRecordSize, kMaxCalls);
    for (size_t i = 0; i < count; ++i) {
        const auto record = program.subspan(i * kRecordSize, kRecordSize);
        uint32_t code = 0;
        for (size_t byte = 4; byte-- > 0;) code = code << 8 | record[byte];
        const Row &row = RowFor(code);
        if (!(row.group & rules.groups)) continue;
        if (MayEndViews(row.name)) world.views.clear();
        Call call(world, record.subspan(4), text);
        row.invoke(call);
        if (listener && !call.isUndefined) {
            listener({row, call.done, call.digest.Value(), rules.comparable ? world.PixelDigest() : 0});
        }
    }
    if (text) *text << "// the end of what is alive" << std::endl;
    if (!world.Clear()) Fail("handles stay current");
}

}  // namespace

void RunProgram(std::span<const uint8_t> program, const Rules &rules, std::ostream *text, const Listener &listener) {
    // What grows the first time may be a cache; what grows every time is lost.
    constexpr int kTries = 6;
    for (int i = 0; i < kTries; ++i) {
        const size_t before = BytesInUse();
        RunOnce(program, rules, i == 0 ? text : nullptr, i == 0 ? listener : nullptr);
        if (BytesInUse() <= before) return;
    }
    Fail("memory stays allocated");
}

}  // namespace fuzz
