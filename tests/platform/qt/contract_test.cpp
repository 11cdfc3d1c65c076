#include <QAbstractButton>
#include <QTableView>

#include "platform/controls/message_dialog.h"
#include "platform/values/exceptions.h"
#include "qt_test.h"

// What a user does with keys and a mouse, and what the program gets.
namespace dunvey::test {
namespace {

using Step = Steps::Step;

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

class ContractTest : public QtTest {
 protected:
    void SetUp() override { Open(w_); }
    void TearDown() override {
        w_.Close();
        EXPECT_FALSE(IsOnScreen(w_));
    }

    Ref<SmallWindow> NewWindow(const char* title) { return New<SmallWindow>(title, log_); }
    /// Shows the window modally while the user takes the steps, each as an event of its own; they
    /// close it.
    void ShowModal(Window& window, const std::vector<Step>& steps) {
        const auto isInFront = [&window] {
            return IsOnScreen(window) && WindowWidget::Of(&window)->isActiveWindow();
        };
        steps_.When(isInFront, steps);
        window.ShowModal();
        EXPECT_FALSE(IsOnScreen(window));
    }
    /// Runs the application, which calls `ask` for a document; returns the exit code.
    int Run(const Step& ask) {
        app_->ask = ask;
        loop_.PostOpenDocument(New<FolderItem>("/ask"));
        return loop_.Run(*app_);
    }

    void Press(PushButton& button) { QTest::mouseClick(&Widget(button), Qt::LeftButton); }
    /// -1: the area without rows.
    void Select(int row) { QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, PlaceOf(row)); }
    void DoubleClick(int row) {
        Select(row);
        QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, PlaceOf(row));
    }
    void Toggle(CheckBox& box) {
        Widget(box).setFocus();
        QTest::keyClick(&Widget(box), Qt::Key_Space);
    }

    static bool IsOnScreen(Window& window) {
        const QWidget* widget = WindowWidget::Of(&window);
        return widget != nullptr && widget->isVisible();
    }
    int ShownSelection() {
        const QModelIndexList rows = View().selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }
    bool ShownValue(CheckBox& box) {
        return qobject_cast<QAbstractButton*>(&Widget(box))->isChecked();
    }

    /// The widget of the control in the window in front.
    QWidget& Widget(const RectControl& control) {
        RunEvents();
        const QWidget* modal = QApplication::activeModalWidget();
        const QWidget* front = modal != nullptr ? modal : &Shown();
        return *front->findChild<QWidget*>(QString::fromStdString(control.Name()));
    }
    QTableView& View() { return *qobject_cast<QTableView*>(&Widget(*w_.list)); }
    QPoint PlaceOf(int row) {
        const QTableView& view = View();
        if (row == -1) return view.viewport()->rect().bottomLeft() + QPoint(5, -5);
        return view.visualRect(view.model()->index(row, 0)).center();
    }

    std::string& log_ = app_->log;
    const Ref<SmallWindow> window_ = NewWindow("small");
    SmallWindow& w_ = *window_;
};

TEST_F(ContractTest, OnlyAnEnabledButtonCanBePressed) {
    w_.other->SetEnabled(false);
    Press(*w_.other);
    w_.other->SetEnabled(true);
    Press(*w_.other);
    EXPECT_EQ(log_, "other ");
}

TEST_F(ContractTest, EscapeAndTheDesktopsClosePressTheCancelButton) {
    Key(Qt::Key_Escape);
    EXPECT_EQ(log_, "cancel closed ");
    const Ref<SmallWindow> second = NewWindow("second");
    ShowModal(*second, {[&] { WindowWidget::Of(second.Get())->close(); }});
    EXPECT_EQ(log_, "cancel closed cancel closed ");
    const Ref<SmallWindow> third = NewWindow("third");
    third->cancel->SetEnabled(false);
    ShowModal(*third,
              {[&] { Key(Qt::Key_Escape); }, [&] { WindowWidget::Of(third.Get())->close(); }});
    EXPECT_EQ(log_, "cancel closed cancel closed closed ");
}

TEST_F(ContractTest, TheUserSelectsRows) {
    Select(1);
    Select(1);
    Key(Qt::Key_Down);
    Select(-1);
    EXPECT_EQ(ShownSelection(), -1);
    DoubleClick(0);
    EXPECT_EQ(log_, "1 2 -1 0 double ");
}

TEST_F(ContractTest, CodeSelectsAlsoInsideChange) {
    for (const int row : {2, 2, 99})
        w_.list->SetListIndex(row);
    EXPECT_EQ(ShownSelection(), -1);
    w_.list->Change = [&](Listbox& list) {
        log_ += std::to_string(list.ListIndex()) + " ";
        if (list.ListIndex() == 1) list.SetListIndex(2);
    };
    // Twice: the view must not treat the row as still selected.
    for (int time = 0; time < 2; ++time) {
        Select(1);
        EXPECT_EQ(ShownSelection(), 2);
    }
    EXPECT_EQ(log_, "2 2 -1 1 2 1 2 ");
}

