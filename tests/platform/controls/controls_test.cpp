#include <gtest/gtest.h>

#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/controls/listbox.h"
#include "platform/controls/message_dialog.h"
#include "platform/controls/reg_ex_xojo.h"
#include "platform/text/reg_ex.h"
#include "platform/values/exceptions.h"
#include "support/application.h"
#include "support/world.h"

namespace dunvey {
namespace {

using RegExXojo::Mach;
using RegExXojo::Replace;
using test::User;

TEST(Controls, IgnoreTheUserWhileTheyAreDisabled) {
    CheckBox box;
    box.Action = [](CheckBox&) { FAIL(); };
    box.SetEnabled(false);
    box.Toggle(User::ByUser());
    EXPECT_FALSE(box.Value());
    Canvas canvas;
    EXPECT_FALSE(canvas.MouseDown(User::ByUser(), 3, 4)) << "no handler";
    canvas.MouseDownHandler = [](Canvas&, int64_t x, int64_t y) { return x == 3 && y == 4; };
    EXPECT_TRUE(canvas.MouseDown(User::ByUser(), 3, 4));
    canvas.SetEnabled(false);
    EXPECT_FALSE(canvas.MouseDown(User::ByUser(), 3, 4));
}

/// Compares only the numbers at the beginning of the texts.
class NumberList final : public Listbox {
 public:
    bool Event_CompareRows(int64_t row1, int64_t row2, int64_t column, int64_t& result) override {
        result = std::stoll(Cell(row1, column)) - std::stoll(Cell(row2, column));
        return true;
    }
};

TEST(ListboxTest, SortIsStableAndMovesWholeRows) {
    NumberList list;
    list.SetColumnCount(2);
    for (const char* text : {"9b", "14a", "7c", "9a"})
        list.AddRow({text, std::string("of ") + text});
    list.SetRowHelpTag(2, "seven");
    list.SetCellTag(2, 1, true);
    list.Sort();
    EXPECT_EQ(list.Cell(0, 0), "9b") << "no column has a direction";
    EXPECT_THROW(list.SetColumnSortDirection(2, Listbox::kSortAscending), OutOfBoundsException);
    EXPECT_THROW(list.SetColumnAlignment(2, Listbox::kAlignCentre), OutOfBoundsException);
    EXPECT_THROW(list.SetRowPicture(4, nullptr), OutOfBoundsException);
    list.SetColumnSortDirection(0, Listbox::kSortAscending);
    list.Sort();
    const char* const sorted[] = {"7c", "9b", "9a", "14a"};
    for (int64_t row = 0; row < 4; ++row)
        EXPECT_EQ(list.Cell(row, 0), sorted[row]);
    EXPECT_EQ(list.Cell(0, 1), "of 7c");
    EXPECT_EQ(list.RowHelpTag(0), "seven");
    EXPECT_TRUE(list.CellTag(0, 1).BooleanValue());
}

TEST(ListboxTest, TypedTextPrefersWholeNamesAndTheSelectedRow) {
    Listbox list;
    EXPECT_EQ(list.RowWithWord("c"), -1);
    list.SetColumnCount(2);
    const std::vector<std::string> rows[] = {{"Adobe InDesign CS6", "8.0.1"},
                                             {"Adobe InDesign CC 2019", "14.0"},
                                             {"Adobe InDesign CC", "9.0.1"},
                                             {"Adobe InDesign 2020", "15.0"}};
    for (const auto& row : rows)
        list.AddRow(row);
    const std::tuple<const char*, int64_t, int64_t> cases[] = {
        {"cs6", 3, 0}, {"CC", 2, 2},    {"CC", 1, 2}, {"cc", -1, 2}, {"c", 1, 1},     {"c", 3, 0},
        {"2", 3, 3},   {"cc 20", 0, 1}, {"1", 2, 3},  {"S6", 0, -1}, {"9.0.1", 0, 2}, {"0", 0, -1}};
    for (const auto& [text, selected, row] : cases) {
        list.SetListIndex(selected);
        EXPECT_EQ(list.RowWithWord(text), row) << text << selected;
    }
}

class DialogTest : public test::World {};

TEST_F(DialogTest, TakesTheFirstPressOfAVisibleButton) {
    MessageDialog dialog;
    dialog.AlternateActionButton->Visible = true;
    user_->ExpectMessage("", {}, [&](const MessageDialog&) {
        dialog.Press(User::ByUser(), dialog.CancelButton);
        dialog.Press(User::ByUser(), dialog.AlternateActionButton);
    });
    EXPECT_EQ(dialog.ShowModal(), dialog.AlternateActionButton);
}

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
    EXPECT_EQ(expression.Search("abba")->Start(), 1);
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
