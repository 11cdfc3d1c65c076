#pragma once

#include <QWidget>
#include <functional>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"

namespace dunvey {

/// An action of the user, called with the key that allows it.
using UserInput = std::function<void(UserAction)>;
/// Passes an action of the user to the program.
using UserDoor = std::function<void(const UserInput&)>;

/// A control on the screen.
struct ControlView {
    /// Belongs to its parent.
    QWidget* widget = nullptr;
    /// Shows the present state of the control; the widget has its size already. Returns the whole
    /// text if it is shown shortened, else an empty string.
    std::function<QString()> read;
};

/// A new widget for the control.
ControlView MakeControlView(const Ref<RectControl>& control, QWidget* parent, const UserDoor& door);

}  // namespace dunvey
