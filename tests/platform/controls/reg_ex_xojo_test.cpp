#include "platform/controls/reg_ex_xojo.h"

#include <gtest/gtest.h>

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

TEST_F(RegExXojoTest, TakesLetterCaseAndStartFromTheCaller) {
    EXPECT_TRUE(RegExXojo::Mach("ABC", "abc", 0, false));
    EXPECT_FALSE(RegExXojo::Mach("ABC", "abc", 0, true));
    EXPECT_TRUE(RegExXojo::Mach("\u00e9a\u00e9", "^a|.", 1, true));
    EXPECT_EQ(RegExXojo::reg->SearchStartPosition, 2) << "characters are converted to bytes";
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

TEST_F(RegExXojoTest, ShowsAnAlertForAMetacharacterAloneAndForABrokenPattern) {
    for (const char* pattern : {"^", "$", "\\b"}) {
        user_->ExpectMessage("Metacharacters ^ $ \\b cannot be used alone.");
        EXPECT_EQ(RegExXojo::Replace("text", pattern, "x", 0, true), "text");
    }
    EXPECT_EQ(RegExXojo::Replace("text", "^t", "T", 0, true), "Text");
    EXPECT_TRUE(RegExXojo::Mach("text", "^", 0, true)) << "matching has no such rule";
    for (int i = 0; i < 2; ++i)
        user_->ExpectMessage("RegEx error: \nmissing closing parenthesis");
    EXPECT_EQ(RegExXojo::Replace("text", "(", "x", 0, true), "");
    EXPECT_FALSE(RegExXojo::Mach("text", "(", 0, true));
}

}  // namespace
}  // namespace dunvey
