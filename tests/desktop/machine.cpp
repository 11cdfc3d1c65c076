#include "desktop/machine.h"

#include <algorithm>

#include "platform/loop/keyboard.h"
#include "platform/processes/system_information.h"

namespace dunvey {

headless::Machine& headless::TheMachine() {
    static Machine machine;
    return machine;
}

Clock::Time Clock::Now() {
    return headless::TheMachine().now;
}

void Clock::SleepUntil(Time time) {
    Time& now = headless::TheMachine().now;
    now = std::max(now, time);
}

bool Keyboard::AsyncCommandKey() {
    const headless::Machine& machine = headless::TheMachine();
    return machine.readCommandKey ? machine.readCommandKey() : machine.commandKey;
}

bool Keyboard::AsyncOptionKey() {
    return headless::TheMachine().optionKey;
}

const char* Keyboard::CommandKeyName() {
    return "Control";
}

int64_t SystemInformationMBS::MacMajorVersion() {
    return headless::TheMachine().systemMajor;
}

int64_t SystemInformationMBS::MacMinorVersion() {
    return headless::TheMachine().systemMinor;
}

}  // namespace dunvey
