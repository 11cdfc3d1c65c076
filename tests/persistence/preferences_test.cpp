#include "persistence/preferences.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "desktop/machine.h"
#include "persistence/preference_not_found_exception.h"
#include "platform/loop/application.h"
#include "platform/text/text.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

constexpr char kDefaults[] = "0 0 0 ";

std::string Stored(const std::string& higher, const std::string& quit, const std::string& build,
                   const std::string& icons) {
    return "{\"AllowOpenHigherVersion\":" + higher + ",\"AllowQuitButtonActiveted\":" + quit +
           ",\"NonReleaseVersion\":" + build + ",\"IconVersion\":" + icons + "}";
}

/// The file that the end of the program writes.
std::string Written(const std::string& higher, const std::string& quit, const std::string& icons) {
    const std::string build = Str(Application::NonReleaseVersion());
    JSONItem document(Stored(higher, quit, build, "\"" + icons + "\""));
    document.Compact = false;
    return document.ToString();
}

std::string Values() {
    return std::to_string(Preferences::gAllowOpenHigherVersion) + " " +
           std::to_string(Preferences::gAllowQuitButtonActiveted) + " " +
           Str(Preferences::pNonReleaseVersion) + " " + Preferences::pIconVersion;
}

/// Sets values that only a test can set.
void Disturb() {
    Preferences::gAllowOpenHigherVersion = true;
    Preferences::gAllowQuitButtonActiveted = true;
    Preferences::pIconVersion = "disturbed";
    Preferences::pNonReleaseVersion = -1;
}

/// The values after the start of the program with or without these keys held down.
std::string Started(bool option = false, bool command = false) {
    headless::TheMachine() = {};
    headless::TheMachine().optionKey = option;
    headless::TheMachine().commandKey = command;
    Disturb();
    Preferences::Raed();
    return Values();
}

/// A user's home of its own, in which this test program keeps its preferences.
class PreferencesTest : public testing::Test {
 protected:
    PreferencesTest() {
        setenv("XDG_CONFIG_HOME", (home_ / "config").c_str(), 1);
        Preferences::Prefs = nullptr;
    }
    ~PreferencesTest() override {
        headless::TheMachine() = {};
        unsetenv("XDG_CONFIG_HOME");
    }

    void MakeFile(const std::string& text) const {
        home_.MakeFolder("config/" + name_);
        home_.Write(relative_, text);
    }
    std::string Contents() const { return home_.Read(relative_); }
    bool Exists(const std::string& path) const { return access(path.c_str(), F_OK) == 0; }

    const test::TemporaryFolder home_;
    const std::string name_ = Application::ExecutableFile()->Name();
    const std::string relative_ = "config/" + name_ + "/" + name_ + ".pref";
    const std::string file_ = home_ / relative_;
    const std::string stored_ = Stored("true", "false", "77", "\"10.2\"");
};

TEST_F(PreferencesTest, FirstRunMakesTheFolderAndItsEndTheFile) {
    Disturb();
    Preferences::SetDefault();
    Preferences::Save();
    EXPECT_EQ(Values(), "1 1 -1 disturbed") << "there is no store yet";
    EXPECT_EQ(Started(), kDefaults);
    EXPECT_TRUE(Exists(home_ / "config/" + name_));
    EXPECT_FALSE(Exists(file_));
    Preferences::gAllowOpenHigherVersion = true;
    Preferences::pIconVersion = "9.0";
    Preferences::pNonReleaseVersion = 4711;
    for (int i = 0; i < 2; ++i) {
        Preferences::Save();
        EXPECT_EQ(Contents(), Written("true", "false", "9.0"));
    }
    EXPECT_EQ(Started(), "1 0 " + Str(Application::NonReleaseVersion()) + " 9.0");
}

TEST_F(PreferencesTest, OnlyBothKeysTogetherDeleteTheFile) {
    EXPECT_EQ(Started(true, true), kDefaults);
    for (const std::string& text : {stored_, std::string("{")}) {
        MakeFile(text);
        const std::string values = text == stored_ ? "1 0 77 10.2" : kDefaults;
        EXPECT_EQ(Started(true, false), values);
        EXPECT_EQ(Started(false, true), values);
        EXPECT_EQ(Contents(), text);
        EXPECT_EQ(Started(true, true), kDefaults);
        EXPECT_FALSE(Exists(file_));
        EXPECT_TRUE(Exists(home_ / "config/" + name_));
        Preferences::Save();
        EXPECT_EQ(Contents(), Written("false", "false", ""));
    }
}

TEST_F(PreferencesTest, AFileThatCanNotBeUsedIsReplacedAtTheEnd) {
    const std::string missing = stored_.substr(0, stored_.find(",\"Icon")) + "}";
    const std::string array = "[" + stored_ + "]";
    const std::string another = Stored("{}", "true", "1", "\"1\"");
    const std::vector<std::string> texts = {"",
                                            " \n\t",
                                            "{",
                                            "[]",
                                            "[1,2",
                                            "42",
                                            "\xEF\xBB\xBF{}",
                                            array,
                                            missing,
                                            another,
                                            std::string(1 << 20, '[')};
    for (const std::string& text : texts) {
        MakeFile(text);
        EXPECT_EQ(Started(), kDefaults) << text.substr(0, 60);
        EXPECT_EQ(Contents(), text);
        Preferences::Save();
        EXPECT_NE(Contents(), text);
        EXPECT_EQ(Started(), "0 0 " + Str(Application::NonReleaseVersion()) + " ");
    }
}

