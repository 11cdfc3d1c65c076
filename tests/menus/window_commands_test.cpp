#include "menus/main_menu_bar.h"
#include "platform/controls/message_dialog.h"
#include "platform/controls/window.h"
#include "support/menu_world.h"

namespace dunvey {
namespace {

class WindowCommands : public test::MenuWorld {
 protected:
    WindowCommands() { application_->SetMenuBar(bar_); }

    /// The window's commands that are enabled, by their first letters: Close, Minimize, Zoom.
    std::string Enabled() const {
        std::string letters;
        for (const Ref<MenuItem>& menu : bar_->Items())
            menu->Validate();
        for (const char* name : {"FileClose", "WindowMinimize", "WindowZoom"})
            if (bar_->Find(name)->Enabled) letters += bar_->Find(name)->Text[0];
        return letters;
    }
    bool Choose(const char* name) const { return MenuWorld::Choose(bar_->Find(name)); }
    Ref<Window> Shown() {
        const Ref<Window> window = New<Window>(Size{200, 100});
        user_->ExpectWindow("", {});
        window->Show();
        return window;
    }

    const Ref<MenuBar> bar_ = New<MainMenuBar>();
};

TEST_F(WindowCommands, FollowTheTitleBarButtonsExceptClose) {
    Window window({200, 100});
    window.CloseButton = window.MinimizeButton = false;
    EXPECT_EQ(Enabled(), "");
    user_->ExpectWindow("", {[&](Window&) {
                            EXPECT_EQ(Enabled(), "C") << "also without a close button";
                            window.MinimizeButton = window.MaximizeButton = true;
                            EXPECT_EQ(Enabled(), "CMZ");
                            EXPECT_TRUE(Choose("FileClose"));
                            EXPECT_EQ(Enabled(), "") << "closed, but not yet destroyed";
                            EXPECT_FALSE(Choose("FileClose"));
                        }});
    window.ShowModal();
}

TEST_F(WindowCommands, GoToTheFrontWindowUnlessADialogIsOpen) {
    const Ref<Window> below = Shown();
    const Ref<Window> above = Shown();
    user_->ExpectMessage("asked", {}, [&](const MessageDialog&) {
        below->Show();
        EXPECT_EQ(Enabled(), "") << "the dialog stays in front";
        EXPECT_FALSE(Choose("FileClose"));
        EXPECT_TRUE(Choose("WindowBringAlltoFront"));
    });
    MsgBox("asked");
    below->Show();
    EXPECT_TRUE(Choose("FileClose"));
    EXPECT_TRUE(below->IsClosed());
    EXPECT_FALSE(above->IsClosed());
    EXPECT_TRUE(Choose("FileClose"));
    EXPECT_TRUE(above->IsClosed());
    EXPECT_FALSE(Choose("FileClose"));
}

TEST_F(WindowCommands, AShownWindowLivesUntilItIsClosedOrTheDesktopIsRemoved) {
    const std::weak_ptr<Window> closed = Shown().Shared();
    EXPECT_FALSE(closed.expired());
    EXPECT_TRUE(Choose("FileClose"));
    EXPECT_TRUE(closed.expired());
    const std::weak_ptr<Window> left = Shown().Shared();
    Desktop::Install(nullptr);
    EXPECT_TRUE(left.expired());
    EXPECT_EQ(Enabled(), "");
    InstallDesktop();
}

TEST_F(WindowCommands, EscapeClosesAWindowWhoseOnlyTitleBarButtonIsClose) {
    for (const int buttons : {0, 1, 3, 5}) {
        const Ref<Window> window = Shown();
        window->CloseButton = (buttons & 1) != 0;
        window->MinimizeButton = (buttons & 2) != 0;
        window->MaximizeButton = (buttons & 4) != 0;
        EXPECT_EQ(user_->Escape(*window), buttons == 1);
        EXPECT_EQ(window->IsClosed(), buttons == 1);
        window->Close();
    }
}

}  // namespace
}  // namespace dunvey
