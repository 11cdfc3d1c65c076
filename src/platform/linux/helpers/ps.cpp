// ps -ax -o comm: a heading, then the full path of what each process runs, one a line.
#include <unistd.h>

#include <csignal>
#include <cstring>

#include "platform/files/file_descriptor.h"
#include "platform/linux/helpers/installed_bundles.h"
#include "platform/linux/helpers/process_list.h"
#include "platform/processes/error_line.h"

namespace dunvey {
namespace {

void AddLine(std::string& list, const std::string& path) {
    for (const char byte : path)
        list += static_cast<unsigned char>(byte) < ' ' || byte == '\x7F' ? '?' : byte;
    list += '\n';
}

/// The list; empty if /proc can't be read.
std::string ListPrograms() {
    const std::vector<pid_t> ids = ProcessList::Ids();
    if (ids.empty()) return {};
    InstalledBundles bundles;
    std::string list = "COMM\n";
    for (const pid_t id : ids) {
        const std::string program = ProcessList::Program(id);
        if (program.empty()) continue;
        for (const std::string& name : bundles.NamesOf(program))
            AddLine(list, name);
    }
    return list;
}

int Fail(const std::string& problem) {
    WriteErrorLine("ps: " + problem);
    return 1;
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    using namespace dunvey;
    std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is a failed write
    const std::vector<std::string> given(arguments + 1, arguments + argumentCount);
    if (given != std::vector<std::string>{"-ax", "-o", "comm"}) {
        WriteErrorLine("usage: ps -ax -o comm");
        return 2;
    }
    const std::string list = ListPrograms();
    if (list.empty()) return Fail("the processes can't be read from /proc. Is it mounted?");
    const int error = WriteFully(STDOUT_FILENO, list);
    return error == 0 ? 0 : Fail(std::string("the list can't be written: ") + std::strerror(error));
}
