#include "platform/loop/event_loop.h"

#include <algorithm>

#include "platform/loop/application.h"
#include "platform/loop/desktop.h"
#include "platform/loop/timer.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

EventLoop* current = nullptr;

}  // namespace

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
    if (Desktop::IsLoaded()) Desktop::Current().Wake();
}

void EventLoop::AddTimer(Timer& timer) {
    timers_.push_back(&timer);
    if (Desktop::IsLoaded()) Desktop::Current().Wake();
}

int EventLoop::Run(Application& application) {
    struct Ending {
        explicit Ending(EventLoop& ending) : loop(ending) {}
        ~Ending() { loop.ended_ = true; }
        EventLoop& loop;
    } const ending(*this);
    ended_ = false;
    application_ = nullptr;
    try {
        application.Event_Open();
        application_ = &application;
        for (;;)
            Turn();
    } catch (const EndException& end) {
        return end.ExitCode;
    }
}

void EventLoop::Turn() {
    const std::optional<Clock::Time> wait = UntilNext();
    if (Desktop::IsLoaded() || !wait) {
        RunDesktop();
        return;
    }
    if (*wait > Clock::Time::zero()) Clock::SleepUntil(Clock::Now() + *wait);
    ServeNext();
}

void EventLoop::RunDesktop() {
    Desktop::Current().RunLoop();
    RaiseKept();
}

void EventLoop::DeliverNext(Application& application) {
    const Ref<FolderItem> document = std::move(documents_.front());
    documents_.pop_front();
    application.Event_OpenDocument(document);
}

void EventLoop::DeliverDocuments(Application& application) {
    while (!documents_.empty())
        DeliverNext(application);
}

bool EventLoop::ServeNext() {
    if (ended_) return false;
    if (Deliverable()) {
        DeliverNext(*application_);
        return true;
    }
    Timer* timer = NextTimer();
    if (timer == nullptr || timer->Due() > Clock::Now()) return false;
    timer->Fire();
    return true;
}

std::optional<Clock::Time> EventLoop::UntilNext() const {
    if (ended_) return std::nullopt;
    if (Deliverable()) return Clock::Time::zero();
    const Timer* timer = NextTimer();
    if (timer == nullptr) return std::nullopt;
    return std::max(Clock::Time::zero(), timer->Due() - Clock::Now());
}

Timer* EventLoop::NextTimer() const {
    const auto next = std::min_element(
        timers_.begin(), timers_.end(),
        [](const Timer* left, const Timer* right) { return left->Due() < right->Due(); });
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
    EventLoop& loop = EventLoop::Current();
    struct Nesting {
        explicit Nesting(EventLoop& outer, ModalLoop& inner) : outer_(outer) {
            outer_.nested_.push_back(&inner);
            inner.running_ = true;
        }
        ~Nesting() {
            outer_.nested_.back()->running_ = false;
            outer_.nested_.pop_back();
            // A loop further out that was left meanwhile could not end before this one.
            if (!outer_.nested_.empty() && outer_.nested_.back()->left_) {
                Desktop::Current().LeaveLoop();
            }
        }
        EventLoop& outer_;
    } nesting(loop, *this);
    while (!left_)
        loop.RunDesktop();
}

void ModalLoop::Leave() {
    left_ = true;
    EventLoop& loop = EventLoop::Current();
    if (running_ && loop.nested_.back() == this) Desktop::Current().LeaveLoop();
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
