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
        Preferences::pIconVersion = "";
        Preferences::pNonReleaseVersion = 0;
        InDesign::InstalledApps.clear();
    }

    /// Runs the program on a document of version 8; returns the exit code.
    int RunOnce() {
        Reset();
        Application::Register(New<App>());
        loop_.PostOpenDocument(Document("a.indd", 8));
        return loop_.Run(*Application::Current());
    }

    void WriteFile(const std::string& text) {
        folder_.MakeFolder("config/" + name_);
        folder_.Write(file_, text);
    }

    // The preferences are named after the executable, which is this test program.
    const std::string name_ = Application::ExecutableFile()->Name();
    const std::string file_ = "config/" + name_ + "/" + name_ + ".pref";
};

TEST_F(OpeningSequence, PreferencesAreReadAtTheStartAndSavedAtTheEnd) {
    Installed("CS6", "8.0");
    WriteFile(
        "{\"Other\":[1,null],\"AllowOpenHigherVersion\":true,"
        "\"AllowQuitButtonActiveted\":false,\"NonReleaseVersion\":0,\"IconVersion\":\"8.0\"}");
    EXPECT_EQ(RunOnce(), 0);
    EXPECT_TRUE(Preferences::gAllowOpenHigherVersion);
    EXPECT_EQ(Preferences::pNonReleaseVersion, 0) << "the build that wrote the file";
    EXPECT_EQ(folder_.Read(file_),
              "{\n  \"Other\":[\n    1,\n    null\n  ],\n  \"AllowOpenHigherVersion\":true,\n"
              "  \"AllowQuitButtonActiveted\":false,\n  \"NonReleaseVersion\":" +
                  std::to_string(Application::NonReleaseVersion()) +
                  ",\n  \"IconVersion\":\"8.0\"\n}");
    // A folder for the preferences can't be created in a file.
    setenv("XDG_CONFIG_HOME", folder_.Write("file", "x").c_str(), 1);
    EXPECT_EQ(RunOnce(), 0);
    EXPECT_FALSE(Preferences::gAllowOpenHigherVersion);
    EXPECT_EQ(OpenCalls().size(), 4U) << "opened and brought to the front in both runs";
}

TEST_F(OpeningSequence, ARefusedStartReadsScansAndSavesNothing) {
    Installed("CS6", "8.0");
    WriteFile("before");
    headless::TheMachine().systemMinor = 15;
    user_->ExpectMessage("The system requirement for Marlit Ai are up to macOS Mojave 10.14.");
    EXPECT_EQ(RunOnce(), 0);
    EXPECT_EQ(user_->timesInFront(), 0) << "the program is not activated";
    EXPECT_TRUE(InDesign::InstalledApps.empty());
    EXPECT_FALSE(Preferences::Prefs);
    EXPECT_EQ(folder_.Read(file_), "before");
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
    const char* const kNotice = "Import file icons from InDesign.app installed.";
    install("CS6", "8.0");
    user_->ExpectMessage(kNotice);
    RunOnce();
    EXPECT_EQ(resources.Icons(), "CS6CS6");
    EXPECT_NE(folder_.Read(file_).find("\"IconVersion\":\"8.0\""), std::string::npos);
    unlink((resources / "ID_Book_Icon.icns").c_str());
    RunOnce();
    EXPECT_EQ(resources.Icons(), "CS6") << "not again for the same version";
    install("CC", "9.2");
    user_->ExpectMessage(kNotice);
    RunOnce();
    EXPECT_EQ(resources.Icons(), "CCCC");
    EXPECT_EQ(OpenCalls().size(), 6U) << "opened and brought to the front in each run";
}

}  // namespace
}  // namespace dunvey
