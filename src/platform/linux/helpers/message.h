#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// A path for a message: on one line, between quotation marks, control characters as "?".
std::string Quoted(std::string_view path);

/// Writes "program: text" to standard error, in one write.
void Complain(std::string_view program, std::string_view text);

}  // namespace dunvey
