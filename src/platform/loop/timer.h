#pragma once

#include "platform/loop/clock.h"

namespace dunvey {

/// A timer of the event loop. A new one is off.
class Timer {
 public:
    enum : int { kOff = 0, kOnce = 1 };

    Timer() = default;
    virtual ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// The wait in milliseconds.
    int Period() const { return period_; }
    void SetPeriod(int milliseconds) { period_ = milliseconds; }

    int Mode() const { return mode_; }
    /// kOff stops it; kOnce starts the wait afresh, also while one is under way.
    void SetMode(int mode);

    /// When it fires, while it is on.
    Clock::Time Due() const { return due_; }
    /// For the event loop: turns the timer off and runs Event_Action.
    void Fire();

 protected:
    /// Runs on the main thread from the event loop.
    virtual void Event_Action() = 0;

 private:
    int period_ = 0;
    int mode_ = kOff;
    Clock::Time due_{};
};

}  // namespace dunvey
