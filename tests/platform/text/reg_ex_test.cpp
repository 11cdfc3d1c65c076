#include <gtest/gtest.h>

#include "platform/text/compiled_pattern.h"
#include "platform/text/reg_ex_xojo.h"
#include "platform/values/exceptions.h"
#include "support/world.h"

namespace dunvey {
namespace {

class RegExXojoTest : public test::World {};

TEST_F(RegExXojoTest, ReplacesTheFirstMatchOnly) {
    EXPECT_EQ(RegExXojo::Replace("a1b2", "([a-z])([0-9])", "\\2\\1", 0, true), "1ab2");
    EXPECT_EQ(RegExXojo::Replace("abc", "x", "y", 0, true), "abc");
    EXPECT_EQ(RegExXojo::Replace("8.1.0 (CS6)", " .+", "", 0, true), "8.1.0");
    EXPECT_EQ(RegExXojo::Replace("ab", "(b)|(z)", "[\\2\\1\\9\\\\]", 0, true), "a[b\\]");
    EXPECT_EQ(RegExXojo::Replace("", "x", "y", 0, true), "");
    EXPECT_EQ(RegExXojo::Replace("abc", "", "y", 0, true), "abc");
}

TEST_F(RegExXojoTest, LetterCaseAndStartAreTheCallers) {
    EXPECT_TRUE(RegExXojo::Mach("ABC", "abc", 0, false));
    EXPECT_FALSE(RegExXojo::Mach("ABC", "abc", 0, true));
    EXPECT_TRUE(RegExXojo::Mach("\u00e9a\u00e9", "^a|.", 1, true));
    EXPECT_EQ(RegExXojo::reg->SearchStartPosition, 2) << "characters go in, bytes come out";
    EXPECT_EQ(RegExXojo::Replace("aXaX", "X", "-", 2, true), "aXa-");
    EXPECT_FALSE(RegExXojo::Mach("abc", "a", 5, true));
    EXPECT_TRUE(RegExXojo::Mach("\xFF\xFE", "\xFE$", 0, true)) << "any bytes";
}

TEST_F(RegExXojoTest, EmptyTextMakesNoObject) {
    RegExXojo::reg = nullptr;
    EXPECT_FALSE(RegExXojo::Mach("", "x", 0, true));
    EXPECT_FALSE(RegExXojo::Mach("x", "", 0, true));
    EXPECT_FALSE(RegExXojo::reg);
}

TEST_F(RegExXojoTest, AMetacharacterAloneIsTold) {
    for (const char* pattern : {"^", "$", "\\b"}) {
        user_->ExpectMessage("Metacharacters ^ $ \\b cannot be used alone.");
        EXPECT_EQ(RegExXojo::Replace("text", pattern, "x", 0, true), "text");
    }
    EXPECT_EQ(RegExXojo::Replace("text", "^t", "T", 0, true), "Text");
    EXPECT_TRUE(RegExXojo::Mach("text", "^", 0, true)) << "matching has no such rule";
}

TEST_F(RegExXojoTest, ABrokenPatternIsToldAndGivesNothing) {
    const std::string message = "RegEx error: \nmissing closing parenthesis";
    user_->ExpectMessage(message);
    EXPECT_EQ(RegExXojo::Replace("text", "(", "x", 0, true), "");
    user_->ExpectMessage(message);
    EXPECT_FALSE(RegExXojo::Mach("text", "(", 0, true));
}

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

TEST(RegEx, SearchTellsWhereAndWhat) {
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
