#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// A name or a path for a message: on one line, between quotation marks.
std::string Quoted(std::string_view text);

/// Writes "dunvey-register: text" to standard error.
void Complain(std::string_view text);

}  // namespace dunvey
