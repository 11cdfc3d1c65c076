#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The text as a line for a terminal: control characters, line feeds among them, become "?". No
/// file name can then forge a line or control the terminal.
std::string Printable(std::string_view text);

/// Writes the printable text and a line feed to standard error in one write. A write that fails is
/// ignored.
void WriteErrorLine(std::string_view text);

/// The text between quotation marks, for a message.
inline std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

}  // namespace dunvey
