#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// Writes the text, made Printable, and a line feed to standard error in one write. A write that
/// fails is ignored.
void WriteErrorLine(std::string_view text);

/// The text between quotation marks, for a message.
inline std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

}  // namespace dunvey
