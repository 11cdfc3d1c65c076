#include <gtest/gtest.h>

#include "chooser/chooser.h"
#include "icons/icon.h"

namespace dunvey {
namespace {

using test::Chooser;
using test::Paper;
using Texts = std::vector<std::string>;

/// Identifies the file of an icon by the scripted desktop's colour for it.
uint32_t Colour(const Ref<Picture>& picture) {
    return picture->PixelsFor(1).Pixels.front();
}

TEST_F(Chooser, ShowsWhyItAsks) {
    struct Row {
        const char* name;
        Texts installed, running;
        bool commandKey;
        const char* flags;  // booting, other booting, installed, need judgment
        const char* message;
    };
    const char* const kNone = "InDesign.app is not installed.";
    const char* const kMissing = "The same version of InDesign.app is not installed.";
    const char* const kAnother = "Another version of InDesign.app is booting.";
    const Row kRows[] = {
        {"nothing installed", {}, {}, false, "0001", kNone},
        {"version missing", {"CC"}, {}, false, "0001", kMissing},
        {"missing, another runs", {"CC"}, {"CC"}, false, "0101", kMissing},
        {"another runs", {"CS6", "CC"}, {"CC"}, false, "0111", kAnother},
        {"asked for", {"CS6"}, {}, true, "0010", ""},
        {"asked for, own runs", {"CS6"}, {"CS6"}, true, "1010", ""},
        {"asked for, both run", {"CS6", "CC"}, {"CS6", "CC"}, true, "1110", ""},
    };
    const auto document = Document("a.indd", 8);
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        RemoveApplications();
        for (const std::string& suffix : row.installed)
            Installed(suffix, suffix == "CS6" ? "8.1.0" : "9.2.0");
        Running(row.running);
        headless::TheMachine().commandKey = row.commandKey;
        const Step look = [&](Window1& window) {
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
            EXPECT_EQ(Colour(window.Canvas1()->Backdrop()), Colour(Icon::Get(document, 46)));
            EXPECT_EQ(window.Canvas1()->Backdrop()->Width(), 46);
        };
        EXPECT_EQ(Look(look, document), 0);
        EXPECT_TRUE(Opened().empty());
    }
}

TEST_F(Chooser, ControlsFollowTheWindowAndNeverOverlap) {
    Look([&](Window1& window) {
        const auto& controls = window.Controls();
        EXPECT_EQ(controls.back(), Ref<RectControl>(window.Canvas2())) << "over the icon";
        std::string changes;
        for (size_t i = 0; i < controls.size(); ++i) {
            user_->Resize(window, {450, 700});
            const Bounds old = controls[i]->Place();
            EXPECT_TRUE(old.Left >= 0 && old.Left + old.Width <= 450) << controls[i]->Name();
            for (size_t other = 0; i + 1 < controls.size() && other < i; ++other) {
                const Bounds place = controls[other]->Place();
                EXPECT_TRUE(
                    old.Left + old.Width <= place.Left || old.Top + old.Height <= place.Top ||
                    place.Left + place.Width <= old.Left || place.Top + place.Height <= old.Top)
                    << controls[i]->Name() << " over " << controls[other]->Name();
            }
            user_->Resize(window, {550, 900});
            const Bounds now = controls[i]->Place();
            changes += controls[i]->Name() + " " + std::to_string(controls[i]->TabIndex());
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
    });
}

TEST_F(Chooser, ListsEveryVersionInOrderWithItsState) {
    for (const auto& [suffix, version] : std::vector<std::pair<std::string, std::string>>{
             {"CC 2019", "14.0.1"}, {"CS5.5", "7.5.3"}, {"CC", "9.0.3"}, {"CS3", ""}}) {
        Installed(suffix, version);
    }
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
        Look([&, height = height](Window1& window) {
            EXPECT_EQ(window.Height(), height);
            EXPECT_EQ(window.AppList()->Place(), (Bounds{20, 109, 410, height - 251}));
            user_->Resize(window, {100, 100});
            EXPECT_EQ(window.Width(), 450);
            EXPECT_EQ(window.Height(), height);
        });
    }
}

TEST_F(Chooser, PaintsCellsByRowColumnSelectionAndWhetherTheyCanOpenTheDocument) {
    Installed("CS5", "7.0.0");
    Installed("CS6", "8.0.1");
    Installed("CC", "9.0.0");
    headless::TheMachine().commandKey = true;
    Look([&](Window1& window) {
        myListBox& list = *window.AppList();
        bool answer = false;
        const auto drawn = [&](int64_t row, int64_t column) {
            Paper paper;
            answer = list.Event_CellBackgroundPaint(paper, row, column);
            return paper.drawn.str();
        };
        const auto grey = [&](int64_t row) {
            Paper paper;
            EXPECT_FALSE(list.Event_CellTextPaint(paper, row, 0, 0, 0));
            return paper.ForeColor == Color{0x999999};
        };
        EXPECT_TRUE(grey(0) && !grey(1) && grey(2));
        user_->Select(list, 2);
        EXPECT_FALSE(grey(2)) << "selected";
        user_->Select(list, -1);
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
        EXPECT_TRUE(answer) << "the handler's answer";
        user_->Select(list, 1);
        EXPECT_EQ(drawn(1, 1), "");
        EXPECT_TRUE(answer);
    });
}

TEST_F(Chooser, HasNoTitleBarButtonsAndItsIconTakesTheClick) {
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
}

TEST_F(Chooser, CheckBoxesShowAndSaveThePreferences) {
    Installed("CS6", "8.0.1");
    headless::TheMachine().commandKey = true;
    Look([&](Window1& window) {
        EXPECT_FALSE(window.CheckBox1()->Value() || window.CheckBox2()->Value());
        user_->Toggle(*window.CheckBox1());
        user_->Toggle(*window.CheckBox2());
    });
    Preferences::gAllowOpenHigherVersion = Preferences::gAllowQuitButtonActiveted = false;
    Look([](Window1& window) {
        EXPECT_TRUE(window.CheckBox1()->Value() && window.CheckBox2()->Value());
    });
    Preferences::gAllowOpenHigherVersion = Preferences::gAllowQuitButtonActiveted = false;
}

}  // namespace
}  // namespace dunvey
