#include "app/open_decision.h"

#include <gtest/gtest.h>

#include "app/app.h"
#include "support/world.h"

namespace dunvey {
namespace {

/// From open-document events to the launch commands, which recorders receive.
class Opening : public test::World {
 protected:
    ~Opening() override { Application::Register(nullptr); }

    /// Runs the program on these documents; returns the exit code.
    int Open(const std::vector<Ref<FolderItem>>& documents) {
        Application::Register(New<App>());
        for (const auto& document : documents)
            loop_.PostOpenDocument(document);
        return loop_.Run(*Application::Current());
    }

    std::vector<std::string> Start(const std::string& suffix,
                                   const std::vector<Ref<FolderItem>>& documents) const {
        std::vector<std::string> words = {"-a", AppPath(suffix)};
        for (const auto& document : documents)
            words.push_back(document->NativePath());
        return words;
    }
    std::vector<std::string> Again(const std::string& suffix) const { return {AppPath(suffix)}; }

    using Calls = std::vector<std::vector<std::string>>;
};

TEST_F(Opening, OneCommandForEachVersionInAscendingOrder) {
    Installed("CS5.5", "7.5.3");
    Installed("CS6", "8.0.1");
    Installed("2021", "16.4.0");
    const auto a = Document("a.indd", 16);
    const auto b = Document("b.indd", 8);
    const auto c = Document("c.indd", 7, 5);
    const auto d = Document("d.indd", 16);
    const auto e = Document("e.indd", 8);
    EXPECT_EQ(Open({a, b, c, d, e, b}), 0);
    EXPECT_EQ(OpenCalls(), (Calls{Start("CS5.5", {c}), Again("CS5.5"), Start("CS6", {b, e, b}),
                                  Again("CS6"), Start("2021", {a, d}), Again("2021")}));
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
    const auto cancelOne = [this] {
        user_->ExpectWindow("Marlit Id - Notification",
                            {[this](Window& window) { user_->Escape(window); }});
    };
    cancelOne();
    Open({installed, installed, Document("b.indd", 14)});
    EXPECT_EQ(readings, 2) << "not for a version that isn't installed";
    Running({"CS6"});
    cancelOne();
    Open({installed});
    EXPECT_EQ(readings, 2) << "not beside another version";
    Running({"CS6", "CC"});
    Open({installed});
    EXPECT_EQ(readings, 3);
}

TEST_F(Opening, OtherFilesAreIgnored) {
    Installed("CS6", "8.0.1");
    const auto document = Document("a.indd", 8);
    const auto note = New<FolderItem>(folder_.Write("note.txt", "text"));
    EXPECT_EQ(Open({note}), 0);
    EXPECT_EQ(PsRuns(), 0U);
    EXPECT_EQ(Open({note, document, New<FolderItem>(folder_ / "gone.indd"), nullptr}), 0);
    EXPECT_EQ(OpenCalls(), (Calls{Start("CS6", {document}), Again("CS6")}));
}

TEST_F(Opening, AnApplicationRemovedBeforeTheLaunchIsSkippedWithoutADialog) {
    Installed("CS6", "8.0.1");
    Installed("CC", "9.2.0");
    const auto lost = Document("a.indd", 8);
    const auto kept = Document("b.indd", 9);
    // The key is read after the applications were found and before they are started.
    headless::TheMachine().readCommandKey = [this] {
        rename(AppPath("CS6").c_str(), (folder_ / "trash").c_str());
        return false;
    };
    EXPECT_EQ(Open({lost, kept}), 0);
    EXPECT_EQ(OpenCalls(), (Calls{Start("CC", {kept}), Again("CC")}));
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

class Batch : public Opening {
 protected:
    /// The files of each command for documents with these version keys, in this order. "-" marks a
    /// withdrawn document, "nil" a missing application.
    Calls Launch(const std::vector<std::string>& keys) {
        unlink((folder_ / "open-calls").c_str());
        const auto application = Installed("CS6", "8.0.1");
        Ref<App> app = New<App>();
        for (size_t i = 0; i < keys.size(); ++i) {
            Ref<FileClass> record = New<FileClass>();
            record->WillOpen = keys[i][0] != '-';
            record->WillUseVer = keys[i].substr(record->WillOpen ? 0 : 1);
            record->WillUseApp = record->WillUseVer == "nil" ? nullptr : application;
            record->File = New<FolderItem>("/" + std::to_string(i));
            app->Files.push_back(record);
        }
        app->OpenFile();
        Calls files;
        for (const auto& call : OpenCalls()) {
            if (call.size() > 1) files.emplace_back(call.begin() + 2, call.end());
        }
        return files;
    }
};

TEST_F(Batch, GroupsEndWhereTheKeyChangesAndSkipWithdrawnDocuments) {
    const std::pair<std::vector<std::string>, Calls> kRows[] = {
        {{}, {}},
        {{"14"}, {{"/0"}}},
        {{"14", "15"}, {{"/0"}, {"/1"}}},
        {{"14", "14"}, {{"/0", "/1"}}},
        {{"14", "14", "15"}, {{"/0", "/1"}, {"/2"}}},
        {{"14", "15", "15"}, {{"/0"}, {"/1", "/2"}}},
        {{"15", "15.0"}, {{"/0"}, {"/1"}}},
        {{"-8", "-8", "-9", "-9", "-10"}, {}},
        {{"-8", "8", "-8"}, {{"/1"}}},
        {{"8", "-8", "9", "-9", "9"}, {{"/0"}, {"/2", "/4"}}},
        {{"nil", "8", "8"}, {{"/1", "/2"}}},
        {{"8", "nil"}, {{"/0"}}}};
    for (const auto& [keys, expected] : kRows)
        EXPECT_EQ(Launch(keys), expected) << ::testing::PrintToString(keys);
}

}  // namespace
}  // namespace dunvey
