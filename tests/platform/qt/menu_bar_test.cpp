#include "menus/main_menu_bar.h"
#include "platform/controls/message_dialog.h"
#include "platform/qt/qt_menu_bar.h"
#include "qt_test.h"

namespace dunvey::test {
namespace {

class MenuBarTest : public QtTest {
 protected:
    MenuBarTest() { UseLanguage("C"); }

    void UseLanguage(const char* locale) {
        setenv("LC_ALL", locale, 1);
        bar_ = New<MainMenuBar>();
        app_->SetMenuBar(bar_);
    }
    void ShowWithBar(Window& window, const std::vector<Steps::Step>& steps) {
        window.SetMenuBar(bar_);
        Show(window, steps);
    }
    static QtMenuBar& Bar() { return *dynamic_cast<QtMenuBar*>(Shown().findChild<QMenuBar*>()); }
    /// Opens the menu and returns its items, each with its keys and "!" if it is disabled.
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
    static void Activate(Window& window) { WindowWidget::Of(&window)->activateWindow(); }

    Ref<MenuBar> bar_;
};

TEST_F(MenuBarTest, ShowsItsItemsAndValidatesThemWhenAMenuOpens) {
    FilledChooser window(2);
    bar_->Find("FileAbout")->Action = [] { return true; };
    ShowWithBar(window, {[] {
                    EXPECT_TRUE(Bar().actions()[0]->menu()->actions().isEmpty());
                    EXPECT_EQ(Open(0), "&File: Close(Ctrl+W) - Quit(Ctrl+Q)");
                    EXPECT_EQ(Open(1),
                              "&Edit: &Undo(Ctrl+Z)! Redo(Ctrl+Shift+Z)! - Cut(Ctrl+X)! "
                              "Copy(Ctrl+C)! Paste(Ctrl+V)! Delete! Select All(Ctrl+A)!");
                    EXPECT_EQ(Open(2), "&Window: Minimize(Ctrl+M)! Zoom! - Bring All to Front");
                    EXPECT_EQ(Open(3), "&Help: About");
                }});
}

TEST_F(MenuBarTest, IsAddedAboveTheContent) {
    FilledChooser window(5);
    ShowWithBar(window, {[&window] {
                    const int bar = Bar().height();
                    EXPECT_GT(bar, 15);
                    const QSize content(static_cast<int>(window.Width()),
                                        static_cast<int>(window.Height()));
                    EXPECT_EQ(Shown().size(), content + QSize(0, bar));
                    QWidget& list = Find("AppList");
                    EXPECT_EQ(list.mapTo(&Shown(), QPoint()), list.pos() + QPoint(0, bar));
                    EXPECT_EQ(Shown().focusWidget(), &list);
                    Shown().resize(500, 500 + bar);
                    EXPECT_EQ(window.Height(), 500);
                    EXPECT_EQ(Bar().width(), 500);
                }});
}

TEST_F(MenuBarTest, TheKeyboardAloneOpensMenus) {
    const auto expectOpen = [](const char* title) {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr) << title;
        EXPECT_EQ(menu->title().toStdString(), title);
        menu->hide();
    };
    FilledChooser window(2);
    ShowWithBar(window, {[] { Key(Qt::Key_F10); },
                         [&] {
                             expectOpen("&File");
                             Key(Qt::Key_W, Qt::AltModifier);
                         },
                         [&] { expectOpen("&Window"); }});
    UseLanguage("ja_JP.UTF-8");
    FilledChooser japanese(2);
    ShowWithBar(japanese,
                {[] { Key(Qt::Key_H, Qt::AltModifier); }, [&] { expectOpen("ヘルプ(&H)"); }});
}

TEST_F(MenuBarTest, ShortcutsAreValidatedWhenTheyArePressed) {
    FilledChooser window(2);
    const Ref<MenuItem> copy = bar_->Find("EditCopy");
    copy->Action = [&] {
        app_->log += "copy ";
        return true;
    };
    ShowWithBar(window, {[] { Key(Qt::Key_M, Qt::ControlModifier); },
                         [&] {
                             EXPECT_FALSE(Shown().isMinimized()) << "it has no such button";
                             // An open menu disables its items until it closes.
                             copy->AutoEnable = copy->Enabled = false;
                             EXPECT_NE(Open(1).find("Copy(Ctrl+C)!"), std::string::npos);
                             copy->Enabled = true;
                             Key(Qt::Key_C, Qt::ControlModifier);
                             EXPECT_EQ(app_->log, "copy ");
                             HoldKey(*Shown().focusWidget(), Qt::Key_W, Qt::ControlModifier);
                             EXPECT_FALSE(window.IsClosed()) << "a held key closes one window";
                             Key(Qt::Key_W, Qt::ControlModifier);
                             EXPECT_TRUE(window.IsClosed());
                         }});
}

TEST_F(MenuBarTest, QuitEndsTheProgramButNotPastAQuestion) {
    FilledChooser window(2);
    app_->open = [&] {
        ShowWithBar(window, {[&] {
                                 AtBox([] {
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
                                 Activate(window);
                             },
                             [] { Key(Qt::Key_Q, Qt::ControlModifier); }});
        app_->log += "never ";
    };
    EXPECT_EQ(loop_.Run(*app_), 0);
    EXPECT_EQ(app_->log, "answered close ");
}

TEST_F(MenuBarTest, CommandsGoToTheWindowInFrontEvenWithoutAMenuBar) {
    for (const bool isPanelInFront : {false, true}) {
        FilledChooser window(2);
        const Ref<Window> panel = New<Window>(Size{200, 100});
        panel->MinimizeButton = false;
        ShowWithBar(window, {[&] { panel->Show(); },
                             [&] {
                                 EXPECT_EQ(WindowWidget::Of(panel.Get())->height(), 100);
                                 Activate(isPanelInFront ? *panel : window);
                             },
                             [&] {
                                 Key(Qt::Key_W, Qt::ControlModifier);
                                 EXPECT_EQ(panel->IsClosed(), isPanelInFront);
                                 EXPECT_EQ(window.IsClosed(), !isPanelInFront);
                                 panel->Close();
                             }});
    }
}

}  // namespace
}  // namespace dunvey::test
