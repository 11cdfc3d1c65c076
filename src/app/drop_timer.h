#pragma once

#include "platform/loop/event_loop.h"

namespace dunvey {

/// Fires when no further document is waiting: each arriving document restarts it.
class DropTimer : public Timer {
 protected:
    /// Accepts no further documents, opens those that have arrived, and quits.
    void Event_Action() override;
};

}  // namespace dunvey
