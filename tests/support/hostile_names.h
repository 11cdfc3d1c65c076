#pragma once

#include <string>
#include <vector>

namespace dunvey::test {

/// File names that an unquoted command line changes, and one for each byte inside a name.
inline std::vector<std::string> HostileNames() {
    static constexpr const char* kNames[] = {"end\\",
                                             "$(touch canary)",
                                             "\nfirst",
                                             "last\n",
                                             "\n\n",
                                             "\\\n",
                                             "'\n'",
                                             "-dash",
                                             "--help",
                                             "~",
                                             "*",
                                             "#comment",
                                             "\x81\x88\x82 shell marks",
                                             "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E",
                                             "\xE2\x80\xAEright to left",
                                             "...",
                                             "..hidden"};
    std::vector<std::string> names(std::begin(kNames), std::end(kNames));
    names.push_back(std::string(250, 'x'));
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/') names.push_back(std::string("b") + static_cast<char>(byte) + "e");
    }
    return names;
}

}  // namespace dunvey::test
