#include <gtest/gtest.h>

#include "chooser/chooser.h"

namespace dunvey {
namespace {

using test::Chooser;

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
            EXPECT_EQ(static_cast<bool>(window.Canvas2()->Backdrop()), *row.message != '\0');
            EXPECT_EQ(window.LabelFileName()->Text(), "a.indd");
            EXPECT_EQ(window.LabelAppName()->Text(),
                      row.installed.empty() ? " (v8)" : "InDesign CS6 (v8)");
        });
    }
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
