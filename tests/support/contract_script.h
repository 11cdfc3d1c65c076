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
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/values/exceptions.h"

/// One script of what a user does and what the program gets, run on each desktop. A test program
/// includes this file once and instantiates ContractTest with its implementation of Hands.
namespace dunvey::test {

using Step = std::function<void()>;

/// The user of a desktop, who acts on the window in front.
class Hands {
 public:
    virtual ~Hands() = default;

    /// Takes the steps as soon as the window is in front, each as an event of its own.
    virtual void WhenShown(Window& window, std::vector<Step> steps) = 0;
    /// Takes the step in the program's next turn (RuntimeBackgroundTask).
    virtual void DuringTurn(Step step) = 0;
    /// Answers the dialog with this message, a sheet of the window, with its action button.
    virtual void AnswerSheet(Window& window, const std::string& message) = 0;

    virtual void Press(PushButton& button) = 0;
    /// Tries to press a disabled button.
    virtual void PressInVain(PushButton& button) = 0;
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
    virtual int64_t ShownRows(Listbox& list) = 0;
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

struct HandsOf {
    const char* desktop;
    std::unique_ptr<Hands> (*make)();
    friend void PrintTo(const HandsOf& hands, std::ostream* out) { *out << hands.desktop; }
};

class ContractTest : public ::testing::TestWithParam<HandsOf> {
 protected:
    class Recorder final : public Application {
     public:
        explicit Recorder(std::string& events) : log(events) {}
        void Event_Close() override { log += "quit "; }
        void Event_OpenDocument(const Ref<FolderItem>& document) override {
            log += document->Name() + " ";
            if (document->Name() == "ask") ask();
        }
        std::string& log;
        std::function<void()> ask = [] {};
    };

    ContractTest() { Application::Register(app_); }
    ~ContractTest() override { Application::Register(nullptr); }

    /// Shows the window while the user takes the steps, of which one closes it.
    void ShowUntilClosed(Window& window, std::vector<Step> steps) {
        user_->WhenShown(window, std::move(steps));
        window.ShowModal();
        EXPECT_FALSE(user_->IsOnScreen(window));
    }
    /// Shows the window while the user takes the steps, and closes it.
    void Show(Window& window, std::vector<Step> steps) {
        steps.emplace_back([&window] { window.Close(); });
        ShowUntilClosed(window, std::move(steps));
    }
    /// Runs the application, which calls `ask` for a document; returns the exit code.
    int Run(const std::function<void()>& ask) {
        app_->ask = ask;
        loop_.PostOpenDocument(New<FolderItem>("/ask"));
        return loop_.Run(*app_);
    }

    EventLoop loop_;
    std::unique_ptr<Hands> user_ = GetParam().make();
    std::string log_;
    Ref<Recorder> app_ = New<Recorder>(log_);
    const Ref<SmallWindow> window_ = New<SmallWindow>("small", log_);
    SmallWindow& w_ = *window_;
    const Ref<SmallWindow> inner_ = New<SmallWindow>("inner", log_);
};

TEST_P(ContractTest, OnlyAnEnabledButtonCanBePressed) {
    w_.other->SetEnabled(false);
    Show(w_, {[&] { user_->PressInVain(*w_.other); }, [&] { w_.other->SetEnabled(true); },
              [&] { user_->Press(*w_.other); }});
    EXPECT_EQ(log_, "other closed ");
}

TEST_P(ContractTest, ReturnInAListOrCheckBoxPressesTheDefaultButton) {
    Show(w_,
         {[&] { user_->Return(w_); }, [&] { user_->Toggle(*w_.box); }, [&] { user_->Return(w_); },
          [&] { w_.first->SetEnabled(false); }, [&] { user_->Return(w_); },
          [&] {
              w_.first->SetDefault(false);
              w_.other->SetDefault(true);
          },
          [&] { user_->Return(w_); }});
    EXPECT_EQ(log_, "first on first other closed ");
}

TEST_P(ContractTest, EscapeAndTheDesktopsClosePressTheCancelButton) {
    ShowUntilClosed(w_, {[&] { user_->Escape(w_); }});
    EXPECT_EQ(log_, "cancel closed ");
    ShowUntilClosed(*inner_, {[&] { user_->CloseByTheDesktop(*inner_); }});
    EXPECT_EQ(log_, "cancel closed cancel closed ");
    const Ref<SmallWindow> third = New<SmallWindow>("third", log_);
    third->cancel->SetEnabled(false);
    ShowUntilClosed(*third,
                    {[&] { user_->Escape(*third); }, [&] { user_->CloseByTheDesktop(*third); }});
    EXPECT_EQ(log_, "cancel closed cancel closed closed ");
}

TEST_P(ContractTest, TheUserSelectsRows) {
    Show(w_, {[&] { user_->Select(*w_.list, 1); }, [&] { user_->Select(*w_.list, 1); },
              [&] { user_->SelectNext(*w_.list); }, [&] { user_->Select(*w_.list, -1); },
              [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), -1); },
              [&] { user_->DoubleClick(*w_.list, 0); }});
    EXPECT_EQ(log_, "1 2 -1 0 double closed ");
}

