#include "platform/loop/timer.h"

#include "platform/loop/event_loop.h"

namespace dunvey {

Timer::~Timer() {
    SetMode(kOff);
}

void Timer::SetMode(int mode) {
    if (mode_ != kOff) EventLoop::Current().RemoveTimer(*this);
    mode_ = mode;
    if (mode_ == kOff) return;
    due_ = Clock::Now() + std::chrono::milliseconds(period_);
    EventLoop::Current().AddTimer(*this);
}

void Timer::Fire() {
    SetMode(kOff);
    Event_Action();
}

}  // namespace dunvey
