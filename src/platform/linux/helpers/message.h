#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The text on one line: each control character is shown as "?", so that no name of a file can
/// forge a line or steer a terminal.
std::string PrintableLine(std::string_view text);

/// A path for a message: on one line, between quotation marks.
std::string Quoted(std::string_view path);

/// Writes "program: text" to standard error, in one write.
void Complain(std::string_view program, std::string_view text);

}  // namespace dunvey
