#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// Writes the text and a line feed to standard error in one write. Control characters, line feeds
/// among them, are written as "?": no file name can forge a line or control a terminal. A write
/// that fails is ignored.
void WriteErrorLine(std::string_view text);

/// The text between quotation marks, for a message.
inline std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

}  // namespace dunvey
