#include "platform/processes/process_setup.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>

#include "platform/processes/error_line.h"

extern char** environ;

namespace dunvey {
namespace {

std::optional<std::vector<std::string>> startEnvironment;

std::vector<std::string> CurrentEnvironment() {
    std::vector<std::string> variables;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry)
        variables.emplace_back(*entry);
    return variables;
}

}  // namespace

FileDescriptor OpenNullDevice() {
    for (;;) {
        const int descriptor = Uninterrupted([] { return open("/dev/null", O_RDWR); });
        if (descriptor < 0 || descriptor > STDERR_FILENO) return FileDescriptor(descriptor);
    }
}

void SetUpProcess() {
    OpenNullDevice();
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    startEnvironment = CurrentEnvironment();
    if (!HasRaisedPrivileges()) return;
    WriteErrorLine(
        "Dunvey: the program file is set-user-ID, set-group-ID or has capabilities. Dunvey starts "
        "other programs and must not run with raised rights. Remove them with chmod ug-s and "
        "setcap -r.");
    _exit(EXIT_FAILURE);
}

std::vector<std::string> StartEnvironment() {
    return startEnvironment ? *startEnvironment : CurrentEnvironment();
}

}  // namespace dunvey
