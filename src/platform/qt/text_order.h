#pragma once

#include <cstdint>
#include <string>

namespace dunvey {

/// Compares two texts as the user's language orders names, digits by their value: negative, zero or
/// positive; zero for equal texts alone.
int64_t CompareAsNames(const std::string& text1, const std::string& text2);

}  // namespace dunvey
