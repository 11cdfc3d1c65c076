#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The language of the program's texts, such as "ja" or "pt_BR"; empty for English. On Linux from
/// LC_ALL, LC_MESSAGES or LANG. Unless that locale is C or POSIX, LANGUAGE may list preferred
/// languages; the first one with a translation is used.
std::string UserLanguage();

namespace System {

/// The text of a localised constant: its translation into `language` (empty: the user's), else
/// `text`, the default.
std::string _GetLocalizedString(std::string_view key, std::string_view text,
                                const std::string& language);

}  // namespace System

/// A text that the user reads: its key in the translation table and its English default. Each call
/// looks it up in the given language; empty means the user's.
struct LocalizedText {
    std::string_view key;
    std::string_view text;

    std::string operator()(const std::string& language) const {
        return System::_GetLocalizedString(key, text, language);
    }
};

}  // namespace dunvey
