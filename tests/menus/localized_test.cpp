#include "menus/localized.h"

#include <gtest/gtest.h>

#include "menus/general.h"
#include "support/world.h"

namespace dunvey {
namespace {

class LocalizedTexts : public test::World {};

TEST_F(LocalizedTexts, AnExplicitLanguageSelectsTheTableAndTheWordOrder) {
    EXPECT_EQ(Localized::kLang("ja"), "ja");
    EXPECT_EQ(LocalizedMenu::kLocal("ja"), "ja");
    EXPECT_EQ(Localized::kLang("fr"), "en");
    EXPECT_EQ(LocalizedMenu::kLocal(""), "en");
    EXPECT_EQ(Localized::kCapOpenWith(""), "Open with ");
    for (const LocalizedText& caption : {Localized::kCapOpenWith, Localized::kCapQuit}) {
        EXPECT_EQ(caption("ja").front(), ' ') << "follows the name";
        EXPECT_NE(caption("ja").back(), ' ');
    }
}

TEST_F(LocalizedTexts, TheLocaleSelectsTheLanguage) {
    struct Row {
        const char *all, *messages, *lang, *language;
        bool japanese;
    };
    const Row kRows[] = {
        {"ja_JP.UTF-8", "", "", "", true},
        {"ja", "", "", "", true},
        {"ja_JP.eucJP@x", "", "", "", true},
        {"en_US.UTF-8", "", "", "", false},
        {"C", "", "", "", false},
        {"jam", "", "", "", false},
        {"../ja", "", "", "", false},
        {"", "ja_JP.UTF-8", "en_US.UTF-8", "", true},
        {"", "", "en_US.UTF-8", "", false},
        {"", "", "en_US.UTF-8", "ja:en", true},
        {"", "", "en_US.UTF-8", "de:ja_JP.UTF-8", true},
        {"", "", "en_US.UTF-8", "en_GB:ja", false},
        {"", "", "en_US.UTF-8", "de", false},
        {"", "", "C.UTF-8", "ja", false},  // the C locale ignores LANGUAGE
    };
    for (const Row& row : kRows) {
        setenv("LC_ALL", row.all, 1);
        setenv("LC_MESSAGES", row.messages, 1);
        setenv("LANG", row.lang, 1);
        setenv("LANGUAGE", row.language, 1);
        EXPECT_EQ(Localized::kQuit(""), row.japanese ? "終了" : "Quit")
            << row.all << "|" << row.messages << "|" << row.lang << "|" << row.language;
    }
    for (const char* name : {"LC_MESSAGES", "LANG", "LANGUAGE"})
        unsetenv(name);
}

TEST_F(LocalizedTexts, AnAlertHasOneButtonInEnglish) {
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
