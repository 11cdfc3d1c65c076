#include <gtest/gtest.h>

#include <sstream>

#include "chooser/chooser.h"
#include "icons/icon.h"

namespace dunvey {
namespace {

using test::Chooser;

/// Whose image it is, from the scripted desktop's colours.
uint32_t Colour(const Ref<Picture>& picture) {
    return picture->Images().front()->Pixels().Pixels.front();
}

TEST_F(Chooser, WhatIsPassedOnAndShownInEachSituation) {
    struct Row {
        const char* name;
        std::vector<std::string> installed;
        std::vector<std::string> running;
        bool commandKey;
        bool booting, other, isInstalled, needJudgment;
        const char* message;
    };
    const char* const kNone = "InDesign.app is not installed.";
    const char* const kMissing = "The same version of InDesign.app is not installed.";
    const char* const kAnother = "Another version of InDesign.app is booting.";
    const Row kRows[] = {
        {"nothing installed", {}, {}, false, false, false, false, true, kNone},
        {"version missing", {"CC"}, {}, false, false, false, false, true, kMissing},
        {"missing, another runs", {"CC"}, {"CC"}, false, false, true, false, true, kMissing},
        {"another runs", {"CS6", "CC"}, {"CC"}, false, false, true, true, true, kAnother},
        {"asked for", {"CS6"}, {}, true, false, false, true, false, ""},
        {"asked for, own runs", {"CS6"}, {"CS6"}, true, true, false, true, false, ""},
        {"asked for, both run", {"CS6", "CC"}, {"CS6", "CC"}, true, true, true, true, false, ""},
    };
    const auto document = Document("a.indd", 8);
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(system(("rm -rf '" + (folder_ / "Applications") + "'/*").c_str()), 0);
        for (const std::string& suffix : row.installed)
            Installed(suffix, suffix == "CS6" ? "8.1.0" : "9.2.0");
        Running(row.running);
        headless::TheMachine().commandKey = row.commandKey;
        Look([&](Window1& window) {
            EXPECT_EQ(window.idx, 0);
            EXPECT_EQ(window.IsBootingApp, row.booting);
            EXPECT_EQ(window.IsBootingOtherApp, row.other);
            EXPECT_EQ(window.IsInstalled, row.isInstalled);
            EXPECT_EQ(window.NeedJudgment, row.needJudgment);
            EXPECT_EQ(window.LabelMsg()->Text(), row.message);
            ASSERT_EQ(static_cast<bool>(window.Canvas2()->Backdrop()), row.needJudgment);
            if (row.needJudgment) {
                EXPECT_EQ(window.LabelMsg()->TextColor(), Color{0xFB0C43});
                EXPECT_EQ(Colour(window.Canvas2()->Backdrop()), Colour(Icon::GetAlertCaution(32)));
            }
            EXPECT_EQ(window.LabelFileName()->Text(), "a.indd");
            EXPECT_EQ(window.LabelAppName()->Text(),
                      row.installed.empty() ? " (v8)" : "InDesign CS6 (v8)");
            EXPECT_EQ(Colour(window.Canvas1()->Backdrop()), Colour(Icon::Get(document, 46)));
            EXPECT_EQ(window.Canvas1()->Backdrop()->Width(), 46);
        });
        EXPECT_EQ(Open({document}), 0);
        EXPECT_TRUE(Opened().empty()) << "cancelled";
    }
}

/// What a control shows besides its place, in one line.
std::string Looks(const Ref<RectControl>& control) {
    if (const auto button = control.As<PushButton>()) {
        return button->Caption() + (button->Default() ? " default" : "") +
               (button->Cancel() ? " cancel" : "") + (button->Enabled() ? "" : " disabled");
    }
    if (const auto box = control.As<CheckBox>()) return box->Caption();
    if (const auto label = control.As<Label>()) {
        return "size " + std::to_string(label->TextSize()) + " align " +
               std::to_string(label->TextAlign());
    }
    if (control.As<Canvas>()) return "canvas";
    return control.As<Separator>() ? "line" : "list";
}

TEST_F(Chooser, EachControlHasItsPlaceItsLocksAndItsTurn) {
    struct Row {
        std::string name;
        Bounds place;
        std::string locks;
        int64_t tabIndex;
        std::string looks;
    };
    const Row kRows[] = {
        {"AppList", {20, 109, 410, 449}, "LTRB", 0, "list"},
        {"PushButton1", {285, 570, 145, 20}, "RB", 1, "Open disabled"},
        {"PushButton2", {186, 570, 90, 20}, "RB", 2, "Cancel cancel"},
        {"PushButton3", {20, 570, 135, 20}, "LB", 3, "Quit disabled"},
        {"Separator3", {20, 612, 410, 4}, "LRB", 5, "line"},
        {"CheckBox1", {20, 628, 409, 20}, "LB", 6, "Allow a file to be opened by a higher version"},
        {"CheckBox2", {20, 660, 410, 20}, "LB", 7, "Activate the Quit button"},
        {"LabelFileName", {72, 13, 358, 20}, "LTR", 8, "size 0 align 0"},
        {"LabelAppName", {72, 40, 358, 24}, "LTR", 9, "size 17 align 0"},
        {"Canvas1", {18, 13, 46, 46}, "LT", 10, "canvas"},
        {"Separator1", {20, 66, 410, 7}, "LTR", 11, "line"},
        {"LabelMsg", {0, 78, 450, 24}, "LTR", 12, "size 15 align 1"},
        {"Separator2", {68, 33, 362, 6}, "LTR", 13, "line"},
        {"Canvas2", {15, 36, 32, 32}, "LT", 15, "canvas"},
    };
    Look([&](Window1& window) {
        ASSERT_EQ(window.Controls().size(), std::size(kRows));
        EXPECT_EQ(window.Controls().back(), Ref<RectControl>(window.Canvas2())) << "over the icon";
        for (const Row& row : kRows) {
            SCOPED_TRACE(row.name);
            const auto& controls = window.Controls();
            const auto found =
                std::find_if(controls.begin(), controls.end(),
                             [&](const auto& each) { return each->Name() == row.name; });
            ASSERT_NE(found, controls.end());
            EXPECT_EQ((*found)->TabIndex(), row.tabIndex);
            EXPECT_EQ(Looks(*found), row.looks);
            user_->Resize(window, {450, 700});
            EXPECT_EQ((*found)->Place(), row.place);
            user_->Resize(window, {550, 900});
            const auto has = [&row](char edge) {
                return row.locks.find(edge) != std::string::npos;
            };
            Bounds place = row.place;
            if (has('R')) (has('L') ? place.Width : place.Left) += 100;
            if (has('B')) (has('T') ? place.Height : place.Top) += 200;
            EXPECT_EQ((*found)->Place(), place);
        }
        EXPECT_EQ(window.AppList()->ColumnWidthsIn(410), (std::vector<int64_t>{256, 90, 64}));
        EXPECT_EQ(window.AppList()->DefaultRowHeight(), 26);
        EXPECT_EQ(window.Frame, Window::kMovableModal);
        EXPECT_TRUE(window.Resizeable);
    });
    Open({Document("a.indd", 8)});
}

TEST_F(Chooser, ListsEveryVersionInOrderWithItsState) {
    for (const auto& [suffix, version] : std::vector<std::pair<std::string, std::string>>{
             {"CC 2019", "14.0.1"}, {"CS5.5", "7.5.3"}, {"CC", "9.0.3"}, {"CS3", ""}}) {
        Installed(suffix, version);
    }
    Running({"CC"});
    Look([&](Window1& window) {
        const Listbox& list = *window.AppList();
        EXPECT_EQ(Column(window, 0),
                  (std::vector<std::string>{"Adobe InDesign CS3", "Adobe InDesign CS5.5",
                                            "Adobe InDesign CC", "Adobe InDesign CC 2019"}));
        EXPECT_EQ(Column(window, 1),
                  (std::vector<std::string>{"0.0.0", "7.5.3", "9.0.3", "14.0.1"}));
        EXPECT_EQ(Column(window, 2), (std::vector<std::string>{"", "", "Booting", ""}));
        EXPECT_TRUE(list.CellTag(2, 2).BooleanValue());
        EXPECT_TRUE(list.CellTag(1, 2).IsNull());
        EXPECT_EQ(Colour(list.RowPicture(1)),
                  Colour(Icon::Get(New<FolderItem>(AppPath("CS5.5")), 16)));
        EXPECT_EQ(list.ColumnAlignment(0), Listbox::kAlignDefault);
        EXPECT_EQ(list.ColumnAlignment(2), Listbox::kAlignCentre);
        EXPECT_EQ(list.SpokenName(),
                  "a.indd, InDesign CS6 (v8). The same version of InDesign.app is not installed.");
        EXPECT_EQ(list.RowHelpTag(2), "") << "it can open the document";
        EXPECT_EQ(list.RowHelpTag(1),
                  "Older than the document. Double-click with Control held down to open it all the "
                  "same.");
        EXPECT_EQ(list.Heading(2), "State");
        EXPECT_EQ(window.LabelFileName()->HelpTag(), folder_ / "a.indd");
        EXPECT_EQ(window.LabelAppName()->HelpTag(), "");
    });
    Open({Document("a.indd", 8)});
}

TEST_F(Chooser, HeightFollowsTheRows) {
    struct Row {
        int rows;
        int64_t height;
    };
    int installed = 0;
    for (const Row& row : {Row{0, 356}, Row{4, 356}, Row{5, 408}, Row{6, 434}, Row{12, 590}}) {
        for (; installed < row.rows; ++installed) {
            const int number = 9 + installed;
            Installed("CC " + std::to_string(number), std::to_string(number) + ".0.0");
        }
        Look([&](Window1& window) {
            EXPECT_EQ(window.MinHeight(), row.height);
            EXPECT_EQ(window.Height(), row.height);
            EXPECT_EQ(window.Width(), 450);
            EXPECT_EQ(window.AppList()->Place(), (Bounds{20, 109, 410, row.height - 251}));
            EXPECT_EQ(window.CheckBox2()->Place(), (Bounds{20, row.height - 40, 410, 20}));
            user_->Resize(window, {100, 100});
            EXPECT_EQ(window.Width(), 450);
            EXPECT_EQ(window.Height(), row.height);
        });
        Open({Document("a.indd", 8)});
    }
}

/// Writes down what is drawn into a cell of 90 by 26 points.
class Paper final : public Graphics {
 public:
    int64_t Width() const override { return 90; }
    int64_t Height() const override { return 26; }
    void FillRect(int64_t x, int64_t y, int64_t width, int64_t height) override {
        Draw("fill", {x, y, width, height});
    }
    void DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) override {
        Draw("line", {fromX, fromY, toX, toY});
    }
    void DrawPicture(const Picture&, int64_t, int64_t) override {}
    std::ostringstream drawn;

