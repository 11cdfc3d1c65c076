#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// Appends a UTF-8 text as it stands between the quotes of a JSON string: quotes, backslashes,
/// control characters and characters that can't be seen or may get lost are escaped, "/" if asked
/// for. Bytes that make no character stay as they are.
void AppendEscaped(std::string& json, std::string_view text, bool escapeSlashes);

}  // namespace dunvey
