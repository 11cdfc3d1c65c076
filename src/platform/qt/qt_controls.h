#pragma once

#include <QWidget>
#include <functional>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"

namespace dunvey {

/// An action of the user, called with the key that allows it.
using UserInput = std::function<void(UserAction)>;
/// Runs an action of the user in EventLoop::Enter.
using RunInput = std::function<void(const UserInput&)>;

/// A control on the screen.
struct ControlView {
    /// Belongs to its parent.
    QWidget* widget = nullptr;
    /// Shows the current state of the control; the widget has its size already. Returns the whole
    /// text if it is shown shortened, else an empty string.
    std::function<QString()> read;
};

/// A new widget for the control.
ControlView MakeControlView(const Ref<RectControl>& control, QWidget* parent, const RunInput& run);

}  // namespace dunvey
