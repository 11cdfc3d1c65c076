#include <gtest/gtest.h>

#include "app/exception_report.h"
#include "app/open_decision.h"
#include "app/opening_sequence.h"
#include "chooser/chooser.h"
#include "platform/files/streams.h"
#include "platform/values/exceptions.h"
#include "support/own_resources.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

/// From open-document events to the launch commands, which recorders receive.
using Opening = test::Chooser;

TEST_F(Opening, OneCommandForEachVersionInAscendingOrder) {
    Installed("CS5.5", "7.5.3");
    Installed("CS6", "8.0.1");
    Installed("2021", "16.4.0");
    const auto b = Document("b.indd", 8);
    EXPECT_EQ(Open({Document("a.indd", 16), b, Document("c.indd", 7, 5), Document("d.indd", 16),
                    Document("e.indd", 8), b}),
              0);
    EXPECT_EQ(Opened(),
              (Texts{"CS5.5: c.indd", "CS6: b.indd e.indd b.indd", "2021: a.indd d.indd"}));
    EXPECT_EQ(OpenCalls().back(), Texts{AppPath("2021")}) << "brought to the front";
    EXPECT_EQ(PsRuns(), 6U) << "the process list is read for each document";
}

TEST_F(Opening, TheWholeCommandLine) {
    folder_.Write("command", "");
    Installed("CS6", "8.0.1");
    EXPECT_EQ(Open({Document("a b.indd", 8), Document("c.indd", 8)}), 0);
    const std::string folder = folder_.Path();
    const std::string application =
        folder + "/Applications/Adobe\\ InDesign\\ CS6/Adobe\\ InDesign\\ CS6.app";
    EXPECT_EQ(folder_.Read("command"), "open -a " + application + " " + folder + "/a\\ b.indd " +
                                           folder + "/c.indd  && open " + application + "\n");
}

TEST_F(Opening, TheCommandKeyIsReadOnlyWhereItMatters) {
    Installed("CS6", "8.0.1");
    Installed("CC", "9.2.0");
    int readings = 0;
    headless::TheMachine().readCommandKey = [&readings] { return ++readings < 0; };
    const auto installed = Document("a.indd", 9);
    const auto leaveOutOne = [this] {
        Expect({[this](Window1& window) { user_->Escape(window); }});
    };
    leaveOutOne();
    Open({installed, installed, Document("b.indd", 14)});
    EXPECT_EQ(readings, 2) << "not for a version that isn't installed";
    Running({"CS6"});
    leaveOutOne();
    Open({installed});
    EXPECT_EQ(readings, 2) << "not beside another version";
    Running({"CS6", "CC"});
    Open({installed});
    EXPECT_EQ(readings, 3);
}

TEST_F(Opening, OtherFilesAreIgnored) {
    Installed("CS6", "8.0.1");
    const auto note = New<FolderItem>(folder_.Write("note.txt", "text"));
    EXPECT_EQ(Open({note}), 0);
    EXPECT_EQ(PsRuns(), 0U);
    EXPECT_EQ(Open({note, Document("a.indd", 8), New<FolderItem>(folder_ / "gone.indd"), nullptr}),
              0);
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
}

TEST_F(Opening, AnApplicationRemovedBeforeTheLaunchIsSkippedWithoutADialog) {
    Installed("CS6", "8.0.1");
    Installed("CC", "9.2.0");
    // The key is read after the applications were found and before they are started.
    headless::TheMachine().readCommandKey = [this] {
        rename(AppPath("CS6").c_str(), (folder_ / "trash").c_str());
        return false;
    };
    EXPECT_EQ(Open({Document("a.indd", 8), Document("b.indd", 9)}), 0);
    EXPECT_EQ(Opened(), Texts{"CC: b.indd"});
}

TEST_F(Opening, CollectingDocumentsEndsWhenTheTimerFires) {
    Installed("CS6", "8.0.1");
    Ref<App> app = New<App>();
    Application::Register(app);
    app->Event_Open();
    EXPECT_EQ(app->t->Mode(), Timer::kOff);
    EXPECT_EQ(app->t->Period(), 1);
    app->Event_OpenDocument(nullptr);
    EXPECT_EQ(app->t->Mode(), Timer::kOnce) << "a rejected item restarts the timer too";
    app->CanAccepted = false;
    app->Event_OpenDocument(Document("late.indd", 8));
    EXPECT_EQ(app->t->Mode(), Timer::kOff) << "a late document is ignored";
    EXPECT_TRUE(app->Files.empty());
}