 private:
    void Draw(const char* what, std::initializer_list<int64_t> numbers) {
        drawn << what << std::hex << " " << ForeColor.RedGreenBlue << std::dec;
        for (const int64_t number : numbers)
            drawn << " " << number;
        drawn << "; ";
    }
};

TEST_F(Chooser, CellsHaveStripesAndHairLinesExceptInTheSelectedRow) {
    for (const char* suffix : {"CS5", "CS6", "CC"})
        Installed(suffix, "9.0.0");
    Look([&](Window1& window) {
        myListBox& list = *window.AppList();
        bool answer = false;
        const auto drawn = [&](int64_t row, int64_t column) {
            Paper paper;
            answer = list.Event_CellBackgroundPaint(paper, row, column);
            return paper.drawn.str();
        };
        const std::string below = "line d5d5d5 0 25 90 25; ";
        const std::string beside = "line d5d5d5 89 0 89 25; ";
        EXPECT_EQ(drawn(0, 0), below + beside);
        EXPECT_EQ(drawn(0, 1), below + beside);
        EXPECT_EQ(drawn(0, 2), below) << "the last column";
        EXPECT_EQ(drawn(1, 1), "fill f1f2f2 0 0 90 26; " + below + beside);
        EXPECT_EQ(drawn(2, 2), below);
        EXPECT_FALSE(answer) << "the list paints the rest";
        list.CellBackgroundPaint = [](Listbox&, Graphics&, int64_t row, int64_t) {
            return row == 2;
        };
        drawn(2, 2);
        EXPECT_TRUE(answer) << "the owner's answer";
        user_->Select(list, 1);
        EXPECT_EQ(drawn(1, 1), "");
        EXPECT_TRUE(answer);
    });
    Open({Document("a.indd", 8)});
}

