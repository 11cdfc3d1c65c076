// osascript -e SCRIPT APP: runs a small script that asks an application to quit.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/helpers/bundle.h"
#include "platform/linux/helpers/process_list.h"
#include "platform/linux/helpers/program_windows.h"
#include "platform/linux/helpers/quit_script.h"
#include "platform/processes/error_line.h"

namespace dunvey {
namespace {

bool Complain(const Bundle& bundle, const std::string& problem) {
    WriteErrorLine("osascript: " + Quoted(bundle.Path()) + " " + problem);
    return false;
}

/// Whether the process was started by the bundle: the program of a start script, for instance.
bool IsMarked(const Bundle& bundle, pid_t process) {
    const std::string application = ProcessList::Variable(process, "DUNVEY_APPLICATION");
    if (application.empty()) return false;
    if (application == bundle.Path()) return true;
    const std::optional<Bundle> marked = Bundle::At(application);
    return marked && marked->RealPrograms() == bundle.RealPrograms();
}

/// Sends SIGTERM. Returns whether none of the processes refused it.
bool Terminate(const Bundle& bundle, const std::vector<pid_t>& processes) {
    bool isDone = true;
    for (const pid_t id : processes) {
        if (kill(id, SIGTERM) == 0 || errno == ESRCH) continue;
        isDone = Complain(bundle, "can't be asked to quit, process " + std::to_string(id) + ": " +
                                      std::strerror(errno) + ".");
    }
    return isDone;
}

bool IsSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// Asks a running application to quit. SIGTERM loses unsaved work, so it is for programs that
/// certainly have no window. Returns whether the request was sent or isn't needed.
bool AskToQuit(const Bundle& bundle, const std::vector<pid_t>& processes) {
    const auto isProgram = [&](pid_t id) {
        return std::find(processes.begin(), processes.end(), id) != processes.end() ||
               IsMarked(bundle, id);
    };
    switch (IsSet("DISPLAY") ? RequestClose(isProgram) : CloseRequest::NoWindow) {
        case CloseRequest::Sent:
        case CloseRequest::Asking:
            return true;
        case CloseRequest::Refused:
            return Complain(bundle, "has no window that can be asked to close. Quit it yourself.");
        case CloseRequest::Hidden:
            return Complain(bundle, "shows no window that could be closed. Quit it yourself.");
        case CloseRequest::NoAnswer:
            return Complain(bundle, "can't be asked to quit: the X server doesn't answer.");
        case CloseRequest::NoWindow:
            break;
    }
    if (!IsSet("WAYLAND_DISPLAY")) return Terminate(bundle, processes);
    return Complain(bundle,
                    "has no X11 window, and Wayland windows can't be asked to close. "
                    "Quit it yourself.");
}

bool QuitApplication(const std::string& path) {
    const std::optional<Bundle> bundle = Bundle::At(path);
    if (!bundle) {
        WriteErrorLine("osascript: " + Quoted(path) +
                       " is no application: its folder Contents/MacOS can't be reached: " +
                       std::strerror(errno) + ".");
        return false;
    }
    std::optional<std::vector<pid_t>> processes = ProcessList::Of(*bundle);
    if (!processes) return Complain(*bundle, "isn't found: /proc can't be read. Is it mounted?");
    std::erase(*processes, getpid());
    std::erase(*processes, getppid());
    return processes->empty() || AskToQuit(*bundle, *processes);
}

void Delay(double seconds) {
    timespec rest;
    rest.tv_sec = static_cast<time_t>(seconds);
    rest.tv_nsec = static_cast<long>((seconds - static_cast<double>(rest.tv_sec)) * 1e9);
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR)
        continue;
}

/// Continues after a step that fails: without the delay, a caller that repeats the request would
/// spin.
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
    using namespace dunvey;
    const std::vector<std::string> given(arguments + 1, arguments + argumentCount);
    if (given.size() != 3 || given[0] != "-e" || given[2].empty()) {
        WriteErrorLine("usage: osascript -e SCRIPT APPLICATION");
        return 2;
    }
    const auto steps = ReadQuitScript(given[1]);
    if (!steps) {
        WriteErrorLine(
            "osascript: the script isn't understood. Only \"quit application NAME\" and \"delay "
            "SECONDS\" may stand between \"on run {NAME}\" and \"end run\".");
        return 2;
    }
    return Run(*steps, given[2]) ? 0 : 1;
}
