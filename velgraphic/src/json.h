// Reads JSON that is not trusted, value by value, from the front to the end; nothing of it is kept.
#pragma once

#include <cstddef>
#include <string_view>

namespace lacquer::vel {

enum class JsonKind : unsigned char { Null, Bool, Number, String, Array, Object };

/// The caller asks for the kind of the value that comes next, and reads or skips it. After an error all that is asked
/// for fails; whoever reads need not look before the end.
class JsonReader {
public:
    static constexpr int kMaxNesting = 256;

    /// The text stays the caller's. Escapes of plain characters, which could hide a known name, are replaced by the
    /// characters as they are met; what they leave is blank.
    JsonReader(char *text, size_t length) : text_(text), length_(length) {}

    /// Whether the text was well-formed to its end, not nested too deeply, and without zero characters in strings.
    bool IsComplete();
    size_t At() const { return at_; }

    JsonKind Kind();
    /// Goes into an array or object. Then each Next gives whether there is a further item, whose value comes next.
    bool Enter();
    bool NextItem() { return Next(']'); }
    bool NextMember(std::string_view &name);

    bool Read(double &number);
    bool Read(std::string_view &string);
    void SkipScalar();

private:
    char Peek() const { return at_ < length_ ? text_[at_] : '\0'; }
    bool Fail();
    bool Take(char expected);
    bool TakeDigits();
    bool TakeWord(std::string_view word);
    void SkipBlanks();
    bool Next(char end);
    bool ReadEscape(size_t &to);

    char *text_;
    size_t length_, at_ = 0;
    int nesting_ = 0;
    bool isBroken_ = false, isFirst_ = false;
};

}  // namespace lacquer::vel
