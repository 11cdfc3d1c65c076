#pragma once

#include <chrono>

/// The clock of timers. Tests link a virtual one instead of the machine's.
namespace dunvey::Clock {

using Time = std::chrono::nanoseconds;

/// The time since a fixed moment; it never goes back.
Time Now();

/// Returns at that time, at once if it has passed.
void SleepUntil(Time time);

}  // namespace dunvey::Clock
