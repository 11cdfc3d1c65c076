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

/// A window with its controls. It can be shown once; after Close it can't be shown again. While it
/// is shown it carries out the menu commands Close, Minimize and Zoom.
class Window : public Observable, public Responder, public std::enable_shared_from_this<Window> {
 public:
    enum : int { kDocument = 0, kMovableModal = 1 };
    enum : int { kDefaultPlacement = 0, kMainScreen = 2 };

    /// `design` is the size that the controls' places refer to.
    explicit Window(Size design) : design_(design), wanted_(design) {}
    ~Window() override = default;

    const std::string& Title() const { return title_; }
    void SetTitle(const std::string& title) { Put(title_, title); }
    /// Whether the pointer shows that the program is busy. The window stays usable.
    bool Busy() const { return busy_; }
    void SetBusy(bool busy) { Put(busy_, busy); }
    /// The window's own menu bar; nil for none.
    const Ref<dunvey::MenuBar>& MenuBar() const { return menuBar_; }
    void SetMenuBar(Ref<dunvey::MenuBar> menuBar) { menuBar_ = std::move(menuBar); }
    /// The native window.
    const Ref<NSWindow>& Handle() const { return handle_; }

    // The size of the content in points: at least the minimum, at most the maximum, and never
    // larger than the space on the screen.
    int64_t Width() const { return Actual().Width; }
    int64_t Height() const { return Actual().Height; }
    void SetHeight(int64_t height) { ChangeSide(wanted_.Height, height); }
    int64_t MinHeight() const { return minimum_.Height; }
    void SetMinHeight(int64_t height) { ChangeSide(minimum_.Height, height); }
    void SetMinWidth(int64_t width) { ChangeSide(minimum_.Width, width); }
    void SetMaxWidth(int64_t width) { ChangeSide(maximum_.Width, width); }
    void SetMaxHeight(int64_t height) { ChangeSide(maximum_.Height, height); }
    // The limits for the user's resizing, within the space on the screen.
    Size SmallestSize() const;
    Size LargestSize() const;

    int Frame = kDocument;
    int Placement = kDefaultPlacement;
    bool Resizeable = false;
    bool CloseButton = true;
    bool MaximizeButton = false;
    bool MinimizeButton = true;
    bool FullScreenButton = false;

    /// In the order in which they were added, bottom first.
    const std::vector<Ref<RectControl>>& Controls() const { return controls_; }

    /// Shows the window, or raises it if it is shown already, and returns at once. It is kept alive
    /// until it closes or the desktop ends. Raises DesktopUnavailableException without a screen.
    void Show();
    /// Shows the window and blocks until it closes. Raises DesktopUnavailableException without a
    /// screen.
    void ShowModal();
    /// Closes it for good; ShowModal then returns.
    void Close();
    bool IsClosed() const { return closed_; }

    /// Removes all windows shown by Show from the screen; no event is fired.
    static void HideAll();

    /// Fired once, when the window opens, after its controls' Event_Open.
    virtual void Event_Open() {}
    /// Fired once, when the window has closed.
    virtual void Event_Close() {}

    /// The user resizes the window.
    void Resize(UserAction, Size size);
    /// Sets the space on the screen, in points.
    void Confine(UserAction, Size room);
    /// The user presses Return: presses the default button. False if none is enabled.
    bool PressDefault(UserAction key);
    /// The user presses Escape: presses the cancel button, or closes a window that has a close
    /// button as its only title-bar button. False if neither applies.
    bool PressCancel(UserAction key);
    /// The user closes the window by its title bar or the window manager: presses the cancel
    /// button; without an enabled one the window closes.
    void Dismiss(UserAction key);
    /// The user brings the window to the front: menu commands then go to it.
    void Activate(UserAction);

    // Close is always possible and presses no button; the other commands need their title-bar
    // button.
    bool respondsToSelector(const Selector& selector) const override;
    void perform(const Selector& action, const Ref<NSMenuItem>& sender) override;
    bool validateMenuItem(const Ref<NSMenuItem>& item) override;

 protected:
    void Add(Ref<RectControl> control) { controls_.push_back(std::move(control)); }
    /// Makes a control and adds it.
    template <typename Control>
    Ref<Control> Make(const char* name, const Bounds& place, const Locks& locks, int64_t tabIndex) {
        const Ref<Control> control = New<Control>();
        control->SetName(name);
        control->SetDesign(place, locks);
        control->SetTabIndex(tabIndex);
        Add(control);
        return control;
    }

 private:
    /// Exists while the window is shown.
    struct Presence {
        std::unique_ptr<Shown> view;
        ResponderChain::Place place;
    };

    void Open();
    std::shared_ptr<Presence> Appear(bool modal);
    bool CanPerform(const Selector& action) const;
    Size Actual() const;
    void Apply(const Size& before);
    /// Assigns one side of one of the sizes below and moves the controls accordingly.
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
    /// Held by ShowModal, else by held_.
    std::weak_ptr<Presence> presence_;
    std::shared_ptr<Presence> held_;
};

}  // namespace dunvey
