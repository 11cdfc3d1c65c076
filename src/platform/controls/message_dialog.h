#pragma once

#include <string>

#include "platform/loop/event_loop.h"
#include "platform/loop/user_action.h"
#include "platform/values/reference.h"

namespace dunvey {

class Window;

/// A button of a message dialog.
class MessageDialogButton {
 public:
    MessageDialogButton(std::string caption, bool visible)
        : Caption(std::move(caption)), Visible(visible) {}

    std::string Caption;
    bool Visible;
};

/// A modal alert: a graphic, a message, an explanation and up to three buttons.
class MessageDialog {
 public:
    enum : int { kNoGraphic = -1, kNote = 0, kCaution = 1, kStop = 2, kQuestion = 3 };

    int Icon = kNoGraphic;
    std::string Message;
    std::string Explanation;
    /// The default button: Return presses it.
    const Ref<MessageDialogButton> ActionButton = New<MessageDialogButton>("OK", true);
    const Ref<MessageDialogButton> AlternateActionButton = New<MessageDialogButton>("", false);
    const Ref<MessageDialogButton> CancelButton = New<MessageDialogButton>("Cancel", false);

    /// The button that Escape and the window manager's close press; it should change nothing. Nil
    /// means the cancel button if that is visible, else the action button.
    Ref<MessageDialogButton> DismissButton;

    /// Shows the dialog as a sheet of `parent`, or in a window of its own where that is nullptr,
    /// and blocks until a button is pressed. Returns that button. Raises
    /// DesktopUnavailableException without a screen.
    Ref<MessageDialogButton> ShowModal() { return ShowModalWithin(nullptr); }
    Ref<MessageDialogButton> ShowModalWithin(Window* parent);

    /// The user presses a button; an invisible one can't be pressed.
    void Press(UserAction, const Ref<MessageDialogButton>& button);
    /// DismissButton or its default.
    Ref<MessageDialogButton> PressedByEscape() const;

 private:
    Ref<MessageDialogButton> pressed_;
    ModalLoop loop_;
};

/// A message box with one button "OK".
void MsgBox(const std::string& message);

}  // namespace dunvey
