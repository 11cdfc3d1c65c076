#pragma once

#include <string>
#include <string_view>

namespace dunvey {

struct DecimalDigits;

/// How a floating-point number is shown, after a pattern: "-" is the sign of a negative number, "0"
/// a digit that always shows, "#" one that shows if needed, "." the decimal point; anything else
/// stands for itself, in front of the number or behind it.
///
/// A number shows the fewest digits that tell it apart from every other double; where the pattern
/// has fewer places behind the point, it is rounded to the nearest, an exact half to the even
/// digit. What rounds to nothing shows as 0 without a sign: under "-0.0##############" 1e-20 gives
/// "0.0". Large numbers show all their places: 1e300 gives a 1, 300 zeros and ".0".
class NumberFormat {
 public:
    explicit NumberFormat(std::string_view pattern);

    /// Appends a number, which is finite.
    void AppendTo(std::string& text, double number) const;

 private:
    struct Layout;

    Layout LayoutOf(const DecimalDigits& decimal) const;

    std::string before_;
    std::string behind_;
    bool signs_ = false;
    bool point_ = false;
    int leastWhole_ = 0;
    int leastFraction_ = 0;
    int mostFraction_ = 0;
};

/// The number under a pattern, as NumberFormat has it; as Str(number) if the pattern is empty or
/// the number isn't finite.
std::string Str(double number, std::string_view pattern);

/// The number plain, as short as it reads back the same: "100", "2.5", "1e+20", "NaN", "-Infinity".
std::string Str(double number);

}  // namespace dunvey
