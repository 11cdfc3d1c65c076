#include "platform/text/decimal_digits.h"

#include <charconv>
#include <system_error>

#include "platform/text/number_text.h"

namespace dunvey {

DecimalDigits ShortestDigits(double number) {
    ScientificText text;
    const auto result =
        std::to_chars(text, text + sizeof text, number, std::chars_format::scientific);
    return DigitsOfScientific(text, static_cast<size_t>(result.ptr - text));
}

double QuickDecimalValue(std::string_view text) {
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    // Beyond the range it only says so; the other road gives the infinity or the zero.
    return result.ec == std::errc() ? value : DecimalValue(text);
}

}  // namespace dunvey
