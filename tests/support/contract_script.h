#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/check_box.h"
#include "platform/controls/listbox.h"
#include "platform/controls/message_dialog.h"
#include "platform/controls/push_button.h"
#include "platform/controls/window.h"
#include "platform/loop/event_loop.h"
#include "platform/values/exceptions.h"
#include "support/application.h"

/// One script of what a user does and what the program gets, run on each desktop. A test program
/// includes this file once and defines MakeHands.
namespace dunvey::test {

using Step = std::function<void()>;

/// The user of a desktop, who acts on the window in front.
class Hands {
 public:
    virtual ~Hands() = default;

    /// Shows the window, not modally.
    virtual void Show(Window& window) = 0;
    /// Takes the steps once the window is in front, each as an event of its own.
    virtual void WhenShown(Window& window, std::vector<Step> steps) = 0;
    /// Takes the step in the program's next turn (RuntimeBackgroundTask).
    virtual void DuringTurn(Step step) = 0;
    /// Presses the action button of the dialog with this message, a sheet of the window.
    virtual void AnswerSheet(Window& window, const std::string& message) = 0;

    virtual void Press(PushButton& button) = 0;
    virtual void Return(Window& window) = 0;
    virtual void Escape(Window& window) = 0;
    /// -1: the area without rows.
    virtual void Select(Listbox& list, int64_t row) = 0;
    /// Moves the selection a row down by the keyboard.
    virtual void SelectNext(Listbox& list) = 0;
    virtual void DoubleClick(Listbox& list, int64_t row) = 0;
    virtual void Toggle(CheckBox& box) = 0;
    virtual void Resize(Window& window, Size size) = 0;
    virtual void CloseByTheDesktop(Window& window) = 0;

    // What the user sees.
    virtual bool IsOnScreen(Window& window) = 0;
    virtual int64_t ShownSelection(Listbox& list) = 0;
    virtual bool ShownValue(CheckBox& box) = 0;
    virtual Bounds ShownPlace(RectControl& control) = 0;
};

/// A window that logs its events.
class SmallWindow final : public Window {
 public:
    SmallWindow(std::string title, std::string& events) : Window({300, 240}), log(events) {
        SetTitle(title);
        SetMinWidth(300);
        SetMinHeight(200);
        Resizeable = true;
        Place(list, "list", {10, 10, 280, 150}, {true, true, true, true});
        Place(box, "box", {10, 170, 280, 20}, {true, false, false, true});
        Place(first, "first", {10, 200, 80, 20}, {true, false, false, true});
        Place(other, "other", {100, 200, 80, 20}, {false, false, true, true});
        Place(cancel, "cancel", {200, 200, 80, 20}, {false, false, true, true});
        first->SetDefault(true);
        cancel->SetCancel(true);
        for (const auto& button : {first, other})
            button->Action = [this](PushButton& pressed) { log += pressed.Name() + " "; };
        cancel->Action = [this](PushButton&) {
            log += "cancel ";
            Close();
        };
        box->Action = [this](CheckBox& changed) { log += changed.Value() ? "on " : "off "; };
        for (const char* text : {"c", "a", "b"})
            list->AddRow(text);
        list->Change = [this](Listbox&) { log += std::to_string(list->ListIndex()) + " "; };
        list->DoubleClickHandler = [this](Listbox&) { log += "double "; };
    }
    void Event_Close() override { log += "closed "; }

    std::string& log;
    const Ref<Listbox> list = New<Listbox>();
    const Ref<CheckBox> box = New<CheckBox>();
    const Ref<PushButton> first = New<PushButton>();
    const Ref<PushButton> other = New<PushButton>();
    const Ref<PushButton> cancel = New<PushButton>();

 private:
    void Place(const Ref<RectControl>& control, const char* name, const Bounds& place,
               const Locks& locks) {
        control->SetName(name);
        control->SetDesign(place, locks);
        control->SetTabIndex(static_cast<int64_t>(Controls().size()));
        Add(control);
    }
};

/// Makes the hands of the desktop that the test program installs. Defined by the program.
std::unique_ptr<Hands> MakeHands();

class ContractTest : public ::testing::Test {
 protected:
    ContractTest() { Application::Register(app_); }
    ~ContractTest() override { Application::Register(nullptr); }
    void SetUp() override { user_->Show(w_); }
    void TearDown() override {
        w_.Close();
        EXPECT_FALSE(user_->IsOnScreen(w_));
    }

