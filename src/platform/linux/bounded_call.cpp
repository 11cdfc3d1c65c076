#include "platform/linux/bounded_call.h"

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "platform/files/file_descriptor.h"
#include "platform/processes/spawn.h"

namespace dunvey {
namespace {

using Clock = std::chrono::steady_clock;

/// Waits for a byte; none if the other end is closed without one or the time is over.
std::optional<uint8_t> ReadUntil(int descriptor, Clock::time_point end) {
    for (;;) {
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd waiting{descriptor, POLLIN, 0};
        const int ready = rest > 0 ? poll(&waiting, 1, static_cast<int>(rest)) : 0;
        if (ready < 0 && errno == EINTR) continue;
        char byte = 0;
        if (ready > 0 && ReadFully(descriptor, &byte, 1) == 1) return static_cast<uint8_t>(byte);
        return std::nullopt;
    }
}

}  // namespace

std::optional<uint8_t> CallWithin(int milliseconds, const std::function<uint8_t()>& function) {
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(milliseconds);
    Pipe result;
    if (MakePipe(result) != 0) return std::nullopt;
    const pid_t child = fork();
    if (child < 0) return std::nullopt;
    if (child == 0) {
        const char byte = static_cast<char>(function());
        WriteFully(result.writing.Get(), {&byte, 1});
        _exit(0);
    }
    result.writing.Close();
    const std::optional<uint8_t> value = ReadUntil(result.reading.Get(), end);
    kill(child, SIGKILL);
    Uninterrupted([child] { return waitpid(child, nullptr, 0); });
    return value;
}

}  // namespace dunvey
