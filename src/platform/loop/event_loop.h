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
class Timer;

/// The one event loop of the process: the queue of open-document events, the timers and the stack
/// of nested loops. It needs no toolkit: a run in which nothing is asked never loads one. With a
/// desktop loaded, that runs the loop and serves what is kept here.
class EventLoop {
 public:
    EventLoop();
    ~EventLoop();
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;

    /// The process's loop. There must be one.
    static EventLoop& Current();

    /// Queues the event that hands a document to the application. It may come before there is an
    /// application; it is delivered after Event_Open, in the order of arrival.
    void PostOpenDocument(Ref<FolderItem> document);

    /// Hands all documents that wait to the application, at once. For a run that is cut short.
    void DeliverDocuments(Application& application);

    /// Runs the application from Event_Open to its end and returns the exit code that Quit was
    /// given. An exception that no event has caught passes through.
    int Run(Application& application);

    void AddTimer(Timer& timer);
    void RemoveTimer(Timer& timer) { std::erase(timers_, &timer); }

    /// Serves one event: the oldest document, else the timer that is due longest. False if there
    /// was none.
    bool ServeNext();
    /// How long until ServeNext has something to do: zero for at once, none for never.
    std::optional<Clock::Time> UntilNext() const;

    /// The one door through which a toolkit's callbacks enter. No exception may cross a toolkit's
    /// loop, so it is caught here, the innermost loop is left, and it goes on from there.
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
    friend void RuntimeBackgroundTask();

    bool Deliverable() const { return application_ != nullptr && !documents_.empty(); }
    void DeliverNext(Application& application);
    Timer* NextTimer() const;
    void Turn();
    void RunDesktop();
    void Keep(std::exception_ptr failure);
    void RaiseKept();

    Application* application_ = nullptr;
    /// Once the run has ended nothing is served any more, also while a report of its end is shown.
    bool ended_ = false;
    std::deque<Ref<FolderItem>> documents_;
    std::vector<Timer*> timers_;
    std::vector<ModalLoop*> nested_;
    std::exception_ptr failure_;
};

/// A loop nested in the event loop, as a modal window or dialog runs it. Loops end from the inside
/// out, whatever the order in which they are asked to.
class ModalLoop {
 public:
    /// Returns after Leave. An exception that ended the loop passes through.
    void Run();
    void Leave();

 private:
    friend class EventLoop;
    bool running_ = false;
    bool left_ = false;
};

/// Gives other scheduled work a turn: with a desktop loaded, what the user has done meanwhile and
/// what the event loop has to serve. An exception of theirs passes through.
void RuntimeBackgroundTask();

/// Ends the program: fires Event_Close on the application and unwinds the stack with EndException.
[[noreturn]] void Quit(int exitCode);

}  // namespace dunvey
