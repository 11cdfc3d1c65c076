// The controls and the window as models, without a desktop to show them.
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

struct LockCase {
    Locks locks;
    Bounds grown;
    Bounds shrunk;
};

TEST(ControlsTest, LocksSayWhatAControlDoesInAnotherSize) {
    constexpr Bounds kDesign{20, 109, 410, 449};
    const std::vector<LockCase> cases = {
        {{}, kDesign, kDesign},
        {{true, true, false, false}, kDesign, kDesign},
        {{true, true, true, true}, {20, 109, 510, 459}, {20, 109, 310, 105}},
        {{false, false, true, true}, {120, 119, 410, 449}, {-80, -235, 410, 449}},
        {{true, false, false, true}, {20, 119, 410, 449}, {20, -235, 410, 449}},
        {{true, true, true, false}, {20, 109, 510, 449}, {20, 109, 310, 449}},
    };
    for (const LockCase& each : cases) {
        Separator control;
        control.SetDesign(kDesign, each.locks);
        control.Follow(100, 10);
        EXPECT_EQ(control.Place(), each.grown);
        control.Follow(-100, -344);
        EXPECT_EQ(control.Place(), each.shrunk) << "it follows from the design, not the last size";
        control.Follow(0, 0);
        EXPECT_EQ(control.Place(), kDesign);
    }
    Separator small;
    small.SetDesign({0, 0, 10, 10}, {true, true, true, true});
    small.Follow(-50, -50);
    EXPECT_EQ(small.Place(), (Bounds{0, 0, 0, 0}));
}

class TestWindow final : public Window {
 public:
    TestWindow() : Window({450, 700}) { Add(control); }
    const Ref<Label> control = New<Label>();
};

TEST(ControlsTest, TheScreenIsStrongerThanTheMinimumAndThatThanTheWish) {
    TestWindow window;
    window.control->SetDesign({0, 0, 450, 700}, {true, true, true, true});
    window.SetMinWidth(450);
    window.SetMinHeight(356);
    window.SetHeight(100);
    EXPECT_EQ(window.Height(), 356);
    EXPECT_EQ(window.control->Place(), (Bounds{0, 0, 450, 356}));
    window.SetMinHeight(8000);
    window.Confine(User::ByUser(), {400, 570});
    EXPECT_EQ(window.SmallestSize(), (Size{400, 570}));
    EXPECT_EQ(window.control->Place(), (Bounds{0, 0, 400, 570})) << "it stays on the screen";
    window.SetMinHeight(356);
    window.Resize(User::ByUser(), {10, 10});
    EXPECT_EQ(window.control->Place(), (Bounds{0, 0, 400, 356}));
    window.Confine(User::ByUser(), {2000, 2000});
    window.SetMaxWidth(500);
    window.Resize(User::ByUser(), {1000, 1000});
    EXPECT_EQ(window.control->Place(), (Bounds{0, 0, 500, 1000}));
}

TEST(ControlsTest, AnObservationEndsWithItsHandleInWhicheverOrder) {
    int told = 0;
    auto label = std::make_unique<Label>();
    {
        const auto handle = label->Observe([&] { ++told; });
        label->SetText("1");
        label->SetText("1");
        EXPECT_EQ(told, 1) << "an equal value is no change";
    }
    label->SetText("2");
    EXPECT_EQ(told, 1);
    Observable::Observation handle = label->Observe([&] { handle = {}; });
    label->SetText("3");
    label->SetText("4");
    handle = label->Observe([&] { ++told; });
    label.reset();
    handle = {};
    EXPECT_EQ(told, 1);
}

TEST(ControlsTest, NothingButListIndexFiresFromCode) {
    int fired = 0;
    CheckBox box;
    box.Action = [&](CheckBox&) { ++fired; };
    box.SetValue(true);
    PushButton button;
    button.Action = [&](PushButton&) { ++fired; };
    button.SetDefault(true);
    EXPECT_EQ(fired, 0);
    for (RectControl* control :
         {static_cast<RectControl*>(&box), static_cast<RectControl*>(&button)})
        control->SetEnabled(false);
    box.Toggle(User::ByUser());
    button.Press(User::ByUser());
    EXPECT_TRUE(box.Value());
    EXPECT_EQ(fired, 0) << "what is disabled can't be used";
}

