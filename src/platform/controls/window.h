#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/native_window.h"
#include "platform/controls/rect_control.h"
#include "platform/controls/responder_chain.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/user_action.h"
#include "platform/menus/menu_item.h"
#include "platform/values/observable.h"

namespace dunvey {

class PushButton;

/// A width and a height in points.
struct Size {
    int64_t Width = 0;
    int64_t Height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

/// A window with its controls. It is shown once: when it has closed it is over. While it is shown
/// it answers the menu's commands to close it, to put it away and to zoom it.
class Window : public Observable, public Responder, public std::enable_shared_from_this<Window> {
 public:
    enum : int { kDocument = 0, kMovableModal = 1 };
    enum : int { kDefaultPlacement = 0, kMainScreen = 2 };

    /// The design size is the one that the controls' places are given for.
    explicit Window(Size design) : design_(design), wanted_(design) {}
    ~Window() override = default;

    const std::string& Title() const { return title_; }
    void SetTitle(const std::string& title) { Put(title_, title); }
    /// Whether the pointer shows that the program works, although the window can be used.
    bool Busy() const { return busy_; }
    void SetBusy(bool busy) { Put(busy_, busy); }
    /// Nil for none of its own.
    const Ref<dunvey::MenuBar>& MenuBar() const { return menuBar_; }
    void SetMenuBar(Ref<dunvey::MenuBar> menuBar) { menuBar_ = std::move(menuBar); }
    /// The native window.
    const Ref<NSWindow>& Handle() const { return handle_; }

    // The size in points, of the area that the controls stand in: at least the minimum, at most the
    // maximum, and never more than the screen has room for.
    int64_t Width() const { return Actual().Width; }
    int64_t Height() const { return Actual().Height; }
    void SetHeight(int64_t height);
    int64_t MinHeight() const { return minimum_.Height; }
    void SetMinHeight(int64_t height);
    void SetMinWidth(int64_t width);
    void SetMaxWidth(int64_t width);
    void SetMaxHeight(int64_t height);
    /// The least size that the screen allows the user to give it.
    Size SmallestSize() const;
    Size LargestSize() const;

    int Frame = kDocument;
    int Placement = kDefaultPlacement;
    bool Resizeable = false;
    bool CloseButton = true;
    bool MaximizeButton = false;
    bool MinimizeButton = true;
    bool FullScreenButton = false;

    /// In the order in which they were added, the undermost first.
    const std::vector<Ref<RectControl>>& Controls() const { return controls_; }

    /// Shows it, or brings it up if it is on the screen, and returns at once. It is kept alive
    /// until it has closed or the desktop goes. Raises DesktopUnavailableException without a
    /// screen.
    void Show();
    /// Shows it and blocks until it has closed. Raises DesktopUnavailableException without a
    /// screen.
    void ShowModal();
    /// Closes it for good. A modal one then comes back from ShowModal.
    void Close();
    bool IsClosed() const { return closed_; }

    /// Takes all that Show holds off the screen; no event is fired.
    static void LetAllGo();

    /// Fired once, when the window opens, behind the opening of its controls.
    virtual void Event_Open() {}
    /// Fired once, when the window has closed.
    virtual void Event_Close() {}

    /// The user gives it another size.
    void Resize(UserAction, Size size);
    /// The screen has room for no more than this.
    void Confine(UserAction, Size room);
    /// The user presses Return: the default button. False if there is none that can be pressed.
    bool PressDefault(UserAction key);
    /// The user presses Escape: the cancel button. Without one a window that can only be closed is
    /// dismissed. False if neither is so.
    bool PressCancel(UserAction key);
    /// The user closes it by its title bar or the window manager: as Escape where there is a cancel
    /// button that can be pressed, else it closes.
    void Dismiss(UserAction key);
    /// The user brings it in front of the others: the menu's commands go to it.
    void Activate(UserAction);

    // Closing is always possible, as with Dismiss; the rest where the window has the button for it.
    bool respondsToSelector(const Selector& selector) const override;
    void perform(const Selector& action, const Ref<NSMenuItem>& sender) override;
    bool validateMenuItem(const Ref<NSMenuItem>& item) override;

 protected:
    void Add(Ref<RectControl> control) { controls_.push_back(std::move(control)); }

 private:
    /// What stands for it while it is shown.
    struct Presence {
        std::unique_ptr<Shown> view;
        ResponderChain::Place place;
    };

    void Open();
    std::shared_ptr<Presence> Appear(bool modal);
    bool CanPerform(const Selector& action) const;
    Size Actual() const;
    void Apply(const Size& before);
    /// Assigns a width or a height of one of the sizes below, and has the controls follow.
    void ChangeSide(int64_t& side, int64_t length);
    Ref<PushButton> Button(bool (PushButton::*is)() const) const;

    Size design_;
    Size wanted_;
    Size minimum_;
    Size maximum_{32000, 32000};
    Size room_{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::max()};
    std::string title_;
    Ref<dunvey::MenuBar> menuBar_;
    Ref<NSWindow> handle_ = New<NSWindow>();
    std::vector<Ref<RectControl>> controls_;
    ModalLoop loop_;
    bool busy_ = false;
    bool opened_ = false;
    bool closed_ = false;
    /// Empty while it isn't on the screen. A modal one is held by ShowModal.
    std::weak_ptr<Presence> presence_;
    std::shared_ptr<Presence> held_;
};

}  // namespace dunvey
