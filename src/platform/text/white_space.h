#pragma once

#include <string_view>

namespace dunvey {

/// The text without the white space (blank, tab, line ends, form feed) at both ends.
constexpr std::string_view Trim(std::string_view text) {
    constexpr std::string_view kWhite = " \t\n\v\f\r";
    const size_t begin = text.find_first_not_of(kWhite);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kWhite) - begin + 1);
}

}  // namespace dunvey
