// One of a crowd of processes: it stands there until it is ended, at the latest with its parent.
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

int main() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (;;)
        pause();
}
