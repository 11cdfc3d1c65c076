#include "platform/text/number_text.h"

#include <locale.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace dunvey {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

size_t SkipDigits(std::string_view text, size_t position) {
    while (position < text.size() && IsDigit(text[position]))
        ++position;
    return position;
}

size_t SkipSign(std::string_view text, size_t position) {
    const bool sign = position < text.size() && (text[position] == '+' || text[position] == '-');
    return sign ? position + 1 : position;
}

/// The length of the decimal number at the beginning, 0 if there is none. Cutting it out first
/// keeps "nan", "inf" and hexadecimal forms away from the library, which would take them.
size_t NumberLength(std::string_view text) {
    const size_t sign = SkipSign(text, 0);
    size_t end = SkipDigits(text, sign);
    size_t digits = end - sign;
    if (end < text.size() && text[end] == '.') {
        const size_t fraction = SkipDigits(text, end + 1);
        digits += fraction - end - 1;
        end = fraction;
    }
    if (digits == 0) return 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        const size_t exponent = SkipSign(text, end + 1);
        const size_t last = SkipDigits(text, exponent);
        if (last > exponent) end = last;
    }
    return end;
}

}  // namespace

double DecimalValue(std::string_view text) {
    // The toolkit sets the user's locale for the whole process, and with it a decimal comma.
    static const locale_t kPlain = newlocale(LC_NUMERIC_MASK, "C", nullptr);
    const std::string number(text.substr(0, NumberLength(text)));
    return number.empty() ? 0 : strtod_l(number.c_str(), nullptr, kPlain);
}

double HexadecimalValue(std::string_view text) {
    double value = 0;
    for (const char c : text) {
        const int digit = IsDigit(c)             ? c - '0'
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                          : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                 : -1;
        if (digit < 0) break;
        value = value * 16 + digit;
    }
    return value;
}

}  // namespace dunvey
