#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The text as one line that can't change the text around it: control characters, line breaks,
/// zero-width characters and bidirectional marks become visible symbols.
std::string OneLine(std::string_view text);

/// The text as a line for a terminal: control characters, line feeds among them, become "?". So a
/// file name can't forge a line or control the terminal.
std::string Printable(std::string_view text);

}  // namespace dunvey
