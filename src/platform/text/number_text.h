#pragma once

#include <string_view>

namespace dunvey {

/// The value of the decimal number at the beginning of the text (sign, digits, point, exponent), in
/// every locale with a point; 0 if there is none. An exponent without digits is left aside.
double DecimalValue(std::string_view text);

/// The value of the hexadecimal digits at the beginning of the text; 0 if there is none.
double HexadecimalValue(std::string_view text);

}  // namespace dunvey
