#include "platform/text/reg_ex.h"

#include <gtest/gtest.h>

#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

TEST(RegEx, ReplacesAllMatchesIfAsked) {
    RegEx expression;
    expression.SearchPattern = "b*";
    expression.ReplacementPattern = "-";
    expression.Options.ReplaceAllMatches = true;
    EXPECT_EQ(expression.Replace("abba"), "-a--a-");
    EXPECT_EQ(expression.Replace(""), "-");
    expression.SearchPattern = "b+";
    EXPECT_EQ(expression.Replace("abbabb"), "a-a-");
}

TEST(RegEx, SearchReturnsPositionAndText) {
    RegEx expression;
    expression.SearchPattern = "[0-9]+";
    const Ref<RegExMatch> match = expression.Search("ab123");
    EXPECT_EQ(match->Start(), 2);
    EXPECT_EQ(match->Text(), "123");
    EXPECT_FALSE(expression.Search("abc"));
    expression.SearchPattern = "[";
    EXPECT_THROW(expression.Search("abc"), RegExException);
}

TEST(RegEx, NothingCarriesOverFromAKeptPattern) {
    for (int i = 0; i < 50; ++i) {
        RegEx expression;
        expression.SearchPattern = "(x)(" + std::to_string(i) + ")?";
        expression.ReplacementPattern = "\\2";
        EXPECT_EQ(expression.Replace("x" + std::to_string(i)), std::to_string(i));
        EXPECT_EQ(expression.Replace("x"), "");
    }
}

// A hostile line: without limits the engine takes a time that grows with the cube of its length.
TEST(RegEx, AHostileTextEndsAsNoMatch) {
    std::string line;
    while (line.size() < 1'000'000)
        line += "/Applications/Adobe InDesign ";
    RegEx expression;
    expression.Options.CaseSensitive = true;
    expression.SearchPattern =
        "/Applications/Adobe InDesign .+?/Adobe InDesign .+?.app/Contents/MacOS/Adobe InDesign "
        "[^/]+$";
    EXPECT_FALSE(expression.Search(line));
}

}  // namespace
}  // namespace dunvey
