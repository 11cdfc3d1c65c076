#include <algorithm>

#include "persistence/json_exception.h"
#include "persistence/json_item.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr int kMaxDepth = 1000;

bool IsDigit(std::string_view byte) {
    return !byte.empty() && byte[0] >= '0' && byte[0] <= '9';
}

void CheckDepth(int depth, int64_t position) {
    if (depth == kMaxDepth) throw JSONException("A parsing error occurred", 2, position);
}

}  // namespace

Ref<JSONItem> JSONItem::Parse(std::string text) {
    _ParseBuffer = New<MemoryBlock>(std::move(text));
    int64_t position = 0;
    skipWhiteSpace(position);
    const std::string_view first = ParsePeek(position, 1);
    if (first == "{") return parseObject(position, 0);
    if (first != "[") throw JSONException("Parse Error: Expecting '{' or '['", 1, position);
    _mIsArray = true;
    return parseArray(position, 0);
}

std::string_view JSONItem::ParsePeek(int64_t position, int64_t count) const {
    return _ParseBuffer->Bytes().substr(static_cast<size_t>(position), static_cast<size_t>(count));
}

std::string_view JSONItem::ParseGet(int64_t& position, int64_t count) const {
    const std::string_view got = ParsePeek(position, count);
    position += static_cast<int64_t>(got.size());
    return got;
}

void JSONItem::skipWhiteSpace(int64_t& position) const {
    for (;;) {
        const std::string_view byte = ParsePeek(position, 1);
        if (byte != " " && byte != "\n" && byte != "\t" && byte != "\r") return;
        ++position;
    }
}

Variant JSONItem::parseValue(int64_t& position, int depth) const {
    const int64_t start = position;
    const std::string_view token = ParseGet(position, 4);
    if (token.empty()) return nullptr;
    if (token == "true") return true;
    if (token == "null") return nullptr;
    if (token != "fals") {
        position = start;
    } else if (ParseGet(position, 1) == "e") {
        return false;
    }
    switch (token[0]) {
        case '"':
            return parseString(position);
        case '{':
            return parseObject(position, depth);
        case '[':
            return parseArray(position, depth);
        default:
            if (token[0] == '-' || IsDigit(token)) return parseNumber(position);
            throw JSONException("Illegal Value", 10, position);
    }
}

Ref<JSONItem> JSONItem::parseObject(int64_t& position, int depth) const {
    Ref<JSONItem> item = New<JSONItem>();
    if (ParseGet(position, 1) != "{") throw JSONException("Missing {", 4, position);
    CheckDepth(depth, position);
    skipWhiteSpace(position);
    if (ParsePeek(position, 1) == "}") {
        ++position;
        return item;
    }
    for (;;) {
        skipWhiteSpace(position);
        const std::string key = parseString(position).Bytes;
        skipWhiteSpace(position);
        if (ParseGet(position, 1) != ":") throw JSONException("Missing :", 5, position);
        skipWhiteSpace(position);
        item->SetValue(key, parseValue(position, depth + 1));
        skipWhiteSpace(position);
        const std::string_view next = ParseGet(position, 1);
        if (next == "}") return item;
        if (next != ",") throw JSONException("Missing , or }", 6, position);
    }
}

Ref<JSONItem> JSONItem::parseArray(int64_t& position, int depth) const {
    Ref<JSONItem> item = New<JSONItem>();
    if (ParseGet(position, 1) != "[") throw JSONException("Unsupported Format", 1, position);
    CheckDepth(depth, position);
    item->_mIsArray = true;
    skipWhiteSpace(position);
    if (ParsePeek(position, 1) == "]") {
        ++position;
        return item;
    }
    for (;;) {
        skipWhiteSpace(position);
        item->Append(parseValue(position, depth + 1));
        skipWhiteSpace(position);
        const std::string_view next = ParseGet(position, 1);
        if (next == "]") return item;
        if (next != ",") throw JSONException("A parsing error occurred", 2, position);
    }
}

/// The bytes up to the next quote or backslash or the end of the text.
std::string_view JSONItem::parsePlain(int64_t& position) const {
    const std::string_view rest = _ParseBuffer->Bytes().substr(static_cast<size_t>(position));
    const auto* end =
        std::find_if(rest.begin(), rest.end(), [](char c) { return c == '"' || c == '\\'; });
    const std::string_view plain = rest.substr(0, static_cast<size_t>(end - rest.begin()));
    position += static_cast<int64_t>(plain.size());
    return plain;
}

EncodedText JSONItem::parseString(int64_t& position) const {
    if (ParseGet(position, 1) != "\"") throw JSONException("Missing \"", 7, position);
    const std::string_view plain = parsePlain(position);
    // A missing quote at the end of the text is noticed by the caller.
    if (ParseGet(position, 1) != "\\") return {std::string(plain), TextEncoding::None};
    JSONStringBuffer buffer(uint64_t{1024});
    buffer.Append(plain);
    do {
        buffer.Append(parseEscape(position));
        buffer.Append(parsePlain(position));
    } while (ParseGet(position, 1) == "\\");
    return buffer.StringValue();
}

/// What an escape stands for; the position is after the backslash.
std::string JSONItem::parseEscape(int64_t& position) const {
    const std::string_view byte = ParseGet(position, 1);
    switch (byte.empty() ? '\0' : byte[0]) {
        case '"':
        case '\\':
        case '/':
            return std::string(byte);
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
    const std::string digits(ParseGet(position, 4));
    if (digits.size() < 4) throw JSONException("Illegal Unicode Character Format", 8, position);
    return Chr(static_cast<uint32_t>(Val("&h" + digits)));
}

/// Skips one or more digits.
void JSONItem::parseDigits(int64_t& position) const {
    if (!IsDigit(ParseGet(position, 1))) throw JSONException("Illegal Number Format", 3, position);
    while (IsDigit(ParsePeek(position, 1)))
        ++position;
}

Variant JSONItem::parseNumber(int64_t& position) const {
    const int64_t start = position;
    bool isInteger = true;
    if (ParsePeek(position, 1) == "-") ++position;
    bool isZero = ParsePeek(position, 1) == "0";
    if (isZero) {
        ++position;
    } else {
        parseDigits(position);
    }
    if (ParsePeek(position, 1) == ".") {
        isInteger = isZero = false;
        parseDigits(++position);
    }
    const std::string_view letter = ParsePeek(position, 1);
    if (letter == "e" || (letter == "E" && !isZero)) {
        isInteger = false;
        const std::string_view sign = ParsePeek(++position, 1);
        if (sign == "+" || sign == "-") ++position;
        while (IsDigit(ParsePeek(position, 1)))
            ++position;
    }
    const double value = Val(ParsePeek(start, position - start));
    if (!isInteger) return value;
    if (value > 2147483647.0 || value < -2147483648.0) return Truncate(value);
    return static_cast<int32_t>(value);
}

}  // namespace dunvey