TEST_F(PreferencesTest, KeepsEveryKeyOfAFileThatParses) {
    const std::string brackets(6000, '[');
    for (const std::string& text :
         {"{\"other\":\"" + brackets + "\"," + stored_.substr(1),
          "{\"other\":\"" + std::string(600'000, '/') + "\"," + stored_.substr(1),
          stored_.substr(0, stored_.size() - 1) + ",\"other\":1}" + brackets}) {
        MakeFile(text);
        const std::string other = JSONItem(text).Value("other").StringValue();
        EXPECT_EQ(Started(), "1 0 77 10.2");
        Preferences::Save();
        EXPECT_EQ(JSONItem(Contents()).Value("other").StringValue(), other);
    }
    MakeFile("{\"zoom\":[1.5,{\"x\":null}],\"iconVersion\":\"日\",\"IconVersion\":\"9\"}");
    EXPECT_EQ(Started(), kDefaults) << "other values are missing";
    Preferences::Save();
    JSONItem expected("{\"zoom\":[1.5,{\"x\":null}],\"iconVersion\":\"日\",\"IconVersion\":\"\"," +
                      Written("false", "false", "").substr(1));
    expected.Compact = false;
    EXPECT_EQ(Contents(), expected.ToString());
}

TEST_F(PreferencesTest, LeavesAFileAloneThatIsTooLarge) {
    constexpr off_t kLimit = off_t{16} << 20;
    for (const off_t size : {kLimit, kLimit + 1, off_t{1} << 40}) {
        MakeFile(stored_ + "   ");
        ASSERT_EQ(truncate(file_.c_str(), size), 0);
        EXPECT_EQ(Started(), size <= kLimit ? "1 0 77 10.2" : kDefaults);
        EXPECT_EQ(Preferences::Prefs->Save(), size <= kLimit);
    }
    // It grows by its indentation and would be too large to be read again.
    std::string numbers = "0";
    while (numbers.size() < 40'000)
        numbers += ",0";
    MakeFile("{\"other\":" + std::string(500, '[') + numbers + std::string(500, ']') + "," +
             stored_.substr(1));
    const std::string before = Contents();
    EXPECT_EQ(Started(), "1 0 77 10.2");
    Preferences::Save();
    EXPECT_TRUE(Contents() == before);
}

TEST_F(PreferencesTest, ValuesOfAnotherTypeAreConverted) {
    const std::pair<std::string, std::string> cases[] = {
        {Stored("1", "\"no\"", "\"12\"", "10.2"), "1 0 12 10.2"},
        {Stored("null", "null", "null", "null"), kDefaults},
        {Stored("true", "true", "1e300", "\"\xFF\""), "1 1 9223372036854775807 \xFF"}};
    for (const auto& [text, values] : cases) {
        MakeFile(text);
        EXPECT_EQ(Started(), values) << text;
    }
}

TEST_F(PreferencesTest, AFileThatCanNotBeReadCountsAsAFirstRun) {
    home_.Write("stored", stored_);
    const std::string prepare = "cd " + home_.Path() + "; folder=config/" + name_ +
                                "; file=$folder/" + name_ + ".pref; rm -rf config; " +
                                "mkdir -p $folder; ";
    for (const std::string make :
         {"mkdir $file", "mkfifo $file", "ln -s /nowhere/at/all $file", "ln -s $PWD/$file $file",
          "rmdir $folder; cp stored $folder", "rm -r config; cp stored config"}) {
        ASSERT_EQ(std::system((prepare + make).c_str()), 0);
        EXPECT_EQ(Started(), kDefaults) << make;
        EXPECT_FALSE(Preferences::Prefs->Save()) << make;
        Preferences::Save();
    }
}

TEST_F(PreferencesTest, TheStoreHoldsAnyValueUnderItsName) {
    PrefsClass store("App");
    EXPECT_FALSE(store.Save());
    store["a"] = 1;
    store.Set("a", "two");
    EXPECT_EQ(Variant(store["a"]).StringValue(), "two");
    EXPECT_THROW(store.Get("A"), Preferences::PreferenceNotFoundException);
    const Preferences::PreferenceNotFoundException missing("A");
    EXPECT_EQ(missing.Message, "Preference value 'A' does not exist.");
    EXPECT_EQ(missing.ErrorNumber, 0);
    EXPECT_FALSE(store.Load());
    EXPECT_TRUE(store.Save());
    PrefsClass again("App");
    EXPECT_TRUE(again.Load());
    again.Remove();
    EXPECT_EQ(again.Get("a").StringValue(), "two");
    EXPECT_FALSE(PrefsClass("App").Load());
}

}  // namespace
}  // namespace dunvey
