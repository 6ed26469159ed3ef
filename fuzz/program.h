// Programs: strings of records of equal size, each of which makes one call.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <vector>

#include "calls.h"

namespace fuzz {

using Program = std::vector<uint8_t>;

/// Four bytes name the row, the others choose its arguments.
constexpr size_t kRecordSize = 32;
constexpr size_t kMaxCalls = 400;

/// What happened to one call.
struct CallReport {
    const Row &row;
    bool done;
    uint64_t results, pixels;  ///< checksums; of the pixels only where they are asked for
};
using Listener = std::function<void(const CallReport &)>;

/// A program that follows from the two numbers.
Program MakeProgram(uint64_t seed, uint64_t index, const Rules &rules);

/// Writes the row's name into a record.
void NameRow(uint8_t *record, const Row &row);

/// Runs a program, and ends the process with a message when something of it stays behind. `text`: null, or where the
/// calls are written.
void RunProgram(std::span<const uint8_t> program, const Rules &rules, std::ostream *text,
                const Listener &listener = nullptr);

/// What the process has allocated, bytes; 0 without the address sanitizer, which counts.
size_t BytesInUse();

}  // namespace fuzz
