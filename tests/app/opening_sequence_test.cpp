#include "app/opening_sequence.h"

#include <gtest/gtest.h>

#include "app/app.h"
#include "persistence/preferences.h"
#include "support/own_resources.h"
#include "support/world.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

TEST(SystemGate, RefusesFromTenFifteenOn) {
    for (const auto& [major, minor] : {std::pair{10, 9}, {10, 14}, {9, 99}, {0, 0}})
        EXPECT_FALSE(IsSystemRefused(major, minor)) << major << "." << minor;
    for (const auto& [major, minor] : {std::pair{10, 15}, {11, 0}, {26, 1}, {10, 100}})
        EXPECT_TRUE(IsSystemRefused(major, minor)) << major << "." << minor;
}

class OpeningSequence : public test::World {
 protected:
    OpeningSequence() { Reset(); }
    ~OpeningSequence() override {
        Application::Register(nullptr);
        Reset();
    }

    static void Reset() {
        Preferences::Prefs = nullptr;
        Preferences::gAllowOpenHigherVersion = false;
        Preferences::gAllowQuitButtonActiveted = false;
        Preferences::pIconVersion = "";
        Preferences::pNonReleaseVersion = 0;
        InDesign::InstalledApps.clear();
    }

    /// Runs the program on a document, cancelling the chooser if there must be one; returns the
    /// exit code.
    int RunOnce() {
        Reset();
        const bool asks =
            access(AppPath("CS6").c_str(), F_OK) != 0 || headless::TheMachine().commandKey;
        if (asks) {
            user_->ExpectWindow("Marlit Id - Notification",
                                {[this](Window& window) { user_->Escape(window); }});
        }
        Application::Register(New<App>());
        loop_.PostOpenDocument(Document("a.indd", 8));
        return loop_.Run(*Application::Current());
    }

    /// Named after the executable, which is this test program.
    std::string PreferenceFile() const {
        const std::string name = Application::ExecutableFile()->Name();
        return "config/" + name + "/" + name + ".pref";
    }

    static std::string FileOf(const char* flag, const char* iconVersion,
                              const std::string& others = {}) {
        return "{\n" + others + "  \"AllowOpenHigherVersion\":" + flag +
               ",\n  \"AllowQuitButtonActiveted\":" + flag +
               ",\n  \"NonReleaseVersion\":" + std::to_string(Application::NonReleaseVersion()) +
               ",\n  \"IconVersion\":\"" + iconVersion + "\"\n}";
    }
    const std::string fileOfAFirstRun_ = FileOf("false", "");

    void WriteFile(const std::string& text) {
        folder_.MakeFolder("config/" + Application::ExecutableFile()->Name());
        folder_.Write(PreferenceFile(), text);
    }
};

TEST_F(OpeningSequence, EveryRunWritesThePreferences) {
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(RunOnce(), 0);
        EXPECT_EQ(folder_.Read(PreferenceFile()), fileOfAFirstRun_);
    }
}

TEST_F(OpeningSequence, StoredValuesAndUnknownKeysAreKept) {
    WriteFile(
        "{\"Other\":[1,2.5,null],\"AllowOpenHigherVersion\":true,"
        "\"AllowQuitButtonActiveted\":true,\"NonReleaseVersion\":0,\"IconVersion\":\"8.0\"}");
    EXPECT_EQ(RunOnce(), 0);
    EXPECT_TRUE(Preferences::gAllowOpenHigherVersion);
    EXPECT_EQ(Preferences::pIconVersion, "8.0");
    EXPECT_EQ(Preferences::pNonReleaseVersion, 0) << "the build that wrote the file";
    EXPECT_EQ(folder_.Read(PreferenceFile()),
              FileOf("true", "8.0", "  \"Other\":[\n    1,\n    2.5,\n    null\n  ],\n"));
}

TEST_F(OpeningSequence, BothModifierKeysTogetherResetThePreferences) {
    const std::string stored =
        "{\"AllowOpenHigherVersion\":true,\"AllowQuitButtonActiveted\":false,"
        "\"NonReleaseVersion\":1,\"IconVersion\":\"8.0\"}";
    Installed("CS6", "8.0");
    headless::Machine& machine = headless::TheMachine();
    for (const auto& [command, option] : {std::pair{false, true}, {false, false}}) {
        WriteFile(stored);
        machine.commandKey = command;
        machine.optionKey = option;
        RunOnce();
        EXPECT_TRUE(Preferences::gAllowOpenHigherVersion) << command << option;
    }
    WriteFile("{ corrupt");
    machine.commandKey = true;
    machine.optionKey = true;
    RunOnce();
    EXPECT_FALSE(Preferences::gAllowOpenHigherVersion);
    EXPECT_EQ(folder_.Read(PreferenceFile()), fileOfAFirstRun_);
}

