#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "persistence/json_item.h"
#include "platform/text/number_format.h"

namespace dunvey {
namespace {

using Limits = std::numeric_limits<double>;
using WholeNumbers = std::vector<std::pair<std::string, int64_t>>;
using Doubles = std::vector<std::pair<std::string, double>>;
using Texts = std::vector<std::pair<double, std::string>>;

Variant ValueOf(const std::string& number) {
    return JSONItem("[" + number + "]").Value(0);
}

void ExpectWhole(int type, const WholeNumbers& cases) {
    for (const auto& [text, number] : cases) {
        const Variant value = ValueOf(text);
        EXPECT_EQ(value.VarType(), type) << text;
        EXPECT_EQ(value.Int64Value(), number) << text;
    }
}

TEST(JSONNumber, WholeNumbersTakeTheSmallestTypeAndGoThroughADouble) {
    const WholeNumbers small = {
        {"0", 0}, {"-0", 0}, {"7", 7}, {"2147483647", INT32_MAX}, {"-2147483648", INT32_MIN}};
    const WholeNumbers large = {{"2147483648", 2147483648},
                                {"-2147483649", -2147483649LL},
                                {"9007199254740993", 9007199254740992},
                                {"999999999999999999", 1000000000000000000},
                                {"9223372036854774784", 9223372036854774784},
                                {"9223372036854775807", INT64_MAX},
                                {"-9223372036854775808", INT64_MIN},
                                {"18446744073709551616", INT64_MAX},
                                {"-100000000000000000000", INT64_MIN},
                                {std::string(400, '9'), INT64_MAX}};
    ExpectWhole(VariantType::Integer32, small);
    ExpectWhole(VariantType::Integer64, large);
}

void ExpectDoubles(const Doubles& cases) {
    for (const auto& [text, number] : cases) {
        const Variant value = ValueOf(text);
        EXPECT_EQ(value.VarType(), VariantType::Double) << text;
        EXPECT_EQ(value.DoubleValue(), number) << text;
        EXPECT_EQ(std::signbit(value.DoubleValue()), std::signbit(number)) << text;
    }
}

TEST(JSONNumber, PointOrExponentMakesADoubleOfTheNearestValue) {
    const Doubles plain = {{"1.0", 1},     {"1e0", 1},    {"1E+2", 100},    {"0e5", 0},
                           {"-0.0", -0.0}, {"0.5E1", 5},  {"1e", 1},        {"1e+", 1},
                           {"0.1", 0.1},   {"2e-324", 0}, {"-1e-400", -0.0}};
    const Doubles edges = {{"123456.789", 123456.789},
                           {"-999999999999999.9", -999999999999999.9},
                           {"9007199254740993.0", 9007199254740992},
                           {"9007199254740993.000000000000001", 9007199254740994},
                           {"1.7976931348623157e308", Limits::max()},
                           {"1e400", Limits::infinity()},
                           {"-1e400", -Limits::infinity()},
                           {"2.2250738585072014e-308", Limits::min()},
                           {"2.2250738585072011e-308", 2.2250738585072011e-308},
                           {"5e-324", Limits::denorm_min()}};
    ExpectDoubles(plain);
    ExpectDoubles(edges);
}

void ExpectFormatted(const char* pattern, const Texts& cases) {
    for (const auto& [number, text] : cases)
        EXPECT_EQ(Str(number, pattern), text) << pattern;
}

TEST(JSONNumber, FormatCutsToItsPlacesAndRoundsToTheNearest) {
    const Texts usual = {{2.5, "2.5"},  {-0.25, "-0.25"}, {100, "100.0"},     {0, "0.0"},
                         {-0.0, "0.0"}, {0.1, "0.1"},     {0.1 + 0.2, "0.3"}, {-1e-20, "0.0"}};
    const Texts wide = {{123456789.1, "123456789.1"},
                        {1.0 / 3, "0.333333333333333"},
                        {2.0 / 3, "0.666666666666667"},
                        {1e-15, "0.000000000000001"},
                        {0.0000000000000006, "0.000000000000001"},
                        {9007199254740992, "9007199254740992.0"},
                        {1e300, "1" + std::string(300, '0') + ".0"}};
    // The half is one only if the double is: that of 0.15, 0.35 and 0.45 is not.
    const Texts tenths = {{9.99, "10.0"}, {0.96, "1.0"}, {0.06, "0.1"}, {0.04, "0.0"},
                          {0.15, "0.1"},  {0.25, "0.2"}, {0.35, "0.3"}, {0.45, "0.5"},
                          {0.75, "0.8"},  {-1.5, "1.5"}};
    ExpectFormatted("-0.0##############", usual);
    ExpectFormatted("-0.0##############", wide);
    ExpectFormatted("0.0", tenths);
    ExpectFormatted("0", {{2.5, "2"}, {3.5, "4"}, {0.5, "0"}});
    ExpectFormatted("000.000", {{7.25, "007.250"}});
    ExpectFormatted("#.##", {{0.25, ".25"}, {3, "3"}});
    ExpectFormatted("0.0 mm", {{12, "12.0 mm"}});
    ExpectFormatted("-$0.00", {{-3.5, "-$3.50"}, {1.5, "$1.50"}});
}

TEST(JSONNumber, PlainTextIsTheShortestThatReadsBack) {
    const Texts cases = {{100, "100"},           {-2.5, "-2.5"},  {0.1, "0.1"},
                         {0.0000012, "1.2e-06"}, {1e16, "1e+16"}, {1.5e300, "1.5e+300"},
                         {5e-324, "5e-324"},     {NAN, "NaN"},    {-INFINITY, "-Infinity"}};
    const Texts wide = {{0.30000000000000004, "0.30000000000000004"},
                        {0.000012345678901234567, "0.000012345678901234568"},
                        {1e15, "1000000000000000"},
                        {-1.7976931348623157e308, "-1.7976931348623157e+308"}};
    for (const Texts& each : {cases, wide}) {
        for (const auto& [number, text] : each)
            EXPECT_EQ(Str(number), text);
    }
}

}  // namespace
}  // namespace dunvey