TEST_F(Chooser, RowsAreGreyWhereTheyCannotOpenTheDocument) {
    Installed("CS5", "7.0.0");
    Installed("CS6", "8.0.1");
    Installed("CC", "9.0.0");
    headless::TheMachine().commandKey = true;
    Look([&](Window1& window) {
        const auto grey = [&](int64_t row) {
            Paper paper;
            EXPECT_FALSE(window.AppList()->Event_CellTextPaint(paper, row, 0, 0, 0));
            return paper.ForeColor == Color{0x999999};
        };
        ASSERT_EQ(window.AppList()->ListIndex(), 1);
        EXPECT_TRUE(grey(0));
        EXPECT_FALSE(grey(1));
        EXPECT_TRUE(grey(2));
        user_->Select(*window.AppList(), 2);
        EXPECT_FALSE(grey(2)) << "the selected row never is";
    });
    Open({Document("a.indd", 8)});
}

TEST_F(Chooser, ComesUpWithoutTitleBarButtonsAndTakesNoClickOnTheIcon) {
    headless::TheMachine().commandKey = true;
    Installed("CS6", "8.0.1");
    Look([](Window1& window) {
        for (int kind = 0; kind < 3; ++kind)
            EXPECT_TRUE(window.Handle()->standardWindowButton(kind)->isHidden());
        EXPECT_TRUE(window.Canvas1()->Event_MouseDown(1, 1));
        EXPECT_FALSE(window.Canvas2()->Event_MouseDown(1, 1));
        EXPECT_EQ(window.FileAbout(), window.MenuBar()->Find("FileAbout"));
        EXPECT_TRUE(window.EditUndo());
    });
    Open({Document("a.indd", 8)});
}

TEST_F(Chooser, ThePreferencesAreInTheCheckBoxesAndStayOnTheDisk) {
    Installed("CS6", "8.0.1");
    headless::TheMachine().commandKey = true;
    Expect({[&](Window1& window) {
                EXPECT_FALSE(window.CheckBox1()->Value());
                user_->Toggle(*window.CheckBox1());
                user_->Toggle(*window.CheckBox2());
            },
            [&](Window1& window) { user_->Escape(window); }});
    Open({Document("a.indd", 8)});
    Look([](Window1& window) {
        EXPECT_TRUE(window.CheckBox1()->Value());
        EXPECT_TRUE(window.CheckBox2()->Value());
    });
    Preferences::gAllowOpenHigherVersion = Preferences::gAllowQuitButtonActiveted = false;
    Open({Document("a.indd", 8)});
}

}  // namespace
}  // namespace dunvey
