#pragma once

#include <sys/types.h>

#include <functional>

namespace dunvey {

/// The result of a request to close a program's windows.
enum class CloseRequest : unsigned char {
    Sent,      ///< to each of its top windows
    Asking,    ///< not sent: the program shows a dialog, so it is asking the user already
    Refused,   ///< none of its windows accepts a close request
    Hidden,    ///< its windows aren't shown
    NoWindow,  ///< it has none
    NoAnswer,  ///< the X server can't be reached or doesn't answer
};

/// Asks the windows of a program on the X server that DISPLAY names to close, as the button in the
/// title bar does. A window is the program's if `isProgram` is true for the process that made it,
/// as the server knows it, or for its _NET_WM_PID. Takes at most five seconds.
CloseRequest RequestClose(const std::function<bool(pid_t)>& isProgram);

}  // namespace dunvey
