#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "persistence/json_exception.h"
#include "persistence/json_parser.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr int kDeepest = 1000;

/// A bit in each byte of the word that is `byte`. Those above the lowest may be wrong.
constexpr uint64_t BytesThatAre(char byte, uint64_t word) {
    constexpr uint64_t kOnes = 0x0101010101010101;
    const uint64_t zeroThere = word ^ kOnes * static_cast<uint8_t>(byte);
    return (zeroThere - kOnes) & ~zeroThere & kOnes << 7;
}

/// The first quote or backslash.
const char* EndOfPlain(const char* at, const char* end) {
    uint64_t word = 0;
    for (; end - at >= std::ptrdiff_t{sizeof word}; at += sizeof word) {
        std::memcpy(&word, at, sizeof word);
        const uint64_t found = BytesThatAre('"', word) | BytesThatAre('\\', word);
        if (found != 0) return at + std::countr_zero(found) / 8;
    }
    while (at < end && *at != '"' && *at != '\\')
        ++at;
    return at;
}

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

void JSONParser::parseValue(int64_t& position) {
    const int first = Peek(position);
    switch (first) {
        case '"':
            values_.emplace_back(parseString(position), TextEncoding::None);
            break;
        case '{':
            values_.emplace_back(parseObject(position));
            break;
        case '[':
            values_.emplace_back(parseArray(position));
            break;
        case kEnd:
            values_.emplace_back();
            break;
        default:
            if (first == '-' || (first >= '0' && first <= '9')) {
                parseNumber(position);
            } else {
                parseWord(position);
            }
    }
}

/// One of the three words.
void JSONParser::parseWord(int64_t& position) {
    const int64_t start = position;
    const std::string_view token = ParseGet(position, 4);
    if (token == "true") {
        values_.emplace_back(true);
    } else if (token == "null") {
        values_.emplace_back();
    } else if (token == "fals" && Take(position) == 'e') {
        values_.emplace_back(false);
    } else {
        if (token != "fals") position = start;
        throw JSONException("Illegal Value", 10, position);
    }
}

/// An item; those below the first share slabs that grow with their number.
Ref<JSONItem> JSONParser::NewItem() {
    constexpr size_t kMostPlaces = 256;
    if (depth_ == 0) return New<JSONItem>();
    if (!slab_ || slab_->IsFull()) {
        places_ = std::min(places_ * 2, kMostPlaces);
        slab_ = std::make_shared<JSONSlab>(places_);
    }
    return Ref<JSONItem>(std::allocate_shared<JSONItem>(JSONSlabAllocator<JSONItem>(slab_)));
}

Ref<JSONItem> JSONParser::parseObject(int64_t& position) {
    Ref<JSONItem> item = NewItem();
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
        values_.emplace_back(parseString(position), TextEncoding::None);
        skipWhiteSpace(position);
        if (Take(position) != ':') throw JSONException("Missing :", 5, position);
        skipWhiteSpace(position);
        parseValue(position);
        skipWhiteSpace(position);
        const int byte = Take(position);
        if (byte == '}') return;
        if (byte != ',') throw JSONException("Missing , or }", 6, position);
    }
}

Ref<JSONItem> JSONParser::parseArray(int64_t& position) {
    Ref<JSONItem> item = NewItem();
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
        parseValue(position);
        skipWhiteSpace(position);
        const int byte = Take(position);
        if (byte == ']') return;
        if (byte != ',') throw JSONException("A parsing error occurred", 2, position);
    }
}

/// The bytes from the position on that stand for themselves in a string.
std::string_view JSONParser::TakePlain(int64_t& position) const {
    const char* begin = bytes_.data() + position;
    const char* end = EndOfPlain(begin, bytes_.data() + bytes_.size());
    position += end - begin;
    return {begin, static_cast<size_t>(end - begin)};
}

std::string_view JSONParser::parseString(int64_t& position) {
    if (Take(position) != '"') throw JSONException("Missing \"", 7, position);
    const std::string_view plain = TakePlain(position);
    int byte = Take(position);
    if (byte != '\\') return plain;
    unescaped_.assign(plain);
    for (; byte == '\\'; byte = Take(position)) {
        TakeEscape(position);
        unescaped_ += TakePlain(position);
    }
    return unescaped_;
}

/// Adds what the escape behind a backslash stands for.
void JSONParser::TakeEscape(int64_t& position) {
    const int byte = Take(position);
    switch (byte) {
        case '"':
        case '\\':
        case '/':
            unescaped_ += static_cast<char>(byte);
            return;
        case 'b':
            unescaped_ += '\b';
            return;
        case 'f':
            unescaped_ += '\f';
            return;
        case 'n':
            unescaped_ += '\n';
            return;
        case 'r':
            unescaped_ += '\r';
            return;
        case 't':
            unescaped_ += '\t';
            return;
        case 'u':
            break;
        default:
            throw JSONException("Illegal Character", 9, position);
    }
    const std::string_view digits = ParseGet(position, 4);
    if (digits.size() < 4) throw JSONException("Illegal Unicode Character Format", 8, position);
    // Each half of a pair stands for itself; alone it is no character.
    unescaped_ += Chr(static_cast<uint32_t>(HexadecimalValue(digits)));
}

}  // namespace dunvey
