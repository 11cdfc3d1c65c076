#include <gtest/gtest.h>

#include "chooser/about_window.h"
#include "chooser/chooser.h"
#include "icons/icon.h"
#include "menus/main_menu_bar.h"
#include "support/application.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

using test::Chooser;
using test::Paper;
using Version = std::pair<std::string, std::string>;

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
            for (int kind = NSWindow::kCloseButton; kind <= NSWindow::kZoomButton; ++kind)
                EXPECT_TRUE(window.Handle()->standardWindowButton(kind)->isHidden());
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

TEST_F(Chooser, ListsEveryVersionInOrderWithItsState) {
    InstallOnly({{"CC 2019", "14.0.1"},
                 {"CS5.5", "7.5.3"},
                 {"CC", "9.1.0"},
                 {"CC 9", "9.0.3"},
                 {"CS3", ""}});
    Running({"CC"});
    Look([&](Window1& window) {
        const Listbox& list = *window.AppList();
        EXPECT_EQ(Column(window, 0),
                  (Texts{"Adobe InDesign CS3", "Adobe InDesign CS5.5", "Adobe InDesign CC 9",
                         "Adobe InDesign CC", "Adobe InDesign CC 2019"}));
        EXPECT_EQ(Column(window, 1), (Texts{"0.0.0", "7.5.3", "9.0.3", "9.1.0", "14.0.1"}));
        EXPECT_EQ(Column(window, 2), (Texts{"", "", "", "Booting", ""}));
        EXPECT_EQ(list.ColumnWidthsIn(410), (std::vector<int64_t>{256, 90, 64}));
        EXPECT_TRUE(list.CellTag(3, 2).BooleanValue());
        EXPECT_TRUE(list.CellTag(1, 2).IsNull());
        EXPECT_EQ(Colour(list.RowPicture(1)),
                  Colour(Icon::Get(New<FolderItem>(AppPath("CS5.5")), 16)));
        EXPECT_EQ(list.ColumnAlignment(0), Listbox::kAlignDefault);
        EXPECT_EQ(list.ColumnAlignment(2), Listbox::kAlignCentre);
        EXPECT_EQ(list.SpokenName(),
                  "a.indd, InDesign CS6 (v8). The same version of InDesign.app is not installed.");
        EXPECT_EQ(list.RowHelpTag(3), "") << "it can open the document";
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
    Look([&](Window1& window) {
        InstallOnly({{"CC", "9.0.0"}});
        InDesign::GetInstalledApps();
        Running({"CC"});
        window.ReView();
        EXPECT_EQ(window.Height(), 356) << "fewer rows";
        EXPECT_TRUE(window.IsBootingOtherApp) << "started since the chooser was shown";
    });
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

const Version kCS5{"CS5", "7.0.4"}, kCS55{"CS5.5", "7.5.3"}, kCS6{"CS6", "8.1.0"},
    kCS6Old{"CS6 old", "8.0.1"}, kCC{"CC", "9.0.0"}, k2014{"CC 2014", "10.0.0"};

TEST_F(Chooser, MarksTheRowsThatMayOpenTheDocumentAndSelectsTheBest) {
    struct Row {
        const char* name;
        int major, minor;
        std::vector<Version> installed;
        std::vector<std::string> running;
        bool allowHigher;
        std::string usable;  // a letter for each row
        int64_t selected;
    };
    const Row kRows[] = {
        {"equal alone", 8, 0, {kCS5, kCS6, kCC}, {}, false, "-u-", 1},
        {"equal, higher allowed", 8, 0, {kCS5, kCS6, kCC}, {}, true, "-uu", 1},
        {"missing, the highest runs", 8, 0, {kCS5, kCC, k2014}, {"CC", "CC 2014"}, false, "-uu", 2},
        {"missing, one runs", 8, 0, {kCS5, kCC, k2014}, {"CC"}, false, "-uu", 1},
        {"missing, none runs", 8, 0, {kCS5, kCC, k2014}, {}, true, "-uu", -1},
        {"missing, a lower one runs", 8, 0, {kCS5, kCC, k2014}, {"CS5"}, false, "-uu", -1},
        {"none high enough", 8, 0, {kCS5, kCS55}, {"CS5"}, true, "--", -1},
        {"two of one major version", 8, 0, {kCS6Old, kCS6}, {}, false, "uu", 1},
        {"7.5", 7, 5, {kCS5, kCS55, kCS6}, {}, false, "-u-", 1},
        {"7 is lower than 7.5", 7, 0, {kCS5, kCS55}, {}, false, "u-", 0},
        {"7.5 is no 7", 7, 0, {kCS55}, {"CS5.5"}, false, "-", -1},
        {"7.5 is higher than 7", 7, 0, {kCS55}, {"CS5.5"}, true, "u", -1},
        {"no version at all", 0, 0, {kCS5}, {}, false, "u", -1},
    };
    commandKey_ = true;
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        InstallOnly(row.installed);
        Running(row.running);
        folder_.Write("config/Dunvey.pref", "");
        const auto look = [&](Window1& window) {
            if (row.allowHigher) user_->Toggle(*window.CheckBox1());
            std::string usable;
            for (int64_t i = 0; i < window.AppList()->ListCount(); ++i)
                usable += window.AppList()->CellTag(i, 1).BooleanValue() ? 'u' : '-';
            EXPECT_EQ(usable, row.usable);
            EXPECT_EQ(window.AppList()->ListIndex(), row.selected);
            EXPECT_EQ(window.LabelAppName()->HelpTag(),
                      row.major > 0 ? "" : "The document's version couldn't be read.");
            if (row.allowHigher) user_->Toggle(*window.CheckBox1());
        };
        Look(look, row.major, row.minor);
    }
}

/// The captions of both buttons; "*" marks the default one, "()" a disabled one.
std::string Buttons(const Window1& window) {
    const auto show = [](const PushButton& button) {
        const std::string caption = button.Caption() + (button.Default() ? "*" : "");
        return button.Enabled() ? caption : "(" + caption + ")";
    };
    return show(*window.PushButton1()) + " | " + show(*window.PushButton3());
}

TEST_F(Chooser, TheButtonsFollowTheSelectedRow) {
    InstallOnly({kCS5, kCS55, kCS6, {"CC 2019", "14.0.1"}});
    Running({"CS5", "CC 2019"});
    Look([&](Window1& window) {
        const auto select = [&](int64_t row) {
            user_->Select(*window.AppList(), row);
            return Buttons(window);
        };
        EXPECT_EQ(Buttons(window), "Open with CS6* | (Quit)");
        EXPECT_EQ(select(0), "(Open*) | Quit CS5") << "lower and running";
        EXPECT_EQ(select(1), "(Open*) | (Quit)") << "lower and not running";
        EXPECT_EQ(select(3), "(Open*) | Quit CC") << "higher ones aren't allowed";
        EXPECT_EQ(window.PushButton1()->HelpTag(),
                  "Newer than the document: tick the box below to allow it, or double-click with "
                  "Control held down.");
        EXPECT_EQ(window.PushButton3()->HelpTag(), "Adobe InDesign CC 2019");
        user_->Toggle(*window.CheckBox1());
        EXPECT_EQ(window.AppList()->ListIndex(), 2) << "the equal version is selected";
        EXPECT_EQ(select(3), "Open with CC* | Quit CC");
        EXPECT_EQ(window.PushButton1()->HelpTag(), "Adobe InDesign CC 2019");
        user_->Toggle(*window.CheckBox2());
        EXPECT_EQ(Buttons(window), "Open with CC | Quit CC*");
        EXPECT_EQ(select(2), "Open with CS6 | (Quit*)") << "also while it is disabled";
        EXPECT_EQ(select(-1), "(Open) | (Quit)");
        user_->Toggle(*window.CheckBox2());
        EXPECT_EQ(Buttons(window), "(Open) | (Quit)");
        EXPECT_EQ(window.PushButton2()->Caption(), "Cancel");
    });
}

TEST_F(Chooser, InJapaneseTheNameComesFirst) {
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    title_ = "Marlit Id - 通知";
    InstallOnly({kCS6});
    Running({"CS6"});
    commandKey_ = true;
    Look([](Window1& window) {
        EXPECT_EQ(window.PushButton1()->Caption().substr(0, 3), "CS6");
        EXPECT_EQ(window.PushButton3()->Caption().substr(0, 3), "CS6");
    });
}

class About : public test::Chooser {
 protected:
    About() {
        app_->SetMenuBar(MainMenuBar::Instance());
        Application::Register(app_);
        FileAbout()->Action = [this] { return app_->_FileAbout_Action(); };
    }
    ~About() override { MainMenuBar::Instance()->Find("FileAbout")->Action = nullptr; }

    void ChooseAbout() const { EXPECT_TRUE(FileAbout()->Choose(test::User::ByUser())); }

    const Ref<App> app_ = New<App>();
};

TEST_F(About, ShowsNameAndVersionInASingleWindow) {
    user_->ExpectWindow("", {});
    ChooseAbout();
    const Ref<AboutWindow> window = AboutWindow::Instance();
    EXPECT_EQ(window->LabelName()->Text(), "chooser_tests");
    EXPECT_EQ(window->LabelVersion()->Text(), "Version 1.0.0 (10000)");
    EXPECT_EQ(window->LabelCopyright()->Text(), Application::LongVersion());
    ChooseAbout();
    EXPECT_EQ(AboutWindow::Instance(), window);
    EXPECT_TRUE(user_->Escape(*window));
    EXPECT_TRUE(window->IsClosed());

    user_->ExpectWindow("", {});
    ChooseAbout();
    const Ref<AboutWindow> next = AboutWindow::Instance();
    EXPECT_FALSE(next == window);
    EXPECT_EQ(next->LabelName()->Text(), "chooser_tests") << "a new window is filled again";
    next->Close();
}

}  // namespace
}  // namespace dunvey
