#pragma once

#include <cstring>
#include <string>

#include "platform/processes/error_line.h"

namespace dunvey {

/// A failure; `text` says what, where and what to do.
struct Refusal {
    std::string text;
};

/// Raises Refusal: the path can't be "read" or the like because of an errno.
[[noreturn]] inline void Refuse(const std::string& path, const std::string& action, int error) {
    throw Refusal{Quoted(path) + " can't be " + action + ": " + std::strerror(error) + "."};
}

}  // namespace dunvey