    Ref<SmallWindow> NewWindow(const char* title) { return New<SmallWindow>(title, log_); }
    /// Shows the window modally while the user takes the steps, which close it.
    void ShowModal(Window& window, std::vector<Step> steps) {
        user_->WhenShown(window, std::move(steps));
        window.ShowModal();
        EXPECT_FALSE(user_->IsOnScreen(window));
    }
    /// Runs the application, which calls `ask` for a document; returns the exit code.
    int Run(const std::function<void()>& ask) {
        app_->ask = ask;
        loop_.PostOpenDocument(New<FolderItem>("/ask"));
        return loop_.Run(*app_);
    }

    EventLoop loop_;
    std::unique_ptr<Hands> user_ = MakeHands();
    Ref<LogApplication> app_ = New<LogApplication>();
    std::string& log_ = app_->log;
    const Ref<SmallWindow> window_ = NewWindow("small");
    SmallWindow& w_ = *window_;
};

TEST_F(ContractTest, OnlyAnEnabledButtonCanBePressed) {
    w_.other->SetEnabled(false);
    user_->Press(*w_.other);
    w_.other->SetEnabled(true);
    user_->Press(*w_.other);
    EXPECT_EQ(log_, "other ");
}

TEST_F(ContractTest, ReturnInAListOrCheckBoxPressesTheDefaultButton) {
    user_->Return(w_);
    user_->Toggle(*w_.box);
    user_->Return(w_);
    w_.first->SetEnabled(false);
    user_->Return(w_);
    w_.first->SetDefault(false);
    w_.other->SetDefault(true);
    user_->Return(w_);
    EXPECT_EQ(log_, "first on first other ");
}

TEST_F(ContractTest, EscapeAndTheDesktopsClosePressTheCancelButton) {
    user_->Escape(w_);
    EXPECT_EQ(log_, "cancel closed ");
    const Ref<SmallWindow> second = NewWindow("second");
    ShowModal(*second, {[&] { user_->CloseByTheDesktop(*second); }});
    EXPECT_EQ(log_, "cancel closed cancel closed ");
    const Ref<SmallWindow> third = NewWindow("third");
    third->cancel->SetEnabled(false);
    ShowModal(*third, {[&] { user_->Escape(*third); }, [&] { user_->CloseByTheDesktop(*third); }});
    EXPECT_EQ(log_, "cancel closed cancel closed closed ");
}

TEST_F(ContractTest, TheUserSelectsRows) {
    user_->Select(*w_.list, 1);
    user_->Select(*w_.list, 1);
    user_->SelectNext(*w_.list);
    user_->Select(*w_.list, -1);
    EXPECT_EQ(user_->ShownSelection(*w_.list), -1);
    user_->DoubleClick(*w_.list, 0);
    EXPECT_EQ(log_, "1 2 -1 0 double ");
}

TEST_F(ContractTest, CodeSelectsAlsoInsideChange) {
    for (const int row : {2, 2, 99})
        w_.list->SetListIndex(row);
    EXPECT_EQ(user_->ShownSelection(*w_.list), -1);
    w_.list->Change = [&](Listbox& list) {
        log_ += std::to_string(list.ListIndex()) + " ";
        if (list.ListIndex() == 1) list.SetListIndex(2);
    };
    // Twice: the view must not treat the row as still selected.
    for (int time = 0; time < 2; ++time) {
        user_->Select(*w_.list, 1);
        EXPECT_EQ(user_->ShownSelection(*w_.list), 2);
    }
    EXPECT_EQ(log_, "2 2 -1 1 2 1 2 ");
}

TEST_F(ContractTest, RowsAreAddedRemovedAndSortedUnderASelection) {
    user_->Select(*w_.list, 2);
    w_.list->AddRow("d");
    EXPECT_EQ(user_->ShownSelection(*w_.list), 2);
    user_->Select(*w_.list, 0);
    w_.list->SetColumnSortDirection(0, Listbox::kSortAscending);
    w_.list->Sort();
    EXPECT_EQ(user_->ShownSelection(*w_.list), 2);
    EXPECT_EQ(w_.list->Cell(1, 0), "b");
    w_.list->DeleteAllRows();
    for (int row = 0; row < 4; ++row)
        w_.list->AddRow("new");
    EXPECT_EQ(user_->ShownSelection(*w_.list), -1);
    w_.list->Change = [&](Listbox& list) {
        log_ += std::to_string(list.ListIndex()) + " ";
        if (list.ListCount() > 1) list.DeleteAllRows();
    };
    user_->Select(*w_.list, 3);
    w_.list->AddRow("new");
    user_->Select(*w_.list, 0);
    EXPECT_EQ(log_, "2 0 -1 3 -1 0 ");
}

TEST_F(ContractTest, ACheckBoxHasItsNewValueWhenItFires) {
    user_->Toggle(*w_.box);
    w_.box->SetValue(false);
    EXPECT_FALSE(user_->ShownValue(*w_.box));
    user_->Toggle(*w_.box);
    user_->Toggle(*w_.box);
    w_.box->Action = [](CheckBox& box) { box.SetValue(false); };
    user_->Toggle(*w_.box);
    EXPECT_FALSE(user_->ShownValue(*w_.box)) << "the handler took the change back";
    EXPECT_EQ(log_, "on on off ");
}

TEST_F(ContractTest, ControlsFollowTheWindow) {
    EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 280, 150}));
    user_->Resize(w_, {400, 250});
    EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 380, 160}));
    EXPECT_EQ(user_->ShownPlace(*w_.cancel), (Bounds{300, 210, 80, 20}));
    user_->Resize(w_, {100, 100});
    EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 280, 110}));
    w_.SetHeight(300);
    EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 280, 210}));
}

