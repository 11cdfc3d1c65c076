#include <gtest/gtest.h>

#include "chooser/chooser.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

using test::Chooser;

class ChooserActions : public Chooser {
 protected:
    ChooserActions() { InstallOnly({{"CS5", "7.0.4"}, {"CS6", "8.1.0"}, {"CC", "9.0.0"}}); }

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
    void QuitRow(Window1& window, int64_t row) {
        user_->Select(*window.AppList(), -1);
        user_->Select(*window.AppList(), row);
        user_->Press(*window.PushButton3());
    }

    const Step return_ = [this](Window1& window) { EXPECT_TRUE(user_->Return(window)); };
    const Step escape_ = [this](Window1& window) { EXPECT_TRUE(user_->Escape(window)); };
    const Ref<FolderItem> document_ = Document("a.indd", 8);
};

TEST_F(ChooserActions, TheDesktopsCloseCancelsAndTheMenusCloseKeepsTheSelection) {
    commandKey_ = true;
    Expect({[this](Window1& window) { user_->CloseByTheDesktop(window); }});
    Open({document_});
    EXPECT_EQ(Opened(), Texts{});
    Expect({[](Window1& window) { window.perform(Selector("performClose:"), nullptr); }});
    Open({document_});
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
}

TEST_F(ChooserActions, ADoubleClickOpensOnlyWhatTheOpenButtonOpens) {
    Expect({DoubleClick(0), DoubleClick(2)});
    Open({Document("b.indd", 7, 5)});
    EXPECT_EQ(Opened(), Texts{"CC: b.indd"});
}

TEST_F(ChooserActions, WarnsOfAnotherRunningVersionUnlessTheChosenOneRuns) {
    Running({"CC"});
    Expect({return_, escape_});
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
    EXPECT_EQ(Opened(), Texts{});
    EXPECT_EQ(user_->timesInFront(), 1);
    Running({"CC", "CS6"});
    commandKey_ = true;
    Expect({return_});
    Open({document_});
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
}

TEST_F(ChooserActions, QuittingTheOtherVersionUpdatesTheChooserAndCountsForTheRestOfTheRun) {
    Running({"CC"});
    AfterQuit({});
    Expect({[&](Window1& window) {
                QuitRow(window, 2);
                EXPECT_EQ(Column(window, 2), (Texts{"", "", ""}));
                EXPECT_FALSE(window.Canvas2()->Backdrop());
                EXPECT_EQ(window.LabelMsg()->Text(), "");
                EXPECT_EQ(window.AppList()->ListIndex(), 0);
                EXPECT_FALSE(window.PushButton3()->Enabled());
            },
            return_});
    Open({Document("b.indd", 7), document_});
    EXPECT_EQ(Opened(), (Texts{"CS5: b.indd", "CS6: a.indd"}));
    const std::string script = "on run {AppPath}\nquit application AppPath\ndelay 1\nend run";
    EXPECT_EQ(QuitCalls(), (std::vector<Texts>{{"-e", script, AppPath("CC")}}));
}

TEST_F(ChooserActions, AQuitRequestIsRepeatedUntilEscapeOrTheEndOfTheProgram) {
    Running({"CC"});
    for (const bool isEscape : {true, false}) {
        Expect({[&](Window1& window) {
            AfterRequests(2, [&] {
                EXPECT_FALSE(window.PushButton3()->Enabled());
                EXPECT_TRUE(window.Busy());
                EXPECT_EQ(window.AppList()->Note(),
                          "Waiting for CC to quit. Escape leaves the document out.");
                isEscape ? escape_(window) : NSApplication::terminate();
            });
            QuitRow(window, 2);
        }});
        EXPECT_EQ(Open({document_}), 0);
        EXPECT_EQ(Opened(), Texts{});
    }
}

