// ps -ax -o comm: a heading, then the full path of what each process runs, one a line. It is
// started in every run and does without the C++ library, whose start would take half of its time.
#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include "platform/linux/helpers/complaint.h"
#include "platform/linux/helpers/program_lines.h"
#include "platform/processes/system_call.h"

namespace dunvey {
namespace {

bool IsKnownCall(int count, char** arguments) {
    static constexpr Slice kArguments[] = {"-ax", "-o", "comm"};
    int place = 1;
    for (const Slice& known : kArguments) {
        if (place >= count || !(known == arguments[place])) return false;
        ++place;
    }
    return place == count;
}

[[noreturn]] void Fail(Slice problem, Slice detail = {}) {
    Complain("ps", problem, detail);
    exit(1);
}

/// Ends the process, with all in place: to give memory back takes time.
[[noreturn]] void PrintProcesses() {
    const ProcessFolder folder;
    ProgramLines programs(folder);
    Row<char> lines;
    AddLine(lines, "COMM");
    if (!programs.AddTo(lines)) Fail("the processes can't be read from /proc. Is it mounted?");
    if (lines.IsCutShort()) Fail("there isn't enough memory for the list. End some programs.");
    const int error = WriteFully(STDOUT_FILENO, lines.begin(), lines.Count());
    if (error != 0) Fail("the list can't be written: ", strerror(error));
    exit(0);
}

}  // namespace
}  // namespace dunvey

int main(int argumentCount, char** arguments) {
    signal(SIGPIPE, SIG_IGN);  // a closed pipe is a failed write, not a sudden end
    if (!dunvey::IsKnownCall(argumentCount, arguments)) {
        dunvey::Complain("ps", "usage: ps -ax -o comm");
        return 2;
    }
    dunvey::PrintProcesses();
}
