#include "platform/controls/reg_ex_xojo.h"

#include <gtest/gtest.h>

#include "platform/text/reg_ex.h"
#include "platform/values/exceptions.h"
#include "support/world.h"

namespace dunvey {
namespace {

using RegExXojo::Mach;
using RegExXojo::Replace;

class RegExXojoTest : public test::World {};

TEST_F(RegExXojoTest, ReplacesTheFirstMatchOnly) {
    EXPECT_EQ(Replace("a1b2", "([a-z])([0-9])", "\\2\\1", 0, true), "1ab2");
    EXPECT_EQ(Replace("abc", "x", "y", 0, true), "abc");
    EXPECT_EQ(Replace("ab", "(b)|(z)", "[\\2\\1\\9\\\\]", 0, true), "a[b\\]");
    EXPECT_EQ(Replace("", "x", "y", 0, true), "");
    EXPECT_EQ(Replace("abc", "", "y", 0, true), "abc");
}

TEST_F(RegExXojoTest, TakesLetterCaseAndStartFromTheCaller) {
    EXPECT_TRUE(Mach("ABC", "abc", 0, false));
    EXPECT_FALSE(Mach("ABC", "abc", 0, true));
    EXPECT_TRUE(Mach("éaé", "^a|.", 1, true));
    EXPECT_EQ(RegExXojo::reg->SearchStartPosition, 2) << "characters are converted to bytes";
    EXPECT_EQ(Replace("aXaX", "X", "-", 2, true), "aXa-");
    EXPECT_FALSE(Mach("abc", "a", 5, true));
    EXPECT_TRUE(Mach("\xFF\xFE", "\xFE$", 0, true)) << "any bytes";
    RegExXojo::reg = nullptr;
    EXPECT_FALSE(Mach("", "x", 0, true) || Mach("x", "", 0, true));
    EXPECT_FALSE(RegExXojo::reg) << "an empty text makes no object";
}

TEST_F(RegExXojoTest, ShowsAnAlertForAMetacharacterAloneAndForABrokenPattern) {
    for (const char* pattern : {"^", "$", "\\b"}) {
        user_->ExpectMessage("Metacharacters ^ $ \\b cannot be used alone.");
        EXPECT_EQ(Replace("text", pattern, "x", 0, true), "text");
    }
    EXPECT_EQ(Replace("text", "^t", "T", 0, true), "Text");
    EXPECT_TRUE(Mach("text", "^", 0, true)) << "matching has no such rule";
    for (int i = 0; i < 2; ++i)
        user_->ExpectMessage("RegEx error: \nmissing closing parenthesis");
    EXPECT_EQ(Replace("text", "(", "x", 0, true), "");
    EXPECT_FALSE(Mach("text", "(", 0, true));
}

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
