// A strict JSON reader for input that is not trusted: well-formed or refused, with bounded nesting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "buffer.h"

namespace lacquer::vel {

enum class JsonKind : uint8_t { Null, Bool, Number, String, Array, Object };

/// Names and strings are as in the text, escapes included.
struct JsonNode {
    static constexpr uint32_t kNone = UINT32_MAX;

    JsonKind kind = JsonKind::Null;
    double number = 0;
    uint32_t nameAt = 0, nameLength = 0;
    uint32_t textAt = 0, textLength = 0;
    uint32_t child = kNone, next = kNone;
};

/// The nodes of a text, which has to stay as long as the document.
class JsonDocument {
public:
    static constexpr int kMaxNesting = 128;

    /// False when the text (of less than 2^32 - 1 bytes) is no JSON, is nested too deeply, has a number out of the
    /// range of a double or a name with an escape, and when memory is short.
    bool Parse(std::string_view text);

    const JsonNode &Root() const { return nodes_[0]; }
    std::string_view Name(const JsonNode &node) const { return text_.substr(node.nameAt, node.nameLength); }
    std::string_view Text(const JsonNode &node) const { return text_.substr(node.textAt, node.textLength); }

    /// The elements of an array or members of an object, one after the other, then null.
    const JsonNode *First(const JsonNode &node) const { return At(node.child); }
    const JsonNode *Next(const JsonNode &node) const { return At(node.next); }

    /// The last member of this name, or null. Of two members with one name readers may take either.
    const JsonNode *Member(const JsonNode &object, std::string_view name) const;

private:
    const JsonNode *At(uint32_t index) const { return index == JsonNode::kNone ? nullptr : &nodes_[index]; }
    char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    bool Take(char expected);
    bool TakeWord(std::string_view word);
    void SkipBlanks();
    bool ParseValue(int nesting, uint32_t &index);
    bool ParseMembers(int nesting, uint32_t parent, char end);
    bool ParseNumber(JsonNode &node);
    bool ParseString(uint32_t &start, uint32_t &length, bool &hasEscapes);

    std::string_view text_;
    size_t at_ = 0;
    Buffer<JsonNode> nodes_;
};

}  // namespace lacquer::vel
