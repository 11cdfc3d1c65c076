#include "platform/controls/check_box.h"

namespace dunvey {

void CheckBox::Toggle(UserAction) {
    if (!Enabled()) return;
    const auto alive = KeepAlive();
    SetValue(!value_);
    Event_Action();
}

}  // namespace dunvey
