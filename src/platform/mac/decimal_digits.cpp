#include "platform/text/decimal_digits.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/text/number_text.h"

// The C++ runtime up to 10.14 has no number conversions for floating point of its own.
namespace dunvey {

DecimalDigits ShortestDigits(double number) {
    ScientificText text;
    // Fifteen digits tell any shorter number apart, but for the smallest, which have fewer to give.
    for (int behindPoint = std::fabs(number) < DBL_MIN ? 0 : 14; behindPoint <= 16; ++behindPoint) {
        std::snprintf(text, sizeof text, "%.*e", behindPoint, number);
        // The locale decides on the character of the point.
        std::replace(text, text + sizeof text, ',', '.');
        if (DecimalValue(text) == number) break;
    }
    return DigitsOfScientific(text, std::strlen(text));
}

double QuickDecimalValue(std::string_view text) {
    return DecimalValue(text);
}

}  // namespace dunvey
