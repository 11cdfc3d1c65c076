// ps -ax -o comm: a heading, then the full path of what each process runs, one a line.
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_descriptor.h"
#include "platform/linux/helpers/message.h"
#include "platform/linux/helpers/process_list.h"

namespace dunvey {
namespace {

bool IsKnownCall(const std::vector<std::string_view>& arguments) {
    return arguments == std::vector<std::string_view>{"-ax", "-o", "comm"};
}

int PrintProcesses() {
    const ProcessList processes;
    const std::vector<pid_t> ids = processes.Ids();
    if (ids.empty()) {
        Complain("ps", "the processes can't be read from /proc. Is it mounted?");
        return 1;
    }
    std::string output = "COMM\n";
    for (const pid_t id : ids) {
        const std::string path = processes.Program(id).path;
        if (!path.empty()) output += PrintableLine(path) + "\n";
    }
    const int error = WriteFully(STDOUT_FILENO, output);
    if (error == 0) return 0;
    Complain("ps", std::string("the list can't be written: ") + std::strerror(error));
    return 1;
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is a failed write, not a sudden end
    if (!dunvey::IsKnownCall({arguments + 1, arguments + argumentCount})) {
        dunvey::Complain("ps", "usage: ps -ax -o comm");
        return 2;
    }
    return dunvey::PrintProcesses();
}
