#pragma once

#include <memory>

#include "platform/loop/user_action.h"

namespace dunvey {

/// Whether About and Quit are in an application menu, as on macOS.
bool HasApplicationMenu();

/// The dock window on the screen, until it is destroyed.
class QtDock {
 public:
    virtual ~QtDock() = default;
    /// Shows it; nullptr on macOS, which has a dock of its own.
    static std::unique_ptr<QtDock> Show(UserAction key);
};

}  // namespace dunvey
