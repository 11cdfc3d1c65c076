#include <gtest/gtest.h>

#include "chooser/chooser.h"

namespace dunvey {
namespace {

using test::Chooser;

using Version = std::pair<std::string, std::string>;
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

}  // namespace
}  // namespace dunvey
