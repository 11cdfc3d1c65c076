#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/bundles/system.h"
#include "platform/text/reg_ex.h"
#include "platform/values/reference.h"

/// Regular expressions in one call. A pattern that can't be compiled is shown to the user here, so
/// that no caller has to handle the exception. `start` counts characters; a replacement names
/// groups as "\1" and "\2".
namespace dunvey::RegExXojo {

/// The object of the last call. A call with a source and a pattern makes a new one, so options
/// don't carry over.
extern Ref<RegEx> reg;

/// The message for a pattern that is only one metacharacter.
inline constexpr LocalizedText kAlert_Metacharacters{
    "RegExXojo.kAlert_Metacharacters", "Metacharacters ^ $ \\b cannot be used alone."};

/// Whether the pattern matches at or after `start`. False for an empty source or pattern, and after
/// a pattern error has been shown.
bool Mach(std::string_view source, const std::string& pattern, int64_t start, bool caseSensitive);

/// The source with the first match at or after `start` replaced; unchanged without a match, for an
/// empty source or pattern, and for the patterns "^", "$" and "\b", for which an alert is shown.
/// Empty after a pattern error has been shown.
std::string Replace(std::string_view source, const std::string& pattern,
                    const std::string& replacement, int64_t start, bool caseSensitive);

/// Puts a new object into `reg`.
void MakeRegEx();

}  // namespace dunvey::RegExXojo
