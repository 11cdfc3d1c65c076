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

    /// The calls of `open` so far, each on a line: "-a CS6 a.indd b.indd" or "CS6".
    std::string Opened() const {
        std::string lines;
        for (const auto& call : OpenCalls()) {
            for (const std::string& word : call) {
                const std::string name = word.substr(word.rfind('/') + 1);
                const bool isApplication = name.ends_with(".app");
                lines += (isApplication ? name.substr(15, name.size() - 19) : name) + " ";
            }
            lines.back() = '\n';
        }
        return lines;
    }
};

TEST_F(Opening, OneCommandForEachVersionInAscendingOrder) {
    Installed("CS5.5", "7.5.3");
    Installed("CS6", "8.0.1");
    Installed("2021", "16.4.0");
    const auto b = Document("b.indd", 8);
    EXPECT_EQ(Open({Document("a.indd", 16), b, Document("c.indd", 7, 5), Document("d.indd", 16),
                    Document("e.indd", 8), b}),
              0);
    EXPECT_EQ(Opened(),
              "-a CS5.5 c.indd\nCS5.5\n-a CS6 b.indd e.indd b.indd\nCS6\n"
              "-a 2021 a.indd d.indd\n2021\n");
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
        user_->ExpectWindow("Marlit Id - Notification",
                            {[this](Window& window) { user_->Escape(window); }});
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
    EXPECT_EQ(Opened(), "-a CS6 a.indd\nCS6\n");
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
    EXPECT_EQ(Opened(), "-a CC b.indd\nCC\n");
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
    const std::pair<std::vector<std::string>, std::vector<std::string>> kRows[] = {
        {{}, {}},
        {{"14"}, {"0"}},
        {{"14", "15"}, {"0", "1"}},
        {{"14", "14"}, {"0 1"}},
        {{"14", "14", "15"}, {"0 1", "2"}},
        {{"14", "15", "15"}, {"0", "1 2"}},
        {{"15", "15.0"}, {"0", "1"}},
        {{"-8", "-8", "-9", "-9", "-10"}, {}},
        {{"-8", "8", "-8"}, {"1"}},
        {{"8", "-8", "9", "-9", "9"}, {"0", "2 4"}},
        {{"nil", "8", "8"}, {"1 2"}},
        {{"8", "nil"}, {"0"}}};
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
        std::string expected;
        for (const std::string& group : groups)
            expected += "-a CS6 " + group + "\nCS6\n";
        EXPECT_EQ(Opened(), expected) << ::testing::PrintToString(keys);
    }
}

}  // namespace
}  // namespace dunvey
