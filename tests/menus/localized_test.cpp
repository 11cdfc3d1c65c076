#include "menus/localized.h"

#include <gtest/gtest.h>

#include "menus/general.h"
#include "support/world.h"

namespace dunvey {
namespace {

class LocalizedTexts : public test::World {};

struct Row {
    const LocalizedText& text;
    const char* key;
    const char* english;
};

/// The English texts, letter by letter.
const Row kRows[] = {
    {Localized::kBooting, "Localized.kBooting", "Booting"},
    {Localized::kCancel, "Localized.kCancel", "Cancel"},
    {Localized::kCapIgnoreWarning, "Localized.kCapIgnoreWarning", "Ignore warning"},
    {Localized::kMultipleAppWillLaunched, "Localized.kMultipleAppWillLaunched",
     "Multiple InDesign.apps will be launched."},
    {Localized::kAllowQuitButtonActiveted, "Localized.kAllowQuitButtonActiveted",
     "Activate the Quit button"},
    {Localized::kLang, "Localized.kLang", "en"},
    {Localized::kQuitDunvey, "Localized.kQuitDunvey", "Quit Dunvey"},
    {Localized::kQuit, "Localized.kQuit", "Quit"},
    {Localized::kOpen, "Localized.kOpen", "Open"},
    {Localized::kAllowOpenHigherVersion, "Localized.kAllowOpenHigherVersion",
     "Allow a file to be opened by a higher version"},
    {Localized::kCapOpenWith, "Localized.kCapOpenWith", "Open with "},
    {Localized::kCapQuit, "Localized.kCapQuit", "Quit "},
    {Localized::kCapRecommendNotOpenNow, "Localized.kCapRecommendNotOpenNow",
     "InDesign.app to launched should keep only one as much as possible."},
    {Localized::kMassage_Unable_to_import_icon, "Localized.kMassage_Unable_to_import_icon",
     "Unable to import the icon."},
    {Localized::kMassage_put_Dunvey, "Localized.kMassage_put_Dunvey",
     "Please put Dunvey.app in the place where write permission is given."},
    {Localized::kMassage_AnotherVerAppBooting, "Localized.kMassage_AnotherVerAppBooting",
     "Another version of InDesign.app is booting."},
    {Localized::kMassage_SameVerAppNotInstalled, "Localized.kMassage_SameVerAppNotInstalled",
     "The same version of InDesign.app is not installed."},
    {Localized::kMassage_AppNotInstalled, "Localized.kMassage_AppNotInstalled",
     "InDesign.app is not installed."},
    {Localized::kMassage_SystemRequirement, "Localized.kMassage_SystemRequirement",
     "The system requirement for Marlit Ai are up to macOS Mojave 10.14."},
    {Localized::kMassage_Quit, "Localized.kMassage_Quit",
     "Quit Marlti Id as this system does not meet the requirements."},
    {Localized::kNotificationWindowTitle, "Localized.kNotificationWindowTitle",
     "Marlit Id - Notification"},
    {LocalizedMenu::kFile, "LocalizedMenu.kFile", "File"},
    {LocalizedMenu::kFileClose, "LocalizedMenu.kFileClose", "Close"},
    {LocalizedMenu::kEdit, "LocalizedMenu.kEdit", "Edit"},
    {LocalizedMenu::kCut, "LocalizedMenu.kCut", "Cut"},
    {LocalizedMenu::kCopy, "LocalizedMenu.kCopy", "Copy"},
    {LocalizedMenu::kPaste, "LocalizedMenu.kPaste", "Paste"},
    {LocalizedMenu::kDelete, "LocalizedMenu.kDelete", "Delete"},
    {LocalizedMenu::kSelectAll, "LocalizedMenu.kSelectAll", "Select All"},
    {LocalizedMenu::kWindow, "LocalizedMenu.kWindow", "Window"},
    {LocalizedMenu::kMinimize, "LocalizedMenu.kMinimize", "Minimize"},
    {LocalizedMenu::kZoom, "LocalizedMenu.kZoom", "Zoom"},
    {LocalizedMenu::kBringAllToFront, "LocalizedMenu.kBringAllToFront", "Bring All to Front"},
    {LocalizedMenu::kHelp, "LocalizedMenu.kHelp", "Help"},
    {LocalizedMenu::kLocal, "LocalizedMenu.kLocal", "en"},
};

TEST_F(LocalizedTexts, EnglishIsWhatIsAskedFor) {
    for (const Row& row : kRows) {
        EXPECT_EQ(row.text.key, row.key);
        EXPECT_EQ(row.text(""), row.english);
    }
}

TEST_F(LocalizedTexts, TheLanguageSwitchesAndTheWordOrderGoTogether) {
    EXPECT_EQ(Localized::kLang("ja"), "ja");
    EXPECT_EQ(LocalizedMenu::kLocal("ja"), "ja");
    EXPECT_EQ(Localized::kLang("fr"), "en");
    for (const LocalizedText& caption : {Localized::kCapOpenWith, Localized::kCapQuit}) {
        EXPECT_EQ(caption("ja").front(), ' ') << "one blank after the name";
        EXPECT_NE(caption("ja").back(), ' ');
    }
}

TEST_F(LocalizedTexts, TheLocaleSelectsTheLanguage) {
    const std::pair<const char*, const char*> kLocales[] = {
        {"ja_JP.UTF-8", "終了"}, {"ja", "終了"},   {"ja_JP.eucJP@x", "終了"},
        {"en_US.UTF-8", "Quit"}, {"C", "Quit"},    {"de_DE", "Quit"},
        {"jam", "Quit"},         {"../ja", "Quit"}};
    for (const auto& [locale, text] : kLocales) {
        setenv("LC_ALL", locale, 1);
        EXPECT_EQ(Localized::kQuit(""), text) << locale;
    }
    unsetenv("LC_ALL");
    setenv("LC_MESSAGES", "ja_JP.UTF-8", 1);
    setenv("LANG", "en_US.UTF-8", 1);
    EXPECT_EQ(Localized::kQuit(""), "終了");
    setenv("LC_MESSAGES", "", 1);
    EXPECT_EQ(Localized::kQuit(""), "Quit");
}

TEST_F(LocalizedTexts, TheReportingAlertHasOneButtonInEnglish) {
    using Answer = headless::ScriptedDesktop::Answer;
    user_->ExpectMessage("message", Answer::Dismiss, [](const MessageDialog& dialog) {
        EXPECT_EQ(dialog.Icon, 1);
        EXPECT_EQ(dialog.Explanation, "explanation");
        EXPECT_EQ(dialog.ActionButton->Caption, "OK") << "in every language";
        EXPECT_FALSE(dialog.CancelButton->Visible);
        EXPECT_FALSE(dialog.AlternateActionButton->Visible);
    });
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    General::ShowAlertModalOK("message", "explanation", nullptr);
    EXPECT_EQ(user_->timesInFront(), 1);
}

}  // namespace
}  // namespace dunvey
