#include "menus/localized.h"

#include <gtest/gtest.h>

#include "support/world.h"

namespace dunvey {
namespace {

class LocalizedTexts : public test::World {};

TEST_F(LocalizedTexts, AnExplicitLanguageSelectsTheTableAndTheWordOrder) {
    EXPECT_EQ(Localized::kLang("ja") + LocalizedMenu::kLocal("ja"), "jaja");
    EXPECT_EQ(Localized::kLang("fr") + LocalizedMenu::kLocal(""), "enen");
    EXPECT_EQ(Localized::kCapOpenWith(""), "Open with ");
    for (const LocalizedText& caption : {Localized::kCapOpenWith, Localized::kCapQuit}) {
        EXPECT_EQ(caption("ja").front(), ' ') << "follows the name";
        EXPECT_NE(caption("ja").back(), ' ');
    }
}

TEST_F(LocalizedTexts, TheLocaleSelectsTheLanguage) {
    // LC_ALL, LC_MESSAGES, LANG and LANGUAGE.
    const std::pair<std::array<const char*, 4>, bool> kRows[] = {
        {{"ja_JP.UTF-8", "", "", ""}, true},
        {{"ja", "", "", ""}, true},
        {{"ja_JP.eucJP@x", "", "", ""}, true},
        {{"en_US.UTF-8", "", "", ""}, false},
        {{"C", "", "", ""}, false},
        {{"jam", "", "", ""}, false},
        {{"../ja", "", "", ""}, false},
        {{"", "ja_JP.UTF-8", "en_US.UTF-8", ""}, true},
        {{"", "", "en_US.UTF-8", ""}, false},
        {{"", "", "en_US.UTF-8", "ja:en"}, true},
        {{"", "", "en_US.UTF-8", "de:ja_JP.UTF-8"}, true},
        {{"", "", "en_US.UTF-8", "en_GB:ja"}, false},
        {{"", "", "en_US.UTF-8", "de"}, false},
        {{"", "", "C.UTF-8", "ja"}, false}};  // the C locale ignores LANGUAGE
    const char* const kNames[] = {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"};
    for (const auto& [values, isJapanese] : kRows) {
        for (size_t i = 0; i < values.size(); ++i)
            setenv(kNames[i], values[i], 1);
        EXPECT_EQ(Localized::kQuit(""), isJapanese ? "終了" : "Quit")
            << ::testing::PrintToString(values);
    }
    for (const char* name : kNames)
        unsetenv(name);
}

}  // namespace
}  // namespace dunvey
