#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

/// Numbers and their texts. The decimal point is "." in every locale.
namespace dunvey {

/// The value of the number at the beginning of the text, after white space: decimal with sign,
/// point and exponent, or hexadecimal after "&h". 0 if there is none. "nan" and "inf" are no
/// numbers; a number beyond the range of doubles gives an infinity.
double Val(std::string_view text);

/// The decimal text of a number.
std::string Str(int64_t number);
/// The shortest of 15 to 17 digits that reads back the same: "100", "2.5", "1e+20"; "NaN",
/// "Infinity" and "-Infinity" for what isn't finite.
std::string Str(double number);
/// The number under a pattern: "-" is the sign of a negative number, "0" a digit that always shows,
/// "#" one that shows if needed, "." the decimal point; any other character is copied, before the
/// number or after it. Places beyond the pattern's are rounded off; a number that is rounded to 0
/// has no sign. As Str(number) if the pattern is empty or the number isn't finite.
std::string Str(double number, std::string_view pattern);

/// The number truncated to an integer, with at least as many digits as the pattern has zeros.
std::string Format(double number, std::string_view pattern);

/// The number truncated towards zero. Beyond 64 bits it gives the nearest limit, for NaN 0.
int64_t Truncate(double number);
/// The number rounded down, within the same limits.
inline int64_t Floor(double number) {
    return Truncate(std::floor(number));
}

template <typename Number>
Number Min(Number left, Number right) {
    return std::min(left, right);
}

/// The value of a hexadecimal digit in either letter case, -1 for another character.
int HexDigit(char c);

}  // namespace dunvey
