#include "platform/text/number_format.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/text/decimal_digits.h"

namespace dunvey {
namespace {

/// Adds one to the last digit; "99" becomes "1" one place higher.
void RoundUp(DecimalDigits& decimal) {
    while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '9')
        --decimal.count;
    if (decimal.count == 0) {
        decimal.digits[decimal.count++] = '1';
        ++decimal.exponent;
    } else {
        ++decimal.digits[decimal.count - 1];
    }
}

/// On which side of the half between two decimals the number itself lies, where its shortest digits
/// end in that half: -1, 0 or 1. The library prints doubles exactly.
int SideOfHalf(double number, int places) {
    char half[1200];
    char exact[1200];
    std::snprintf(half, sizeof half, "%.*f", places + 1, number);
    std::snprintf(exact, sizeof exact, "%.1080f", number);
    return std::string_view(exact).substr(0, std::string_view(half).size()) < half ? -1
           : std::string_view(exact).find_first_not_of('0', std::string_view(half).size()) !=
                   std::string_view::npos
               ? 1
               : 0;
}

/// Cuts the number to so many places behind the point, rounded to the nearest.
void RoundTo(DecimalDigits& decimal, int places, double number) {
    const int kept = decimal.exponent + places;
    if (decimal.count <= kept) return;
    if (kept < 0) {
        decimal.count = 0;
        return;
    }
    const char next = decimal.digits[kept];
    const bool half = next == '5' && decimal.count == kept + 1;
    const bool odd = kept > 0 && (decimal.digits[kept - 1] - '0') % 2 == 1;
    const int side = half ? SideOfHalf(number, places) : 0;
    const bool up = half ? side > 0 || (side == 0 && odd) : next >= '5';
    decimal.count = kept;
    if (up) RoundUp(decimal);
    while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '0')
        --decimal.count;
}

/// What a digit needs behind it: digits are copied so many at a time.
constexpr int kSlack = 17;

/// Writes the digits in the places from `from` to `to`, zeros behind the last one.
char* PutDigits(char* out, const DecimalDigits& decimal, int from, int to) {
    const int end = std::clamp(decimal.count, from, to);
    if (end > from) std::memcpy(out, decimal.digits + from, kSlack);
    return std::fill_n(out + (end - from), to - end, '0');
}

}  // namespace

NumberFormat::NumberFormat(std::string_view pattern) {
    bool digits = false;
    for (const char c : pattern) {
        if (c == '-') {
            signs_ = true;
        } else if (c == '.' && !point_) {
            digits = point_ = true;
        } else if (c == '0' || c == '#') {
            digits = true;
            if (point_) ++mostFraction_;
            if (c == '0' && point_) leastFraction_ = mostFraction_;
            if (c == '0' && !point_) ++leastWhole_;
        } else {
            (digits ? behind_ : before_) += c;
        }
    }
}

/// How a number is laid out: so many zeros, digits, then the point and the same again.
struct NumberFormat::Layout {
    int wholeZeros;
    int whole;
    int fractionZeros;
    int fraction;  // with its zeros

    size_t Room() const {
        return static_cast<size_t>(wholeZeros) + static_cast<size_t>(whole) +
               static_cast<size_t>(fraction) + 1 + kSlack;
    }
    char* Put(char* out, const DecimalDigits& decimal) const {
        out = PutDigits(std::fill_n(out, wholeZeros, '0'), decimal, 0, whole);
        if (fraction == 0) return out;
        *out++ = '.';
        out = std::fill_n(out, fractionZeros, '0');
        return PutDigits(out, decimal, whole, whole + fraction - fractionZeros);
    }
};

NumberFormat::Layout NumberFormat::LayoutOf(const DecimalDigits& decimal) const {
    const int whole = std::max(decimal.exponent, 0);
    const int fraction = point_ ? std::max(decimal.count - decimal.exponent, leastFraction_) : 0;
    return {std::max(leastWhole_ - whole, 0), whole, std::clamp(-decimal.exponent, 0, fraction),
            fraction};
}

void NumberFormat::AppendTo(std::string& text, double number) const {
    DecimalDigits decimal = ShortestDigits(number);
    RoundTo(decimal, mostFraction_, number);
    if (decimal.count == 0) decimal.exponent = 0;
    if (signs_ && decimal.negative && decimal.count > 0) text += '-';
    text += before_;
    const Layout layout = LayoutOf(decimal);
    char usual[64];
    if (layout.Room() <= sizeof usual) {
        text.append(usual, layout.Put(usual, decimal));
    } else {
        std::string large(layout.Room(), '\0');
        text.append(large.data(), layout.Put(large.data(), decimal));
    }
    text += behind_;
}

std::string Str(double number, std::string_view pattern) {
    if (pattern.empty() || !std::isfinite(number)) return Str(number);
    std::string text;
    NumberFormat(pattern).AppendTo(text, number);
    return text;
}

std::string Str(double number) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
    const DecimalDigits decimal = ShortestDigits(number);
    if (decimal.exponent > -5 && decimal.exponent < 17) {
        return Str(number, "-0.#####################");
    }
    std::string text(decimal.negative ? "-" : "");
    text += decimal.digits[0];
    if (decimal.count > 1) text.append(".").append(decimal.digits + 1, size_t(decimal.count - 1));
    const int exponent = decimal.exponent - 1;
    const std::string places = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "e-" : "e+") + (places.size() < 2 ? "0" : "") + places;
}

}  // namespace dunvey
