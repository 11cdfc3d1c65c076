#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The text as one line that can't change how other text is read: control characters, line breaks
/// and marks that reorder text are replaced by visible signs.
std::string OneLine(std::string_view text);

}  // namespace dunvey
