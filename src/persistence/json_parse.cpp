#include <algorithm>
#include <iterator>

#include "persistence/json_exception.h"
#include "persistence/json_parser.h"
#include "platform/number_text.h"
#include "platform/text.h"

namespace dunvey {
namespace {

constexpr int kDeepest = 1000;

}  // namespace

/// One container that is open: counts its level and knows where its values begin.
class JSONParser::Nesting {
 public:
    Nesting(JSONParser& parser, int64_t position) : parser_(parser), first_(parser.values_.size()) {
        if (parser.depth_ == kDeepest) throw JSONException("A parsing error occurred", 2, position);
        ++parser_.depth_;
    }
    ~Nesting() {
        --parser_.depth_;
        parser_.values_.resize(first_);
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

    JSONData Elements() const {
        const auto begin = parser_.values_.begin() + static_cast<std::ptrdiff_t>(first_);
        return JSONData(JSONData::Elements(std::make_move_iterator(begin),
                                           std::make_move_iterator(parser_.values_.end())));
    }
    JSONData Members() const {
        OrderedTable members;
        members.Reserve((parser_.values_.size() - first_) / 2);
        for (size_t i = first_; i < parser_.values_.size(); i += 2) {
            members.Assign(std::move(parser_.values_[i]), std::move(parser_.values_[i + 1]));
        }
        return JSONData(std::move(members));
    }

 private:
    JSONParser& parser_;
    size_t first_;
};

std::string_view JSONParser::ParsePeek(int64_t position, int64_t count) const {
    return bytes_.substr(static_cast<size_t>(position), static_cast<size_t>(count));
}

std::string_view JSONParser::ParseGet(int64_t& position, int64_t count) const {
    const std::string_view got = ParsePeek(position, count);
    position += static_cast<int64_t>(got.size());
    return got;
}

void JSONParser::skipWhiteSpace(int64_t& position) const {
    for (;; ++position) {
        const int byte = Peek(position);
        if (byte != ' ' && byte != '\n' && byte != '\t' && byte != '\r') return;
    }
}

Variant JSONParser::parseValue(int64_t& position) {
    const int first = Peek(position);
    switch (first) {
        case '"':
            return parseString(position);
        case '{':
            return parseObject(position);
        case '[':
            return parseArray(position);
        case kEnd:
            return {};
        default:
            break;
    }
    if (first == '-' || (first >= '0' && first <= '9')) return parseNumber(position);
    const int64_t start = position;
    const std::string_view token = ParseGet(position, 4);
    if (token == "true") return true;
    if (token == "null") return {};
    const bool wasFalse = token == "fals" && Take(position) == 'e';
    if (wasFalse) return false;
    if (token != "fals") position = start;
    throw JSONException("Illegal Value", 10, position);
}

Ref<JSONItem> JSONParser::parseObject(int64_t& position) {
    Ref<JSONItem> item = New<JSONItem>();
    if (Take(position) != '{') throw JSONException("Missing {", 4, position);
    const Nesting nesting(*this, position);
    skipWhiteSpace(position);
    if (Peek(position) == '}') {
        ++position;
        return item;
    }
    parseMembers(position);
    item->_data = nesting.Members();
    return item;
}

void JSONParser::parseMembers(int64_t& position) {
    for (;;) {
        skipWhiteSpace(position);
        values_.push_back(parseString(position));
        skipWhiteSpace(position);
        if (Take(position) != ':') throw JSONException("Missing :", 5, position);
        skipWhiteSpace(position);
        values_.push_back(parseValue(position));
        skipWhiteSpace(position);
        const int byte = Take(position);
        if (byte == '}') return;
        if (byte != ',') throw JSONException("Missing , or }", 6, position);
    }
}

Ref<JSONItem> JSONParser::parseArray(int64_t& position) {
    Ref<JSONItem> item = New<JSONItem>();
    if (Take(position) != '[') throw JSONException("Unsupported Format", 1, position);
    const Nesting nesting(*this, position);
    item->_mIsArray = true;
    skipWhiteSpace(position);
    if (Peek(position) == ']') {
        ++position;
        return item;
    }
    parseElements(position);
    item->_data = nesting.Elements();
    return item;
}

void JSONParser::parseElements(int64_t& position) {
    for (;;) {
        skipWhiteSpace(position);
        values_.push_back(parseValue(position));
        skipWhiteSpace(position);
        const int byte = Take(position);
        if (byte == ']') return;
        if (byte != ',') throw JSONException("A parsing error occurred", 2, position);
    }
}

/// The number of bytes from the position on that stand for themselves in a string.
size_t JSONParser::PlainLength(int64_t position) const {
    const char* begin = bytes_.data() + position;
    const char* end = bytes_.data() + bytes_.size();
    return static_cast<size_t>(
        std::find_if(begin, end, [](char c) { return c == '"' || c == '\\'; }) - begin);
}

Variant JSONParser::parseString(int64_t& position) {
    if (Take(position) != '"') throw JSONException("Missing \"", 7, position);
    const std::string_view plain = ParseGet(position, static_cast<int64_t>(PlainLength(position)));
    int byte = Take(position);
    if (byte != '\\') return {plain, TextEncoding::None};
    unescaped_.assign(plain);
    for (; byte == '\\'; byte = Take(position)) {
        unescaped_ += Unescaped(position);
        unescaped_ += ParseGet(position, static_cast<int64_t>(PlainLength(position)));
    }
    return {unescaped_, TextEncoding::None};
}

/// What the escape behind a backslash stands for.
std::string JSONParser::Unescaped(int64_t& position) const {
    const int byte = Take(position);
    switch (byte) {
        case '"':
        case '\\':
        case '/':
            return {static_cast<char>(byte)};
        case 'b':
            return "\b";
        case 'f':
            return "\f";
        case 'n':
            return "\n";
        case 'r':
            return "\r";
        case 't':
            return "\t";
        case 'u':
            break;
        default:
            throw JSONException("Illegal Character", 9, position);
    }
    const std::string_view digits = ParseGet(position, 4);
    if (digits.size() < 4) throw JSONException("Illegal Unicode Character Format", 8, position);
    // Each half of a pair stands for itself; alone it is no character.
    return Chr(static_cast<uint32_t>(HexadecimalValue(digits)));
}

}  // namespace dunvey
