#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>

#include "platform/controls/message_dialog.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/launch_documents.h"
#include "platform/values/exceptions.h"
#include "support/temporary_folder.h"
#include "support/world.h"

namespace dunvey {
namespace {

class TestTimer final : public Timer {
 public:
    explicit TestTimer(std::function<void()> action, int period = 1) : action_(std::move(action)) {
        SetPeriod(period);
    }
    void Event_Action() override { action_(); }

 private:
    std::function<void()> action_;
};

class TestApplication final : public Application {
 public:
    void Event_Open() override { open(); }
    void Event_Close() override { close(); }
    void Event_OpenDocument(const Ref<FolderItem>& item) override { document(item->Name()); }

    std::function<void()> open = [] {};
    std::function<void()> close = [] {};
    std::function<void(std::string)> document = [](const std::string&) {};
};

class EventLoopTest : public test::World {
 protected:
    EventLoopTest() { Application::Register(app_); }
    ~EventLoopTest() override { Application::Register(nullptr); }

    int Run() { return loop_.Run(*app_); }

    Ref<TestApplication> app_ = New<TestApplication>();
    std::string log_;
};

TEST_F(EventLoopTest, DocumentsAreDeliveredAfterOpenInOrderAndBeforeADueTimer) {
    loop_.PostOpenDocument(New<FolderItem>("/1"));
    loop_.PostOpenDocument(New<FolderItem>("/2"));
    TestTimer timer([this] {
        log_ += "timer ";
        Quit(3);
    });
    app_->open = [&] {
        user_->ExpectMessage("while opening");
        MsgBox("while opening");
        log_ += "open ";
        timer.SetMode(Timer::kOnce);
        headless::TheMachine().now += std::chrono::hours(1);
    };
    app_->document = [&](const std::string& name) {
        log_ += name + " ";
        if (name == "1") loop_.PostOpenDocument(New<FolderItem>("/3"));
    };
    app_->close = [this] {
        NSApplication::terminate();
        log_ += "close";
    };
    EXPECT_EQ(Run(), 3);
    EXPECT_EQ(log_, "open 1 2 3 timer close");
}

TEST_F(EventLoopTest, ATimerFiresOnceAndStartsAfresh) {
    TestTimer slow([this] { log_ += "slow "; }, 10);
    TestTimer quick([&] {
        log_ += "quick ";
        EXPECT_EQ(quick.Mode(), Timer::kOff) << "it is off when it has fired";
    });
    TestTimer stopped([this] { log_ += "stopped "; }, 2);
    TestTimer end([] { Quit(0); }, 50);
    app_->open = [&] {
        for (TestTimer* timer : {&slow, &quick, &stopped, &end})
            timer->SetMode(Timer::kOnce);
        stopped.SetMode(Timer::kOff);
    };
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(log_, "quick slow ");
    EXPECT_EQ(TestTimer([] {}).Mode(), Timer::kOff) << "a new timer is off";
}

TEST_F(EventLoopTest, AfterAnExceptionNoEventIsDelivered) {
    TestTimer timer([this] { log_ += "timer "; });
    app_->open = [&] { timer.SetMode(Timer::kOnce); };
    app_->document = [this](const std::string& name) {
        log_ += name + " ";
        throw IOException("lost");
    };
    loop_.PostOpenDocument(New<FolderItem>("/1"));
    loop_.PostOpenDocument(New<FolderItem>("/2"));
    EXPECT_THROW(Run(), IOException);
    user_->ExpectMessage("report");
    MsgBox("report");
    EXPECT_EQ(log_, "1 ") << "not even while its report is shown";
}

TEST_F(EventLoopTest, WithoutADesktopDialogsAndWaitingRaise) {
    Desktop::Install(nullptr);
    user_ = nullptr;
    EXPECT_THROW(MsgBox("text"), DesktopUnavailableException);
    EXPECT_THROW(Run(), DesktopUnavailableException) << "nothing to do but wait for the user";
    InstallDesktop();
}

const std::vector<std::string> kExtensions = {"indd", "indb"};

TEST(Intake, LocalFilesOfTheKindsAreDocumentsAllElseIsRefusedWithAReason) {
    const test::TemporaryFolder folder;
    const std::string uri = "file://" + folder.Path() + "/";
    const std::string blank = folder.Write("a b.indd", "");
    const std::string book = folder.Write("\xFF%.INDB", "");
    folder.MakeFolder("folder.indd");
    ASSERT_EQ(mkfifo((folder / "pipe.indd").c_str(), 0600), 0);
    ASSERT_EQ(symlink("a b.indd", (folder / "link.indd").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (folder / "dangling.indd").c_str()), 0);
    char host[256] = {};
    ASSERT_EQ(gethostname(host, sizeof host - 1), 0);
    const std::pair<std::string, std::string> documents[] = {
        {blank, blank},
        {uri + "a%20b.indd", blank},
        {"FILE:" + folder.Path() + "/a b.indd", blank},
        {"file://LocalHost" + folder.Path() + "/%ff%25.INDB", book},
        {std::string("file://") + host + folder.Path() + "/link.indd", folder / "link.indd"}};
    for (const auto& [argument, path] : documents) {
        const Intake intake = TakeIn({argument}, kExtensions);
        EXPECT_EQ(intake.documents, std::vector<std::string>{path}) << argument;
        EXPECT_TRUE(intake.refusals.empty()) << argument;
    }
    const std::pair<std::string, const char*> refused[] = {
        {"", "No such file"},
        {folder / "gone.indd", "No such file"},
        {folder / "dangling.indd", "No such file"},
        {folder / "folder.indd", "folder"},
        {folder / "pipe.indd", "not a regular file"},
        {folder.Write("a.txt", ""), "not of a kind"},
        {folder.Write("a.indd.bak", ""), "not of a kind"},
        {std::string(5000, 'p') + ".indd", "too long"},
        {"--help", "no options"},
        {"https://example.org/a.indd", "this computer"},
        {"file://elsewhere" + blank, "not the address"},
        {"file:a b.indd", "not the address"},
        {uri + "a%2", "not the address"},
        {uri + "a%2g.indd", "not the address"},
        {uri + "%00.indd", "not the address"}};
    for (const auto& [argument, reason] : refused) {
        const Intake intake = TakeIn({argument}, kExtensions);
        EXPECT_TRUE(intake.documents.empty()) << argument;
        ASSERT_EQ(intake.refusals.size(), 1U) << argument;
        EXPECT_TRUE(intake.refusals[0].starts_with("\"" + argument + "\"")) << argument;
        EXPECT_NE(intake.refusals[0].find(reason), std::string::npos) << intake.refusals[0];
    }
    EXPECT_EQ(TakeIn({folder / "a.txt"}, {}).documents.size(), 1U) << "any file is taken";
}

}  // namespace
}  // namespace dunvey
