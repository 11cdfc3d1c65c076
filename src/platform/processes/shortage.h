#pragma once

#include <cerrno>
#include <ctime>

namespace dunvey {

inline bool IsShortage(int error) {
    return error == EAGAIN || error == EINTR || error == EMFILE || error == ENFILE ||
           error == ENOMEM;
}

/// Makes the call, which returns 0 or an errno, up to four times with pauses of 50 ms while the
/// machine is short of processes, memory or descriptors. After 40 pauses without a success it no
/// longer waits: a run of many commands then waits 2 seconds in all, not for each. The limits are
/// estimates of how long a shortage lasts, not measured. Returns the last result.
template <typename Call>
int RetryOnShortage(Call&& call) {
    constexpr timespec kPause{0, 50'000'000};
    constexpr int kMaxPauses = 40;
    static int pauses = 0;
    int error = call();
    for (int i = 1; i < 4 && IsShortage(error) && pauses < kMaxPauses; ++i, ++pauses) {
        nanosleep(&kPause, nullptr);
        error = call();
    }
    if (error == 0) pauses = 0;
    return error;
}

}  // namespace dunvey
