// An application that writes into the document it is handed when it was started.
#include <fcntl.h>
#include <time.h>
#include <unistd.h>

int main(int argc, char** argv) {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    if (argc < 2) return 2;
    const int file = open(argv[1], O_WRONLY);
    return write(file, &now, sizeof now) == sizeof now ? 0 : 1;
}