TEST_P(ContractTest, CodeMaySelectInsideChange) {
    w_.list->Change = [&](Listbox& list) {
        log_ += std::to_string(list.ListIndex()) + " ";
        if (list.ListIndex() == 1) list.SetListIndex(2);
    };
    Show(w_, {[&] { user_->Select(*w_.list, 1); },
              [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), 2); },
              // Again: the view must not treat the row as still selected.
              [&] { user_->Select(*w_.list, 1); },
              [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), 2); }});
    EXPECT_EQ(log_, "1 2 1 2 closed ");
}

TEST_P(ContractTest, WhatCodeSelectsIsShownAndFiresEvenTheSameRow) {
    w_.list->SetListIndex(2);
    Show(w_,
         {[&] { EXPECT_EQ(user_->ShownSelection(*w_.list), 2); },
          [&] { w_.list->SetListIndex(w_.list->ListIndex()); }, [&] { w_.list->SetListIndex(99); },
          [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), -1); }});
    EXPECT_EQ(log_, "2 2 -1 closed ");
}

TEST_P(ContractTest, RowsComeAndGoUnderASelection) {
    Show(w_, {[&] { user_->Select(*w_.list, 2); }, [&] { w_.list->AddRow("d"); },
              [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), 2); },
              [&] { user_->Select(*w_.list, 3); }, [&] { w_.list->DeleteAllRows(); },
              [&] {
                  EXPECT_EQ(user_->ShownRows(*w_.list), 0);
                  for (int row = 0; row < 4; ++row)
                      w_.list->AddRow("new");
              },
              [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), -1); },
              [&] { user_->Select(*w_.list, 3); }});
    EXPECT_EQ(log_, "2 3 -1 3 closed ");
}

TEST_P(ContractTest, ChangeMayThrowTheRowsAway) {
    w_.list->Change = [&](Listbox& list) {
        log_ += std::to_string(list.ListIndex()) + " ";
        if (list.ListCount() > 1) list.DeleteAllRows();
    };
    Show(w_, {[&] { user_->Select(*w_.list, 2); }, [&] { w_.list->AddRow("new"); },
              [&] { user_->Select(*w_.list, 0); }});
    EXPECT_EQ(log_, "2 -1 0 closed ");
}

TEST_P(ContractTest, SortingKeepsTheRowSelectedAndFiresNothing) {
    w_.list->SetColumnSortDirection(0, Listbox::kSortAscending);
    Show(w_, {[&] { user_->Select(*w_.list, 0); }, [&] { w_.list->Sort(); },
              [&] { EXPECT_EQ(user_->ShownSelection(*w_.list), 2); },
              [&] { user_->Select(*w_.list, 1); }});
    EXPECT_EQ(w_.list->Cell(1, 0), "b");
    EXPECT_EQ(log_, "0 1 closed ");
}

TEST_P(ContractTest, ACheckBoxHasItsNewValueWhenItFires) {
    Show(w_, {[&] { user_->Toggle(*w_.box); }, [&] { w_.box->SetValue(false); },
              [&] { EXPECT_FALSE(user_->ShownValue(*w_.box)); }, [&] { user_->Toggle(*w_.box); },
              [&] { user_->Toggle(*w_.box); },
              // A handler that takes the change back has the last word.
              [&] { w_.box->Action = [](CheckBox& box) { box.SetValue(false); }; },
              [&] { user_->Toggle(*w_.box); }, [&] { EXPECT_FALSE(user_->ShownValue(*w_.box)); }});
    EXPECT_EQ(log_, "on on off closed ");
}

