#pragma once

#include <deque>
#include <exception>
#include <optional>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/loop/clock.h"
#include "platform/values/reference.h"

namespace dunvey {

class Application;
class ModalLoop;

/// A timer of the event loop. A new one is off.
class Timer {
 public:
    enum : int { kOff = 0, kOnce = 1 };

    Timer() = default;
    virtual ~Timer() { SetMode(kOff); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// The wait in milliseconds.
    int Period() const { return period_; }
    void SetPeriod(int milliseconds) { period_ = milliseconds; }
    int Mode() const { return mode_; }
    /// kOff stops it; kOnce starts the wait, or restarts it. It is off again when it fires.
    void SetMode(int mode);

 protected:
    /// What the timer does when it fires.
    virtual void Event_Action() = 0;

 private:
    friend class EventLoop;
    int period_ = 0;
    int mode_ = kOff;
    Clock::Time due_{};
};

/// The event loop of the process: the queue of open-document events, the timers and the stack of
/// nested loops. It works without a desktop, which is loaded only when a window is needed. A loaded
/// desktop runs its own loop and serves this queue and these timers from there.
class EventLoop {
 public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// The loop of the process; raises RuntimeException if there is none.
    static EventLoop& Current();

    /// Queues an open-document event, also before there is an application. Events are delivered
    /// after Event_Open, in their order.
    void PostOpenDocument(Ref<FolderItem> document);

    /// Runs the application from Event_Open until Quit and returns the exit code given to Quit.
    /// Other exceptions that no event catches pass through.
    int Run(Application& application);

    /// Serves one event: the oldest document, else the timer that has been due the longest. False
    /// if there was none.
    bool ServeNext();
    /// The time until ServeNext has something to do: zero for now, nullopt for never.
    std::optional<Clock::Time> UntilNext() const;

    /// Every callback of a desktop runs through this. An exception must not cross the desktop's own
    /// loop: it is kept, the innermost loop is left, and it is raised again from there. Until then
    /// further callbacks are skipped.
    template <typename Callback>
    void Enter(Callback&& callback) {
        if (failure_) return;
        try {
            callback();
        } catch (...) {
            Keep(std::current_exception());
        }
    }

 private:
    friend class ModalLoop;
    friend class Timer;
    friend void RuntimeBackgroundTask();

    bool Deliverable() const { return application_ != nullptr && !documents_.empty(); }
    Timer* NextTimer() const;
    void Turn();
    void RunDesktop();
    void Keep(std::exception_ptr failure);
    void RaiseKept();

    Application* application_ = nullptr;
    /// True after Run: nothing is served while the report of an exception is shown.
    bool ended_ = false;
    std::deque<Ref<FolderItem>> documents_;
    std::vector<Timer*> timers_;
    std::vector<ModalLoop*> nested_;
    std::exception_ptr failure_;
};

/// A loop nested in the event loop, as a modal window or dialog runs it. An outer loop that is left
/// first still ends after the inner one.
class ModalLoop {
 public:
    /// Returns after Leave. An exception that ended the loop passes through.
    void Run();
    void Leave();

 private:
    bool left_ = false;
};

/// Serves waiting events of a loaded desktop; without one it does nothing. Exceptions of the events
/// pass through.
void RuntimeBackgroundTask();

/// Ends the program: fires Event_Close on the application and unwinds the stack with EndException.
[[noreturn]] void Quit(int exitCode);

}  // namespace dunvey
