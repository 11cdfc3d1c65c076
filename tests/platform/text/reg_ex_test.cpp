#include "platform/text/reg_ex.h"

#include <gtest/gtest.h>

#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

TEST(RegEx, SearchesAndReplacesAllMatches) {
    RegEx expression;
    expression.SearchPattern = "b*";
    expression.ReplacementPattern = "-";
    expression.Options.ReplaceAllMatches = true;
    EXPECT_EQ(expression.Replace("abba"), "-a--a-");
    EXPECT_EQ(expression.Replace(""), "-");
    expression.SearchPattern = "b+";
    EXPECT_EQ(expression.Replace("abbabb"), "a-a-");
    const Ref<RegExMatch> match = expression.Search("abba");
    EXPECT_EQ(match->Start(), 1);
    EXPECT_EQ(match->Text(), "bb");
    EXPECT_FALSE(expression.Search("ac"));
    expression.SearchPattern = "[";
    EXPECT_THROW(expression.Search("abc"), RegExException);
}

TEST(RegEx, ACachedPatternKeepsNothingOfItsLastMatch) {
    for (int i = 0; i < 50; ++i) {
        RegEx expression;
        expression.SearchPattern = "(x)(" + std::to_string(i) + ")?";
        expression.ReplacementPattern = "\\2";
        EXPECT_EQ(expression.Replace("x" + std::to_string(i)), std::to_string(i));
        EXPECT_EQ(expression.Replace("x"), "");
    }
}

// Without limits the time would grow with the cube of the length.
TEST(RegEx, AHostileTextEndsAsNoMatch) {
    std::string line;
    while (line.size() < 1'000'000)
        line += "/Applications/Adobe InDesign ";
    RegEx expression;
    expression.Options.CaseSensitive = true;
    expression.SearchPattern = "/Applications/Adobe InDesign .+?/Adobe InDesign .+?.app/[^/]+$";
    EXPECT_FALSE(expression.Search(line));
}

}  // namespace
}  // namespace dunvey
