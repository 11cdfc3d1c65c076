#include "platform/loop/clock.h"

#include <ctime>

namespace dunvey::Clock {

Time Now() {
    return Time(static_cast<Time::rep>(clock_gettime_nsec_np(CLOCK_MONOTONIC)));
}

void SleepUntil(Time time) {
    constexpr Time::rep kSecond = 1'000'000'000;
    for (Time wait = time - Now(); wait > Time::zero(); wait = time - Now()) {
        const timespec pause{static_cast<time_t>(wait.count() / kSecond),
                             static_cast<long>(wait.count() % kSecond)};
        nanosleep(&pause, nullptr);
    }
}

}  // namespace dunvey::Clock
