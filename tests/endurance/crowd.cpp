// A crowd of processes: crowd NUMBER. Prints "ready" once all are there, or "no room", and stays
// with them until it is ended; they end with it.
#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cstdlib>

namespace {

[[noreturn]] void Rest() {
    for (;;)
        pause();
}

int Say(const char* words, size_t length) {
    return write(STDOUT_FILENO, words, length) == static_cast<ssize_t>(length) ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const int number = argumentCount == 2 ? std::atoi(arguments[1]) : 0;
    for (int i = 0; i < number; ++i) {
        const pid_t child = fork();
        if (child < 0) return Say("no room\n", 8);
        if (child == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            Rest();
        }
    }
    if (Say("ready\n", 6) != 0) return 1;
    Rest();
}
