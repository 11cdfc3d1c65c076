#include <gtest/gtest.h>

#include "chooser/chooser.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

using test::Chooser;

class ChooserActions : public Chooser {
 protected:
    ChooserActions() {
        Installed("CS5", "7.0.4");
        Installed("CS6", "8.1.0");
        Installed("CC", "9.0.0");
    }

    Step Return() {
        return [this](Window1& window) { EXPECT_TRUE(user_->Return(window)); };
    }
    Step Escape() {
        return [this](Window1& window) { EXPECT_TRUE(user_->Escape(window)); };
    }
    Step Select(int64_t row) {
        return [this, row](Window1& window) { user_->Select(*window.AppList(), row); };
    }
    Step DoubleClick(int64_t row) {
        return [this, row](Window1& window) { user_->DoubleClick(*window.AppList(), row); };
    }
    /// Takes the step in the first turn after this many quit requests.
    void AfterRequests(size_t count, const std::function<void()>& step) {
        user_->DuringTurn([this, count, step] {
            QuitCalls().size() < count ? AfterRequests(count, step) : step();
        });
    }
    Window1& Selected(Window1& window, int64_t row) {
        user_->Select(*window.AppList(), -1);
        user_->Select(*window.AppList(), row);
        return window;
    }
    Step QuitSelected() {
        return [this](Window1& window) { user_->Press(*window.PushButton3()); };
    }

    const Ref<FolderItem> document_ = Document("a.indd", 8);
};

TEST_F(ChooserActions, TheDesktopsCloseCancelsAndTheMenusCloseKeepsTheSelection) {
    headless::TheMachine().commandKey = true;
    Expect({[this](Window1& window) { user_->CloseByTheDesktop(window); }});
    Open({document_});
    EXPECT_EQ(Opened(), Starts{});
    Expect({[](Window1& window) { window.perform(Selector("performClose:"), nullptr); }});
    Open({document_});
    EXPECT_EQ(Opened(), Starts{"CS6: a.indd"});
}

TEST_F(ChooserActions, ADoubleClickOpensOnlyWhatTheOpenButtonOpens) {
    Expect({DoubleClick(0), DoubleClick(2)});
    Open({Document("b.indd", 7, 5)});
    EXPECT_EQ(Opened(), Starts{"CC: b.indd"});
}

TEST_F(ChooserActions, WarnsOfAnotherRunningVersionUnlessTheChosenOneRuns) {
    Running({"CC"});
    Expect({Return(), Escape()});
    user_->ExpectMessage(
        "Multiple InDesign.apps will be launched.", Answer::Dismiss,
        [](const MessageDialog& dialog) {
            EXPECT_EQ(dialog.Icon, MessageDialog::kCaution);
            EXPECT_EQ(dialog.ActionButton->Caption, "Cancel");
            EXPECT_EQ(dialog.CancelButton->Caption, "Quit Dunvey");
            EXPECT_EQ(dialog.AlternateActionButton->Caption, "Ignore warning");
            EXPECT_EQ(dialog.Explanation,
                      "InDesign.app to launched should keep only one as much as possible.");
        });
    Open({document_});
    EXPECT_EQ(Opened(), Starts{});
    EXPECT_EQ(user_->timesInFront(), 1);
    Running({"CC", "CS6"});
    headless::TheMachine().commandKey = true;
    Expect({Return()});
    Open({document_});
    EXPECT_EQ(Opened(), Starts{"CS6: a.indd"});
}

TEST_F(ChooserActions, QuittingTheOtherVersionUpdatesTheChooserAndCountsForTheRestOfTheRun) {
    Running({"CC"});
    AfterQuit({});
    Expect({Select(2), QuitSelected(),
            [](Window1& window) {
                EXPECT_EQ(Column(window, 2), (std::vector<std::string>{"", "", ""}));
                EXPECT_FALSE(window.Canvas2()->Backdrop());
                EXPECT_EQ(window.LabelMsg()->Text(), "");
                EXPECT_EQ(window.AppList()->ListIndex(), 0);
                EXPECT_FALSE(window.PushButton3()->Enabled());
            },
            Return()});
    Open({Document("b.indd", 7), document_});
    EXPECT_EQ(Opened(), (Starts{"CS5: b.indd", "CS6: a.indd"}));
    const std::string script = "on run {AppPath}\nquit application AppPath\ndelay 1\nend run";
    EXPECT_EQ(QuitCalls(), (std::vector<std::vector<std::string>>{{"-e", script, AppPath("CC")}}));
}

TEST_F(ChooserActions, AQuitRequestIsRepeatedUntilEscapeOrTheEndOfTheProgram) {
    Window1* open = nullptr;
    const std::function<void()> kEnds[] = {
        [&] {
            EXPECT_FALSE(open->PushButton3()->Enabled());
            EXPECT_TRUE(open->Busy());
            EXPECT_EQ(open->AppList()->Note(),
                      "Waiting for CC to quit. Escape leaves the document out.");
            user_->Escape(*open);
        },
        [] { NSApplication::terminate(); }};
    Running({"CC"});
    for (const auto& end : kEnds) {
        Expect({Select(2), [&](Window1& window) {
                    open = &window;
                    AfterRequests(2, end);
                    user_->Press(*window.PushButton3());
                }});
        EXPECT_EQ(Open({document_}), 0);
        EXPECT_EQ(Opened(), Starts{});
    }
}