TEST_F(OpeningSequence, UnusablePreferencesNeverStopTheRun) {
    Installed("CS6", "8.0");
    size_t launches = 0;
    for (const std::string& text :
         {std::string(), std::string("  \n"), std::string("{"), std::string("[1]"),
          std::string("\xFF\xFE\x00{", 4), std::string(3'000'000, '['), std::string("{}"),
          // Valid, but a thousand times as large when it is written back.
          "{\"AllowOpenHigherVersion\":true,\"x\":" + std::string(999, '[') +
              std::string(999, ']') + "}",
          "{\"AllowOpenHigherVersion\":true,\"x\":\"" + std::string(700'000, '/') + "\"}",
          std::string("{\"AllowOpenHigherVersion\":true}")}) {
        WriteFile(text);
        EXPECT_EQ(RunOnce(), 0) << text.substr(0, 20);
        EXPECT_EQ(OpenCalls().size(), launches += 2) << text.substr(0, 20);
        EXPECT_FALSE(Preferences::gAllowOpenHigherVersion) << text.substr(0, 20);
        EXPECT_NE(folder_.Read(PreferenceFile()).find("\"IconVersion\":\"\""), std::string::npos);
    }
    // The preferences folder cannot exist: its parent is a file.
    setenv("XDG_CONFIG_HOME", (folder_.Write("file", "x")).c_str(), 1);
    EXPECT_EQ(RunOnce(), 0);
    EXPECT_EQ(OpenCalls().size(), launches + 2);
}

TEST_F(OpeningSequence, ARefusedStartReadsScansAndSavesNothing) {
    Installed("CS6", "8.0");
    WriteFile("{ corrupt");
    headless::TheMachine().systemMinor = 15;
    user_->ExpectMessage("The system requirement for Marlit Ai are up to macOS Mojave 10.14.", {},
                         [](const MessageDialog& dialog) {
                             EXPECT_EQ(
                                 dialog.Explanation,
                                 "Quit Marlti Id as this system does not meet the requirements.");
                             EXPECT_EQ(dialog.ActionButton->Caption, "Quit");
                         });
    EXPECT_EQ(RunOnce(), 0);
    EXPECT_EQ(user_->timesInFront(), 0) << "the program is not activated";
    EXPECT_TRUE(InDesign::InstalledApps.empty());
    EXPECT_FALSE(Preferences::Prefs);
    EXPECT_EQ(folder_.Read(PreferenceFile()), "{ corrupt");
    EXPECT_TRUE(OpenCalls().empty());
}

TEST_F(OpeningSequence, IconsAreImportedOnceForEachNewestVersion) {
    const test::OwnResources resources;
    const auto install = [this](const std::string& suffix, const std::string& version) {
        const std::string path = Installed(suffix, version)->NativePath() + "/Contents/Resources";
        mkdir(path.c_str(), 0777);
        for (const char* icon : {"ID_Document_Icon.icns", "ID_Book_Icon.icns"})
            std::ofstream(path + "/" + icon) << suffix;
    };
    const auto expectNotice = [this] {
        user_->ExpectMessage("Import file icons from InDesign.app installed.");
    };
    install("CS6", "8.0");
    expectNotice();
    RunOnce();
    EXPECT_EQ(resources.Icons(), "CS6CS6");
    EXPECT_NE(folder_.Read(PreferenceFile()).find("\"IconVersion\":\"8.0\""), std::string::npos);
    unlink((resources / "ID_Book_Icon.icns").c_str());
    RunOnce();
    EXPECT_EQ(resources.Icons(), "CS6") << "not again for the same version";
    install("CC", "9.2");
    expectNotice();
    RunOnce();
    EXPECT_EQ(resources.Icons(), "CCCC");
    WriteFile("{\"NonReleaseVersion\":0,\"IconVersion\":\"9.2\"}");
    expectNotice();
    RunOnce();
    EXPECT_EQ(OpenCalls().size(), 8u) << "opened and brought to the front in each of four runs";
}

TEST_F(OpeningSequence, TheAboutItemHasTheProgramsNameInTheUsersLanguage) {
    const Ref<App> app = New<App>();
    Application::Register(app);
    app->localizeMenuText();  // no menu bar, no caption
    EXPECT_FALSE(FileAbout());
    const auto bar = New<MenuBar>("MainMenuBar");
    bar->Append(New<MenuItem>("FileMenu"));
    bar->Item(0)->Append(New<ApplicationMenuItem>("FileAbout"));
    app->SetMenuBar(bar);
    const std::string name = Application::ExecutableFile()->Name();
    app->Event_Open();
    EXPECT_EQ(FileAbout()->Text, "About " + name);
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    app->localizeMenuText();
    EXPECT_EQ(FileAbout()->Text, name + " について");
}

}  // namespace
}  // namespace dunvey
