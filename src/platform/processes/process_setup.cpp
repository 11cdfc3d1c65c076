#include "platform/processes/process_setup.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace dunvey {

void SetUpProcess() {
    signal(SIGPIPE, SIG_IGN);
    int opened = open("/dev/null", O_RDWR);
    while (opened >= 0 && opened <= STDERR_FILENO)
        opened = open("/dev/null", O_RDWR);
    if (opened > STDERR_FILENO) close(opened);
}

}  // namespace dunvey