TEST_F(ChooserActions, APressDuringAQuitRequestRunsANestedLoop) {
    Running({"CS5", "CC"});
    Window1* open = nullptr;
    Expect({Select(2),
            [&](Window1& window) {
                open = &window;
                AfterRequests(1, [&] {
                    AfterQuit({"CS5"});
                    user_->Press(*Selected(*open, 2).PushButton3());
                    EXPECT_EQ(Column(*open, 2), (std::vector<std::string>{"Booting", "", ""}));
                    AfterQuit({});
                    user_->Press(*Selected(*open, 0).PushButton3());
                    EXPECT_EQ(Column(*open, 2), (std::vector<std::string>{"", "", ""}));
                    EXPECT_TRUE(open->Busy()) << "the first request still runs";
                });
                user_->Press(*window.PushButton3());
                EXPECT_FALSE(window.Busy());
                EXPECT_EQ(window.AppList()->Note(), "");
            },
            Escape()});
    Open({document_});
    EXPECT_EQ(QuitCalls().back().back(), AppPath("CS5"));
}

TEST_F(ChooserActions, TheUserActsWhileTheChooserIsRebuilt) {
    Window1* open = nullptr;
    // The rebuild starts when the window is no longer busy.
    std::function<void(std::function<void()>)> duringRebuild = [&](std::function<void()> act) {
        user_->DuringTurn([&, act] { open->Busy() ? duringRebuild(act) : act(); });
    };
    const auto quitAnd = [&](std::function<void()> act) {
        return [&, act](Window1& window) {
            AfterQuit({});
            open = &window;
            duringRebuild(act);
            user_->Press(*window.PushButton3());
        };
    };
    Running({"CC"});
    Expect({Select(2), quitAnd([&] { user_->Escape(*open); })});
    Open({document_});
    EXPECT_EQ(Opened(), Starts{});
    Running({"CC"});
    Expect({Select(2), quitAnd([&] { open->ReView(); }),
            [](Window1& window) {
                EXPECT_EQ(Column(window, 1), (std::vector<std::string>{"7.0.4", "8.1.0", "9.0.0"}));
                EXPECT_EQ(window.AppList()->ListIndex(), 1);
            },
            Return()});
    Open({document_});
    EXPECT_EQ(Opened(), Starts{"CS6: a.indd"});
}

TEST_F(ChooserActions, ARemovedApplicationIsNeitherOpenedNorQuitAndShowsNoDialog) {
    Running({"CS6", "CC"});
    headless::TheMachine().commandKey = true;
    Expect({[this](Window1&) { rename(AppPath("CS6").c_str(), (folder_ / "gone").c_str()); },
            Return(), QuitSelected(), Escape()});
    Open({document_});
    EXPECT_TRUE(QuitCalls().empty());
}

TEST_F(ChooserActions, OneChooserForEachDocumentThenLaunchesInVersionOrder) {
    headless::TheMachine().commandKey = true;
    const auto showing = [](const std::string& name) {
        return [name](Window1& window) { EXPECT_EQ(window.LabelFileName()->Text(), name); };
    };
    Expect({showing("low.indd"), [this](Window1& window) { user_->Toggle(*window.CheckBox1()); },
            Select(2), Return()});
    Expect({showing("middle.indd"), Return()});
    Expect({showing("high.indd"), Escape()});
    Open({Document("high.indd", 9), Document("low.indd", 7), Document("middle.indd", 8)});
    EXPECT_EQ(Opened(), (Starts{"CS6: middle.indd", "CC: low.indd"}));
    EXPECT_EQ(App::Instance()->Files.back()->WillUseVer, "9.0");
}

TEST_F(ChooserActions, WithoutADisplayOnlyDocumentsThatNeedAChooserAreLeftOut) {
    Desktop::Install(nullptr);
    Desktop::SetLoader(
        []() -> std::unique_ptr<Desktop> { throw DesktopUnavailableException("No display."); });
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Open({Document("lost one.indd", 12), document_}), 1);
    const std::string output = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(Opened(), Starts{"CS6: a.indd"});
    EXPECT_EQ(output, "Dunvey: \"" + folder_.Path() +
                          "/lost one.indd\" isn't opened: it must be asked in which version. "
                          "No display.\n");
    headless::TheMachine().commandKey = true;
    EXPECT_EQ(Open({document_}), 0) << "the Command key alone needs no chooser";
    EXPECT_EQ(Opened(), Starts{"CS6: a.indd"});
    Desktop::SetLoader(nullptr);
    InstallDesktop();
}

}  // namespace
}  // namespace dunvey
