#pragma once

#include <cstddef>
#include <string_view>

namespace dunvey {

/// A number as decimal digits: 0.d1d2d3... times ten to the power of `exponent`. No digits for 0.
struct DecimalDigits {
    /// There are up to 17; the rest is for copies of a fixed size, which are quick.
    static constexpr int kRoom = 40;
    char digits[kRoom] = {};
    int count = 0;
    int exponent = 0;
    bool negative = false;
};

/// The fewest digits that read back as the same number, the nearest to it among those. The number
/// is finite.
DecimalDigits ShortestDigits(double number);

/// The value of the decimal number at the beginning of the text, as DecimalValue gives it, for
/// texts that begin with a digit or with "-" and a digit; faster where the system has the means.
double QuickDecimalValue(std::string_view text);

/// Room for a number in scientific form.
using ScientificText = char[40];

/// Digits read from a scientific form of `length` bytes: one digit in front of the point, if there
/// is one, and two or three in the exponent, such as "-1.25e-07".
DecimalDigits DigitsOfScientific(const ScientificText& text, size_t length);

}  // namespace dunvey
