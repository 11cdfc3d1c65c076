#pragma once

#include <chrono>

/// The time that timers go by. Its body is a choice of file: the machine's clock in the program, a
/// virtual one in tests.
namespace dunvey::Clock {

using Time = std::chrono::nanoseconds;

/// The time since some fixed moment; it never goes back.
Time Now();

/// Returns when the time has come.
void SleepUntil(Time time);

}  // namespace dunvey::Clock
