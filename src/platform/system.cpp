#include "platform/system.h"

namespace dunvey::System {

std::string _GetLocalizedString(std::string_view, std::string_view text, const std::string&) {
    return std::string(text);
}

}  // namespace dunvey::System
