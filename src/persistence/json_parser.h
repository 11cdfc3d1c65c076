#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "persistence/json_item.h"
#include "persistence/json_slab.h"
#include "platform/values/reference.h"
#include "platform/values/variant.h"

namespace dunvey {

/// Reads JSON by recursive descent. Positions are bytes from 0 and move over what was read. All
/// faults raise JSONException at the first one. Texts come without an encoding.
class JSONParser {
 public:
    /// The bytes stay where they are while the parser lives.
    explicit JSONParser(std::string_view bytes) : bytes_(bytes) {}

    /// The next `count` bytes; fewer at the end, none there.
    std::string_view ParseGet(int64_t& position, int64_t count) const;
    /// The same without moving.
    std::string_view ParsePeek(int64_t position, int64_t count) const;
    void skipWhiteSpace(int64_t& position) const {
        while (IsWhite(Peek(position)))
            ++position;
    }

    /// The value goes behind those that the open object or array has so far.
    void parseValue(int64_t& position);
    Ref<JSONItem> parseObject(int64_t& position);
    Ref<JSONItem> parseArray(int64_t& position);
    /// Valid until the next string is read.
    std::string_view parseString(int64_t& position);
    /// As parseValue: a Double if there is a point or an exponent, else an integer of 32 bits or,
    /// beyond them, of 64.
    void parseNumber(int64_t& position);

 private:
    class Nesting;
    static constexpr int kEnd = -1;

    struct Number;

    static bool IsWhite(int byte) {
        return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r';
    }
    int Peek(int64_t position) const {
        const auto at = static_cast<size_t>(position);
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : kEnd;
    }
    int Take(int64_t& position) const {
        const int byte = Peek(position);
        if (byte != kEnd) ++position;
        return byte;
    }
    bool TakeDigits(int64_t& position, Number& number) const;
    void TakeWhole(int64_t& position, Number& number) const;
    void TakeFraction(int64_t& position, Number& number) const;
    void TakeExponent(int64_t& position, Number& number) const;
    std::string_view TakePlain(int64_t& position) const;
    void TakeEscape(int64_t& position);
    Ref<JSONItem> NewItem();
    void parseWord(int64_t& position);
    void parseMembers(int64_t& position);
    void parseElements(int64_t& position);

    std::string_view bytes_;
    int depth_ = 0;
    // The values of all containers that are open, so that each gets memory once, of the right size.
    std::vector<Variant> values_;
    std::string unescaped_;  // the text being read, once it has an escape
    // Where the next item below the first goes, and for how many there is room.
    std::shared_ptr<JSONSlab> slab_;
    size_t places_ = 1;
};

}  // namespace dunvey
