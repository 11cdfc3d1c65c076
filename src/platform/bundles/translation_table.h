#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace dunvey {

/// The texts of one language, by key.
using TranslationTable = std::unordered_map<std::string, std::string>;

/// Reads a table from UTF-8 text: rows `"key" = "text";`, comments in both forms, the escapes \",
/// \\, \', \n and \t. A broken row is skipped with the rest of its line; of two rows
/// with one key the later counts.
TranslationTable ReadTranslationTable(std::string_view text);

/// The table of a language, such as "ja" or "pt_BR", from the bundle's resources:
/// `<language>.lproj/Localizable.strings`, else that of the language without its region. It is read
/// at the first call; empty if there is none.
const TranslationTable& TranslationsInto(const std::string& language);

}  // namespace dunvey
