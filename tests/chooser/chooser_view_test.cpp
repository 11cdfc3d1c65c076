#include <gtest/gtest.h>

#include "chooser/chooser.h"
#include "icons/icon.h"

namespace dunvey {
namespace {

using test::Chooser;
using test::Paper;

/// Identifies the file of an icon by the scripted desktop's colour for it.
uint32_t Colour(const Ref<Picture>& picture) {
    return picture->PixelsFor(1).Pixels.front();
}

TEST_F(Chooser, ShowsWhyItAsks) {
    struct Row {
        const char* name;
        std::vector<std::pair<std::string, std::string>> installed;
        Texts running;
        bool commandKey;
        const char* flags;  // booting, other booting, installed, need judgment
        const char* message;
    };
    const char* const kNone = "InDesign.app is not installed.";
    const char* const kMissing = "The same version of InDesign.app is not installed.";
    const char* const kAnother = "Another version of InDesign.app is booting.";
    const std::pair<std::string, std::string> kCS6{"CS6", "8.1.0"}, kCC{"CC", "9.2.0"};
    const Row kRows[] = {
        {"nothing installed", {}, {}, false, "0001", kNone},
        {"version missing", {kCC}, {}, false, "0001", kMissing},
        {"missing, another runs", {kCC}, {"CC"}, false, "0101", kMissing},
        {"another runs", {kCS6, kCC}, {"CC"}, false, "0111", kAnother},
        {"asked for", {kCS6}, {}, true, "0010", ""},
        {"asked for, own runs", {kCS6}, {"CS6"}, true, "1010", ""},
        {"asked for, both run", {kCS6, kCC}, {"CS6", "CC"}, true, "1110", ""},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        InstallOnly(row.installed);
        Running(row.running);
        commandKey_ = row.commandKey;
        Look([&](Window1& window) {
            EXPECT_EQ(window.idx, 0);
            std::string flags;
            for (const bool flag : {window.IsBootingApp, window.IsBootingOtherApp,
                                    window.IsInstalled, window.NeedJudgment})
                flags += flag ? '1' : '0';
            EXPECT_EQ(flags, row.flags);
            EXPECT_EQ(window.LabelMsg()->Text(), row.message);
            ASSERT_EQ(static_cast<bool>(window.Canvas2()->Backdrop()), *row.message != '\0');
            if (*row.message != '\0') {
                EXPECT_EQ(window.LabelMsg()->TextColor(), Color{0xFB0C43});
                EXPECT_EQ(Colour(window.Canvas2()->Backdrop()), Colour(Icon::GetAlertCaution(32)));
            }
            EXPECT_EQ(window.LabelFileName()->Text(), "a.indd");
            EXPECT_EQ(window.LabelAppName()->Text(),
                      row.installed.empty() ? " (v8)" : "InDesign CS6 (v8)");
            const auto document = New<FolderItem>(folder_ / "a.indd");
            EXPECT_EQ(Colour(window.Canvas1()->Backdrop()), Colour(Icon::Get(document, 46)));
            EXPECT_EQ(window.Canvas1()->Backdrop()->Width(), 46);
        });
    }
}

TEST_F(Chooser, ControlsFollowTheWindowWhichHasNoTitleBarButtons) {
    Look([&](Window1& window) {
        std::string changes;
        for (const Ref<RectControl>& control : window.Controls()) {
            user_->Resize(window, {450, 700});
            const Bounds old = control->Place();
            EXPECT_TRUE(old.Left >= 0 && old.Left + old.Width <= 450) << control->Name();
            user_->Resize(window, {550, 900});
            const Bounds now = control->Place();
            changes += control->Name() + " " + std::to_string(control->TabIndex());
            if (now.Left == old.Left + 100) changes += 'x';
            if (now.Top == old.Top + 200) changes += 'y';
            if (now.Width == old.Width + 100) changes += 'w';
            if (now.Height == old.Height + 200) changes += 'h';
            changes += ' ';
        }
        EXPECT_EQ(changes,
                  "AppList 0wh PushButton1 1xy PushButton2 2xy PushButton3 3y Separator3 5yw "
                  "CheckBox1 6y CheckBox2 7y LabelFileName 8w LabelAppName 9w Canvas1 10 "
                  "Separator1 11w LabelMsg 12w Separator2 13w Canvas2 15 ")
            << "tab index; x, y, w, h: moves right or down, gets wider or taller";
        EXPECT_EQ(window.AppList()->ColumnWidthsIn(410), (std::vector<int64_t>{256, 90, 64}));
        EXPECT_EQ(window.Frame, Window::kMovableModal);
        EXPECT_TRUE(window.Resizeable);
        for (int kind = 0; kind < 3; ++kind)
            EXPECT_TRUE(window.Handle()->standardWindowButton(kind)->isHidden());
        EXPECT_TRUE(window.Canvas1()->Event_MouseDown(1, 1));
        EXPECT_FALSE(window.Canvas2()->Event_MouseDown(1, 1));
        EXPECT_EQ(window.FileAbout(), window.MenuBar()->Find("FileAbout"));
        EXPECT_TRUE(window.EditUndo());
    });
}

TEST_F(Chooser, ListsEveryVersionInOrderWithItsState) {
    InstallOnly({{"CC 2019", "14.0.1"}, {"CS5.5", "7.5.3"}, {"CC", "9.0.3"}, {"CS3", ""}});
    Running({"CC"});
    Look([&](Window1& window) {
        const Listbox& list = *window.AppList();
        EXPECT_EQ(Column(window, 0), (Texts{"Adobe InDesign CS3", "Adobe InDesign CS5.5",
                                            "Adobe InDesign CC", "Adobe InDesign CC 2019"}));
        EXPECT_EQ(Column(window, 1), (Texts{"0.0.0", "7.5.3", "9.0.3", "14.0.1"}));
        EXPECT_EQ(Column(window, 2), (Texts{"", "", "Booting", ""}));
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
}

TEST_F(Chooser, HeightFollowsTheRows) {
    int installed = 0;
    for (const auto& [rows, height] :
         {std::pair<int, int64_t>{0, 356}, {4, 356}, {5, 408}, {6, 434}, {12, 590}}) {
        for (; installed < rows; ++installed) {
            const std::string number = std::to_string(9 + installed);
            Installed("CC " + number, number + ".0.0");
        }
        Look([&](Window1& window) {
            EXPECT_EQ(window.Height(), height);
            EXPECT_EQ(window.AppList()->Place(), (Bounds{20, 109, 410, height - 251}));
            user_->Resize(window, {100, 100});
            EXPECT_EQ(window.Width(), 450);
            EXPECT_EQ(window.Height(), height);
        });
    }
}

TEST_F(Chooser, PaintsCellsByRowColumnSelectionAndWhetherTheyCanOpenTheDocument) {
    InstallOnly({{"CS5", "7.0.0"}, {"CS6", "8.0.1"}, {"CC", "9.0.0"}});
    commandKey_ = true;
    Look([&](Window1& window) {
        myListBox& list = *window.AppList();
        const auto drawn = [&](int64_t row, int64_t column) {
            Paper paper;
            const bool isPainted = list.Event_CellBackgroundPaint(paper, row, column);
            return paper.drawn.str() + (isPainted ? "painted" : "");
        };
        const auto isGrey = [&](int64_t row) {
            Paper paper;
            EXPECT_FALSE(list.Event_CellTextPaint(paper, row, 0, 0, 0));
            return paper.ForeColor == Color{0x999999};
        };
        EXPECT_TRUE(isGrey(0) && !isGrey(1) && isGrey(2));
        user_->Select(list, 2);
        EXPECT_FALSE(isGrey(2)) << "selected";
        user_->Select(list, 1);
        const std::string below = "line d5d5d5 0 25 90 25; ";
        const std::string beside = "line d5d5d5 89 0 89 25; ";
        EXPECT_EQ(drawn(1, 1), "painted") << "the list paints the selection";
        user_->Select(list, -1);
        EXPECT_EQ(drawn(0, 1), below + beside);
        EXPECT_EQ(drawn(0, 2), below) << "the last column";
        EXPECT_EQ(drawn(1, 1), "fill f1f2f2 0 0 90 26; " + below + beside);
        list.CellBackgroundPaint = [](Listbox&, Graphics&, int64_t row, int64_t) {
            return row == 2;
        };
        EXPECT_EQ(drawn(0, 2), below);
        EXPECT_EQ(drawn(2, 2), below + "painted") << "the handler's answer";
    });
}

TEST_F(Chooser, CheckBoxesShowAndSaveThePreferences) {
    Installed("CS6", "8.0.1");
    commandKey_ = true;
    for (const bool isOn : {false, true}) {
        Preferences::gAllowOpenHigherVersion = Preferences::gAllowQuitButtonActiveted = false;
        Look([&](Window1& window) {
            for (const Ref<CheckBox>& box : {window.CheckBox1(), window.CheckBox2()}) {
                EXPECT_EQ(box->Value(), isOn);
                user_->Toggle(*box);
            }
        });
    }
}

}  // namespace
}  // namespace dunvey
