#pragma once

#include <exception>

#include "menus/localized.h"

namespace dunvey {

/// Reports an exception that nothing caught: its name, its message and where it was raised, on
/// standard error and, where there is a screen, in a dialog.
void ReportException(const std::exception_ptr& exception);

/// The text of that dialog.
namespace ExceptionText {

/// Precedes the exception's name.
inline constexpr LocalizedText kMustEnd{"ExceptionText.kMustEnd", "Dunvey has to end: "};

}  // namespace ExceptionText
}  // namespace dunvey
