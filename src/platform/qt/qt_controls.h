#pragma once

#include <QWidget>
#include <functional>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"

namespace dunvey {

/// What the user does, given the key to do it.
using UserInput = std::function<void(UserAction)>;
/// Where it enters the program.
using UserDoor = std::function<void(const UserInput&)>;

/// A control on the screen.
struct ControlView {
    /// Belongs to its parent.
    QWidget* widget = nullptr;
    /// Has the widget show what the control holds now; its geometry is right before.
    std::function<void()> read;
};

/// A widget for the control.
ControlView MakeControlView(const Ref<RectControl>& control, QWidget* parent, const UserDoor& door);

}  // namespace dunvey
