#pragma once

#include "platform/loop/timer.h"

namespace dunvey {

/// Learns that the documents of a run have stopped coming: each arrival stops it and starts it
/// again, so it fires when no further one is waiting.
class DropTimer : public Timer {
 protected:
    /// Ends the gathering for good, has the run decided and handed on, and quits.
    void Event_Action() override;
};

}  // namespace dunvey
