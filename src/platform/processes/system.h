#pragma once

#include <string>
#include <string_view>

namespace dunvey::System {

/// The text of a localised constant: its translation into `language` (empty: the user's), else
/// `text`, the default.
std::string _GetLocalizedString(std::string_view key, std::string_view text,
                                const std::string& language);

}  // namespace dunvey::System
