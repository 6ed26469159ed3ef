// Reading JSON from its text.

#include "json.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace lacquer::vel {

bool JsonReader::IsComplete() {
    SkipBlanks();
    return !isBroken_ && at_ == length_;
}

JsonKind JsonReader::Kind() {
    SkipBlanks();
    switch (Peek()) {
        case '{': return JsonKind::Object;
        case '[': return JsonKind::Array;
        case '"': return JsonKind::String;
        case 't':
        case 'f': return JsonKind::Bool;
        case 'n': return JsonKind::Null;
        default: return JsonKind::Number;
    }
}

bool JsonReader::Enter() {
    if (isBroken_ || ++nesting_ > kMaxNesting) return Fail();
    SkipBlanks();
    ++at_;
    isFirst_ = true;
    return true;
}

bool JsonReader::Next(char end) {
    if (isBroken_) return false;
    SkipBlanks();
    if (Take(end)) {
        --nesting_;
        isFirst_ = false;
        return false;
    }
    if (!isFirst_ && !Take(',')) return Fail();
    isFirst_ = false;
    return true;
}

bool JsonReader::NextMember(std::string_view &name) {
    if (!Next('}')) return false;
    SkipBlanks();
    if (Peek() != '"' || !Read(name)) return Fail();
    SkipBlanks();
    return Take(':') || Fail();
}

bool JsonReader::Read(double &number) {
    const size_t start = at_;
    Take('-');
    if (!Take('0') && !TakeDigits()) return Fail();
    if (Take('.') && !TakeDigits()) return Fail();
    if (Take('e') || Take('E')) {
        if (!Take('-')) Take('+');
        if (!TakeDigits()) return Fail();
    }
    // What is too small for a number is 0; what is too large is refused by whoever reads it in earnest.
    number = 0;
    if (std::from_chars(text_ + start, text_ + at_, number).ec == std::errc()) return true;
    const std::string_view digits(text_ + start, at_ - start);
    number = digits.find("e-") == digits.npos && digits.find("E-") == digits.npos
                 ? std::numeric_limits<double>::infinity()
                 : 0;
    return true;
}

bool JsonReader::Read(std::string_view &string) {
    if (isBroken_ || !Take('"')) return Fail();
    const size_t start = at_;
    size_t to = at_;
    while (at_ < length_ && text_[at_] != '"') {
        if (static_cast<unsigned char>(text_[at_]) < 0x20) return Fail();
        if (text_[at_] != '\\') {
            text_[to++] = text_[at_++];
        } else if (!ReadEscape(to)) {
            return Fail();
        }
    }
    if (!Take('"')) return Fail();
    string = {text_ + start, to - start};
    if (to + 1 < at_) {
        text_[to] = '"';
        std::fill(text_ + to + 1, text_ + at_, ' ');
    }
    return true;
}

/// Moves an escape to `to`, as the character that it stands for if that is a plain one.
bool JsonReader::ReadEscape(size_t &to) {
    const size_t start = at_++;
    if (!Take('u')) {
        if (at_ == length_ || std::string_view("\"\\/bfnrt").find(text_[at_]) == std::string_view::npos) return false;
        text_[to++] = '\\';
        text_[to++] = text_[at_++];
        return true;
    }
    unsigned code = 0;
    const char *const end = text_ + std::min(at_ + 4, length_);
    if (std::from_chars(text_ + at_, end, code, 16).ptr != text_ + at_ + 4 || code == 0) return false;
    at_ += 4;
    if (code >= 0x20 && code < 0x7F && code != '"' && code != '\\') {
        text_[to++] = static_cast<char>(code);
    } else {
        to = static_cast<size_t>(std::copy(text_ + start, text_ + at_, text_ + to) - text_);
    }
    return true;
}

void JsonReader::SkipScalar() {
    std::string_view string;
    double number = 0;
    switch (Kind()) {
        case JsonKind::String: Read(string); break;
        case JsonKind::Bool: (void)(TakeWord("true") || TakeWord("false") || Fail()); break;
        case JsonKind::Null: (void)(TakeWord("null") || Fail()); break;
        default: Read(number); break;
    }
}

bool JsonReader::Fail() {
    isBroken_ = true;
    return false;
}

bool JsonReader::Take(char expected) {
    if (at_ == length_ || text_[at_] != expected) return false;
    ++at_;
    return true;
}

bool JsonReader::TakeDigits() {
    const size_t start = at_;
    while (Peek() >= '0' && Peek() <= '9') ++at_;
    return at_ > start;
}

bool JsonReader::TakeWord(std::string_view word) {
    if (std::string_view(text_ + at_, length_ - at_).substr(0, word.size()) != word) return false;
    at_ += word.size();
    return true;
}

void JsonReader::SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t' || Peek() == '\n' || Peek() == '\r') ++at_;
}

}  // namespace lacquer::vel
