#include "persistence/preferences.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "persistence/preference_not_found_exception.h"
#include "platform/application.h"
#include "platform/exceptions.h"
#include "platform/headless/machine.h"
#include "platform/text.h"

namespace dunvey {
namespace {

/// A user's home of its own, in which this test program keeps its preferences.
class PreferencesTest : public testing::Test {
 protected:
    PreferencesTest() {
        char folder[] = "/tmp/dunvey-preferences-XXXXXX";
        home_ = mkdtemp(folder);
        setenv("XDG_CONFIG_HOME", Configuration().c_str(), 1);
        headless::TheMachine() = {};
        Preferences::Prefs = nullptr;
    }
    ~PreferencesTest() override {
        headless::TheMachine() = {};
        unsetenv("XDG_CONFIG_HOME");
        EXPECT_EQ(std::system(("rm -rf " + home_).c_str()), 0);
    }

    std::string Configuration() const { return home_ + "/config"; }
    std::string Folder() const { return Configuration() + "/" + name_; }
    std::string File() const { return Folder() + "/" + name_ + ".pref"; }

    void MakeFolder() const {
        ASSERT_EQ(mkdir(Configuration().c_str(), 0777), 0);
        ASSERT_EQ(mkdir(Folder().c_str(), 0777), 0);
    }
    void MakeFile(const std::string& text) const {
        MakeFolder();
        std::ofstream(File(), std::ios::binary) << text;
    }
    std::string Contents() const {
        std::ifstream file(File(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Values that nothing but the reading of the file can have put there.
    static void Disturb() {
        Preferences::gAllowOpenHigherVersion = true;
        Preferences::gAllowQuitButtonActiveted = true;
        Preferences::pIconVersion = "disturbed";
        Preferences::pNonReleaseVersion = -1;
    }
    static std::string Values() {
        return std::to_string(Preferences::gAllowOpenHigherVersion) + " " +
               std::to_string(Preferences::gAllowQuitButtonActiveted) + " " +
               Str(Preferences::pNonReleaseVersion) + " " + Preferences::pIconVersion;
    }
    static std::string Started() {
        Disturb();
        Preferences::Raed();
        return Values();
    }

    static std::string Written(const std::string& higher, const std::string& quit,
                               const std::string& icons) {
        return "{\n  \"AllowOpenHigherVersion\":" + higher +
               ",\n  \"AllowQuitButtonActiveted\":" + quit +
               ",\n  \"NonReleaseVersion\":" + Str(Application::NonReleaseVersion()) +
               ",\n  \"IconVersion\":\"" + icons + "\"\n}";
    }

    std::string home_;
    std::string name_ = Application::ExecutableFile()->Name();
};

constexpr char kDefaults[] = "0 0 0 ";
constexpr char kStored[] =
    "{\"AllowOpenHigherVersion\":true,\"AllowQuitButtonActiveted\":false,"
    "\"NonReleaseVersion\":77,\"IconVersion\":\"10.2\"}";

TEST_F(PreferencesTest, FirstRunMakesTheFolderAndItsEndTheFile) {
    Preferences::Save();  // no store yet
    EXPECT_EQ(Started(), kDefaults);
    struct stat status;
    EXPECT_EQ(stat(Folder().c_str(), &status), 0);
    EXPECT_NE(stat(File().c_str(), &status), 0);
    Preferences::gAllowOpenHigherVersion = true;
    Preferences::pIconVersion = "9.0";
    Preferences::pNonReleaseVersion = 4711;
    Preferences::Save();
    EXPECT_EQ(Contents(), Written("true", "false", "9.0"));
    Preferences::Save();
    EXPECT_EQ(Contents(), Written("true", "false", "9.0"));
    EXPECT_EQ(Started(), "1 0 " + Str(Application::NonReleaseVersion()) + " 9.0");
}

TEST_F(PreferencesTest, OnlyBothKeysTogetherDeleteTheFile) {
    MakeFile(kStored);
    headless::TheMachine().optionKey = true;
    EXPECT_EQ(Started(), "1 0 77 10.2");
    headless::TheMachine() = {};
    headless::TheMachine().commandKey = true;
    EXPECT_EQ(Started(), "1 0 77 10.2");
    headless::TheMachine().optionKey = true;
    EXPECT_EQ(Started(), kDefaults);
    struct stat status;
    EXPECT_NE(stat(File().c_str(), &status), 0);
    EXPECT_EQ(stat(Folder().c_str(), &status), 0);
    Preferences::Save();
    EXPECT_EQ(Contents(), Written("false", "false", ""));
}

TEST_F(PreferencesTest, BothKeysDeleteACorruptFileAndDoNoHarmWithoutOne) {
    headless::TheMachine().optionKey = headless::TheMachine().commandKey = true;
    EXPECT_EQ(Started(), kDefaults);
    std::ofstream(File()) << "{";
    EXPECT_EQ(Started(), kDefaults);
    struct stat status;
    EXPECT_NE(stat(File().c_str(), &status), 0);
}

TEST_F(PreferencesTest, AFileThatCanNotBeUsedIsReplacedAtTheEnd) {
    const std::string hostile[] = {
        "",
        " \n\t",
        "{",
        "[]",
        "[1,2]",
        "[1,2",
        "[{\"AllowOpenHigherVersion\":true}]",
        "42",
        "\xEF\xBB\xBF{}",
        "{\"AllowOpenHigherVersion\":true,\"AllowQuitButtonActiveted\":true,\"IconVersion\":\"1\"}",
        "{\"AllowOpenHigherVersion\":{},\"AllowQuitButtonActiveted\":true,"
        "\"NonReleaseVersion\":1,\"IconVersion\":\"1\"}",
        std::string(1 << 20, '['),
        std::string(kStored) + std::string(1 << 20, ' '),
    };
    MakeFolder();
    for (const std::string& text : hostile) {
        std::ofstream(File(), std::ios::binary) << text;
        EXPECT_EQ(Started(), kDefaults) << text.substr(0, 60);
        EXPECT_EQ(Contents(), text);
        Preferences::Save();
        EXPECT_NE(Contents(), text);
        EXPECT_EQ(Started(), "0 0 " + Str(Application::NonReleaseVersion()) + " ");
    }
}

TEST_F(PreferencesTest, AFileTooLargeIsNotEvenRead) {
    MakeFolder();
    std::ofstream(File()) << "";
    // The file has a size, but no blocks: reading it would still take the memory.
    ASSERT_EQ(truncate(File().c_str(), off_t{1} << 40), 0);
    EXPECT_EQ(Started(), kDefaults);
}

TEST_F(PreferencesTest, ValuesOfAnotherTypeAreConverted) {
    const auto stored = [](const std::string& higher, const std::string& quit,
                           const std::string& build, const std::string& icons) {
        return "{\"AllowOpenHigherVersion\":" + higher + ",\"AllowQuitButtonActiveted\":" + quit +
               ",\"NonReleaseVersion\":" + build + ",\"IconVersion\":" + icons + "}";
    };
    struct Case {
        std::string text;
        std::string values;
    };
    MakeFolder();
    for (const Case& each : std::vector<Case>{
             {stored("1", "0", "\"12\"", "10.2"), "1 0 12 10.2"},
             {stored("\"TRUE\"", "\"no\"", "true", "true"), "1 0 1 True"},
             {stored("-0.5", "0.0", "12.9", "7"), "1 0 12 7"},
             {stored("null", "null", "null", "null"), kDefaults},
             {stored("true", "true", "1e300", "\"\xFF\""), "1 1 9223372036854775807 \xFF"},
         }) {
        std::ofstream(File(), std::ios::binary) << each.text;
        EXPECT_EQ(Started(), each.values) << each.text;
    }
}

TEST_F(PreferencesTest, KeepsKeysOfOthersAndWritesThemBack) {
    MakeFile(
        "{\"zoom\":[1.5,{\"x\":null}],\"allowOpenHigherVersion\":\"日\","
        "\"AllowOpenHigherVersion\":true}");
    EXPECT_EQ(Started(), kDefaults);
    Preferences::Save();
    const std::string written = Contents();
    EXPECT_EQ(written.find("{\n  \"zoom\":[\n    1.5,\n    {\n      \"x\":null\n    }\n  ],\n"
                           "  \"allowOpenHigherVersion\":\"日\",\n"
                           "  \"AllowOpenHigherVersion\":false,\n"),
              0u)
        << written;
}

TEST_F(PreferencesTest, WhatIsNoFileMakesAFirstRunOfIt) {
    struct Case {
        const char* name;
        std::function<void()> make;
    };
    for (const Case& each : std::vector<Case>{
             {"a folder", [this] { mkdir(File().c_str(), 0777); }},
             {"a FIFO", [this] { mkfifo(File().c_str(), 0666); }},
             {"a link to nowhere",
              [this] { ASSERT_EQ(symlink("/nowhere/at/all", File().c_str()), 0); }},
             {"a link to itself",
              [this] { ASSERT_EQ(symlink(File().c_str(), File().c_str()), 0); }},
             {"a folder that is a file",
              [this] {
                  rmdir(Folder().c_str());
                  std::ofstream(Folder()) << kStored;
              }},
             {"a configuration that is a file",
              [this] {
                  rmdir(Folder().c_str());
                  rmdir(Configuration().c_str());
                  std::ofstream(Configuration()) << kStored;
              }},
         }) {
        ASSERT_EQ(std::system(("rm -rf " + Configuration()).c_str()), 0);
        MakeFolder();
        each.make();
        EXPECT_EQ(Started(), kDefaults) << each.name;
        EXPECT_FALSE(Preferences::Prefs->Save()) << each.name;
        Preferences::Save();
    }
}

TEST_F(PreferencesTest, ALinkToAFileThatIsMissingIsFollowedAtTheEnd) {
    MakeFolder();
    ASSERT_EQ(symlink((home_ + "/elsewhere").c_str(), File().c_str()), 0);
    EXPECT_EQ(Started(), kDefaults);
    Preferences::Save();
    EXPECT_EQ(Contents(), Written("false", "false", ""));
}

/// Lets no file grow beyond the size, as a disk that is full does.
class FileSizeLimit {
 public:
    explicit FileSizeLimit(rlim_t size) {
        getrlimit(RLIMIT_FSIZE, &before_);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

 private:
    rlimit before_;
    void (*handler_)(int);
};

TEST_F(PreferencesTest, AFullDiskLeavesTheOldFileWholeAndNoHalfOfANewOne) {
    MakeFile(kStored);
    EXPECT_EQ(Started(), "1 0 77 10.2");
    Preferences::pIconVersion = std::string(200, 'x');
    {
        const FileSizeLimit limit(150);
        Preferences::Save();
        EXPECT_FALSE(Preferences::Prefs->Save());
    }
    EXPECT_EQ(Contents(), kStored);
    ASSERT_EQ(unlink(File().c_str()), 0);
    {
        const FileSizeLimit limit(10);
        Preferences::Save();
    }
    struct stat status;
    EXPECT_NE(stat(File().c_str(), &status), 0);
    Preferences::Save();
    EXPECT_EQ(Contents(), Written("true", "false", std::string(200, 'x')));
}

TEST_F(PreferencesTest, TheStoreTellsWhatItHasAndWhatItLacks) {
    PrefsClass store("App");
    EXPECT_FALSE(store.Save());
    store["a"] = 1;
    store.Set("a", "two");
    EXPECT_EQ(Variant(store["a"]).StringValue(), "two");
    try {
        store.Get("A");
        FAIL();
    } catch (const Preferences::PreferenceNotFoundException& exception) {
        EXPECT_EQ(exception.Message, "Preference value 'A' does not exist.");
        EXPECT_EQ(exception.ErrorNumber, 0);
    }
    EXPECT_FALSE(store.Load());
    EXPECT_TRUE(store.Save());
    PrefsClass again("App");
    EXPECT_TRUE(again.Load());
    EXPECT_EQ(again.Get("a").StringValue(), "two");
    again.Remove();
    EXPECT_EQ(again.Get("a").StringValue(), "two");
    EXPECT_FALSE(PrefsClass("App").Load());
}

TEST_F(PreferencesTest, DefaultsAreSetOnlyWhileThereIsAStore) {
    Disturb();
    Preferences::SetDefault();
    EXPECT_EQ(Values(), "1 1 -1 disturbed");
    Preferences::Initialize("App");
    Preferences::SetDefault();
    EXPECT_EQ(Values(), kDefaults);
}

}  // namespace
}  // namespace dunvey
