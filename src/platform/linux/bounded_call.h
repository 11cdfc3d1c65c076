#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace dunvey {

/// Calls the function in a child process and returns its result; none if that takes longer than the
/// time or fails. For a server that may never answer: the child can be killed, and a call of this
/// process couldn't be interrupted.
std::optional<uint8_t> CallWithin(int milliseconds, const std::function<uint8_t()>& function);

}  // namespace dunvey
