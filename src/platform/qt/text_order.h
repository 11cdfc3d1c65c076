#pragma once

#include <cstdint>
#include <string>

namespace dunvey {

/// Compares two names in the order of the user's language, digits by their value: negative, zero or
/// positive; zero for equal texts only.
int64_t CompareAsNames(const std::string& text1, const std::string& text2);

}  // namespace dunvey
