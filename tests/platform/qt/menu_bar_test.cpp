#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTest>

#include "filled_chooser.h"
#include "menus/main_menu_bar.h"
#include "platform/controls/message_dialog.h"
#include "platform/loop/application.h"
#include "platform/qt/qt_menu_bar.h"
#include "platform/qt/qt_window.h"
#include "steps.h"

namespace dunvey::test {
namespace {

class Recorder final : public Application {
 public:
    void Event_Open() override { open(); }
    void Event_Close() override { log += "close "; }
    void Event_OpenDocument(const Ref<FolderItem>&) override {}
    std::function<void()> open = [] {};
    std::string log;
};

class MenuBarTest : public ::testing::Test {
 protected:
    MenuBarTest() {
        Application::Register(app_);
        UseLanguage("C");
    }
    ~MenuBarTest() override {
        unsetenv("LC_ALL");
        Application::Register(nullptr);
    }

    void UseLanguage(const char* locale) {
        setenv("LC_ALL", locale, 1);
        bar_ = New<MainMenuBar>();
        app_->SetMenuBar(bar_);
    }
    /// Shows a window with the menu bar while the user takes the steps, and closes it.
    void Show(Window& window, std::vector<Steps::Step> steps) {
        window.SetMenuBar(bar_);
        steps.emplace_back([&window] {
            if (WindowWidget::Of(&window) != nullptr) WindowWidget::Of(&window)->close();
        });
        steps_.When(
            [&window] {
                const QWidget* widget = WindowWidget::Of(&window);
                return widget != nullptr && widget->isActiveWindow();
            },
            [this, steps] { steps_.Take(steps); });
        window.ShowModal();
    }

    static WindowWidget& Shown() {
        return dynamic_cast<WindowWidget&>(*QApplication::activeModalWidget());
    }
    static QtMenuBar& Bar() { return *dynamic_cast<QtMenuBar*>(Shown().findChild<QMenuBar*>()); }
    /// The menu as the user opens it, in words: each item, its keys and whether it can be chosen.
    static std::string Open(int place) {
        QAction* action = Bar().actions()[place];
        Bar().setActiveAction(action);
        std::string text = action->text().toStdString() + ":";
        for (const QAction* item : action->menu()->actions()) {
            const std::string keys = item->shortcut().toString().toStdString();
            text += item->isSeparator() ? " -" : " " + item->text().toStdString();
            text += keys.empty() ? "" : "(" + keys + ")";
            text += item->isEnabled() ? "" : "!";
        }
        action->menu()->hide();
        return text;
    }
    static QMessageBox* Box() {
        return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    }
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* window = QApplication::activeWindow();
        if (window == nullptr) window = QApplication::activeModalWidget();
        QTest::keyClick(window->focusWidget() != nullptr ? window->focusWidget() : window, key,
                        modifiers);
    }

