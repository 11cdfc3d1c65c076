#pragma once

#include <memory>

#include "platform/loop/user_action.h"

namespace dunvey {

/// Whether About and Quit are in an application menu, as on macOS.
bool HasApplicationMenu();

/// Makes the program the active one: on macOS only an active program's windows come to the front.
/// Nothing on Linux.
void ActivateApplication();

/// What is shown while the program waits for documents, until it is destroyed: the dock window on
/// Linux, the menu bar without a window on macOS.
class QtDock {
 public:
    virtual ~QtDock() = default;
    static std::unique_ptr<QtDock> Show(UserAction key);
};

}  // namespace dunvey
