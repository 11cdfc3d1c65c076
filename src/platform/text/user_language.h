#pragma once

#include <string>

namespace dunvey {

/// The language of the program's texts, such as "ja" or "pt_BR"; empty for English. On Linux that
/// of the locale, from LC_ALL, LC_MESSAGES or LANG. LANGUAGE may list others, in the order of
/// preference, unless the locale is C or POSIX; the first one that there are texts in counts.
std::string UserLanguage();

}  // namespace dunvey
