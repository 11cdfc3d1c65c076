#include "platform/text/user_language.h"

#include <cstdlib>

namespace dunvey {

std::string UserLanguage() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value == nullptr || *value == '\0') continue;
        const std::string locale = value;
        return locale.substr(0, locale.find_first_of(".@"));
    }
    return {};
}

}  // namespace dunvey
