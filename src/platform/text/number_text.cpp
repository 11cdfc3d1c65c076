#include "platform/text/number_text.h"

#include <locale.h>
#if __has_include(<xlocale.h>)
#include <xlocale.h>
#endif

#include <cstdio>
#include <cstdlib>

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

/// The length of the decimal number at the beginning, 0 if there is none. An exponent without
/// digits doesn't count.
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

double DecimalValue(std::string_view text) {
    // Qt sets the user's locale for the whole process, and with it perhaps a decimal comma.
    static const locale_t kPlain = newlocale(LC_NUMERIC_MASK, "C", nullptr);
    // strtod also reads "nan", "inf" and hexadecimal numbers: it gets the decimal number alone.
    const std::string number(text.substr(0, NumberLength(text)));
    return number.empty() ? 0 : strtod_l(number.c_str(), nullptr, kPlain);
}

double HexadecimalValue(std::string_view text) {
    double value = 0;
    for (const char c : text) {
        const int digit = HexDigit(c);
        if (digit < 0) break;
        value = value * 16 + digit;
    }
    return value;
}

/// The number as printf writes it, with a point in every locale.
std::string Printed(const char* format, int precision, double number) {
    char text[1024];
    const int length = std::snprintf(text, sizeof text, format, precision, number);
    std::string printed(text, static_cast<size_t>(length));
    const size_t point = printed.find_first_not_of("+-0123456789e");
    if (point != std::string::npos) {
        const size_t end = printed.find_first_of("0123456789", point);
        printed.replace(point, end - point, ".");
    }
    return printed;
}

constexpr int kMinDigits = 15;
constexpr int kMaxDigits = 17;

/// The decimal form of a whole number divided by ten to the power of `places`.
std::string Shifted(int64_t whole, int places) {
    std::string text = std::to_string(whole);
    const auto decimals = static_cast<size_t>(places);
    if (places == 0) return text;
    if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
    return text.insert(text.size() - decimals, ".");
}

/// A number of 0 or more in decimal form, with as many places as it takes to read back the same,
/// but no more than `maxPlaces`.
std::string Fixed(double number, int maxPlaces) {
    // Most numbers have few digits. Both sides of the division are exact, so its result is what
    // reading the text gives. printf takes ten times as long.
    constexpr int kExactPowers = 22;                    // of ten, as doubles
    constexpr double kExactLimit = 4503599627370496.0;  // 2^52: above it 0.5 can't be added
    double power = 1;
    for (int places = 0; places <= std::min(maxPlaces, kExactPowers); ++places, power *= 10) {
        const double shifted = number * power + 0.5;
        if (shifted > kExactLimit) break;
        const auto whole = static_cast<int64_t>(shifted);
        if (static_cast<double>(whole) / power == number) return Shifted(whole, places);
    }
    // The digits before the point; below 0 for zeros after it. It may be one too many.
    const int before = number == 0 ? 0 : static_cast<int>(std::floor(std::log10(number))) + 1;
    if (before >= kMaxDigits) {
        // The digits that it takes to read back the same, then zeros.
        std::string text = Str(number);
        const size_t exponent = text.find('e');
        if (exponent == text.npos) return text;
        const size_t length = std::stoul(text.substr(exponent + 1)) + 1;
        text.resize(exponent);
        text.erase(1, 1);  // the point
        text.resize(length, '0');
        return text;
    }
    for (int digits = kMinDigits;; ++digits) {
        const int places = std::clamp(digits - before, 0, maxPlaces);
        std::string text = Printed("%.*f", places, number);
        if (places == maxPlaces || digits > kMaxDigits || DecimalValue(text) == number) return text;
    }
}

struct Pattern {
    std::string before;
    std::string after;
    bool hasSign = false;
    bool hasPoint = false;
    size_t minWhole = 0;
    size_t minPlaces = 0;
    int maxPlaces = 0;

    explicit Pattern(std::string_view pattern) {
        bool hasDigits = false;
        for (const char c : pattern) {
            if (c == '-') {
                hasSign = true;
            } else if (c == '.' && !hasPoint) {
                hasDigits = hasPoint = true;
            } else if (c == '0' || c == '#') {
                hasDigits = true;
                AddDigit(c == '0');
            } else {
                (hasDigits ? after : before) += c;
            }
        }
    }
    void AddDigit(bool always) {
        constexpr int kPlacesLimit = 400;
        if (!hasPoint) {
            minWhole += always ? 1 : 0;
        } else if (maxPlaces < kPlacesLimit) {
            ++maxPlaces;
            if (always) minPlaces = static_cast<size_t>(maxPlaces);
        }
    }
};

}  // namespace

int HexDigit(char c) {
    if (IsDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

double Val(std::string_view text) {
    const size_t begin = text.find_first_not_of(" \t\r\n\f\v");
    if (begin == std::string_view::npos) return 0;
    text.remove_prefix(begin);
    const bool isHexadecimal = text.starts_with("&h") || text.starts_with("&H");
    return isHexadecimal ? HexadecimalValue(text.substr(2)) : DecimalValue(text);
}

std::string Str(int64_t number) {
    return std::to_string(number);
}

std::string Str(double number) {
    if (std::isnan(number)) return "NaN";
    if (std::isinf(number)) return number < 0 ? "-Infinity" : "Infinity";
    if (number == 0) return "0";
    for (int digits = kMinDigits;; ++digits) {
        const std::string text = Printed("%.*g", digits, number);
        if (digits == kMaxDigits || DecimalValue(text) == number) return text;
    }
}

std::string Str(double number, std::string_view pattern) {
    if (pattern.empty() || !std::isfinite(number)) return Str(number);
    // The numbers of a document share one pattern.
    static std::string known;
    static Pattern form(known);
    if (pattern != known) form = Pattern(known = pattern);
    const std::string digits = Fixed(std::fabs(number), form.maxPlaces);
    const std::string_view text = digits;
    const size_t point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, digits[0] == '0' ? 0 : point);
    std::string_view places = text.substr(std::min(point + 1, text.size()));
    places = places.substr(0, places.find_last_not_of('0') + 1);

    std::string shown;
    if (form.hasSign && number < 0 && !(whole.empty() && places.empty())) shown = "-";
    shown += form.before;
    shown.append(form.minWhole - std::min(form.minWhole, whole.size()), '0').append(whole);
    if (!places.empty() || form.minPlaces > 0) shown += '.';
    shown.append(places).append(form.minPlaces - std::min(form.minPlaces, places.size()), '0');
    return shown += form.after;
}

std::string Format(double number, std::string_view pattern) {
    const int64_t whole = Truncate(number);
    std::string digits = std::to_string(whole);
    const size_t sign = whole < 0 ? 1 : 0;
    const size_t wanted = pattern.size() + sign;
    if (digits.size() < wanted) digits.insert(sign, wanted - digits.size(), '0');
    return digits;
}

int64_t Truncate(double number) {
    constexpr double kLimit = 9223372036854775808.0;  // 2^63, the first value that doesn't fit
    if (std::isnan(number)) return 0;
    if (number >= kLimit) return INT64_MAX;
    if (number < -kLimit) return INT64_MIN;
    return static_cast<int64_t>(number);
}

}  // namespace dunvey