TEST_F(ContractTest, RowsAreAddedRemovedAndSortedUnderASelection) {
    Select(2);
    w_.list->AddRow("d");
    EXPECT_EQ(ShownSelection(), 2);
    Select(0);
    w_.list->SetColumnSortDirection(0, Listbox::kSortAscending);
    w_.list->Sort();
    EXPECT_EQ(ShownSelection(), 2);
    EXPECT_EQ(w_.list->Cell(1, 0), "b");
    w_.list->DeleteAllRows();
    for (int row = 0; row < 4; ++row)
        w_.list->AddRow("new");
    EXPECT_EQ(ShownSelection(), -1);
    w_.list->Change = [&](Listbox& list) {
        log_ += std::to_string(list.ListIndex()) + " ";
        if (list.ListCount() > 1) list.DeleteAllRows();
    };
    Select(3);
    w_.list->AddRow("new");
    Select(0);
    EXPECT_EQ(log_, "2 0 -1 3 -1 0 ");
}

TEST_F(ContractTest, ACheckBoxHasItsNewValueWhenItFires) {
    Toggle(*w_.box);
    w_.box->SetValue(false);
    EXPECT_FALSE(ShownValue(*w_.box));
    Toggle(*w_.box);
    Toggle(*w_.box);
    w_.box->Action = [](CheckBox& box) { box.SetValue(false); };
    Toggle(*w_.box);
    EXPECT_FALSE(ShownValue(*w_.box)) << "the handler took the change back";
    EXPECT_EQ(log_, "on on off ");
}

TEST_F(ContractTest, ControlsFollowTheWindow) {
    EXPECT_EQ(Widget(*w_.list).geometry(), QRect(10, 10, 280, 150));
    Shown().resize(400, 250);
    EXPECT_EQ(Widget(*w_.list).geometry(), QRect(10, 10, 380, 160));
    EXPECT_EQ(Widget(*w_.cancel).geometry(), QRect(300, 210, 80, 20));
    Shown().resize(100, 100);
    EXPECT_EQ(Widget(*w_.list).geometry(), QRect(10, 10, 280, 110));
    w_.SetHeight(300);
    EXPECT_EQ(Widget(*w_.list).geometry(), QRect(10, 10, 280, 210));
}

TEST_F(ContractTest, AnExceptionInAHandlerComesOutOfTheTurnOrShowModal) {
    const Ref<SmallWindow> modal = NewWindow("modal");
    modal->other->Action = [](PushButton&) { throw IOException("lost"); };
    modal->first->Action = [&](PushButton&) {
        steps_.Soon([&] { Press(*modal->other); });
        try {
            for (;;)
                RuntimeBackgroundTask();
        } catch (const IOException&) {
            log_ += "caught ";
        }
    };
    EXPECT_THROW(ShowModal(*modal, {[&] { Press(*modal->first); }, [&] { Press(*modal->other); }}),
                 IOException);
    EXPECT_EQ(log_, "caught ");
    EXPECT_FALSE(IsOnScreen(*modal));
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
        ShowModal(*inner, {[&] { Press(*inner->other); }});
        log_ += "never ";
    };
    const int exitCode = Run([&] {
        const Witness witness{log_};
        ShowModal(*outer, {[&] { Press(*outer->other); }});
        log_ += "never ";
    });
    EXPECT_EQ(exitCode, 7);
    EXPECT_EQ(log_, "ask close unwound unwound ");
    EXPECT_FALSE(IsOnScreen(*outer) || IsOnScreen(*inner));
}

TEST_F(ContractTest, ADocumentArrivesInsideAModalWindow) {
    const Ref<SmallWindow> modal = NewWindow("modal");
    const int exitCode = Run([&] {
        ShowModal(*modal, {[&] { loop_.PostOpenDocument(New<FolderItem>("/late")); },
                           [&] { Press(*modal->other); }, [&] { modal->Close(); }});
        Quit(0);
    });
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(log_, "ask late other closed close ");
}

TEST_F(ContractTest, AMessageIsASheetOfItsWindow) {
    w_.other->Action = [&](PushButton&) {
        AtBox([this] {
            EXPECT_EQ(Box()->parentWidget(), &Shown());
            EXPECT_EQ(Box()->text(), "sure?");
            Key(Qt::Key_Return);
        });
        MessageDialog dialog;
        dialog.Message = "sure?";
        EXPECT_EQ(dialog.ShowModalWithin(&w_), dialog.ActionButton);
        log_ += "answered ";
    };
    Press(*w_.other);
    Press(*w_.first);
    EXPECT_EQ(log_, "answered first ");
}

}  // namespace
}  // namespace dunvey::test
