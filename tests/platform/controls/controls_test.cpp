#include <gtest/gtest.h>

#include <vector>

#include "platform/controls/canvas.h"
#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/controls/listbox.h"
#include "platform/controls/push_button.h"
#include "platform/controls/separator.h"
#include "platform/controls/window.h"
#include "platform/loop/event_loop.h"
#include "platform/values/exceptions.h"
#include "support/user.h"

namespace dunvey {
namespace {

using test::User;

TEST(ControlsTest, LocksSayHowAControlFollowsTheWindow) {
    constexpr Bounds kDesign{20, 109, 410, 449};
    struct Case {
        Locks locks;
        Bounds grown, shrunk;
    };
    for (const Case& each : std::vector<Case>{
             {{}, kDesign, kDesign},
             {{true, true, true, true}, {20, 109, 510, 459}, {20, 109, 310, 105}},
             {{false, false, true, true}, {120, 119, 410, 449}, {-80, -235, 410, 449}},
             {{true, false, false, true}, {20, 119, 410, 449}, {20, -235, 410, 449}},
             {{true, true, true, false}, {20, 109, 510, 449}, {20, 109, 310, 449}}}) {
        Separator control;
        control.SetDesign(kDesign, each.locks);
        control.Follow(100, 10);
        EXPECT_EQ(control.Place(), each.grown);
        control.Follow(-100, -344);
        EXPECT_EQ(control.Place(), each.shrunk) << "relative to the design, not to the last size";
    }
    Separator small;
    small.SetDesign({0, 0, 10, 10}, {true, true, true, true});
    small.Follow(-50, -50);
    EXPECT_EQ(small.Place(), (Bounds{0, 0, 0, 0}));
}

TEST(ControlsTest, TheScreenLimitsTheMinimumSizeWhichLimitsTheRequestedSize) {
    Window window({450, 700});
    window.SetMinWidth(450);
    window.SetMinHeight(356);
    const auto size = [&window] { return Size{window.Width(), window.Height()}; };
    window.SetHeight(100);
    EXPECT_EQ(size(), (Size{450, 356}));
    window.SetMinHeight(8000);
    window.Confine(User::ByUser(), {400, 570});
    EXPECT_EQ(window.SmallestSize(), (Size{400, 570}));
    EXPECT_EQ(size(), (Size{400, 570}));
    window.SetMinHeight(356);
    window.Resize(User::ByUser(), {10, 10});
    EXPECT_EQ(size(), (Size{400, 356}));
    window.Confine(User::ByUser(), {2000, 2000});
    window.SetMaxWidth(500);
    window.Resize(User::ByUser(), {1000, 1000});
    EXPECT_EQ(size(), (Size{500, 1000}));
}

TEST(ControlsTest, AnObservationEndsWithItsHandleOrItsControl) {
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

TEST(ControlsTest, DisabledControlsIgnoreTheUser) {
    int fired = 0;
    CheckBox box;
    box.Action = [&](CheckBox&) { ++fired; };
    box.SetEnabled(false);
    box.Toggle(User::ByUser());
    EXPECT_FALSE(box.Value());
    EXPECT_EQ(fired, 0);
    Canvas canvas;
    EXPECT_FALSE(canvas.MouseDown(User::ByUser(), 1, 1)) << "no handler";
    canvas.MouseDownHandler = [](Canvas&, int64_t x, int64_t y) { return x == 3 && y == 4; };
    EXPECT_TRUE(canvas.MouseDown(User::ByUser(), 3, 4));
    canvas.SetEnabled(false);
    EXPECT_FALSE(canvas.MouseDown(User::ByUser(), 3, 4));
}

TEST(ListboxTest, ColumnWidthsShareTheWidthOfTheList) {
    const std::tuple<const char*, int64_t, std::vector<int64_t>> kCases[] = {
        {"*,90,64", 410, {256, 90, 64}}, {"*,90,64", 100, {0, 90, 64}},
        {"90,*,*", 191, {90, 50, 51}},   {"", 91, {30, 30, 31}},
        {"10", 50, {10, 20, 20}},        {"10,20,30,40", 50, {10, 20, 30}},
    };
    for (const auto& [widths, width, expected] : kCases) {
        Listbox list;
        list.SetColumnCount(3);
        list.SetColumnWidths(widths);
        EXPECT_EQ(list.ColumnWidthsIn(width), expected) << widths;
    }
}

/// Compares only the numbers at the start of the texts.
class NumberList final : public Listbox {
 public:
    bool Event_CompareRows(int64_t row1, int64_t row2, int64_t column, int64_t& result) override {
        result = std::stoll(Cell(row1, column)) - std::stoll(Cell(row2, column));
        return true;
    }
    std::string Rows() const {
        std::string texts;
        for (int64_t row = 0; row < ListCount(); ++row)
            texts += Cell(row, 0) + " ";
        return texts;
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
    EXPECT_EQ(list.Rows(), "9b 14a 7c 9a ") << "no column has a direction";
    list.SetColumnSortDirection(0, Listbox::kSortAscending);
    list.Sort();
    EXPECT_EQ(list.Rows(), "7c 9b 9a 14a ");
    EXPECT_EQ(list.Cell(0, 1), "of 7c");
    EXPECT_EQ(list.RowHelpTag(0), "seven");
    EXPECT_TRUE(list.CellTag(0, 1).BooleanValue());
}

TEST(ListboxTest, TypedTextPrefersWholeNamesAndTheSelectedRow) {
    Listbox list;
    EXPECT_EQ(list.RowWithWord("c"), -1);
    list.SetColumnCount(2);
    using Texts = std::vector<std::string>;
    for (const Texts& row : {Texts{"Adobe InDesign CS6", "8.0.1"},
                             {"Adobe InDesign CC 2019", "14.0"},
                             {"Adobe InDesign CC", "9.0.1"},
                             {"Adobe InDesign 2020", "15.0"}})
        list.AddRow(row);
    struct Case {
        const char* text;
        int64_t selected, row;
    };
    const Case kCases[] = {{"cs6", 3, 0}, {"CC", 2, 2},  {"CC", 1, 2},    {"cc", -1, 2},
                           {"c", 1, 1},   {"c", 3, 0},   {"2", 3, 3},     {"cc 20", 0, 1},
                           {"1", 2, 3},   {"S6", 0, -1}, {"9.0.1", 0, 2}, {"0", 0, -1}};
    for (const Case& each : kCases) {
        list.SetListIndex(each.selected);
        EXPECT_EQ(list.RowWithWord(each.text), each.row) << each.text << each.selected;
    }
}

TEST(ListboxTest, MissingRowsAndColumnsAreRefused) {
    Listbox list;
    list.AddRow("a");
    EXPECT_THROW(list.Cell(1, 0), OutOfBoundsException);
    EXPECT_THROW(list.SetCell(0, 1, ""), OutOfBoundsException);
    EXPECT_THROW(list.SetColumnAlignment(1, 0), OutOfBoundsException);
    EXPECT_THROW(list.SetRowPicture(-1, nullptr), OutOfBoundsException);
    EXPECT_THROW(list.Selected(-1), OutOfBoundsException);
    list.Select(User::ByUser(), 1);
    EXPECT_EQ(list.ListIndex(), -1);
}

}  // namespace
}  // namespace dunvey