TEST_F(ContractTest, AHandlerMayCloseItsWindow) {
    w_.other->Action = [&](PushButton&) {
        w_.Close();
        EXPECT_FALSE(user_->IsOnScreen(w_));
        log_ += "goes on ";
    };
    user_->Press(*w_.other);
    w_.ShowModal();
    EXPECT_EQ(log_, "closed goes on ") << "it is shown once";
}

TEST_F(ContractTest, ATurnInsideAHandlerMayBringThePressThatClosesTheWindow) {
    w_.first->Action = [&](PushButton&) {
        user_->DuringTurn([&] { user_->Press(*w_.cancel); });
        while (!w_.IsClosed())
            RuntimeBackgroundTask();
        log_ += "ends ";
    };
    user_->Press(*w_.first);
    EXPECT_EQ(log_, "cancel closed ends ");
}

TEST_F(ContractTest, AnExceptionInAHandlerComesOutOfTheTurnOrShowModal) {
    const Ref<SmallWindow> modal = NewWindow("modal");
    modal->other->Action = [](PushButton&) { throw IOException("lost"); };
    modal->first->Action = [&](PushButton&) {
        user_->DuringTurn([&] { user_->Press(*modal->other); });
        try {
            for (;;)
                RuntimeBackgroundTask();
        } catch (const IOException&) {
            log_ += "caught ";
        }
    };
    EXPECT_THROW(ShowModal(*modal, {[&] { user_->Press(*modal->first); },
                                    [&] { user_->Press(*modal->other); }}),
                 IOException);
    EXPECT_EQ(log_, "caught ");
    EXPECT_FALSE(user_->IsOnScreen(*modal));
}

TEST_F(ContractTest, QuitUnwindsTwoNestedWindows) {
    struct Witness {
        std::string& log;
        ~Witness() { log += "unwound "; }
    };
    const Ref<SmallWindow> outer = NewWindow("outer");
    const Ref<SmallWindow> inner = NewWindow("inner");
    inner->other->Action = [](PushButton&) { Quit(7); };
    outer->other->Action = [&](PushButton&) {
        const Witness witness{log_};
        ShowModal(*inner, {[&] { user_->Press(*inner->other); }});
        log_ += "never ";
    };
    const int exitCode = Run([&] {
        const Witness witness{log_};
        ShowModal(*outer, {[&] { user_->Press(*outer->other); }});
        log_ += "never ";
    });
    EXPECT_EQ(exitCode, 7);
    EXPECT_EQ(log_, "ask close unwound unwound ");
    EXPECT_FALSE(user_->IsOnScreen(*outer) || user_->IsOnScreen(*inner));
}

TEST_F(ContractTest, ADocumentArrivesInsideAModalWindow) {
    const Ref<SmallWindow> modal = NewWindow("modal");
    const int exitCode = Run([&] {
        ShowModal(*modal, {[&] { loop_.PostOpenDocument(New<FolderItem>("/late")); },
                           [&] { user_->Press(*modal->other); }, [&] { modal->Close(); }});
        Quit(0);
    });
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(log_, "ask late other closed close ");
}

TEST_F(ContractTest, AMessageIsASheetOfItsWindow) {
    w_.other->Action = [&](PushButton&) {
        user_->AnswerSheet(w_, "sure?");
        MessageDialog dialog;
        dialog.Message = "sure?";
        EXPECT_EQ(dialog.ShowModalWithin(&w_), dialog.ActionButton);
        log_ += "answered ";
    };
    user_->Press(*w_.other);
    user_->Press(*w_.first);
    EXPECT_EQ(log_, "answered first ");
}

}  // namespace dunvey::test
