#pragma once

#include <cstdint>

#include "platform/controls/responder.h"

namespace dunvey {

/// Who is asked for a command without a fixed target: the focused control of the window in front,
/// then that window, then the application. Windows behind it are never asked.
class ResponderChain {
 public:
    /// A place in the chain, given up when this dies. It lives no longer than its responder.
    class Place {
     public:
        Place() = default;
        Place(Place&& other) noexcept : id_(std::exchange(other.id_, 0)) {}
        Place& operator=(Place&& other) noexcept;
        ~Place() { GiveUp(); }

        /// Puts a window in front of the others; its focused control comes with it. It does nothing
        /// for a control, and while a dialog is in front.
        void BringToFront();

     private:
        friend class ResponderChain;
        explicit Place(int64_t id) : id_(id) {}
        void GiveUp();

        int64_t id_ = 0;
    };

    /// A window that is shown, in front of the others. When it goes, the one before is in front.
    [[nodiscard]] static Place AddWindow(Responder& window);
    /// A dialog in front of all windows: while it is open none of them is asked.
    [[nodiscard]] static Place AddDialog();
    /// The control of the window in front that has the focus. It goes with the window; when it goes
    /// first, the control that had the focus before it has it again.
    [[nodiscard]] static Place AddFocus(Responder& control);

    /// The first in the chain that takes the command, nullptr if none does.
    static Responder* FirstThatTakes(const Selector& action);
};

}  // namespace dunvey
