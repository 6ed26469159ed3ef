// Reading JSON into nodes.

#include "json.h"

#include <charconv>

namespace lacquer::vel {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

}  // namespace

bool JsonDocument::Parse(std::string_view text) {
    text_ = text;
    at_ = 0;
    nodes_.Truncate(0);
    uint32_t root = 0;
    if (!ParseValue(0, root)) return false;
    SkipBlanks();
    return at_ == text_.size();
}

const JsonNode *JsonDocument::Member(const JsonNode &object, std::string_view name) const {
    const JsonNode *found = nullptr;
    if (object.kind != JsonKind::Object) return nullptr;
    for (const JsonNode *member = First(object); member; member = Next(*member)) {
        if (Name(*member) == name) found = member;
    }
    return found;
}

bool JsonDocument::Take(char expected) {
    if (at_ == text_.size() || text_[at_] != expected) return false;
    ++at_;
    return true;
}

bool JsonDocument::TakeWord(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
}

void JsonDocument::SkipBlanks() {
    while (Peek() == ' ' || Peek() == '\t' || Peek() == '\n' || Peek() == '\r') ++at_;
}

bool JsonDocument::ParseValue(int nesting, uint32_t &index) {
    SkipBlanks();
    JsonNode node;
    bool isDone = true, hasEscapes = false;
    switch (Peek()) {
        case '{': node.kind = JsonKind::Object; break;
        case '[': node.kind = JsonKind::Array; break;
        case '"':
            node.kind = JsonKind::String;
            isDone = ParseString(node.textAt, node.textLength, hasEscapes);
            break;
        case 't':
            node.kind = JsonKind::Bool;
            isDone = TakeWord("true");
            break;
        case 'f':
            node.kind = JsonKind::Bool;
            isDone = TakeWord("false");
            break;
        case 'n': isDone = TakeWord("null"); break;
        default: isDone = ParseNumber(node); break;
    }
    index = static_cast<uint32_t>(nodes_.Size());
    if (!isDone || !nodes_.Append(node)) return false;
    if (node.kind == JsonKind::Object) return ParseMembers(nesting + 1, index, '}');
    if (node.kind == JsonKind::Array) return ParseMembers(nesting + 1, index, ']');
    return true;
}

bool JsonDocument::ParseMembers(int nesting, uint32_t parent, char end) {
    if (nesting > kMaxNesting) return false;
    ++at_;
    SkipBlanks();
    if (Take(end)) return true;
    uint32_t previous = JsonNode::kNone;
    do {
        uint32_t nameAt = 0, nameLength = 0, index = 0;
        if (end == '}') {
            bool hasEscapes = false;
            SkipBlanks();
            if (!ParseString(nameAt, nameLength, hasEscapes) || hasEscapes) return false;
            SkipBlanks();
            if (!Take(':')) return false;
        }
        if (!ParseValue(nesting, index)) return false;
        JsonNode *nodes = nodes_.Data();
        nodes[index].nameAt = nameAt;
        nodes[index].nameLength = nameLength;
        (previous == JsonNode::kNone ? nodes[parent].child : nodes[previous].next) = index;
        previous = index;
        SkipBlanks();
    } while (Take(','));
    return Take(end);
}

bool JsonDocument::ParseNumber(JsonNode &node) {
    const size_t start = at_;
    Take('-');
    if (!Take('0')) {
        if (!IsDigit(Peek())) return false;
        while (IsDigit(Peek())) ++at_;
    }
    if (Take('.')) {
        if (!IsDigit(Peek())) return false;
        while (IsDigit(Peek())) ++at_;
    }
    if (Take('e') || Take('E')) {
        if (!Take('-')) Take('+');
        if (!IsDigit(Peek())) return false;
        while (IsDigit(Peek())) ++at_;
    }
    node.kind = JsonKind::Number;
    node.textAt = static_cast<uint32_t>(start);
    node.textLength = static_cast<uint32_t>(at_ - start);
    return std::from_chars(text_.data() + start, text_.data() + at_, node.number).ec == std::errc();
}

bool JsonDocument::ParseString(uint32_t &start, uint32_t &length, bool &hasEscapes) {
    if (!Take('"')) return false;
    start = static_cast<uint32_t>(at_);
    while (at_ < text_.size() && text_[at_] != '"') {
        if (static_cast<unsigned char>(text_[at_]) < 0x20) return false;
        if (!Take('\\')) {
            ++at_;
            continue;
        }
        hasEscapes = true;
        if (Take('u')) {
            for (int i = 0; i < 4; ++i, ++at_) {
                if (!IsHexDigit(Peek())) return false;
            }
        } else {
            if (std::string_view("\"\\/bfnrt").find(Peek()) == std::string_view::npos) return false;
            ++at_;
        }
    }
    length = static_cast<uint32_t>(at_ - start);
    return Take('"');
}

}  // namespace lacquer::vel