TEST_F(ChooserActions, APressDuringAQuitRequestRunsANestedLoop) {
    Running({"CS5", "CC"});
    Look([&](Window1& window) {
        AfterRequests(1, [&] {
            AfterQuit({"CS5"});
            QuitRow(window, 2);
            EXPECT_EQ(Column(window, 2), (Texts{"Booting", "", ""}));
            AfterQuit({});
            QuitRow(window, 0);
            EXPECT_EQ(Column(window, 2), (Texts{"", "", ""}));
            EXPECT_TRUE(window.Busy()) << "the first request still runs";
        });
        QuitRow(window, 2);
        EXPECT_FALSE(window.Busy());
        EXPECT_EQ(window.AppList()->Note(), "");
    });
    EXPECT_EQ(QuitCalls().back().back(), AppPath("CS5"));
}

TEST_F(ChooserActions, TheUserActsWhileTheChooserIsRebuilt) {
    // The rebuild starts when the window is no longer busy.
    std::function<void(Window1&, Step)> duringRebuild = [&](Window1& window, const Step& act) {
        user_->DuringTurn([&, act] { window.Busy() ? duringRebuild(window, act) : act(window); });
    };
    const auto quitAnd = [&](const Step& act) {
        Running({"CC"});
        AfterQuit({});
        return [&, act](Window1& window) {
            duringRebuild(window, act);
            QuitRow(window, 2);
        };
    };
    Expect({quitAnd(escape_)});
    Open({document_});
    EXPECT_EQ(Opened(), Texts{});
    Expect({quitAnd([](Window1& window) { window.ReView(); }),
            [](Window1& window) {
                EXPECT_EQ(Column(window, 1), (Texts{"7.0.4", "8.1.0", "9.0.0"}));
                EXPECT_EQ(window.AppList()->ListIndex(), 1);
            },
            return_});
    Open({document_});
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
}

TEST_F(ChooserActions, ARemovedApplicationIsNeitherOpenedNorQuitAndShowsNoDialog) {
    Running({"CS6", "CC"});
    commandKey_ = true;
    Expect({[this](Window1&) { rename(AppPath("CS6").c_str(), (folder_ / "gone").c_str()); },
            return_, [this](Window1& window) { user_->Press(*window.PushButton3()); }, escape_});
    Open({document_});
    EXPECT_TRUE(QuitCalls().empty());
}

TEST_F(ChooserActions, OneChooserForEachDocumentThenLaunchesInVersionOrder) {
    commandKey_ = true;
    const auto showing = [](const std::string& name) {
        return [name](Window1& window) { EXPECT_EQ(window.LabelFileName()->Text(), name); };
    };
    Expect({showing("low.indd"), [this](Window1& window) { user_->Toggle(*window.CheckBox1()); },
            Select(2), return_});
    Expect({showing("middle.indd"), return_});
    Expect({showing("high.indd"), escape_});
    Open({Document("high.indd", 9), Document("low.indd", 7), Document("middle.indd", 8)});
    EXPECT_EQ(Opened(), (Texts{"CS6: middle.indd", "CC: low.indd"}));
    EXPECT_EQ(App::Instance()->Files.back()->WillUseVer, "9.0");
}

TEST_F(ChooserActions, WithoutADisplayOnlyDocumentsThatNeedAChooserAreLeftOut) {
    Desktop::Install(nullptr);
    Desktop::SetLoader(
        []() -> std::unique_ptr<Desktop> { throw DesktopUnavailableException("No display."); });
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Open({Document("lost one.indd", 12), document_}), 1);
    const std::string output = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
    EXPECT_EQ(output, "Dunvey: \"" + folder_.Path() +
                          "/lost one.indd\" isn't opened: it must be asked in which version. "
                          "No display.\n");
    commandKey_ = true;
    EXPECT_EQ(Open({document_}), 0) << "the Command key alone needs no chooser";
    EXPECT_EQ(Opened(), Texts{"CS6: a.indd"});
    Desktop::SetLoader(nullptr);
    InstallDesktop();
}

}  // namespace
}  // namespace dunvey
