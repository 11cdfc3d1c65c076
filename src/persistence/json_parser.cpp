#include <algorithm>
#include <charconv>

#include "persistence/json_exception.h"
#include "persistence/json_item.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr int kMaxDepth = 1000;

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

void CheckDepth(int depth, int64_t position) {
    if (depth == kMaxDepth) throw JSONException("A parsing error occurred", 2, position);
}

}  // namespace

Ref<JSONItem> JSONItem::Parse(std::string text) {
    _ParseBuffer = New<MemoryBlock>(std::move(text));
    int64_t position = 0;
    skipWhiteSpace(position);
    const char first = peekByte(position);
    if (first == '{') return parseObject(position, 0);
    if (first != '[') throw JSONException("Parse Error: Expecting '{' or '['", 1, position);
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

/// The next byte; '\0' at the end. Inlined: half of the parser's calls are to this function.
[[gnu::always_inline]] inline char JSONItem::peekByte(int64_t position) const {
    const std::string_view bytes = _ParseBuffer->Bytes();
    const auto place = static_cast<size_t>(position);
    return place < bytes.size() ? bytes[place] : '\0';
}

/// The next byte, and moves past it; '\0' without moving at the end.
char JSONItem::takeByte(int64_t& position) const {
    const char byte = peekByte(position);
    position = std::min(position + 1, static_cast<int64_t>(_ParseBuffer->Size()));
    return byte;
}

void JSONItem::skipWhiteSpace(int64_t& position) const {
    for (;;) {
        const char byte = peekByte(position);
        if (byte != ' ' && byte != '\n' && byte != '\t' && byte != '\r') return;
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
    } else if (takeByte(position) == 'e') {
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
            if (token[0] == '-' || IsDigit(token[0])) return parseNumber(position);
            throw JSONException("Illegal Value", 10, position);
    }
}

Ref<JSONItem> JSONItem::parseObject(int64_t& position, int depth) const {
    Ref<JSONItem> item = New<JSONItem>();
    if (takeByte(position) != '{') throw JSONException("Missing {", 4, position);
    CheckDepth(depth, position);
    skipWhiteSpace(position);
    if (peekByte(position) == '}') {
        ++position;
        return item;
    }
    for (;;) {
        skipWhiteSpace(position);
        std::string key = parseString(position).Bytes;
        skipWhiteSpace(position);
        if (takeByte(position) != ':') throw JSONException("Missing :", 5, position);
        skipWhiteSpace(position);
        item->_data.SetValue(std::move(key), parseValue(position, depth + 1));
        skipWhiteSpace(position);
        const char next = takeByte(position);
        if (next == '}') return item;
        if (next != ',') throw JSONException("Missing , or }", 6, position);
    }
}

Ref<JSONItem> JSONItem::parseArray(int64_t& position, int depth) const {
    Ref<JSONItem> item = New<JSONItem>();
    if (takeByte(position) != '[') throw JSONException("Unsupported Format", 1, position);
    CheckDepth(depth, position);
    item->_mIsArray = true;
    skipWhiteSpace(position);
    if (peekByte(position) == ']') {
        ++position;
        return item;
    }
    for (;;) {
        skipWhiteSpace(position);
        item->Append(parseValue(position, depth + 1));
        skipWhiteSpace(position);
        const char next = takeByte(position);
        if (next == ']') return item;
        if (next != ',') throw JSONException("A parsing error occurred", 2, position);
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
    if (takeByte(position) != '"') throw JSONException("Missing \"", 7, position);
    const std::string_view plain = parsePlain(position);
    // A missing quote at the end of the text is noticed by the caller.
    if (takeByte(position) != '\\') return {std::string(plain), TextEncoding::None};
    JSONStringBuffer buffer(uint64_t{1024});
    buffer.Append(plain);
    do {
        buffer.Append(parseEscape(position));
        buffer.Append(parsePlain(position));
    } while (takeByte(position) == '\\');
    return buffer.StringValue();
}

/// What an escape stands for; the position is after the backslash.
std::string JSONItem::parseEscape(int64_t& position) const {
    const char byte = takeByte(position);
    switch (byte) {
        case '"':
        case '\\':
        case '/':
            return {byte};
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
    if (!IsDigit(takeByte(position))) throw JSONException("Illegal Number Format", 3, position);
    while (IsDigit(peekByte(position)))
        ++position;
}

Variant JSONItem::parseNumber(int64_t& position) const {
    const int64_t start = position;
    bool isInteger = true;
    if (peekByte(position) == '-') ++position;
    bool isZero = peekByte(position) == '0';
    if (isZero) {
        ++position;
    } else {
        parseDigits(position);
    }
    if (peekByte(position) == '.') {
        isInteger = isZero = false;
        parseDigits(++position);
    }
    const char letter = peekByte(position);
    if (letter == 'e' || (letter == 'E' && !isZero)) {
        isInteger = false;
        const char sign = peekByte(++position);
        if (sign == '+' || sign == '-') ++position;
        while (IsDigit(peekByte(position)))
            ++position;
    }
    const std::string_view text = ParsePeek(start, position - start);
    int32_t whole = 0;
    if (isInteger &&
        std::from_chars(text.data(), text.data() + text.size(), whole).ec == std::errc())
        return whole;
    const double value = Val(text);
    return isInteger ? Variant(Truncate(value)) : value;
}

}  // namespace dunvey