TEST_F(Opening, GroupsEndWhereTheKeyChangesAndSkipWithdrawnDocuments) {
    // The version keys of the documents 0, 1, ...: "-" marks a withdrawn document, "nil" one
    // without an application. Then the documents of each command.
    const std::pair<Texts, Texts> kRows[] = {{{}, {}},
                                             {{"14"}, {"CS6: 0"}},
                                             {{"14", "15"}, {"CS6: 0", "CS6: 1"}},
                                             {{"14", "14"}, {"CS6: 0 1"}},
                                             {{"14", "14", "15"}, {"CS6: 0 1", "CS6: 2"}},
                                             {{"14", "15", "15"}, {"CS6: 0", "CS6: 1 2"}},
                                             {{"15", "15.0"}, {"CS6: 0", "CS6: 1"}},
                                             {{"-8", "-8", "-9", "-9", "-10"}, {}},
                                             {{"-8", "8", "-8"}, {"CS6: 1"}},
                                             {{"8", "-8", "9", "-9", "9"}, {"CS6: 0", "CS6: 2 4"}},
                                             {{"nil", "8", "8"}, {"CS6: 1 2"}},
                                             {{"8", "nil"}, {"CS6: 0"}}};
    const auto application = Installed("CS6", "8.0.1");
    for (const auto& [keys, groups] : kRows) {
        unlink((folder_ / "open-calls").c_str());
        const Ref<App> app = New<App>();
        for (const std::string& key : keys) {
            const Ref<FileClass> record = New<FileClass>();
            record->WillOpen = key[0] != '-';
            record->WillUseVer = key;
            record->WillUseApp = key == "nil" ? nullptr : application;
            record->File = New<FolderItem>("/" + std::to_string(app->Files.size()));
            app->Files.push_back(record);
        }
        app->OpenFile();
        EXPECT_EQ(Opened(), groups) << ::testing::PrintToString(keys);
    }
}

TEST(SystemGate, RefusesFromTenFifteenOn) {
    for (const auto& [major, minor] : {std::pair{10, 9}, {10, 14}, {9, 99}, {0, 0}})
        EXPECT_FALSE(IsSystemRefused(major, minor)) << major << "." << minor;
    for (const auto& [major, minor] : {std::pair{10, 15}, {11, 0}, {26, 1}, {10, 100}})
        EXPECT_TRUE(IsSystemRefused(major, minor)) << major << "." << minor;
}

class OpeningSequence : public test::Chooser {
 protected:
    OpeningSequence() { Reset(); }
    ~OpeningSequence() override { Reset(); }

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
        return Open({Document("a.indd", 8)});
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
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
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
}

class ExceptionReport : public test::World {
 protected:
    template <typename Act>
    std::string Report(Act&& act) {
        ::testing::internal::CaptureStderr();
        try {
            act();
        } catch (...) {
            ReportException(std::current_exception());
        }
        return ::testing::internal::GetCapturedStderr();
    }
};

TEST_F(ExceptionReport, NamesTheExceptionItsMessageAndItsOrigin) {
    user_->ExpectMessage("Dunvey has to end: IOException", {}, [](const MessageDialog& dialog) {
        EXPECT_NE(dialog.Explanation.find("none.indd"), std::string::npos);
    });
    const std::string report =
        Report([this] { BinaryStream::Open(New<FolderItem>(folder_ / "none.indd")); });
    EXPECT_TRUE(report.starts_with("Dunvey: unhandled IOException: ")) << report;
    EXPECT_NE(report.find("none.indd\" can't be opened"), std::string::npos) << report;
    EXPECT_NE(report.find("(src/platform/files/streams.cpp:"), std::string::npos) << report;
}

TEST_F(ExceptionReport, IsWrittenToStandardErrorWithoutADisplayToo) {
    Desktop::Install(nullptr);
    const std::string report = Report([] { throw KeyNotFoundException("nothing there"); });
    EXPECT_NE(report.find("KeyNotFoundException: nothing there ("), std::string::npos) << report;
    EXPECT_NE(report.find("app_test.cpp:"), std::string::npos) << report;
    EXPECT_EQ(Report([] { throw std::out_of_range("too far"); }),
              "Dunvey: unhandled std::exception: too far (unknown place)\n");
    EXPECT_EQ(Report([] { throw DesktopUnavailableException("No display."); }),
              "Dunvey: No display.\n");
    InstallDesktop();
}

}  // namespace
}  // namespace dunvey