    EventLoop loop_;
    Steps steps_;
    Ref<Recorder> app_ = New<Recorder>();
    Ref<MenuBar> bar_;
};

TEST_F(MenuBarTest, ShowsItsItemsAndJudgesThemWhenAMenuOpens) {
    FilledChooser window(2);
    bar_->Find("FileAbout")->Action = [] { return true; };
    Show(window, {[] {
             ASSERT_EQ(Bar().actions().size(), 4);
             EXPECT_TRUE(Bar().actions()[0]->menu()->actions().isEmpty()) << "nobody looked yet";
             EXPECT_EQ(Open(0), "&File: Close(Ctrl+W) - Quit(Ctrl+Q)");
             EXPECT_EQ(Open(1),
                       "&Edit: &Undo(Ctrl+Z)! Redo(Ctrl+Shift+Z)! - Cut(Ctrl+X)! "
                       "Copy(Ctrl+C)! Paste(Ctrl+V)! Delete! Select All(Ctrl+A)!");
             EXPECT_EQ(Open(2), "&Window: Minimize(Ctrl+M)! Zoom! - Bring All to Front");
             EXPECT_EQ(Open(3), "&Help: About");
         }});
}

TEST_F(MenuBarTest, StandsAboveTheControlsAndTakesNothingFromThem) {
    FilledChooser window(5);
    Show(window, {[&window] {
             const int bar = Bar().height();
             EXPECT_GT(bar, 15);
             EXPECT_EQ(Shown().size(), QSize(450, 408 + bar));
             EXPECT_EQ(window.Height(), 408);
             QWidget* list = Shown().findChild<QWidget*>("AppList");
             EXPECT_EQ(list->mapTo(&Shown(), QPoint(0, 0)), QPoint(20, 109 + bar));
             EXPECT_EQ(Shown().focusWidget(), list);
             Shown().resize(500, 500 + bar);
             EXPECT_EQ(window.Height(), 500);
             EXPECT_EQ(Bar().width(), 500);
         }});
}

TEST_F(MenuBarTest, TheKeyboardAloneOpensMenus) {
    FilledChooser window(2);
    const auto open = [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        const std::string title = menu != nullptr ? menu->title().toStdString() : "none";
        if (menu != nullptr) menu->hide();
        return title;
    };
    Show(window, {[] { Key(Qt::Key_F10); },
                  [&] {
                      EXPECT_EQ(open(), "&File");
                      Key(Qt::Key_W, Qt::AltModifier);
                  },
                  [&] { EXPECT_EQ(open(), "&Window"); }});
    UseLanguage("ja_JP.UTF-8");
    FilledChooser japanese(2);
    Show(japanese,
         {[] { Key(Qt::Key_H, Qt::AltModifier); }, [&] { EXPECT_EQ(open(), "ヘルプ(&H)"); }});
}

TEST_F(MenuBarTest, ShortcutsAreJudgedWhenTheyArePressed) {
    FilledChooser window(2);
    std::string log;
    bar_->Find("EditCopy")->Action = [&] {
        log += "copy ";
        return true;
    };
    Show(window, {[] { Key(Qt::Key_M, Qt::ControlModifier); },
                  [&] {
                      EXPECT_FALSE(Shown().isMinimized()) << "it has no such button";
                      // An open menu has disabled what can't be chosen now; that doesn't last.
                      bar_->Find("EditCopy")->AutoEnable = false;
                      bar_->Find("EditCopy")->Enabled = false;
                      EXPECT_NE(Open(1).find("Copy(Ctrl+C)!"), std::string::npos);
                      bar_->Find("EditCopy")->Enabled = true;
                      Key(Qt::Key_C, Qt::ControlModifier);
                      EXPECT_EQ(log, "copy ");
                      Key(Qt::Key_W, Qt::ControlModifier);
                      EXPECT_TRUE(window.IsClosed());
                  }});
}

TEST_F(MenuBarTest, AHeldKeyClosesOneWindow) {
    FilledChooser window(2);
    Show(window, {[&] {
             QKeyEvent held(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier, "w", true);
             QApplication::sendEvent(Shown().focusWidget(), &held);
             QKeyEvent press(QEvent::KeyPress, Qt::Key_W, Qt::ControlModifier, "w", true);
             QApplication::sendEvent(Shown().focusWidget(), &press);
             EXPECT_FALSE(window.IsClosed());
         }});
}

TEST_F(MenuBarTest, QuitEndsTheProgramButNotPastAQuestion) {
    FilledChooser window(2);
    app_->open = [&] {
        Show(window, {[&] {
                          steps_.When([] { return Box() != nullptr && Box()->isActiveWindow(); },
                                      [] {
                                          Key(Qt::Key_Q, Qt::ControlModifier);
                                          Key(Qt::Key_W, Qt::ControlModifier);
                                          ASSERT_NE(Box(), nullptr) << "it must be answered";
                                          Key(Qt::Key_Return);
                                      });
                          loop_.Enter([&] {
                              MessageDialog dialog;
                              dialog.ShowModalWithin(&window);
                              app_->log += "answered ";
                          });
                      },
                      [&] {
                          EXPECT_FALSE(window.IsClosed());
                          WindowWidget::Of(&window)->activateWindow();
                      },
                      [&] { Key(Qt::Key_Q, Qt::ControlModifier); }});
        app_->log += "never ";
    };
    EXPECT_EQ(loop_.Run(*app_), 0);
    EXPECT_EQ(app_->log, "answered close ");
}

/// A window that can only be closed, as one that tells of the program.
class Panel final : public Window {
 public:
    Panel() : Window({200, 100}) { MinimizeButton = false; }
};

TEST_F(MenuBarTest, CommandsFollowTheWindowThatTheUserPutsInFront) {
    FilledChooser window(2);
    const Ref<Panel> panel = New<Panel>();
    Show(window, {[&] { panel->Show(); }, [&] { WindowWidget::Of(&window)->activateWindow(); },
                  [&] {
                      Key(Qt::Key_W, Qt::ControlModifier);
                      EXPECT_TRUE(window.IsClosed());
                      EXPECT_FALSE(panel->IsClosed());
                      panel->Close();
                  }});
}

TEST_F(MenuBarTest, AWindowWithoutAMenuBarTakesTheShortcuts) {
    const Ref<Panel> panel = New<Panel>();
    FilledChooser window(2);
    Show(window, {[&] { panel->Show(); },
                  [&] {
                      EXPECT_EQ(WindowWidget::Of(panel.Get())->height(), 100) << "none is shown";
                      WindowWidget::Of(panel.Get())->activateWindow();
                  },
                  [&] {
                      Key(Qt::Key_W, Qt::ControlModifier);
                      EXPECT_TRUE(panel->IsClosed());
                      EXPECT_FALSE(window.IsClosed());
                  }});
}

}  // namespace
}  // namespace dunvey::test
