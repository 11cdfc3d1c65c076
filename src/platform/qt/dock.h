#pragma once

#include <memory>

#include "platform/loop/user_action.h"

namespace dunvey {

/// Whether the system has a menu of the application's own, which holds About and Quit.
bool HasApplicationMenu();

/// The dock window on the screen; letting it go takes it off.
class QtDock {
 public:
    virtual ~QtDock() = default;
    /// Shows it; nullptr where the system has a dock of its own.
    static std::unique_ptr<QtDock> Show(UserAction key);
};

}  // namespace dunvey
