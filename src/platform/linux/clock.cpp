#include "platform/loop/clock.h"

#include <cerrno>
#include <ctime>

namespace dunvey::Clock {

Time Now() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

void SleepUntil(Time time) {
    constexpr Time::rep kSecond = 1'000'000'000;
    const timespec until{time.count() / kSecond, time.count() % kSecond};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) {
    }
}

}  // namespace dunvey::Clock
