#include "platform/text/decimal_digits.h"

#include <cstring>

namespace dunvey {

DecimalDigits DigitsOfScientific(const ScientificText& text, size_t length) {
    DecimalDigits decimal;
    decimal.negative = text[0] == '-';
    const char* first = text + (decimal.negative ? 1 : 0);
    const char* end = text + length;
    const char* letter = end - (end[-4] == 'e' ? 4 : 5);
    decimal.digits[0] = *first;
    std::memcpy(decimal.digits + 1, first + 2, 16);
    decimal.count = letter > first + 1 ? static_cast<int>(letter - first) - 1 : 1;
    while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '0')
        --decimal.count;
    int exponent = 0;
    for (const char* place = letter + 2; place < end; ++place)
        exponent = exponent * 10 + *place - '0';
    decimal.exponent = (letter[1] == '-' ? -exponent : exponent) + 1;
    return decimal;
}

}  // namespace dunvey
