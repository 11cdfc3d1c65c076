#pragma once

#include <cstdint>
#include <functional>

#include "platform/loop/clock.h"

/// The machine as a test sets it: what Keyboard, SystemInformationMBS and Clock answer in programs
/// that link this library.
namespace dunvey::headless {

struct Machine {
    bool commandKey = false;
    bool optionKey = false;
    /// Asked instead of `commandKey` at each reading, if set: a key that is let go on the way.
    std::function<bool()> readCommandKey;
    int64_t systemMajor = 10;
    int64_t systemMinor = 14;
    /// Stands still but for waits.
    Clock::Time now{};
};

/// The one machine of the test process; assign Machine{} for a fresh one.
Machine& TheMachine();

}  // namespace dunvey::headless
