#include <gtest/gtest.h>

#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/controls/listbox.h"
#include "support/user.h"

namespace dunvey {
namespace {

using test::User;

TEST(Controls, AnObservationEndsWithItsHandleOrItsControl) {
    int calls = 0;
    auto label = std::make_unique<Label>();
    Observable::Observation handle = label->Observe([&] { ++calls; });
    label->SetText("1");
    label->SetText("1");
    EXPECT_EQ(calls, 1) << "an equal value is no change";
    handle = label->Observe([&] { handle = {}; });
    label->SetText("2");
    label->SetText("3");
    handle = label->Observe([&] { ++calls; });
    label.reset();
    handle = {};
    EXPECT_EQ(calls, 1);
}

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

}  // namespace
}  // namespace dunvey
