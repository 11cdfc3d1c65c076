#pragma once

#include <string>
#include <string_view>

namespace dunvey {

/// The reverse of EncodeHex: a byte for each pair of hexadecimal digits, in either letter case.
/// What is no such digit is passed over, a single digit at the end as well.
std::string DecodeHex(std::string_view digits);

}  // namespace dunvey
