#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The text as one line that can't change how other text is read: control characters, line breaks
/// and marks that reorder text are replaced by visible signs.
std::string OneLine(std::string_view text);

/// The text as a line for a terminal: control characters, line feeds among them, become "?". No
/// file name can then forge a line or control the terminal.
std::string Printable(std::string_view text);

}  // namespace dunvey
