#include <array>

#include "persistence/json_exception.h"
#include "persistence/json_parser.h"
#include "platform/text/decimal_digits.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr std::array<double, 20> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                                 1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                                 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

bool IsDigit(int byte) {
    return byte >= '0' && byte <= '9';
}

}  // namespace

/// What is known of a number while its text is read.
struct JSONParser::Number {
    uint64_t digits = 0;  // without the point; only of use while they are few
    int64_t places = 0;   // behind the point
    bool integer = true;
    bool exponent = false;

    /// Whether the value is had exactly rounded by one division: both sides are whole doubles.
    bool IsSmall(int64_t length) const {
        return length <= 18 && !exponent && digits <= uint64_t{1} << 53;
    }
    double SmallValue() const {
        return static_cast<double>(digits) / kPowersOfTen[static_cast<size_t>(places)];
    }
};

/// False if there is no digit.
bool JSONParser::TakeDigits(int64_t& position, Number& number) const {
    const char* const start = bytes_.data() + position;
    const char* const end = bytes_.data() + bytes_.size();
    const char* at = start;
    uint64_t digits = number.digits;
    for (; at < end && IsDigit(*at); ++at)
        digits = digits * 10 + static_cast<uint64_t>(*at - '0');
    number.digits = digits;
    position += at - start;
    return at > start;
}

/// The digits in front of the point. A 0 stands alone, and only "e" may follow it.
void JSONParser::TakeWhole(int64_t& position, Number& number) const {
    if (Peek(position) == '0') {
        ++position;
    } else if (!TakeDigits(position, number)) {
        Take(position);
        throw JSONException("Illegal Number Format", 3, position);
    }
}

void JSONParser::TakeFraction(int64_t& position, Number& number) const {
    const int64_t start = position;
    number.integer = false;
    if (!TakeDigits(position, number)) {
        Take(position);
        throw JSONException("Illegal Number Format", 3, position);
    }
    number.places = position - start;
}

/// The digits may be missing.
void JSONParser::TakeExponent(int64_t& position, Number& number) const {
    number.integer = false;
    number.exponent = true;
    if (Peek(position) == '+' || Peek(position) == '-') ++position;
    while (IsDigit(Peek(position)))
        ++position;
}

void JSONParser::parseNumber(int64_t& position) {
    Number number;
    const int64_t start = position;
    const bool negative = Peek(position) == '-';
    if (negative) ++position;
    const bool zero = Peek(position) == '0';
    TakeWhole(position, number);
    const bool point = Peek(position) == '.';
    if (point) TakeFraction(++position, number);
    const int letter = Peek(position);
    if (letter == 'e' || (letter == 'E' && (point || !zero))) TakeExponent(++position, number);
    const int64_t length = position - start;
    double value = 0;
    if (number.IsSmall(length)) {
        value = negative ? -number.SmallValue() : number.SmallValue();
    } else {
        value = QuickDecimalValue(
            bytes_.substr(static_cast<size_t>(start), static_cast<size_t>(length)));
    }
    // Whole numbers too go through a double: beyond 2^53 they lose their last digits.
    if (!number.integer) {
        values_.emplace_back(value);
    } else if (value > 2147483647.0 || value < -2147483648.0) {
        values_.emplace_back(Truncate(value));
    } else {
        values_.emplace_back(static_cast<int32_t>(value));
    }
}

}  // namespace dunvey
