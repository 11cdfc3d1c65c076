#include "platform/controls/push_button.h"

namespace dunvey {

void PushButton::Press(UserAction) {
    if (!IsUsable()) return;
    const auto alive = KeepAlive();
    Event_Action();
}

}  // namespace dunvey
