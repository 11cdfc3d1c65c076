// osascript -e SCRIPT APP: asks the processes of an application to end, as a small script says.
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/file_descriptor.h"
#include "platform/linux/helpers/bundle.h"
#include "platform/linux/helpers/bundle_processes.h"
#include "platform/linux/helpers/message.h"
#include "platform/linux/helpers/quit_script.h"

namespace dunvey {
namespace {

/// A handle that stays with the process when its id passes to another one; none where the system
/// has no such handles.
FileDescriptor OpenProcess([[maybe_unused]] pid_t id) {
#if defined(SYS_pidfd_open) && defined(SYS_pidfd_send_signal)
    return FileDescriptor(static_cast<int>(syscall(SYS_pidfd_open, id, 0)));
#else
    return FileDescriptor();
#endif
}

/// Sends the request to end. Returns 0 or the errno.
int SendRequest([[maybe_unused]] const FileDescriptor& process, pid_t id) {
#if defined(SYS_pidfd_open) && defined(SYS_pidfd_send_signal)
    if (process) {
        const long sent = syscall(SYS_pidfd_send_signal, process.Get(), SIGTERM, nullptr, 0);
        return sent == 0 ? 0 : errno;
    }
#endif
    return kill(id, SIGTERM) == 0 ? 0 : errno;
}

/// Asks one process to end if it still is the bundle's. False if it refused, after a message.
bool AskToEnd(pid_t id, const Bundle& bundle, const ProcessList& processes) {
    const FileDescriptor process = OpenProcess(id);
    // Only now, behind the opening, is it certain whom the handle means.
    if (!BelongsTo(bundle, processes, id)) return true;
    const int error = SendRequest(process, id);
    if (error == 0 || error == ESRCH) return true;
    Complain("osascript", "process " + std::to_string(id) + " of " + Quoted(bundle.Path()) +
                              " can't be asked to end: " + std::strerror(error) + ".");
    return false;
}

bool QuitApplication(const std::string& path) {
    const std::optional<Bundle> bundle = Bundle::At(path);
    if (!bundle) {
        Complain("osascript",
                 Quoted(path) + " is no application, its folder Contents/MacOS can't be reached: " +
                     std::strerror(errno) + ".");
        return false;
    }
    const ProcessList processes;
    bool isDone = true;
    for (const pid_t id : ProcessesOf(*bundle, processes)) {
        if (id == getpid() || id == getppid()) continue;
        isDone = AskToEnd(id, *bundle, processes) && isDone;
    }
    return isDone;
}

void Delay(double seconds) {
    timespec rest;
    rest.tv_sec = static_cast<time_t>(seconds);
    rest.tv_nsec = static_cast<long>((seconds - static_cast<double>(rest.tv_sec)) * 1e9);
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR)
        continue;
}

/// Goes through the steps, behind one that fails too: the pause keeps a caller that asks again and
/// again from spinning.
bool Run(const std::vector<QuitStep>& steps, const std::string& path) {
    bool isDone = true;
    for (const QuitStep& step : steps) {
        if (step.kind == QuitStep::Kind::Delay)
            Delay(step.seconds);
        else
            isDone = QuitApplication(path) && isDone;
    }
    return isDone;
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    if (words.size() != 3 || words[0] != "-e" || words[2].empty()) {
        dunvey::Complain("osascript", "usage: osascript -e SCRIPT APPLICATION");
        return 2;
    }
    const auto steps = dunvey::ReadQuitScript(words[1]);
    if (!steps) {
        dunvey::Complain("osascript",
                         "the script isn't understood. Only \"quit application NAME\" and \"delay "
                         "SECONDS\" may stand between \"on run {NAME}\" and \"end run\".");
        return 2;
    }
    return dunvey::Run(*steps, words[2]) ? 0 : 1;
}
