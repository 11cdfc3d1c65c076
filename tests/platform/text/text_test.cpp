#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <clocale>

#include "platform/values/array.h"
#include "platform/values/exceptions.h"
#include "platform/values/reference.h"

namespace dunvey {
namespace {

TEST(Text, PositionsCountCharactersFromOne) {
    EXPECT_EQ(InStr(0, "Adobe", "b"), 4);
    EXPECT_EQ(InStr(1, "abab", "ab"), 1);
    EXPECT_EQ(InStr(2, "abab", "ab"), 3);
    EXPECT_EQ(InStr(0, "\u65e5\u672cx", "x"), 3);
    EXPECT_EQ(InStr(3, "\u65e5\u672cx\u65e5", "\u65e5"), 4);
    EXPECT_EQ(InStr(0, "abc", "B"), 0) << "comparison is exact";
    EXPECT_EQ(InStr(0, "abc", ""), 0);
    EXPECT_EQ(InStr(9, "abc", "c"), 0);
}

TEST(Text, CutsByCharactersAndByBytes) {
    EXPECT_EQ(Left("\u65e5\u672c\u8a9e", 2), "\u65e5\u672c");
    EXPECT_EQ(Left("\xE6\x97", 1), "\xE6") << "a torn character counts byte by byte";
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Left("abc", -1), "");
    EXPECT_EQ(LeftB("\u65e5x", 3), "\u65e5");
    EXPECT_EQ(RightB("0d.01", 2), "01");
    EXPECT_EQ(RightB("a", 2), "a");
    EXPECT_EQ(Len("a\xFF\u65e5\U0001F600"), 4);
    EXPECT_EQ(LenB("\u65e5"), 3);
    EXPECT_EQ(BytesOfCharacters("\u00e9t\u00e9", 1), 2);
}

TEST(Text, SplitsIntoPieces) {
    EXPECT_EQ(SplitB("a.b..c", "."), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(SplitB("indd", "."), std::vector<std::string>{"indd"});
    EXPECT_EQ(SplitB("", "."), std::vector<std::string>{""});
    EXPECT_EQ(SplitB("end\n", "\n"), (std::vector<std::string>{"end", ""}));
    EXPECT_EQ(NthField("8.1.0", ".", 1), "8");
    EXPECT_EQ(NthField("8.1.0", ".", 3), "0");
    EXPECT_EQ(NthField("8.1.0", ".", 4), "");
    EXPECT_EQ(NthField("8", ".", 0), "");
    EXPECT_EQ(Replace("CS 3 CS 3 1", "CS 3 ", ""), "CS 3 1") << "the first occurrence only";
    EXPECT_EQ(Replace("a", "", "b"), "a");
}

TEST(Text, NumbersAreReadFromTheBeginning) {
    const std::pair<const char*, double> kNumbers[] = {{"8.1.0", 8.1},
                                                       {"7.5", 7.5},
                                                       {"  12abc", 12},
                                                       {"-3", -3},
                                                       {"+4.5x", 4.5},
                                                       {".5", .5},
                                                       {"1e3", 1000},
                                                       {"1e", 1},
                                                       {"2e+", 2},
                                                       {"", 0},
                                                       {"x", 0},
                                                       {"-", 0},
                                                       {"nan", 0},
                                                       {"inf", 0},
                                                       {"0x10", 0},
                                                       {"&h0d", 13},
                                                       {"&hFF.", 255},
                                                       {"&hzz", 0},
                                                       {"2.0.?", 2},
                                                       {"1,5", 1},
                                                       {"&h1G", 1},
                                                       {".", 0},
                                                       {"1.e2", 100},
                                                       {"\t9", 9},
                                                       {"9999999999999999999999", 1e22}};
    for (const auto& [text, number] : kNumbers)
        EXPECT_EQ(Val(text), number) << text;
}

TEST(Text, NumbersHaveAPointInEveryLocale) {
    const char* before = std::setlocale(LC_ALL, nullptr);
    const std::string saved = before;
    // Where no such locale is installed the test still holds, it only proves less.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(Val("7.5"), 7.5);
    std::setlocale(LC_ALL, saved.c_str());
}

TEST(Text, NumbersAreWritten) {
    EXPECT_EQ(Format(9, "00"), "09");
    EXPECT_EQ(Format(15, "00"), "15");
    EXPECT_EQ(Format(115, "00"), "115");
    EXPECT_EQ(Format(-3, "00"), "-03");
    EXPECT_EQ(Truncate(1e300), INT64_MAX);
    EXPECT_EQ(Truncate(-1e300), INT64_MIN);
    EXPECT_EQ(Truncate(-7.9), -7);
    EXPECT_EQ(EncodeHex("\x06\xED", false), "06ED");
    EXPECT_EQ(EncodeHex("\x06\xED", true), "06 ED");
}

TEST(Text, CodePointsBecomeUtf8) {
    EXPECT_EQ(Chr(0x41), "A");
    EXPECT_EQ(Chr(0xE9), "\u00e9");
    EXPECT_EQ(Chr(0x65E5), "\u65e5");
    EXPECT_EQ(Chr(0x1F600), "\U0001F600");
    EXPECT_EQ(Chr(0xD83D), "\uFFFD");
    EXPECT_EQ(Chr(0x110000), "\uFFFD");
    EXPECT_EQ(Chr(0), std::string(1, '\0'));
}

TEST(Array, IndexOfStartsWhereItIsTold) {
    const std::vector<std::string> names = {"a", "b", "a"};
    EXPECT_EQ(IndexOf(names, "a"), 0);
    EXPECT_EQ(IndexOf(names, "a", 1), 2);
    EXPECT_EQ(IndexOf(names, "A"), -1);
    EXPECT_EQ(IndexOf(names, "a", 3), -1);
    EXPECT_EQ(UpperBound(std::vector<int>()), -1);
    EXPECT_THROW(At(names, 3), OutOfBoundsException);
    EXPECT_THROW(At(names, -1), OutOfBoundsException);
}

TEST(Reference, AUseOfNilRaises) {
    Ref<std::string> text;
    EXPECT_FALSE(text);
    EXPECT_THROW(text->size(), NilObjectException);
    EXPECT_THROW(*text, NilObjectException);
    text = New<std::string>("held");
    const Ref<std::string> other = text;
    text = nullptr;
    EXPECT_EQ(*other, "held");
}

}  // namespace
}  // namespace dunvey
