#include "platform/qt/dock.h"

#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_menu_bar.h"

namespace dunvey {
namespace {

class MacDock final : public QtDock {
 public:
    explicit MacDock(UserAction key)
        : menuBar_(
              Application::Current()->MenuBar(), nullptr,
              [key](const UserInput& input) { EventLoop::Current().Enter([&] { input(key); }); },
              true) {}

 private:
    /// Qt shows a menu bar without a window whenever the active window has none of its own.
    QtMenuBar menuBar_;
};

}  // namespace

bool HasApplicationMenu() {
    return true;
}

std::unique_ptr<QtDock> QtDock::Show(UserAction key) {
    return std::make_unique<MacDock>(key);
}

}  // namespace dunvey
