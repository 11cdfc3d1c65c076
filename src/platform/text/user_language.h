#pragma once

#include <string>

namespace dunvey {

/// The user's language, such as "ja" or "pt_BR"; empty for none, which is English. On Linux the
/// locale's: LC_ALL, else LC_MESSAGES, else LANG.
std::string UserLanguage();

}  // namespace dunvey
