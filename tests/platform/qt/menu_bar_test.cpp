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
        window_.SetMenuBar(bar_);
    }
    QtMenuBar& Bar() { return *dynamic_cast<QtMenuBar*>(Shown().findChild<QMenuBar*>()); }
    /// Opens the menu and returns its items, each with its keys and "!" if it is disabled.
    std::string ItemsOf(int place) {
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
        Activate(*shown_);
        return text;
    }
    /// The menu that the key opens.
    static std::string MenuOpenedBy(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        Key(key, modifiers);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return "none";
        menu->hide();
        return menu->title().toStdString();
    }
    static void Activate(Window& window) {
        WindowWidget::Of(&window)->activateWindow();
        RunEvents();
    }

    Ref<MenuBar> bar_;
    FilledChooser window_{5};
};

TEST_F(MenuBarTest, ShowsItsItemsAndValidatesThemWhenAMenuOpens) {
    bar_->Find("FileAbout")->Action = [] { return true; };
    Open(window_);
    EXPECT_TRUE(Bar().actions()[0]->menu()->actions().isEmpty());
    EXPECT_EQ(ItemsOf(0), "&File: Close(Ctrl+W) - Quit(Ctrl+Q)");
    EXPECT_EQ(ItemsOf(1),
              "&Edit: &Undo(Ctrl+Z)! Redo(Ctrl+Shift+Z)! - Cut(Ctrl+X)! "
              "Copy(Ctrl+C)! Paste(Ctrl+V)! Delete! Select All(Ctrl+A)!");
    EXPECT_EQ(ItemsOf(2), "&Window: Minimize(Ctrl+M)! Zoom! - Bring All to Front");
    EXPECT_EQ(ItemsOf(3), "&Help: About");
}

TEST_F(MenuBarTest, TheKeyboardAloneOpensMenus) {
    Open(window_);
    EXPECT_EQ(MenuOpenedBy(Qt::Key_F10), "&File");
    EXPECT_EQ(MenuOpenedBy(Qt::Key_W, Qt::AltModifier), "&Window");
    UseLanguage("ja_JP.UTF-8");
    FilledChooser japanese(2);
    japanese.SetMenuBar(bar_);
    Open(japanese);
    EXPECT_EQ(MenuOpenedBy(Qt::Key_H, Qt::AltModifier), "ヘルプ(&H)");
}

TEST_F(MenuBarTest, ShortcutsAreValidatedWhenTheyArePressed) {
    const Ref<MenuItem> copy = bar_->Find("EditCopy");
    copy->Action = [&] {
        app_->log += "copy ";
        return true;
    };
    Open(window_);
    Key(Qt::Key_M, Qt::ControlModifier);
    EXPECT_FALSE(Shown().isMinimized()) << "it has no such button";
    window_.MinimizeButton = true;
    Key(Qt::Key_M, Qt::ControlModifier);
    EXPECT_TRUE(Shown().isMinimized());
    Shown().showNormal();
    // An open menu disables its items until it closes.
    copy->AutoEnable = copy->Enabled = false;
    EXPECT_NE(ItemsOf(1).find("Copy(Ctrl+C)!"), std::string::npos);
    copy->Enabled = true;
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(app_->log, "copy ");
    HoldKey(*Shown().focusWidget(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window_.IsClosed()) << "a held key closes one window";
    Key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(window_.IsClosed());
}

TEST_F(MenuBarTest, QuitEndsTheProgramButNotPastAQuestion) {
    app_->open = [&] {
        Open(window_);
        AtBox([] {
            Key(Qt::Key_Q, Qt::ControlModifier);
            Key(Qt::Key_W, Qt::ControlModifier);
            ASSERT_NE(Box(), nullptr) << "it must be answered";
            Key(Qt::Key_Return);
        });
        MessageDialog().ShowModalWithin(&window_);
        EXPECT_FALSE(window_.IsClosed());
        app_->log += "answered ";
        Activate(window_);
        steps_.Soon([] { Key(Qt::Key_Q, Qt::ControlModifier); });
    };
    EXPECT_EQ(loop_.Run(*app_), 0);
    EXPECT_EQ(app_->log, "answered close ");
}

}  // namespace
}  // namespace dunvey::test
