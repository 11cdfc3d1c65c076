#pragma once

#include "platform/loop/event_loop.h"

namespace dunvey {

/// Ends the gathering of documents. Each arrival restarts it, so it fires when no further document
/// is waiting.
class DropTimer : public Timer {
 protected:
    /// Stops the intake for good, decides and opens the run, and quits.
    void Event_Action() override;
};

}  // namespace dunvey
