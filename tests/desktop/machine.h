#pragma once

#include <cstdint>
#include <functional>

#include "platform/loop/clock.h"

/// The machine as a test sets it: Keyboard, SystemInformationMBS and Clock in programs that link this
/// library. The special folders are HOME/Applications and XDG_CONFIG_HOME, the user's language
/// follows the locale, and commands are found in the Helpers folder of the test's bundle.
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
