#include "platform/controls/push_button.h"

namespace dunvey {

void PushButton::Press(UserAction) {
    if (!Enabled()) return;
    const auto alive = KeepAlive();
    Event_Action();
}

}  // namespace dunvey
