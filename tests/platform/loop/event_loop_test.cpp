#include "platform/loop/event_loop.h"

#include <gtest/gtest.h>

#include <functional>

#include "platform/controls/message_dialog.h"
#include "platform/loop/application.h"
#include "platform/values/exceptions.h"
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

TEST_F(EventLoopTest, AnOuterLoopEndsAfterTheInnerOnesAndNoneStartsAfterAnException) {
    ModalLoop outer;
    ModalLoop inner;
    user_->Later([&] {
        user_->Later([&] { outer.Leave(); });
        user_->Later([&] { inner.Leave(); });
        inner.Run();
        log_ += "inner ended";
    });
    outer.Run();
    EXPECT_EQ(log_, "inner ended");
    loop_.Enter([] { throw IOException("lost"); });
    EXPECT_THROW(ModalLoop().Run(), IOException);
}

TEST_F(EventLoopTest, WithoutADesktopDialogsAndWaitingRaise) {
    Desktop::Install(nullptr);
    user_ = nullptr;
    EXPECT_THROW(MsgBox("text"), DesktopUnavailableException);
    EXPECT_THROW(Run(), DesktopUnavailableException) << "nothing to do but wait for the user";
    InstallDesktop();
}

}  // namespace
}  // namespace dunvey
