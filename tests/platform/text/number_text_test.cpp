#include "platform/text/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <random>
#include <utility>
#include <vector>

namespace dunvey {
namespace {

using Texts = std::vector<std::pair<double, std::string>>;

TEST(NumberText, NumbersAreReadFromTheBeginning) {
    const Texts numbers = {
        {8.1, "8.1.0"}, {12, "  12abc"}, {-3, "-3"},   {4.5, "+4.5x"}, {.5, ".5"},  {1000, "1e3"},
        {1, "1e"},      {2, "2e+"},      {0, ""},      {0, "x"},       {0, "-"},    {0, "nan"},
        {0, "inf"},     {0, "0x10"},     {13, "&h0d"}, {255, "&hFF."}, {0, "&hzz"}, {2, "2.0.?"},
        {1, "1,5"},     {1, "&h1G"},     {0, "."},     {100, "1.e2"},  {9, "\t9"}};
    for (const auto& [number, text] : numbers)
        EXPECT_EQ(Val(text), number) << text;
    EXPECT_EQ(Val("9999999999999999999999"), 1e22);
}

TEST(NumberText, NumbersHaveAPointInEveryLocale) {
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    // Without this locale the test passes, but proves less.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(Val("7.5"), 7.5);
    EXPECT_EQ(Str(1e-9 / 3), "3.3333333333333337e-10");
    EXPECT_EQ(Str(1.0 / 3, "0.00"), "0.33");
    std::setlocale(LC_ALL, saved.c_str());
}

TEST(NumberText, NumbersAreWrittenAndCut) {
    const Texts padded = {{9, "09"}, {15, "15"}, {115, "115"}, {-3, "-03"}};
    for (const auto& [number, text] : padded)
        EXPECT_EQ(Format(number, "00"), text);
    const std::pair<double, int64_t> cut[] = {{1e300, INT64_MAX},
                                              {-1e300, INT64_MIN},
                                              {-7.9, -7},
                                              {NAN, 0},
                                              {9223372036854775808.0, INT64_MAX},
                                              {-9223372036854775808.0, INT64_MIN}};
    for (const auto& [number, whole] : cut)
        EXPECT_EQ(Truncate(number), whole) << number;
    EXPECT_EQ(Floor(-7.1), -8);
}

void ExpectFormatted(const char* pattern, const Texts& cases) {
    for (const auto& [number, text] : cases)
        EXPECT_EQ(Str(number, pattern), text) << pattern;
}

TEST(NumberText, APatternRoundsToItsPlaces) {
    const Texts usual = {{2.5, "2.5"},
                         {-0.25, "-0.25"},
                         {100, "100.0"},
                         {0, "0.0"},
                         {-0.0, "0.0"},
                         {0.1, "0.1"},
                         {0.1 + 0.2, "0.3"},
                         {-1e-20, "0.0"},
                         {123456789.1, "123456789.1"},
                         {1.0 / 3, "0.333333333333333"}};
    const Texts wide = {{2.0 / 3, "0.666666666666667"},
                        {1e-15, "0.000000000000001"},
                        {0.0000000000000006, "0.000000000000001"},
                        {1e22, "1" + std::string(22, '0') + ".0"}};
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

TEST(NumberText, PlainTextIsTheShortestThatReadsBack) {
    const Texts cases = {{100, "100"},           {-2.5, "-2.5"},          {0.1, "0.1"},
                         {0.0000012, "1.2e-06"}, {1e16, "1e+16"},         {1.5e300, "1.5e+300"},
                         {NAN, "NaN"},           {-INFINITY, "-Infinity"}};
    for (const auto& [number, text] : cases)
        EXPECT_EQ(Str(number), text);
    const char* const wide[] = {"4.94065645841247e-324", "0.30000000000000004", "100000000000000",
                                "1.2345678901234568e-05", "-1.7976931348623157e+308"};
    for (const char* text : wide)
        EXPECT_EQ(Str(std::strtod(text, nullptr)), text);
}

// Numbers with any number of digits read back as they were written.
TEST(NumberText, EveryDoubleReadsBack) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const double digits = static_cast<double>(random() >> random() % 64);
        const double number = digits / std::pow(10.0, static_cast<double>(random() % 30));
        EXPECT_EQ(Val(Str(number)), number);
        EXPECT_EQ(Val(Str(number, "-0." + std::string(60, '#'))), number) << Str(number);
    }
}

}  // namespace
}  // namespace dunvey
