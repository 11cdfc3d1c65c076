#include "platform/loop/event_loop.h"

#include <algorithm>

#include "platform/loop/application.h"
#include "platform/loop/desktop.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

EventLoop* current = nullptr;

void WakeDesktop() {
    if (Desktop::IsLoaded()) Desktop::Current().Wake();
}

}  // namespace

void Timer::SetMode(int mode) {
    if (mode_ != kOff) std::erase(EventLoop::Current().timers_, this);
    mode_ = mode;
    if (mode_ == kOff) return;
    due_ = Clock::Now() + std::chrono::milliseconds(period_);
    EventLoop::Current().timers_.push_back(this);
    WakeDesktop();
}

EventLoop::EventLoop() {
    current = this;
}

EventLoop::~EventLoop() {
    current = nullptr;
}

EventLoop& EventLoop::Current() {
    if (current == nullptr) throw RuntimeException("There is no event loop.");
    return *current;
}

void EventLoop::PostOpenDocument(Ref<FolderItem> document) {
    documents_.push_back(std::move(document));
    WakeDesktop();
}

int EventLoop::Run(Application& application) {
    ended_ = false;
    application_ = nullptr;
    try {
        application.Event_Open();
        application_ = &application;
        for (;;)
            Turn();
    } catch (const EndException& end) {
        ended_ = true;
        return end.ExitCode;
    } catch (...) {
        ended_ = true;
        throw;
    }
}

void EventLoop::Turn() {
    const std::optional<Clock::Time> wait = UntilNext();
    if (Desktop::IsLoaded() || !wait) return RunDesktop();
    if (*wait > Clock::Time::zero()) Clock::SleepUntil(Clock::Now() + *wait);
    ServeNext();
}

void EventLoop::RunDesktop() {
    // A loop that starts with a kept exception would skip all callbacks and never end.
    RaiseKept();
    Desktop::Current().RunLoop();
    RaiseKept();
}

bool EventLoop::ServeNext() {
    if (ended_) return false;
    if (Deliverable()) {
        const Ref<FolderItem> document = std::move(documents_.front());
        documents_.pop_front();
        application_->Event_OpenDocument(document);
        return true;
    }
    Timer* const timer = NextTimer();
    if (timer == nullptr || timer->due_ > Clock::Now()) return false;
    timer->SetMode(Timer::kOff);
    timer->Event_Action();
    return true;
}

std::optional<Clock::Time> EventLoop::UntilNext() const {
    if (ended_) return std::nullopt;
    if (Deliverable()) return Clock::Time::zero();
    const Timer* const timer = NextTimer();
    if (timer == nullptr) return std::nullopt;
    return std::max(Clock::Time::zero(), timer->due_ - Clock::Now());
}

Timer* EventLoop::NextTimer() const {
    const auto next = std::min_element(
        timers_.begin(), timers_.end(),
        [](const Timer* left, const Timer* right) { return left->due_ < right->due_; });
    return next == timers_.end() ? nullptr : *next;
}

void EventLoop::Keep(std::exception_ptr failure) {
    failure_ = std::move(failure);
    Desktop::Current().LeaveLoop();
}

void EventLoop::RaiseKept() {
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void ModalLoop::Run() {
    struct Nesting {
        std::vector<ModalLoop*>& loops;
        ~Nesting() {
            loops.pop_back();
            // An outer loop that was left meanwhile ends now.
            if (!loops.empty() && loops.back()->left_) Desktop::Current().LeaveLoop();
        }
    };
    EventLoop& loop = EventLoop::Current();
    loop.nested_.push_back(this);
    const Nesting nesting{loop.nested_};
    while (!left_)
        loop.RunDesktop();
}

void ModalLoop::Leave() {
    left_ = true;
    const std::vector<ModalLoop*>& loops = EventLoop::Current().nested_;
    if (!loops.empty() && loops.back() == this) Desktop::Current().LeaveLoop();
}

void RuntimeBackgroundTask() {
    if (!Desktop::IsLoaded()) return;
    Desktop::Current().Turn();
    EventLoop::Current().RaiseKept();
}

void Quit(int exitCode) {
    Application::Current()->Close();
    throw EndException(exitCode);
}

}  // namespace dunvey
