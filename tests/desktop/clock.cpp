#include <algorithm>

#include "desktop/machine.h"

namespace dunvey {

Clock::Time Clock::Now() {
    return headless::TheMachine().now;
}

void Clock::SleepUntil(Time time) {
    Time& now = headless::TheMachine().now;
    now = std::max(now, time);
}

}  // namespace dunvey