TEST_P(ContractTest, ControlsFollowTheWindow) {
    Show(w_, {[&] {
                  EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 280, 150}));
                  user_->Resize(w_, {400, 250});
              },
              [&] {
                  EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 380, 160}));
                  EXPECT_EQ(user_->ShownPlace(*w_.first), (Bounds{10, 210, 80, 20}));
                  EXPECT_EQ(user_->ShownPlace(*w_.cancel), (Bounds{300, 210, 80, 20}));
                  user_->Resize(w_, {100, 100});
              },
              [&] {
                  EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 280, 110}));
                  w_.SetHeight(300);
              },
              [&] {
                  EXPECT_EQ(user_->ShownPlace(*w_.list), (Bounds{10, 10, 280, 210}));
              }});
}

TEST_P(ContractTest, AHandlerMayCloseItsWindow) {
    w_.other->Action = [&](PushButton&) {
        w_.Close();
        EXPECT_FALSE(user_->IsOnScreen(w_));
        log_ += "goes on ";
    };
    ShowUntilClosed(w_, {[&] { user_->Press(*w_.other); }});
    EXPECT_EQ(log_, "closed goes on ");
    w_.ShowModal();
    EXPECT_EQ(log_, "closed goes on ") << "it is shown once";
}

TEST_P(ContractTest, ATurnInsideAHandlerMayBringThePressThatClosesTheWindow) {
    w_.first->Action = [&](PushButton&) {
        log_ += "begins ";
        user_->DuringTurn([&] { user_->Press(*w_.cancel); });
        while (!w_.IsClosed())
            RuntimeBackgroundTask();
        log_ += "ends ";
    };
    ShowUntilClosed(w_, {[&] { user_->Press(*w_.first); }});
    EXPECT_EQ(log_, "begins cancel closed ends ");
}

TEST_P(ContractTest, AnExceptionInAHandlerComesOutOfTheTurnOrShowModal) {
    w_.other->Action = [](PushButton&) { throw IOException("lost"); };
    w_.first->Action = [&](PushButton&) {
        user_->DuringTurn([&] { user_->Press(*w_.other); });
        try {
            for (;;)
                RuntimeBackgroundTask();
        } catch (const IOException&) {
            log_ += "caught ";
        }
    };
    user_->WhenShown(w_, {[&] { user_->Press(*w_.first); }, [&] { user_->Press(*w_.other); }});
    EXPECT_THROW(w_.ShowModal(), IOException);
    EXPECT_EQ(log_, "caught ");
    EXPECT_FALSE(user_->IsOnScreen(w_));
}

TEST_P(ContractTest, QuitUnwindsTwoNestedWindows) {
    struct Witness {
        std::string& log;
        ~Witness() { log += "unwound "; }
    };
    inner_->other->Action = [](PushButton&) { Quit(7); };
    w_.other->Action = [&](PushButton&) {
        const Witness inside{log_};
        ShowUntilClosed(*inner_, {[&] { user_->Press(*inner_->other); }});
        log_ += "never ";
    };
    const int exitCode = Run([&] {
        const Witness outside{log_};
        ShowUntilClosed(w_, {[&] { user_->Press(*w_.other); }});
        log_ += "never ";
    });
    EXPECT_EQ(exitCode, 7);
    EXPECT_EQ(log_, "ask quit unwound unwound ");
    EXPECT_FALSE(user_->IsOnScreen(w_) || user_->IsOnScreen(*inner_));
}

TEST_P(ContractTest, ADocumentArrivesInsideAModalWindow) {
    const int exitCode = Run([&] {
        Show(w_, {[&] { loop_.PostOpenDocument(New<FolderItem>("/late")); },
                  [&] { user_->Press(*w_.other); }});
        Quit(0);
    });
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(log_, "ask late other closed quit ");
}

TEST_P(ContractTest, AMessageIsASheetOfItsWindow) {
    w_.other->Action = [&](PushButton&) {
        user_->AnswerSheet(w_, "sure?");
        MessageDialog dialog;
        dialog.Message = "sure?";
        EXPECT_EQ(dialog.ShowModalWithin(&w_), dialog.ActionButton);
        log_ += "answered ";
    };
    Show(w_, {[&] { user_->Press(*w_.other); }, [&] { user_->Press(*w_.first); }});
    EXPECT_EQ(log_, "answered first closed ");
}

}  // namespace dunvey::test
