#include "menus/localized.h"

#include <gtest/gtest.h>

#include <set>

#include "app/exception_report.h"
#include "menus/general.h"
#include "menus/spoken.h"
#include "platform/linux/dock_texts.h"
#include "platform/text/reg_ex_xojo.h"
#include "platform/text/translation_table.h"
#include "support/world.h"

namespace dunvey {
namespace {

class LocalizedTexts : public test::World {};

TEST_F(LocalizedTexts, JapaneseHasARowOfItsOwnForEachAndNoOther) {
    std::set<std::string> keys = {"RegExXojo.kAlert_Metacharacters"};
    for (const LocalizedText& text : Localized::kAll)
        keys.emplace(text.key);
    for (const LocalizedText& text : LocalizedMenu::kAll)
        keys.emplace(text.key);
    for (const LocalizedText& text : Spoken::kAll)
        keys.emplace(text.key);
    for (const DockText& text : Dock::kAll)
        keys.emplace(text.key);
    for (const LocalizedText& text : ExceptionText::kAll)
        keys.emplace(text.key);
    EXPECT_EQ(Localized::kAll.size(), 21U);
    EXPECT_EQ(LocalizedMenu::kAll.size(), 14U);
    EXPECT_EQ(keys.size(), 43U) << "no key stands twice";
    const TranslationTable& japanese = TranslationsInto("ja");
    for (const auto& [key, text] : japanese)
        EXPECT_EQ(keys.count(key), 1U) << key;
    for (const std::string& key : keys)
        EXPECT_EQ(japanese.count(key), 1U) << key;
    const auto differs = [](const auto& text) {
        EXPECT_NE(text("ja"), text.text) << text.key << " is not translated";
        EXPECT_EQ(text(""), text.text) << text.key << " in English";
    };
    for (const LocalizedText& text : Localized::kAll)
        differs(text);
    for (const LocalizedText& text : LocalizedMenu::kAll)
        differs(text);
    for (const LocalizedText& text : Spoken::kAll)
        differs(text);
    for (const DockText& text : Dock::kAll)
        differs(text);
    for (const LocalizedText& text : ExceptionText::kAll)
        differs(text);
}

TEST_F(LocalizedTexts, TheLanguageSwitchesAndTheWordOrderGoTogether) {
    EXPECT_EQ(Localized::kLang("ja"), "ja");
    EXPECT_EQ(LocalizedMenu::kLocal("ja"), "ja");
    EXPECT_EQ(Localized::kLang("fr"), "en");
    for (const LocalizedText& caption : {Localized::kCapOpenWith, Localized::kCapQuit}) {
        EXPECT_EQ(caption("").back(), ' ') << "one blank ahead of the name";
        EXPECT_EQ(caption("ja").front(), ' ') << "one blank behind the name";
        EXPECT_NE(caption("ja").back(), ' ');
    }
}

TEST_F(LocalizedTexts, TheLocaleSaysTheLanguage) {
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

TEST_F(LocalizedTexts, AlertsAreSetAsTheyAreMeant) {
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

TEST(TranslationTable, ReadsRowsCommentsAndEscapes) {
    const TranslationTable table = ReadTranslationTable(
        "\xEF\xBB\xBF/* a comment\n over lines */ \"a\" = \"1\";\n"
        "// \"no\" = \"row\";\n"
        "\"b\"=\"say \\\"x\\\" \\\\ \\n\\t\\r\\U65e5\";\"c\"\n=\n\"3\"\n;\n"
        "\"a\" = \"later\"; \"// d\" = \"/* not a comment */\";\r\n\"\" = \"\";");
    const TranslationTable expected = {{"a", "later"},
                                       {"b", "say \"x\" \\ \n\t\r\u65e5"},
                                       {"c", "3"},
                                       {"// d", "/* not a comment */"},
                                       {"", ""}};
    EXPECT_EQ(table, expected);
}

TEST(TranslationTable, ABrokenRowCostsItsOwnLineOnly) {
    for (const char* broken :
         {"\"a\" = \"open", "\"a\" \"b\";", "a = \"b\";", "\"a\" = b;", "\"a\" = \"b\"", "= ;",
          "\"", "\"a\" = \"\\q\";", "\"a\" = \"\\U12\";", "\"a\" = \"b\\", "garbage \xFF", "}"}) {
        const TranslationTable table =
            ReadTranslationTable(std::string(broken) + "\n\"k\" = \"v\";\n");
        ASSERT_EQ(table.count("k"), 1U) << broken;
        EXPECT_EQ(table.size(), 1U) << broken;
    }
    EXPECT_TRUE(ReadTranslationTable("").empty());
    EXPECT_TRUE(ReadTranslationTable("/* never closed \"k\" = \"v\";").empty());
    EXPECT_TRUE(ReadTranslationTable("\"k\" = \"v\"").empty());
}

}  // namespace
}  // namespace dunvey
