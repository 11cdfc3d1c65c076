#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace dunvey {

/// Calls the function in a child process and returns its result; nullopt if it fails or takes
/// longer. For servers that may never answer: a child can be killed, a blocked call in this process
/// can't be interrupted.
std::optional<uint8_t> CallWithin(int milliseconds, const std::function<uint8_t()>& function);

}  // namespace dunvey
