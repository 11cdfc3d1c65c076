#include "menus/localized.h"

#include <gtest/gtest.h>

#include "menus/general.h"
#include "support/world.h"

namespace dunvey {
namespace {

class LocalizedTexts : public test::World {};

/// A text of Localized: its constant, its key and its English text, letter by letter.
#define ROW(name, english) \
    { &Localized::name, "Localized." #name, english }

struct Row {
    const LocalizedText* text;
    const char* key;
    const char* english;
};

TEST_F(LocalizedTexts, EnglishIsWhatIsAskedFor) {
    const Row kRows[] = {
        ROW(kBooting, "Booting"),
        ROW(kCancel, "Cancel"),
        ROW(kCapIgnoreWarning, "Ignore warning"),
        ROW(kMultipleAppWillLaunched, "Multiple InDesign.apps will be launched."),
        ROW(kAllowQuitButtonActiveted, "Activate the Quit button"),
        ROW(kLang, "en"),
        ROW(kQuitDunvey, "Quit Dunvey"),
        ROW(kQuit, "Quit"),
        ROW(kOpen, "Open"),
        ROW(kAllowOpenHigherVersion, "Allow a file to be opened by a higher version"),
        ROW(kCapOpenWith, "Open with "),
        ROW(kCapQuit, "Quit "),
        ROW(kCapRecommendNotOpenNow,
            "InDesign.app to launched should keep only one as much as possible."),
        ROW(kMassage_Unable_to_import_icon, "Unable to import the icon."),
        ROW(kMassage_put_Dunvey,
            "Please put Dunvey.app in the place where write permission is given."),
        ROW(kMassage_AnotherVerAppBooting, "Another version of InDesign.app is booting."),
        ROW(kMassage_SameVerAppNotInstalled, "The same version of InDesign.app is not installed."),
        ROW(kMassage_AppNotInstalled, "InDesign.app is not installed."),
        ROW(kMassage_SystemRequirement,
            "The system requirement for Marlit Ai are up to macOS Mojave 10.14."),
        ROW(kMassage_Quit, "Quit Marlti Id as this system does not meet the requirements."),
        ROW(kNotificationWindowTitle, "Marlit Id - Notification"),
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(row.text->key, row.key);
        EXPECT_EQ((*row.text)(""), row.english);
    }
    EXPECT_EQ(LocalizedMenu::kLocal(""), "en");
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
    const std::pair<const char*, const char*> kPreferred[] = {
        {"ja:en", "終了"}, {"de:ja_JP.UTF-8", "終了"}, {"en_GB:ja", "Quit"}, {"de", "Quit"}};
    for (const auto& [languages, text] : kPreferred) {
        setenv("LANGUAGE", languages, 1);
        EXPECT_EQ(Localized::kQuit(""), text) << languages;
    }
    setenv("LANGUAGE", "ja", 1);
    setenv("LANG", "C.UTF-8", 1);
    EXPECT_EQ(Localized::kQuit(""), "Quit") << "the C locale has no languages";
    unsetenv("LANGUAGE");
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
