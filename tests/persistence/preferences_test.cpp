#include "persistence/preferences.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>

#include "desktop/machine.h"
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

/// The document as the program writes it.
std::string Indented(const std::string& text) {
    JSONItem document(text);
    document.Compact = false;
    return document.ToString();
}

std::string Values() {
    return std::to_string(Preferences::gAllowOpenHigherVersion) + " " +
           std::to_string(Preferences::gAllowQuitButtonActiveted) + " " +
           Str(Preferences::pNonReleaseVersion) + " " + Preferences::pIconVersion;
}

/// The values after a start with or without these keys held down; none is left from before.
std::string Started(bool option = false, bool command = false) {
    headless::TheMachine() = {};
    headless::TheMachine().optionKey = option;
    headless::TheMachine().commandKey = command;
    Preferences::gAllowOpenHigherVersion = Preferences::gAllowQuitButtonActiveted = true;
    Preferences::pNonReleaseVersion = -1;
    Preferences::pIconVersion = "before";
    Preferences::Raed();
    return Values();
}

/// A configuration folder, in which this test program keeps its preferences.
class PreferencesTest : public testing::Test {
 protected:
    PreferencesTest() {
        setenv("XDG_CONFIG_HOME", home_.Path().c_str(), 1);
        Preferences::Prefs = nullptr;
    }
    ~PreferencesTest() override {
        headless::TheMachine() = {};
        unsetenv("XDG_CONFIG_HOME");
    }

    void MakeFile(const std::string& text) const {
        home_.MakeFolder(name_);
        home_.Write(file_, text);
    }
    std::string Contents() const { return home_.Read(file_); }
    bool Exists(const std::string& name) const { return access((home_ / name).c_str(), F_OK) == 0; }

    const test::TemporaryFolder home_;
    const std::string name_ = Application::ExecutableFile()->Name();
    const std::string file_ = name_ + "/" + name_ + ".pref";
    const std::string build_ = Str(Application::NonReleaseVersion());
    const std::string savedDefaults_ = Indented(Stored("false", "false", build_, "\"\""));
    const std::string stored_ = Stored("true", "false", "77", "\"10.2\"");
    const std::string storedValues_ = "1 0 77 10.2";
};

TEST_F(PreferencesTest, AStartMakesTheFolderAndTheEndTheFile) {
    Preferences::gAllowOpenHigherVersion = true;
    Preferences::SetDefault();
    Preferences::Save();
    EXPECT_TRUE(Preferences::gAllowOpenHigherVersion) << "there is no store yet";
    EXPECT_EQ(Started(), kDefaults);
    EXPECT_TRUE(Exists(name_));
    EXPECT_FALSE(Exists(file_));
    Preferences::gAllowOpenHigherVersion = true;
    Preferences::pIconVersion = "9.0";
    Preferences::pNonReleaseVersion = 4711;
    for (int i = 0; i < 2; ++i) {
        Preferences::Save();
        EXPECT_EQ(Contents(), Indented(Stored("true", "false", build_, "\"9.0\"")));
    }
    EXPECT_EQ(Started(), "1 0 " + build_ + " 9.0");
}

TEST_F(PreferencesTest, OnlyBothKeysTogetherDeleteTheFile) {
    EXPECT_EQ(Started(true, true), kDefaults) << "without a folder";
    for (const std::string& text : {stored_, std::string("{")}) {
        MakeFile(text);
        for (const bool option : {true, false}) {
            EXPECT_EQ(Started(option, !option), text == stored_ ? storedValues_ : kDefaults);
            EXPECT_EQ(Contents(), text);
        }
        EXPECT_EQ(Started(true, true), kDefaults);
        EXPECT_FALSE(Exists(file_));
        Preferences::Save();
        EXPECT_EQ(Contents(), savedDefaults_);
    }
}

TEST_F(PreferencesTest, AFileThatCanNotBeUsedIsReplacedAtTheEnd) {
    const std::string missing = stored_.substr(0, stored_.find(",\"Icon")) + "}";
    for (const std::string& text :
         {std::string(), std::string(" \n\t"), std::string("{"), std::string("[]"),
          std::string("[1,2"), std::string("42"), std::string("\xEF\xBB\xBF{}"),
          "[" + stored_ + "]", std::string(1 << 20, '['), missing,
          Stored("{}", "true", "1", "\"1\"")}) {
        MakeFile(text);
        EXPECT_EQ(Started(), kDefaults) << text.substr(0, 60);
        EXPECT_EQ(Contents(), text);
        Preferences::Save();
        EXPECT_EQ(Contents(), savedDefaults_);
    }
}

TEST_F(PreferencesTest, KeepsEveryKeyOfAFileThatParses) {
    const std::string brackets(6000, '[');
    const std::string rest = "," + stored_.substr(1);
    for (const std::string& text :
         {"{\"other\":\"" + brackets + "\"" + rest,
          "{\"other\":\"" + std::string(600'000, '/') + "\"" + rest,
          "{\"other\":[1.5,{\"x\":null}],\"iconVersion\":\"日\"" + rest + brackets}) {
        MakeFile(text);
        EXPECT_EQ(Started(), storedValues_);
        Preferences::Save();
        JSONItem expected(text);
        expected.Compact = false;
        expected.SetValue("NonReleaseVersion", Application::NonReleaseVersion());
        EXPECT_EQ(Contents(), expected.ToString());
    }
}

TEST_F(PreferencesTest, LeavesAFileAloneThatIsTooLarge) {
    constexpr off_t kLimit = off_t{16} << 20;
    for (const off_t size : {kLimit, kLimit + 1, off_t{1} << 40}) {
        MakeFile(stored_ + "   ");
        ASSERT_EQ(truncate((home_ / file_).c_str(), size), 0);
        EXPECT_EQ(Started(), size <= kLimit ? storedValues_ : kDefaults);
        EXPECT_EQ(Preferences::Prefs->Save(), size <= kLimit);
    }
    MakeFile(stored_);
    EXPECT_EQ(Started(), storedValues_);
    Preferences::Prefs->Set("Large", std::string(size_t{kLimit}, 'x'));
    EXPECT_FALSE(Preferences::Prefs->Save()) << "the next run couldn't read it";
    EXPECT_EQ(Contents(), stored_);
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
    const std::string prepare = "cd " + home_.Path() + "; rm -rf " + name_ + "; mkdir " + name_ +
                                "; echo '" + stored_ + "' >stored; file=" + file_ + "; ";
    for (const std::string make :
         {"mkdir $file", "mkfifo $file", "ln -s /nowhere/at/all $file", "ln -s $PWD/$file $file",
          "rmdir ${file%/*}; cp stored ${file%/*}"}) {
        ASSERT_EQ(std::system((prepare + make).c_str()), 0);
        EXPECT_EQ(Started(), kDefaults) << make;
        EXPECT_FALSE(Preferences::Prefs->Save()) << make;
        Preferences::Save();
    }
}

}  // namespace
}  // namespace dunvey