TEST(ListboxTest, TheStarTakesWhatTheOtherColumnsLeave) {
    struct Case {
        const char* widths;
        int64_t width;
        std::vector<int64_t> expected;
    };
    const std::vector<Case> cases = {
        {"*,90,64", 410, {256, 90, 64}}, {"*,90,64", 100, {0, 90, 64}},
        {"90,*,*", 191, {90, 50, 51}},   {"", 91, {30, 30, 31}},
        {"10", 50, {10, 20, 20}},        {"10,20,30,40", 50, {10, 20, 30}},
    };
    for (const Case& each : cases) {
        Listbox list;
        list.SetColumnCount(3);
        list.SetColumnWidths(each.widths);
        EXPECT_EQ(list.ColumnWidthsIn(each.width), each.expected) << each.widths;
    }
}

/// Compares by the number in the text alone.
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

TEST(ListboxTest, SortIsStableAndTakesWholeRows) {
    NumberList list;
    list.SetColumnCount(2);
    for (const char* text : {"9b", "14a", "7c", "9a"})
        list.AddRow({text, std::string("of ") + text});
    list.SetRowHelpTag(2, "seven");
    list.SetCellTag(2, 1, true);
    int changes = 0;
    list.SetListIndex(1);
    list.Change = [&](Listbox&) { ++changes; };
    list.Sort();
    EXPECT_EQ(list.Rows(), "9b 14a 7c 9a ") << "a column without a direction isn't sorted";
    list.SetColumnSortDirection(0, Listbox::kSortAscending);
    list.Sort();
    EXPECT_EQ(list.Rows(), "7c 9b 9a 14a ");
    EXPECT_EQ(list.Cell(0, 1), "of 7c");
    EXPECT_EQ(list.RowHelpTag(0), "seven");
    EXPECT_TRUE(list.CellTag(0, 1).BooleanValue());
    EXPECT_EQ(list.ListIndex(), 3);
    EXPECT_EQ(changes, 0);
}

TEST(ListboxTest, TypedTextPrefersWholeNamesAndTheSelectedRow) {
    Listbox list;
    EXPECT_EQ(list.RowWithWord("c"), -1);
    list.SetColumnCount(2);
    list.AddRow(std::vector<std::string>{"Adobe InDesign CS6", "8.0.1"});
    list.AddRow(std::vector<std::string>{"Adobe InDesign CC 2019", "14.0"});
    list.AddRow(std::vector<std::string>{"Adobe InDesign CC", "9.0.1"});
    list.AddRow(std::vector<std::string>{"Adobe InDesign 2020", "15.0"});
    struct Case {
        const char* text;
        int64_t selected;
        int64_t row;
    };
    for (const Case& each : std::vector<Case>{{"cs6", 3, 0},
                                              {"CC", 2, 2},
                                              {"CC", 1, 2},
                                              {"cc", -1, 2},
                                              {"c", 1, 1},
                                              {"c", 3, 0},
                                              {"2", 3, 3},
                                              {"cc 20", 0, 1},
                                              {"9.0.1", 0, 2},
                                              {"1", 2, 3},
                                              {"S6", 0, -1},
                                              {"0", 0, -1}}) {
        list.SetListIndex(each.selected);
        EXPECT_EQ(list.RowWithWord(each.text), each.row) << each.text << each.selected;
    }
}

TEST(ListboxTest, RowsAndColumnsThatArentThereAreRefused) {
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

TEST(ControlsTest, ACanvasThatIsDisabledClaimsNoPress) {
    Canvas canvas;
    EXPECT_FALSE(canvas.MouseDown(User::ByUser(), 1, 1)) << "nobody wants it";
    canvas.MouseDownHandler = [](Canvas&, int64_t x, int64_t y) { return x == 3 && y == 4; };
    EXPECT_TRUE(canvas.MouseDown(User::ByUser(), 3, 4));
    canvas.SetEnabled(false);
    EXPECT_FALSE(canvas.MouseDown(User::ByUser(), 3, 4));
}

}  // namespace
}  // namespace dunvey
