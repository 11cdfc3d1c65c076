#include "platform/text/number_text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <random>
#include <utility>

namespace dunvey {
namespace {

TEST(NumberText, ReadsTheNumberAtTheBeginning) {
    const std::pair<double, const char*> numbers[] = {
        {8.1, "8.1.0"}, {12, "  12abc"}, {-3, "-3"},   {4.5, "+4.5x"}, {.5, ".5"},  {1000, "1e3"},
        {1, "1e"},      {2, "2e+"},      {0, ""},      {0, "x"},       {0, "-"},    {0, "nan"},
        {0, "inf"},     {0, "0x10"},     {13, "&h0d"}, {255, "&hFF."}, {0, "&hzz"}, {2, "2.0.?"},
        {1, "1,5"},     {1, "&h1G"},     {0, "."},     {100, "1.e2"},  {9, "\t9"}};
    for (const auto& [number, text] : numbers)
        EXPECT_EQ(Val(text), number) << text;
    EXPECT_EQ(Val("9999999999999999999999"), 1e22);
}

TEST(NumberText, HasADecimalPointInEveryLocale) {
    // Where this locale is not installed, the test proves nothing.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(Val("7.5"), 7.5);
    EXPECT_EQ(Str(1e-9 / 3), "3.3333333333333337e-10");
    EXPECT_EQ(Str(1.0 / 3, "0.00"), "0.33");
    std::setlocale(LC_ALL, "C");
}

TEST(NumberText, TruncatesWithinTheRangeOf64Bits) {
    EXPECT_EQ(Format(9, "00"), "09");
    EXPECT_EQ(Format(115.9, "00"), "115");
    EXPECT_EQ(Format(-3, "00"), "-03");
    EXPECT_EQ(Truncate(9223372036854775808.0), INT64_MAX);
    EXPECT_EQ(Truncate(-9223372036854775808.0), INT64_MIN);
    EXPECT_EQ(Floor(-7.1), -8);
}

TEST(NumberText, APatternRoundsToItsPlaces) {
    const char* const usual = "-0.0##############";
    const std::tuple<const char*, double, const char*> cases[] = {
        {usual, 2.5, "2.5"},
        {usual, -0.25, "-0.25"},
        {usual, -0.0, "0.0"},
        {usual, 0.1 + 0.2, "0.3"},
        {usual, -1e-20, "0.0"},
        {usual, 1e22, "10000000000000000000000.0"},
        {"#.##", 0.25, ".25"},
        {"#.##", 3, "3"},
        {"-$0.00 mm", -3.5, "-$3.50 mm"}};
    for (const auto& [pattern, number, text] : cases)
        EXPECT_EQ(Str(number, pattern), text) << pattern;
    // A half goes to the even digit. The doubles of 0.15, 0.35 and 0.45 are no halves.
    const std::pair<double, const char*> tenths[] = {
        {9.99, "10.0"}, {0.96, "1.0"}, {0.06, "0.1"}, {0.04, "0.0"}, {0.15, "0.1"},
        {0.25, "0.2"},  {0.35, "0.3"}, {0.45, "0.5"}, {0.75, "0.8"}, {-1.5, "1.5"}};
    for (const auto& [number, text] : tenths)
        EXPECT_EQ(Str(number, "0.0"), text);
}

TEST(NumberText, PlainTextIsTheShortestThatReadsBack) {
    for (const char* text : {"100", "-2.5", "0.1", "1.2e-06", "1e+16", "1.5e+300",
                             "4.94065645841247e-324", "0.30000000000000004", "100000000000000",
                             "1.2345678901234568e-05", "-1.7976931348623157e+308"})
        EXPECT_EQ(Str(std::strtod(text, nullptr)), text);
    EXPECT_EQ(Str(NAN), "NaN");
}

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
