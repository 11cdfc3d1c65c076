#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <random>
#include <utility>

#include "platform/text/encoding.h"
#include "platform/text/number_text.h"
#include "platform/text/shown_text.h"

namespace dunvey {
namespace {

using namespace std::string_literals;

TEST(Text, PositionsCountCharactersFromOne) {
    const std::tuple<int64_t, const char*, const char*, int64_t> cases[] = {
        {0, "Adobe", "b", 4},      {1, "abab", "ab", 1}, {2, "abab", "ab", 3},
        {0, "abc", "B", 0},        {0, "日本x", "x", 3}, {3, "日本x日", "日", 4},
        {0, "abc", "", 0},         {9, "abc", "c", 0},   {INT64_MIN, "abc", "c", 3},
        {INT64_MAX, "abc", "c", 0}};
    for (const auto& [start, text, part, position] : cases)
        EXPECT_EQ(InStr(start, text, part), position) << text << " " << part;
}

TEST(Text, CutsByCharactersAndByBytes) {
    EXPECT_EQ(Left("日本語", 2), "日本");
    EXPECT_EQ(Left("\xE6\x97", 1), "\xE6") << "a byte of no valid sequence is a character";
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Left("abc", -1), "");
    EXPECT_EQ(LeftB("日x", 3), "日");
    EXPECT_EQ(RightB("0d.01", 2), "01");
    EXPECT_EQ(RightB("a", 2), "a");
    EXPECT_EQ(Len("a\xFF日😀"), 4);
    EXPECT_EQ(LenB("日"), 3);
    EXPECT_EQ(BytesOfCharacters("été", 1), 2);
    EXPECT_EQ(BytesOfCharacters("été", 9), 5);
    EXPECT_EQ(Trim(" \t\r\n\v\fa b\n"), "a b");
    EXPECT_EQ(Trim(" \n"), "");
}

TEST(Text, SplitsAndReplaces) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(SplitB("a.b..c.", "."), (Pieces{"a", "b", "", "c", ""}));
    EXPECT_EQ(SplitB("", "."), Pieces{""});
    const char* const fields[] = {"", "8", "1", "0", ""};
    for (int64_t i = 0; i < 5; ++i)
        EXPECT_EQ(NthField("8.1.0", ".", i), fields[i]) << i;
    EXPECT_EQ(Replace("CS 3 CS 3 1", "CS 3 ", ""), "CS 3 1") << "the first occurrence only";
    EXPECT_EQ(Replace("a", "", "b"), "a");
    EXPECT_EQ(ReplaceAll("aXXbX", "X", "XX"), "aXXXXbXX");
    EXPECT_EQ(ReplaceAll("a", "", "b"), "a");
}

TEST(Encoding, ConvertsCharacterByCharacter) {
    using enum TextEncoding;
    const std::pair<EncodedText, EncodedText> cases[] = {
        {{"a\xE9", ASCII}, {"a\uFFFD", UTF8}},
        {{"\xE5\x65\x3D\xD8\x00\xDE"s, UTF16}, {"日😀", UTF8}},
        {{"\xFE\xFF\x65\xE5", UTF16}, {"日", UTF8}},
        {{"\xFF\xFE\xE5\x65", UTF16}, {"日", UTF8}},
        {{"\x3D\xD8\x41\x00\x00\xDE\x42"s, UTF16}, {"\uFFFDA\uFFFD\uFFFD", UTF8}},
        {{"\x3D\xD8", UTF16}, {"\uFFFD", UTF8}},
        {{"é日😀", UTF8}, {"\xE9\x00\xE5\x65\x3D\xD8\x00\xDE"s, UTF16}},
        {{"aé日", UTF8}, {"a??", ASCII}},
        // An overlong form, a surrogate, a code point beyond the last one.
        {{"\xE0\x80\xAF|\xED\xA0\x80|\xF4\x90\x80\x80", UTF8}, {"?|?|?", ASCII}},
        {{"\x80", UTF8}, {"\xFD\xFF", UTF16}},
        {{"\xFF", UTF8}, {"\xFF", UTF8}},
        {{"\xFF", None}, {"\xFF", UTF8}}};
    for (const auto& [from, to] : cases)
        EXPECT_EQ(ConvertEncoding(from, to.Encoding), to) << to.Bytes;
}

TEST(ShownText, OneLineReplacesControlCharactersAndInvisibleMarks) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\nb\tc\x7F", "a\u240Ab\u2409c\u2421"},
        {"\u202Egnp.exe\u2066x\u2069", "\uFFFDgnp.exe\uFFFDx\uFFFD"},
        {"\u200Fa\u061C (1)\u200B\uFEFF", "\uFFFDa\uFFFD (1)\uFFFD\uFFFD"},
        {"a\u2028b\u2029", "a\uFFFDb\uFFFD"},
        {"\xC2\x85\xC2\x9F\xC2\xA0", "\uFFFD\uFFFD\u00A0"}};
    for (const auto& [text, line] : cases)
        EXPECT_EQ(OneLine(text), line);
    for (const char* kept : {"\u2027\u202F\u2065", "\xE2\x80", "\xC2", "日本語 שלום"})
        EXPECT_EQ(OneLine(kept), kept);
}

TEST(NumberText, ReadsTheNumberAtTheBeginning) {
    const std::pair<double, const char*> numbers[] = {
        {8.1, "8.1.0"}, {12, "  12abc"}, {-3, "-3"},   {4.5, "+4.5x"}, {.5, ".5"},  {1000, "1e3"},
        {1, "1e"},      {2, "2e+"},      {0, ""},      {0, "x"},       {0, "-"},    {0, "nan"},
        {0, "inf"},     {0, "0x10"},     {13, "&h0d"}, {255, "&hFF."}, {0, "&hzz"}, {2, "2.0.?"},
        {1, "1,5"},     {1, "&h1G"},     {0, "."},     {100, "1.e2"},  {9, "\t9"}};
    for (const auto& [number, text] : numbers)
        EXPECT_EQ(Val(text), number) << text;
    EXPECT_EQ(Val("9999999999999999999999"), 1e22);
    EXPECT_EQ(Truncate(9223372036854775808.0), INT64_MAX);
}

TEST(NumberText, FormatFillsWithZerosAfterTheSign) {
    const std::pair<double, const char*> numbers[] = {
        {0, "00"}, {7.9, "07"}, {-7, "-07"}, {10, "10"}, {-123, "-123"}};
    for (const auto& [number, text] : numbers)
        EXPECT_EQ(Format(number, "00"), text);
}

TEST(NumberText, APatternRoundsToItsPlaces) {
    const char* const usual = "-0.0##############";
    const std::tuple<const char*, double, const char*> cases[] = {
        {usual, 2.5, "2.5"},
        {usual, -0.25, "-0.25"},
        {usual, -0.0, "0.0"},
        {usual, 0.1 + 0.2, "0.3"},
        {usual, 60.0 / 7, "8.571428571428571"},
        {usual, -1e-20, "0.0"},
        {usual, -1.5e23, "-150000000000000000000000.0"},
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

}  // namespace
}  // namespace dunvey
