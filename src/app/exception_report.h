#pragma once

#include <exception>

namespace dunvey {

/// Tells of an exception that nothing caught: its name, its message and where it comes from, on
/// standard error and, where there is a screen, in a dialog.
void ReportException(const std::exception_ptr& exception);

}  // namespace dunvey
